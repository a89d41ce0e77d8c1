// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "Library.h"

#include "platform/HostPath.h"
#include "support/Mp3Builder.h"
#include "support/TempFolder.h"

#include <filesystem>

namespace calyvox::Bench {

namespace {

constexpr std::size_t kAudioFrameLength = 417;

std::string TagOf(const Layout& layout) {
    const auto text = [](const char* id, const char* value) { return build::Text(3, id, value); };
    std::string frames = text("TIT2", "The Distance Between") + text("TPE1", "Hollow Lanterns") +
                         text("TALB", "Far From the Rails") + text("TYER", "1998") + text("TRCK", "07/12") +
                         text("TCON", "(17)") + text("TCOM", "Marlow") + text("TENC", "An encoder");
    frames += build::Frame(3, "COMM", std::string("\0eng\0", 5) + "A comment of a usual length");
    frames += build::Frame(3, "TXXX", std::string("\0Mood\0", 6) + "Calm");
    if (layout.PictureLength > 0) {
        const std::string front("\0image/jpeg\0\3\0", 14);
        frames += build::Frame(3, "APIC", front + build::Audio(layout.PictureLength / kAudioFrameLength));
    }
    return build::Tag(3, frames + build::Nuls(layout.Padding));
}

} // namespace

Library::Library(const std::string& hostFolder, const Layout& layout) {
    const std::string tag = TagOf(layout);
    const std::string file = tag + build::Audio(layout.AudioLength / kAudioFrameLength) +
                             build::Id3v1({"The Distance Between", "Hollow Lanterns", "Far From the Rails",
                                           "1998", "A comment", 7, 17});
    tagLength_ = tag.size();
    fileLength_ = file.size();
    std::filesystem::create_directories(hostFolder);
    for (std::size_t i = 0; i < layout.Files; ++i) {
        hostPaths_.push_back(hostFolder + "/" + std::to_string(i) + ".mp3");
        paths_.push_back(HostPath::FromHost(hostPaths_.back()));
        WriteHostFile(hostPaths_.back(), file);
    }
}

} // namespace calyvox::Bench
