// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/EngineFixture.h"
#include "platform/CodePage.h"

#include <filesystem>

using namespace calyvox;

namespace {

// The bytes between the tags, by the formats' own layouts.
std::string AudioOf(const std::string& bytes) {
    std::size_t start = 0;
    if (CodePage::EqualNoCase(bytes.substr(0, 3), "ID3")) {
        for (int i = 6; i < 10; ++i)
            start = start * 128 + static_cast<unsigned char>(bytes[i]);
        start += bytes[3] == 4 && (bytes[5] & 16) != 0 ? 20 : 10;
    }
    const bool record = CodePage::EqualNoCase(bytes.substr(bytes.size() - 128, 3), "TAG");
    const std::size_t end = bytes.size() - (record ? 128 : 0);
    return start < end ? bytes.substr(start, end - start) : "";
}

using CorpusTest = EngineTest;

// A file is saved with its audio as it was, or refused with a box and left alone.
TEST_F(CorpusTest, SavingForeignFilesKeepsTheirAudio) {
    if (!std::filesystem::is_directory(CALYVOX_CORPUS)) return;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(CALYVOX_CORPUS))
        for (const bool unSync : {false, true}) {
            if (!entry.is_regular_file()) continue;
            host_.Boxes.clear();
            Host().WriteUnSync = unSync;
            const std::string before = ReadHostFile(entry.path().string());
            Explore(before);
            mp3_.ID3V2().Add(Make("TXXX", "one frame more", 0, "corpus"), {}, false);
            mp3_.SetTagHeader_Present(true);
            const bool saved = mp3_.WriteTags(true, false);
            const std::string after = folder_.Read("a.mp3");
            EXPECT_TRUE(saved ? AudioOf(after) == AudioOf(before) : after == before && !host_.Boxes.empty())
                << entry.path();
            EXPECT_EQ(folder_.Listing(), "a.mp3 ");
        }
}

} // namespace
