// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/EngineFixture.h"

#include <commentsframe.h>
#include <id3v1tag.h>
#include <id3v2tag.h>
#include <mpegfile.h>
#include <privateframe.h>

using namespace calyvox;

namespace {

std::string Bytes(const TagLib::ByteVector& bytes) { return {bytes.data(), bytes.size()}; }

// Every frame with what the other reader says of it, a line each.
std::string Dump(const TagLib::ID3v2::Tag& tag) {
    std::string dump = std::to_string(tag.header()->majorVersion()) + "\n";
    for (const TagLib::ID3v2::Frame* frame : tag.frameList()) {
        dump += Bytes(frame->frameID()) + " " + frame->toString().to8Bit();
        if (const auto* comment = dynamic_cast<const TagLib::ID3v2::CommentsFrame*>(frame))
            dump += " " + Bytes(comment->language()) + " " + comment->description().to8Bit();
        if (const auto* opaque = dynamic_cast<const TagLib::ID3v2::PrivateFrame*>(frame))
            dump += " " + Bytes(opaque->data());
        dump += "\n";
    }
    return dump;
}

using ForeignReaderTest = EngineTest;

TEST_F(ForeignReaderTest, AnotherReaderFindsTheSameValues) {
    const std::string tricky = "\xFF\xE0 \xFF"; // looks like audio, and ends in half of it
    const std::string opaque = "owner\0\xFF\0\xFF\xFB\xFF\0z"s;
    for (const std::uint8_t version : {std::uint8_t{3}, std::uint8_t{4}})
        for (const bool unSync : {false, true}) {
            Host().WriteUnSync = unSync;
            Host().NewTagVersion = [version] { return version; };
            Explore(build::Audio());
            mp3_.SetTagHeader_Present(true);
            ID3V2& frames = mp3_.ID3V2();
            frames.Add(Make("TIT2", tricky), {}, false);
            frames.Add(Make("WOAR", "http://\xC4"), {}, false);
            frames.Add(Make("COMM", tricky, 0, "d\xFF\xFF", "deu"), {}, false);
            frames.Add(Make("TXXX", "v\xFF\xF0", 0, "key"), {}, false);
            frames.Add(Make("POPM", "\1\1\1\1", 255, "\xFF\xE1"), {}, false);
            frames.Add(Make("PRIV", opaque), {}, false);
            mp3_.SetID3V1_Present(true);
            mp3_.SetID3V1_Title("\xC4");
            EXPECT_TRUE(mp3_.WriteTags(true, false));
            TagLib::MPEG::File file(folder_.Host("a.mp3").c_str());
            EXPECT_EQ(
                Dump(*file.ID3v2Tag(true)),
                std::to_string(version) + "\nTIT2 " + tricky + "\nWOAR http://\xC4\nCOMM " + tricky +
                    " deu d\xFF\xFF\nTXXX [key] v\xFF\xF0\nPOPM \xFF\xE1 rating=255 counter=16843009\n" +
                    "PRIV owner " + opaque.substr(6) + (version == 4 ? "\0\n"s : "\n"));
            EXPECT_EQ(file.ID3v2Tag()->header()->unsynchronisation(), unSync);
            EXPECT_EQ(file.ID3v1Tag(true)->title().to8Bit(), "\xC4");
            EXPECT_EQ(file.audioProperties()->bitrate(), 128);
        }
}

// A title in UTF-16, with and without a terminator, under a tag that is saved again and again.
TEST_F(ForeignReaderTest, AUnicodeTitleSurvivesTenSavesOfAnotherField) {
    const std::string kA = "\xFF\xFEn\0"s, kMacron = "\xFF\xFE\0\1"s, kEnd = "\0\0"s;
    for (const int version : {3, 4})
        for (const std::string& text : {kA, kA + kEnd, kMacron, kMacron + kEnd}) {
            const std::string tag = build::Tag(version, build::Frame(version, "TIT2", "\1" + text));
            const wchar_t expected[] = {text[2] == 'n' ? L'n' : wchar_t{0x100}, 0};
            std::string bytes = tag + build::Audio();
            for (int save = 0; save < 10; ++save) {
                ASSERT_EQ(Explore(bytes), 240);
                mp3_.ID3V2().Add(Make("TPE1", "x"), {}, false);
                ASSERT_TRUE(mp3_.WriteTags(true, false) && mp3_.WriteTags(true, false));
                TagLib::MPEG::File file(folder_.Host("a.mp3").c_str());
                EXPECT_EQ(file.ID3v2Tag()->title(), TagLib::String(expected)) << version;
                bytes = folder_.Read("a.mp3");
            }
        }
}

} // namespace
