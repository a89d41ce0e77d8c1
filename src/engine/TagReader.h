// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace calyvox {

class ID3V2;
class MP3File;
class TagHeader;
class V2Frame;

/// Reads all frames from the file's position, behind header and extended header, into the collection, in
/// file order, duplicates included. Ends at the padding, at the tag's end, at an unknown frame that claims
/// too much, and at any frame of 2^31 bytes or more. Only failures outside a frame's own body are thrown.
void ReadFrames(MP3File& file, const TagHeader& tag, ID3V2& frames);

/// A new frame of the class that carries the ID, in exact letter case, with the ID set.
std::unique_ptr<V2Frame> MakeFrame(const std::string& id);

} // namespace calyvox
