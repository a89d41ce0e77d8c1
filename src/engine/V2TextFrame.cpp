// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/V2TextFrame.h"

#include "engine/Bytes.h"
#include "platform/CodePage.h"

#include <utility>

namespace calyvox {

void V2TextFrame::SetContent(const std::string& text) { content_ = CodePage::Trim(text); }

bool V2TextFrame::SameValue(const V2Frame& other) const {
    const auto* text = dynamic_cast<const V2TextFrame*>(&other);
    return text && text->content_ == content_;
}

void V2TextFrame::Parse(std::string body) {
    textEnc_ = static_cast<std::uint8_t>(Bytes::TakeFront(body, 1)[0]);
    content_ = std::move(body);
}

void V2TextFrame::Clear() {
    textEnc_ = 0;
    content_.clear();
}

std::size_t V2TextFrame::WideTextLength() const { return IsWide(textEnc_) ? content_.size() : 0; }

} // namespace calyvox
