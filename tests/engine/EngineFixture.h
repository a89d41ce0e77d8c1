// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/MP3.h"
#include "engine/TagReader.h"
#include "engine/V2BinFrame.h"
#include "engine/V2LDCFrame.h"
#include "engine/V2POPMFrame.h"
#include "engine/V2TextFrame.h"
#include "engine/V2UserTexWebFrame.h"
#include "engine/V2WebFrame.h"
#include "platform/Failure.h"
#include "support/HostScope.h"
#include "support/Mp3Builder.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace calyvox {

using namespace std::string_literals;
using FramePtr = std::unique_ptr<V2Frame>;

/// Calls with the frame as the class that it is.
template <typename Call>
void Visit(V2Frame& frame, Call call) {
    const auto visit = [&call](auto* found) {
        if (found) call(*found);
    };
    visit(dynamic_cast<V2TextFrame*>(&frame));
    visit(dynamic_cast<V2WebFrame*>(&frame));
    visit(dynamic_cast<V2LDCFrame*>(&frame));
    visit(dynamic_cast<V2UserTexWebFrame*>(&frame));
    visit(dynamic_cast<V2POPMFrame*>(&frame));
    visit(dynamic_cast<V2BinFrame*>(&frame));
}

/// A frame with what its class has of these. The content is a popularimeter's counter too, the descriptor its
/// user, the number its rating; of any other class the number is the encoding.
inline FramePtr Make(const std::string& id, const std::string& content, std::uint8_t number = 0,
                     const std::string& descriptor = {}, const std::string& lan = {}) {
    FramePtr frame = MakeFrame(id);
    Visit(*frame, [&](auto& f) {
        if constexpr (requires { f.SetTextEnc(number); }) f.SetTextEnc(number);
        if constexpr (requires { f.SetLan(lan); }) f.SetLan(lan);
        if constexpr (requires { f.SetDescriptor(lan); }) f.SetDescriptor(descriptor);
        if constexpr (requires { f.SetContent(lan); }) f.SetContent(content);
        if constexpr (requires { f.SetUser(lan); }) f.SetUser(descriptor);
        if constexpr (requires { f.SetRating(number); }) f.SetRating(number);
        if constexpr (requires { f.SetCounter(lan); }) f.SetCounter(content);
    });
    return frame;
}

/// What a frame says, parted by "|": encoding, language, descriptor, content; user, rating, counter.
inline std::string Fields(V2Frame& frame) {
    std::string fields;
    Visit(frame, [&fields](auto& f) {
        if constexpr (requires { f.TextEnc(); }) fields += std::to_string(f.TextEnc()) + "|";
        if constexpr (requires { f.Lan(); }) fields += f.Lan() + "|";
        if constexpr (requires { f.Descriptor(); }) fields += f.Descriptor() + "|";
        if constexpr (requires { f.Content(); }) fields += f.Content();
        if constexpr (requires { f.User(); }) fields += f.User() + "|" + std::to_string(f.Rating()) + "|";
        if constexpr (requires { f.Counter(); }) fields += f.Counter();
    });
    return fields;
}

/// A header of a tag that is there, of so many bytes.
inline TagHeader HeaderOf(int version, std::int64_t size = 0, bool footer = false) {
    TagHeader header;
    header.SetVersion(static_cast<std::uint8_t>(version));
    header.SetPresent(true);
    header.SetSize(size);
    if (footer) header.SetFooterPresent(true);
    return header;
}

inline const std::string kRecord = build::Id3v1({"One", "Two", "Three", "2004", "Four", 5, 6});

/// The engine's host, a folder, and "a.mp3" in it as a handle and as an object.
class EngineTest : public testing::Test {
protected:
    MP3File& Open(const std::string& bytes) {
        file_.SetFilename(folder_.Write("a.mp3", bytes));
        EXPECT_TRUE(file_.OpenFile());
        return file_;
    }
    /// The status of a fresh object.
    int Explore(const std::string& bytes) {
        mp3_ = MP3();
        return mp3_.ExploreMP3(folder_.Write("a.mp3", bytes));
    }

    HostScope host_;
    TempFolder folder_;
    MP3File file_;
    MP3 mp3_;
};

} // namespace calyvox
