// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/CommentList.h"

#include "app/Services.h"
#include "app/modBase.h"
#include "editors/LanguageList.h"
#include "editors/ListRows.h"
#include "engine/ID3V2.h"
#include "engine/V2LDCFrame.h"
#include "engine/V2WebFrame.h"
#include "platform/CodePage.h"

namespace calyvox::CommentList {

namespace {

// Line ends of either kind, and mixed ones, as CR LF.
std::string WithLineBreaks(const std::string& text) {
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text.compare(i, 2, "\r\n") == 0;
        if (pair || text[i] == '\n')
            shown += "\r\n";
        else
            shown += text[i];
        if (pair) ++i;
    }
    return shown;
}

std::size_t FindComment(const RowList& comments, const std::string& descriptor, const std::string& language) {
    for (std::size_t i = 0; i < comments.Count(); ++i)
        if (comments.At(i).Text == descriptor && RowList::Cell(comments.At(i), kLanguage) == language)
            return i;
    return RowList::kNone;
}

template <typename Frame, typename Matches>
bool FlagFirst(ID3V2& frames, const std::string& id, Matches matches) {
    for (V2Frame& frame : frames) {
        const auto* found = dynamic_cast<const Frame*>(&frame);
        if (!found || frame.FrameHeader_FrameID() != id || !matches(*found)) continue;
        frame.SetRemove(true);
        return true;
    }
    return false;
}

} // namespace

void AddRow(RowList& comments, const std::string& descriptor, const std::string& language,
            const std::string& comment) {
    RowList::Row& row = comments.Add(descriptor);
    comments.SetSubItem(row, kLanguage, language);
    comments.SetSubItem(row, kComment, comment);
}

Entry btnAddCOMM_Click() { return {"", DefaultLanguageRow(), ""}; }

std::optional<Entry> btnEditCOMM_Click(const RowList& comments) {
    if (comments.Current() >= comments.Count()) return std::nullopt;
    const RowList::Row& row = comments.At(comments.Current());
    const std::size_t language = LanguageRowOf(RowList::Cell(row, kLanguage));
    return Entry{row.Text, language == kNoLanguage ? DefaultLanguageRow() : language,
                 WithLineBreaks(RowList::Cell(row, kComment))};
}

bool btnRemoveCOMM_Click(RowList& comments, ID3V2& frames) {
    const std::size_t selected = comments.Current();
    if (selected >= comments.Count()) return false;
    const RowList::Row& row = comments.At(selected);
    const bool flagged = FlagFirst<V2LDCFrame>(frames, "COMM", [&](const V2LDCFrame& frame) {
        return frame.Descriptor() == row.Text && frame.Lan() == RowList::Cell(row, kLanguage);
    });
    ListRows::Remove(comments, selected);
    return flagged;
}

void btnCOMMStandard_Click(RowList& comments) {
    if (comments.Current() < comments.Count() && comments.Current() > 0)
        ListRows::MoveToTop(comments, comments.Current());
}

bool btnOK_Click(RowList& comments, Entry& entry, std::size_t& editorLanguage) {
    WriteDefaultLanguageRow(entry.Language);
    editorLanguage = entry.Language;
    std::erase(entry.Comment, '\r');
    const std::string comment = CodePage::Trim(entry.Comment);
    if (comment.empty()) {
        modBase::ShowMessage("Please enter a comment", MsgBox::kExclamation, "No comment");
        return false;
    }
    const std::string code = LanguageCode(entry.Language);
    const std::string language = code.empty() ? "eng" : code;
    const std::string descriptor = CodePage::Trim(entry.Descriptor);
    const std::size_t target = FindComment(comments, descriptor, language);
    if (target == RowList::kNone)
        AddRow(comments, descriptor, language, comment);
    else
        comments.SetCell(target, kComment, comment);
    return true;
}

bool btnRemoveCL_Click(RowList& addresses, ID3V2& frames) {
    const std::size_t selected = ListRows::SelectedRow(addresses);
    if (selected == RowList::kNone) return false;
    const std::string& address = addresses.At(selected).Text;
    FlagFirst<V2WebFrame>(frames, "WCOM",
                          [&](const V2WebFrame& frame) { return frame.Content() == address; });
    ListRows::Remove(addresses, selected);
    return true;
}

} // namespace calyvox::CommentList
