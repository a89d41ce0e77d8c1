// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace calyvox {
class ID3V2Fields;
class MainWindow;
class MP3;
} // namespace calyvox

/// What the ID3V2 editor takes from the file's ID3V1 tag and puts into it.
namespace calyvox::ID3V1Exchange {

/// The control array ID3V1: what the button stands beside.
enum Button { Artist, Title, Album, Track, Year, Genres, Comments, SingleGenre, SingleComment };

/// One field goes into the control beside its button. An empty one, and a file without the tag, leave the
/// control as it is.
void ID3V1_Click(int button, const MP3& file, ID3V2Fields& fields);
/// All fields, genre and comment into the lists in either layout.
void btnImport_Click(const MP3& file, ID3V2Fields& fields);
/// The controls into the ID3V1 tag of a row's file, at once. Row and file are marked where anything differs.
/// Failure 6 for a track that is no byte; what came before it is stored then, and nothing marked.
void btnExport_Click(const ID3V2Fields& fields, MainWindow& window, std::size_t row);

} // namespace calyvox::ID3V1Exchange
