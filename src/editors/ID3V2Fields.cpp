// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/ID3V2Fields.h"

#include "app/Services.h"
#include "app/modBase.h"
#include "app/modReport.h"
#include "editors/CommentList.h"
#include "editors/DateFrames.h"
#include "editors/FrameControls.h"
#include "editors/LanguageList.h"
#include "engine/V2BinFrame.h"
#include "engine/V2LDCFrame.h"
#include "engine/V2POPMFrame.h"
#include "engine/V2TextFrame.h"
#include "engine/V2UserTexWebFrame.h"
#include "engine/V2WebFrame.h"
#include "mainwindow/MainWindow.h"
#include "platform/CodePage.h"
#include "platform/Failure.h"

#include <algorithm>

namespace calyvox {

namespace {

constexpr std::uint8_t kUtf8 = 3;

bool HasNul(const std::string& text) { return text.find('\0') != std::string::npos; }

// What a date box cannot show as it is: more than its four characters, or what parts lines and texts.
bool BoxSpoils(const std::string& id, const std::string& content) {
    constexpr std::size_t kBox = 4;
    const bool ofBox = id != "TDRC" && id != "TDOR";
    return (ofBox && content.size() > kBox) ||
           content.find_first_of(std::string("\0\r\n", 3)) != std::string::npos;
}

std::string ContentOf(const V2Frame& frame) {
    if (const auto* text = dynamic_cast<const V2TextFrame*>(&frame)) return text->Content();
    if (const auto* web = dynamic_cast<const V2WebFrame*>(&frame)) return web->Content();
    if (const auto* described = dynamic_cast<const V2LDCFrame*>(&frame)) return described->Content();
    if (const auto* user = dynamic_cast<const V2UserTexWebFrame*>(&frame)) return user->Content();
    if (const auto* bytes = dynamic_cast<const V2BinFrame*>(&frame)) return bytes->Content();
    return {};
}

std::uint8_t TextEncOf(const V2Frame& frame) {
    if (const auto* text = dynamic_cast<const V2TextFrame*>(&frame)) return text->TextEnc();
    if (const auto* described = dynamic_cast<const V2LDCFrame*>(&frame)) return described->TextEnc();
    return 0;
}

void AddCheckedRow(RowList& rows, const std::string& text, std::int64_t counter) {
    rows.Add(text);
    rows.SetTag(rows.Count() - 1, counter);
    rows.SetChecked(rows.Count() - 1, true);
}

void ShowLoadError() {
    modBase::ShowMessage("Error while reading the ID3V2-TAG! Perhaps a frame has a wrong size.\r"
                         "ID3V2-TAG cannot be read, but is put into the ID3V2-TAG Rest.",
                         MsgBox::kExclamation, "ID3V2-TAG Error!");
}

} // namespace

ID3V2Fields::ID3V2Fields() : Language(DefaultLanguageRow()) {}

const std::string& ID3V2Fields::Text(const std::string& control) const {
    static const std::string empty;
    const auto at = texts_.find(control);
    return at == texts_.end() ? empty : at->second;
}

void ID3V2Fields::SetText(const std::string& control, const std::string& text) {
    if (text == Text(control)) return;
    texts_[control] = text;
    keptDates_.erase(control);
    if (control == "TORY") keptDates_.erase("TDOR");
    if (control == "TYER" || control == "TDAT" || control == "TIME") keptDates_.erase("TDRC");
}

void ID3V2Fields::ClearControls() {
    texts_.clear();
    keptDates_.clear();
    loadedGenres_.clear();
    genreContent_.clear();
    holdsUnicode_ = false;
    for (RowList* rows : {&CommInfoList, &GenreList, &POPMList, &SupportList, &COMMList})
        rows->Clear();
}

void ID3V2Fields::LoadTag(MainWindow& window, std::size_t row) {
    try {
        ReportLine(std::to_string(window.FileList.At(row).Tag));
        MP3& file = window.FileOf(row);
        version_ = VersionOf(file);
        texts_["SelectedFile"] = file.MP3File_FileName();
        std::int64_t counter = 0;
        for (V2Frame& frame : file.ID3V2()) {
            ++counter;
            try {
                ShowFrame(file.ID3V2(), frame, counter);
            } catch (const Failure& failure) {
                if (failure.Number() == Failure::kInvalidCall) throw;
            }
        }
    } catch (const Failure& failure) {
        if (failure.Number() == Failure::kInvalidCall) return ShowLoadError();
    }
    if (COMMList.Count() == 0) return;
    COMMList.SelectOnly(0, 0);
    COMMList.SetCurrent(0);
}

void ID3V2Fields::ShowFrame(ID3V2& tag, V2Frame& frame, std::int64_t counter) {
    const std::string& id = frame.FrameHeader_FrameID();
    const std::string content = ContentOf(frame);
    if (id == "POPM") return ShowRating(frame, counter);
    if (id == "WCOM") {
        CommInfoList.Add(content);
        return;
    }
    const bool date = ShowDate(id, content);
    if (id == "COMM")
        ShowComment(tag, frame);
    else if (id == "TCON")
        ShowGenres(content);
    else if (id == "TRCK" || id == "TPOS")
        ShowPair(id, content);
    else if (FrameControls::Shows(id) && !date)
        texts_[id] = content;
    else if (!date) {
        AddCheckedRow(SupportList, id, counter);
        SupportList.SetCell(SupportList.Count() - 1, 1, content);
        return;
    }
    NoteEncoding(frame);
}

// What the boxes would spoil goes back as it was read. A frame of the other version's family, which is not
// written anew, fills no box with half letters either.
bool ID3V2Fields::ShowDate(const std::string& id, const std::string& content) {
    const bool ofVersion4 = id == "TDRC" || id == "TDOR";
    if (!ofVersion4 && id != "TYER" && id != "TDAT" && id != "TIME" && id != "TORY") return false;
    keptDates_.erase(id);
    if (BoxSpoils(id, content)) keptDates_[id] = content;
    if (HasNul(content) && ofVersion4 != (version_ != 3)) return true;
    if (!ofVersion4) texts_[id] = HasNul(content) ? content : content.substr(0, 4);
    if (id == "TDOR") texts_["TORY"] = content.substr(0, 4);
    if (id == "TDRC") {
        const DateFrames::Boxes boxes = DateFrames::FromTDRC(content);
        texts_["TYER"] = boxes.Year;
        if (boxes.Date) texts_["TDAT"] = *boxes.Date;
        if (boxes.Time) texts_["TIME"] = *boxes.Time;
    }
    return true;
}

void ID3V2Fields::ShowPair(const std::string& control, const std::string& content) {
    const std::size_t slash = content.find('/');
    texts_[control] = content.substr(0, slash);
    if (slash != std::string::npos) texts_[control + "Total"] = content.substr(slash + 1);
}

// A NUL parts genres, of two-byte text even letters. So what was not changed goes back whole, also where the
// single layout shows the first alone.
void ID3V2Fields::ShowGenres(const std::string& content) {
    const bool single = modBase::SingleCOMMGenre();
    const bool first = ShownGenres().empty();
    if (single) {
        texts_["TCONSingle"] = CodePage::Trim(content.substr(0, content.find('\0')));
    } else {
        std::string text = content;
        for (std::size_t nul = text.find('\0'); nul != std::string::npos; nul = text.find('\0')) {
            GenreList.Add(CodePage::Trim(text.substr(0, nul)));
            text.erase(0, nul + 1);
        }
        if (!text.empty()) GenreList.Add(CodePage::Trim(text));
    }
    loadedGenres_ = ShownGenres();
    genreContent_ = first && HasNul(content) ? content : loadedGenres_;
}

void ID3V2Fields::ShowComment(ID3V2& tag, V2Frame& frame) {
    auto* comment = dynamic_cast<V2LDCFrame*>(&frame);
    if (!comment) return;
    if (!modBase::SingleCOMMGenre()) {
        if (LanguageRowOf(comment->Lan()) == kNoLanguage) {
            comment->SetLan(LanguageCode(DefaultLanguageRow()));
            tag.SetChanged(true);
        }
        CommentList::AddRow(COMMList, comment->Descriptor(), comment->Lan(), comment->Content());
        return;
    }
    if (!Text("Comment").empty()) return;
    texts_["Comment"] = comment->Content();
    texts_["Descriptor"] = comment->Descriptor();
    const std::size_t language = LanguageRowOfExact(comment->Lan());
    if (language != kNoLanguage) Language = language;
}

void ID3V2Fields::ShowRating(V2Frame& frame, std::int64_t counter) {
    const auto* rating = dynamic_cast<const V2POPMFrame*>(&frame);
    if (!rating) return;
    AddCheckedRow(POPMList, rating->User(), counter);
    POPMList.SetCell(POPMList.Count() - 1, 1, std::to_string(rating->Rating()));
    POPMList.SetCell(POPMList.Count() - 1, 2, rating->Counter());
}

// UTF-8 that has but ASCII is the same in the code page.
void ID3V2Fields::NoteEncoding(const V2Frame& frame) {
    std::string content = ContentOf(frame);
    if (const auto* comment = dynamic_cast<const V2LDCFrame*>(&frame)) content += comment->Descriptor();
    const bool ascii = std::all_of(content.begin(), content.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    const std::uint8_t encoding = TextEncOf(frame);
    if (encoding != 0 && (encoding != kUtf8 || !ascii)) holdsUnicode_ = true;
}

} // namespace calyvox
