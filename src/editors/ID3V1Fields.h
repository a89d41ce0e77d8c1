// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace calyvox {

class MainWindow;
class MP3;

/// What the controls of the ID3V1 editor hold, and how it comes from a file and goes into it. Only objects
/// and the file's row change.
struct ID3V1Fields {
    std::string Artist;
    std::string Title;
    std::string Album;
    std::string Track;
    std::string Year;
    std::string Comment;
    std::size_t Genre = 0; // row of GenreRows()

    /// Of a file without the tag all are empty.
    static ID3V1Fields LoadTag(const MP3& file);
    /// Into the file of a row. Nothing is touched where the trimmed fields say what the tag says already.
    void SaveTag(MainWindow& window, std::size_t row) const;

private:
    ID3V1Fields Trimmed() const;
    std::uint8_t TrackNumber() const;
    std::uint8_t GenreNumber() const;
    bool SaysTheSameAs(const MP3& file) const;
};

} // namespace calyvox
