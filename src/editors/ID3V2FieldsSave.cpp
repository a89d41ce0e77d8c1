// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/SettingsCatalogue.h"
#include "app/modBase.h"
#include "editors/CommentList.h"
#include "editors/DateFrames.h"
#include "editors/FrameControls.h"
#include "editors/ID3V2Fields.h"
#include "editors/LanguageList.h"
#include "engine/V2LDCFrame.h"
#include "engine/V2TextFrame.h"
#include "engine/V2WebFrame.h"
#include "mainwindow/MainWindow.h"
#include "mainwindow/RowCells.h"
#include "platform/CodePage.h"

namespace calyvox {

namespace {

using FrameControls::Group;

template <typename Frame>
std::unique_ptr<V2Frame> CreateFrame(const std::string& id, const std::string& text) {
    auto frame = std::make_unique<Frame>();
    frame->SetFrameHeader_FrameID(id);
    frame->SetContent(text);
    frame->SetRemove(text.empty());
    return frame;
}

// A text of blanks alone gives an empty frame that is not flagged.
std::unique_ptr<V2Frame> CreateTextFrame(const std::string& id, const std::string& text) {
    return CreateFrame<V2TextFrame>(id, text);
}

std::unique_ptr<V2Frame> CreateWebFrame(const std::string& id, const std::string& text) {
    return CreateFrame<V2WebFrame>(id, text);
}

void Add(ID3V2& tag, std::unique_ptr<V2Frame> frame) { tag.Add(std::move(frame), {}, false); }

void AddComment(ID3V2& tag, const std::string& descriptor, const std::string& language,
                const std::string& comment, bool remove) {
    auto frame = std::make_unique<V2LDCFrame>();
    frame->SetFrameHeader_FrameID("COMM");
    frame->SetDescriptor(descriptor);
    frame->SetLan(language);
    frame->SetContent(comment);
    frame->SetRemove(remove);
    Add(tag, std::move(frame));
}

void AddGroup(ID3V2& tag, Group group, const ID3V2Fields& fields) {
    for (const auto& [id, savedWith] : FrameControls::kControls) {
        if (savedWith != group) continue;
        const std::string name(id);
        Add(tag, group == Group::Addresses ? CreateWebFrame(name, fields.Text(name))
                                           : CreateTextFrame(name, fields.Text(name)));
    }
}

void FlagUnchecked(const RowList& rows, ID3V2& tag) {
    for (std::size_t i = 0; i < rows.Count(); ++i) {
        if (rows.At(i).Checked) continue;
        tag.Item(rows.At(i).Tag).SetRemove(true);
        tag.SetChanged(true);
    }
}

void ShowText(RowList& rows, std::size_t row, const std::string& id, const std::string& content) {
    if (id == "TPE1") rows.SetCell(row, RowCells::kArtist, content);
    if (id == "TIT2") rows.SetCell(row, RowCells::kTitle, content);
    if (id == "TALB") rows.SetCell(row, RowCells::kAlbum, content);
    if (id == "TCON") rows.SetCell(row, RowCells::kGenre, content);
    if (id == "TYER") rows.SetCell(row, RowCells::kYear, content);
    if (id == "TDRC") rows.SetCell(row, RowCells::kYear, content.substr(0, 4));
    if (id == "TRCK") rows.SetCell(row, RowCells::kTrack, CodePage::Trim(content));
}

void ShowInRow(RowList& rows, std::size_t row, ID3V2& tag) {
    for (std::size_t column = RowCells::kArtist; column <= RowCells::kTrack; ++column)
        rows.SetCell(row, column, "");
    bool firstComment = true;
    for (const V2Frame& frame : tag) {
        const std::string& id = frame.FrameHeader_FrameID();
        if (const auto* text = dynamic_cast<const V2TextFrame*>(&frame))
            ShowText(rows, row, id, text->Content());
        const auto* comment = dynamic_cast<const V2LDCFrame*>(&frame);
        if (!comment || id != "COMM") continue;
        if (firstComment) rows.SetCell(row, RowCells::kComment, comment->Content());
        firstComment = false;
    }
}

} // namespace

int ID3V2Fields::VersionOf(const MP3& file) {
    if (file.TagHeader_Version() != 0) return file.TagHeader_Version();
    return CodePage::LeadingNumber(ReadSetting("Settings\\ID3V2Ver", "3")) == 3 ? 3 : 4;
}

void ID3V2Fields::SaveTag(MainWindow& window, std::size_t row) {
    MP3& file = window.FileOf(row);
    ID3V2& tag = file.ID3V2();
    FlagUnchecked(SupportList, tag);
    FlagUnchecked(POPMList, tag);
    const int version = VersionOf(file);
    AddNames(tag);
    AddDates(tag, version);
    AddDetails(tag, version);
    AddAddresses(tag);
    AddComments(tag);
    if (CommRemoved) tag.SetChanged(true);
    CommRemoved = false;
    tag.ClearFrames();
    if (modBase::VerShow == 2) ShowInRow(window.FileList, row, tag);
    if (!tag.Changed()) return;
    if (!file.TagHeader_Present()) {
        file.SetTagHeader_Present(true);
        window.FileList.SetCell(row, RowCells::kID3V2, "Ver. 2." + std::to_string(file.TagHeader_Version()));
    }
    window.FileList.SetCell(row, RowCells::kChanged, "Y");
    file.SetChanged(true);
}

void ID3V2Fields::AddNames(ID3V2& tag) const {
    AddGroup(tag, Group::Names, *this);
    for (const char* id : {"TRCK", "TPOS"})
        Add(tag, CreateTextFrame(id, PairText(id)));
    if (Text("TMED") != "< undefined >") AddGroup(tag, Group::Media, *this);
}

std::string ID3V2Fields::PairText(const std::string& control) const {
    const std::string& total = Text(control + "Total");
    return total.empty() ? Text(control) : Text(control) + "/" + total;
}

// What its box spoils and nobody changed goes back as it was.
std::string ID3V2Fields::DateText(const std::string& id) const {
    const auto kept = keptDates_.find(id);
    if (kept != keptDates_.end()) return kept->second;
    if (id == "TDRC") return DateFrames::TDRC(Text("TYER"), Text("TDAT"), Text("TIME"));
    return DateFrames::PaddedOrEmpty(Text(id == "TDOR" ? "TORY" : id));
}

// Frames of the other version stay as they are.
void ID3V2Fields::AddDates(ID3V2& tag, int version) const {
    if (version == 3) {
        for (const char* id : {"TYER", "TDAT", "TIME"})
            Add(tag, CreateTextFrame(id, DateText(id)));
        Add(tag, CreateTextFrame("TRDA", Text("TRDA")));
    }
    if (version == 4) Add(tag, CreateTextFrame("TDRC", DateText("TDRC")));
}

void ID3V2Fields::AddDetails(ID3V2& tag, int version) const {
    AddGroup(tag, Group::Details, *this);
    if (version == 3) Add(tag, CreateTextFrame("TORY", DateText("TORY")));
    if (version == 4) Add(tag, CreateTextFrame("TDOR", DateText("TDOR")));
    AddGroup(tag, Group::Owner, *this);
    Add(tag, CreateTextFrame("TCON", GenreText()));
}

// Of the single layout as the box has it, of the list layout each row and a NUL between any two.
std::string ID3V2Fields::ShownGenres() const {
    if (modBase::SingleCOMMGenre()) return CodePage::Trim(Text("TCONSingle"));
    std::string text;
    for (std::size_t i = 0; i < GenreList.Count(); ++i)
        text += (i == 0 ? "" : std::string(1, '\0')) + GenreList.At(i).Text;
    return text;
}

std::string ID3V2Fields::GenreText() const {
    const std::string shown = ShownGenres();
    return shown == loadedGenres_ ? genreContent_ : shown;
}

void ID3V2Fields::AddAddresses(ID3V2& tag) const {
    AddGroup(tag, Group::Addresses, *this);
    for (std::size_t i = 0; i < CommInfoList.Count(); ++i)
        Add(tag, CreateWebFrame("WCOM", CodePage::Trim(CommInfoList.At(i).Text)));
}

void ID3V2Fields::AddComments(ID3V2& tag) const {
    if (modBase::SingleCOMMGenre()) {
        const std::string comment = CodePage::Trim(Text("Comment"));
        return AddComment(tag, Text("Descriptor"), LanguageCode(Language), comment, comment.empty());
    }
    for (std::size_t i = 0; i < COMMList.Count(); ++i) {
        const RowList::Row& row = COMMList.At(i);
        AddComment(tag, row.Text, RowList::Cell(row, CommentList::kLanguage),
                   RowList::Cell(row, CommentList::kComment), false);
    }
}

void ID3V2Fields::btnOK_Click(MainWindow& window, std::size_t row) {
    WriteDefaultLanguageRow(Language);
    SaveTag(window, row);
}

void ID3V2Fields::btnCancel_Click(MP3& file) {
    for (V2Frame& frame : file.ID3V2())
        if (frame.FrameHeader_FrameID() == "COMM") frame.SetRemove(false);
}

} // namespace calyvox
