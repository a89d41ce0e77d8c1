// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/V2WebFrame.h"

#include "platform/CodePage.h"

namespace calyvox {

void V2WebFrame::SetContent(const std::string& text) { content_ = CodePage::Trim(text); }

bool V2WebFrame::SameValue(const V2Frame& other) const {
    const auto* web = dynamic_cast<const V2WebFrame*>(&other);
    return web && web->content_ == content_;
}

} // namespace calyvox
