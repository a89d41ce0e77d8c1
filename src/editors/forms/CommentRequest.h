// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editors/CommentList.h"

#include <cstddef>

namespace calyvox {

/// What frmCOMMEdit works on, set before it is shown. Comments and EditorLanguage must be there as long as
/// the dialog is.
struct CommentRequest {
    RowList* Comments = nullptr;           // gets the comment
    CommentList::Entry Entry;              // what the dialog opens with
    std::size_t* EditorLanguage = nullptr; // follows the dialog's language
    bool FocusComment = false;             // else the descriptor has the focus
};

/// The one of the process.
CommentRequest& TheCommentRequest();

} // namespace calyvox
