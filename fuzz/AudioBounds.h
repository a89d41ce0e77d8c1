// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Fuzzing.h"
#include "platform/CodePage.h"

#include <string>

namespace calyvox::Fuzz {

/// The lengths of the tags at both ends of a file, by their own claims.
struct Tags {
    explicit Tags(const std::string& file) {
        if (CodePage::EqualNoCase(file.substr(0, 3), "ID3")) {
            for (std::size_t i = 6; i < 10; ++i)
                Head = Head * 128 + static_cast<unsigned char>(file[i]);
            Head += file[3] == 4 && (file[5] & 16) != 0 ? 20 : 10;
        }
        if (CodePage::EqualNoCase(file.substr(file.size() - 128, 3), "TAG")) Tail = 128;
    }
    std::size_t Head = 0;
    std::size_t Tail = 0;
};

/// A file that was written has its audio as before, and nothing else but tags.
inline void CheckAudio(const std::string& before, const std::string& after) {
    if (after == before) return;
    const Tags old(before);
    Require(old.Head + old.Tail <= before.size(), "nothing is written where nobody knows the audio");
    const std::string audio = before.substr(old.Head, before.size() - old.Head - old.Tail);
    const std::size_t head = Tags(after).Head;
    Require(after.size() == head + audio.size() + old.Tail, "the new length is that of tags and audio");
    Require(after.compare(head, audio.size(), audio) == 0, "the audio is whole");
}

/// What is left of a file when its tags are removed.
inline void CheckAudioAlone(const std::string& before, const std::string& after) {
    const Tags old(before);
    Require(after == before.substr(old.Head, before.size() - old.Head - old.Tail), "the audio alone is left");
}

} // namespace calyvox::Fuzz
