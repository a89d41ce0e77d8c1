// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/V2LDCFrame.h"

#include "engine/Bytes.h"
#include "platform/CodePage.h"

#include <utility>

namespace calyvox {

void V2LDCFrame::SetDescriptor(const std::string& text) { descriptor_ = CodePage::Trim(text); }

void V2LDCFrame::SetContent(const std::string& text) { content_ = CodePage::Trim(text); }

bool V2LDCFrame::SameSubject(const V2Frame& other) const {
    const auto* described = dynamic_cast<const V2LDCFrame*>(&other);
    return described && described->descriptor_ == descriptor_ && described->lan_ == lan_;
}

bool V2LDCFrame::SameValue(const V2Frame& other) const {
    const auto* described = dynamic_cast<const V2LDCFrame*>(&other);
    return described && described->content_ == content_;
}

void V2LDCFrame::Parse(std::string body) {
    textEnc_ = static_cast<std::uint8_t>(Bytes::TakeFront(body, 1)[0]);
    lan_ = Bytes::TakeFront(body, 3);
    descriptor_ = Bytes::TakeToNul(body);
    content_ = std::move(body);
}

// The encoding stays as far as it was read.
void V2LDCFrame::Clear() {
    lan_.clear();
    descriptor_.clear();
    content_.clear();
}

std::string V2LDCFrame::Body() const {
    return static_cast<char>(textEnc_) + lan_ + descriptor_ + '\0' + content_;
}

std::size_t V2LDCFrame::WideTextLength() const {
    return IsWide(textEnc_) ? descriptor_.size() + 1 + content_.size() : 0;
}

} // namespace calyvox
