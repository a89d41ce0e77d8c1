// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/V2BinFrame.h"

#include "platform/CodePage.h"

namespace calyvox {

void V2BinFrame::SetContent(const std::string& bytes) { content_ = CodePage::Trim(bytes); }

bool V2BinFrame::SameValue(const V2Frame& other) const {
    const auto* opaque = dynamic_cast<const V2BinFrame*>(&other);
    return opaque && opaque->Content() == Content();
}

} // namespace calyvox
