// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/RowList.h"

#include <cstddef>
#include <optional>
#include <string>

namespace calyvox {
class ID3V2;
}

/// The comments and commercial addresses of the ID3V2 editor. Adding and editing change the rows alone;
/// removing also flags the frame that a row came from, so that it goes when the tag is saved. The selected
/// comment is the current row.
namespace calyvox::CommentList {

// Columns of COMMList.
inline constexpr std::size_t kDescriptor = 0;
inline constexpr std::size_t kLanguage = 1; // the code
inline constexpr std::size_t kComment = 2;

/// What the controls of frmCOMMEdit hold.
struct Entry {
    std::string Descriptor;
    std::size_t Language = 0; // row of LanguageRows()
    std::string Comment;      // line ends are CR LF when the dialog opens
};

void AddRow(RowList& comments, const std::string& descriptor, const std::string& language,
            const std::string& comment);

/// What the dialog opens with: a blank comment in the language of the settings.
Entry btnAddCOMM_Click();
/// The same for the selected comment; none in an empty list. A language that is no row is that of the
/// settings.
std::optional<Entry> btnEditCOMM_Click(const RowList& comments);
/// Removes the selected row and flags the first COMM frame of its descriptor and language. Whether there
/// was one, for CommRemoved.
bool btnRemoveCOMM_Click(RowList& comments, ID3V2& frames);
/// Moves the selected comment to the top.
void btnCOMMStandard_Click(RowList& comments);

/// The OK of frmCOMMEdit. The row of the same descriptor and language is overwritten, without one a row is
/// added. The dialog's language becomes that of the editor and of the settings first. False, with a box,
/// where there is no comment: the dialog stays then.
bool btnOK_Click(RowList& comments, Entry& entry, std::size_t& editorLanguage);

/// Removes the selected address and flags the first WCOM frame of it, which says nothing about a change.
/// Whether a row was selected; the box is to be emptied then.
bool btnRemoveCL_Click(RowList& addresses, ID3V2& frames);

} // namespace calyvox::CommentList
