// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/ErrorList.h"

#include "app/Services.h"

namespace calyvox {

void ErrorList::Clear() {
    message_.clear();
    content_.clear();
    TheServices().PaintErrors();
}

void ErrorList::Show() const {
    if (!content_.empty()) TheServices().ShowErrors();
}

ErrorList& TheErrors() {
    static ErrorList errors;
    return errors;
}

} // namespace calyvox
