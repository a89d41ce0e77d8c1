// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/KeyedCollection.h"
#include "engine/V2Frame.h"

#include <memory>
#include <string>

namespace calyvox {

class TagHeader;

/// The frames of a tag in file order. Decides which frames may stand several times and which replace each
/// other, knows whether the tag was changed, and builds the whole tag. A frame is removed by adding it with
/// Remove true and calling ClearFrames. Failures of the collection and of building are thrown.
class ID3V2 {
public:
    using Frames = KeyedCollection<V2Frame>;

    /// The complete tag: header, frames, padding, footer. It fills the room of the old tag exactly where the
    /// frames fit; otherwise it grows to a multiple of 1024 bytes with at least one NUL of padding.
    std::string CreateID3V2(TagHeader& newHeader, const TagHeader& oldHeader);
    /// Enters a frame at the end, under its key if that is not empty. Unless loading, it takes the place of
    /// its like, and Changed tells whether the tag says something new.
    V2Frame& Add(std::unique_ptr<V2Frame> frame, const std::string& key, bool loading);
    /// Drops all frames whose Remove is true; Changed stays.
    void ClearFrames();

    V2Frame& Item(std::int64_t index) { return frames_.Item(index); }
    V2Frame& Item(const std::string& key) { return frames_.Item(key); }
    std::int64_t Count() const { return frames_.Count(); }
    /// Takes one frame out at once; Changed stays.
    void Remove(std::int64_t index) { frames_.Remove(index); }
    void Remove(const std::string& key) { frames_.Remove(key); }
    Frames::Enumerator begin() { return frames_.begin(); }
    Frames::Enumerator end() { return frames_.end(); }

    bool Changed() const { return changed_; }
    void SetChanged(bool changed) { changed_ = changed; }

private:
    bool ReplaceSingle(const V2Frame& frame);
    void KeepOneComment(const V2Frame& frame);
    bool ReplaceMulti(const V2Frame& frame);

    Frames frames_;
    bool changed_ = false;
};

} // namespace calyvox
