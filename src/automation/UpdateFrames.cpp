// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "automation/UpdateFrames.h"

#include "engine/ID3V2.h"
#include "engine/V2LDCFrame.h"
#include "engine/V2POPMFrame.h"
#include "engine/V2TextFrame.h"
#include "engine/V2WebFrame.h"
#include "platform/CodePage.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace calyvox {

namespace {

constexpr std::string_view kTextKeys = "TPE1 TPE2 TPE3 TPE4 TIT1 TIT2 TIT3 TALB TBPM TDLY TENC TEXT TFLT "
                                       "TKEY TLAN TCOM TMED TOAL TOFN TOLY TOPE "
                                       "TORY TOWN TPOS TPUB TRCK TRSN TRSO TSIZ TSRC TSSE TYER TSST TCOP "
                                       "TLEN IPLS TDOR TDRC TDRL TDTG TIPL TMCL "
                                       "TMOO TPRO TSOA TSOP TSOT ";
constexpr const char* kCommentLanguage = "eng";

void Enter(ID3V2& frames, std::unique_ptr<V2Frame> frame, bool remove) {
    frame->SetRemove(remove);
    frames.Add(std::move(frame), {}, false);
}

void AddText(ID3V2& frames, std::string id, const std::string& content, std::uint8_t version) {
    if (version == 4 && id == "TYER") id = "TDRC";
    if (version == 4 && id == "TORY") id = "TDOR";
    auto frame = std::make_unique<V2TextFrame>();
    frame->SetFrameHeader_FrameID(id);
    frame->SetContent(content);
    const bool remove = frame->Content().empty();
    Enter(frames, std::move(frame), remove);
}

std::string Genres(std::string value) {
    std::replace(value.begin(), value.end(), kPartEnd, '\0');
    if (!value.empty() && value.back() == '\0') value.pop_back();
    return value;
}

void AddWeb(ID3V2& frames, const std::string& id, const std::string& content) {
    auto frame = std::make_unique<V2WebFrame>();
    frame->SetFrameHeader_FrameID(id);
    frame->SetContent(content);
    const bool remove = frame->Content().empty();
    Enter(frames, std::move(frame), remove);
}

using Pair = std::pair<std::string, std::string>;

// Closes the last part, and adds an empty one where their number is odd.
std::vector<Pair> PairsOf(const std::string& value) {
    std::string text = CodePage::Trim(value);
    if (text.empty() || text.back() != kPartEnd) text += kPartEnd;
    if (std::count(text.begin(), text.end(), kPartEnd) % 2 != 0) text += kPartEnd;
    std::vector<Pair> pairs;
    while (!text.empty()) {
        const std::size_t middle = text.find(kPartEnd);
        const std::size_t end = text.find(kPartEnd, middle + 1);
        pairs.emplace_back(text.substr(0, middle), text.substr(middle + 1, end - middle - 1));
        text.erase(0, end + 1);
    }
    return pairs;
}

void AddComment(ID3V2& frames, const std::string& id, const Pair& pair) {
    auto frame = std::make_unique<V2LDCFrame>();
    frame->SetFrameHeader_FrameID(id);
    frame->SetLan(kCommentLanguage);
    frame->SetDescriptor(pair.first);
    frame->SetContent(pair.second);
    const bool remove = frame->Content().empty();
    Enter(frames, std::move(frame), remove);
}

void AddRating(ID3V2& frames, const std::string& id, const Pair& pair) {
    auto frame = std::make_unique<V2POPMFrame>();
    frame->SetFrameHeader_FrameID(id);
    frame->SetUser(pair.first);
    frame->SetRating(CodePage::LeadingByte(pair.second));
    const bool remove = frame->Rating() == 0;
    Enter(frames, std::move(frame), remove);
}

} // namespace

FrameKeyKind KindOfFrameKey(const std::string& key) {
    const std::string id = key.substr(0, 4);
    if (id == "TCON") return FrameKeyKind::Genre;
    if (id == "WCOM") return FrameKeyKind::Web;
    if (id == "COMM") return FrameKeyKind::Comment;
    if (id == "POPM") return FrameKeyKind::Rating;
    const bool whole = id.size() == 4 && id.find(' ') == std::string::npos;
    return whole && kTextKeys.find(id + ' ') != std::string_view::npos ? FrameKeyKind::Text
                                                                       : FrameKeyKind::None;
}

void AddFramesOfKey(ID3V2& frames, const std::string& key, const std::string& value, std::uint8_t version) {
    const std::string id = key.substr(0, 4);
    switch (KindOfFrameKey(key)) {
    case FrameKeyKind::Text:
        AddText(frames, id, value, version);
        break;
    case FrameKeyKind::Genre:
        AddText(frames, id, Genres(value), version);
        break;
    case FrameKeyKind::Web:
        AddWeb(frames, id, value);
        break;
    case FrameKeyKind::Comment:
        for (const Pair& pair : PairsOf(value))
            AddComment(frames, id, pair);
        break;
    case FrameKeyKind::Rating:
        for (const Pair& pair : PairsOf(value))
            AddRating(frames, id, pair);
        break;
    case FrameKeyKind::None:
        break;
    }
}

} // namespace calyvox
