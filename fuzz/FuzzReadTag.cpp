// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "AudioBounds.h"
#include "Fuzzing.h"
#include "engine/EngineHost.h"
#include "engine/MP3.h"
#include "engine/Tables.h"
#include "engine/V2UserTexWebFrame.h"
#include "platform/Failure.h"
#include "support/Mp3Builder.h"

#include <memory>

using calyvox::MP3;
namespace Fuzz = calyvox::Fuzz;

namespace {

void BuildFrames(MP3& mp3) {
    for (const std::uint8_t version : {3, 4}) {
        calyvox::TagHeader header;
        header.SetVersion(version);
        for (calyvox::V2Frame& frame : mp3.ID3V2())
            calyvox::Skip([&] { frame.CreateFrame(header); });
    }
}

void AddTextAndWrite(MP3& mp3) {
    auto frame = std::make_unique<calyvox::V2UserTexWebFrame>();
    frame->SetFrameHeader_FrameID("TXXX");
    frame->SetDescriptor("Fuzz");
    frame->SetContent(std::string(300, 'x'));
    mp3.ID3V2().Add(std::move(frame), {}, false);
    if (!mp3.TagHeader_Present()) mp3.SetTagHeader_Present(true);
    mp3.WriteTags(true, false);
}

void WorkOn(const std::string& path, const std::string& bytes) {
    MP3 mp3;
    if (mp3.ExploreMP3(path) < MP3::kOpened) return;
    BuildFrames(mp3);
    AddTextAndWrite(mp3);
    const std::string written = Fuzz::Folder().Read("a.mp3");
    Fuzz::CheckAudio(bytes, written);
    mp3.RemoveID3V1();
    mp3.RemoveID3V2();
    if (!mp3.WriteTags(true, false)) return;
    Fuzz::CheckAudioAlone(written, Fuzz::Folder().Read("a.mp3"));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool ready = (calyvox::BuildTables(), true);
    std::string bytes = Fuzz::AsText(data, size);
    // What is too short to be read has audio behind it.
    if (ready && size < calyvox::MP3File::kLeastLength) bytes += calyvox::build::Audio(1);
    calyvox::Host().WriteUnSync = size % 2 != 0;
    const std::string path = Fuzz::Folder().Write("a.mp3", bytes);
    calyvox::Skip([&] { WorkOn(path, bytes); });
    Fuzz::Require(Fuzz::Folder().Listing() == "a.mp3 ", "no other file stays");
    return 0;
}
