// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/V2UserTexWebFrame.h"

#include "engine/Bytes.h"
#include "platform/CodePage.h"

#include <utility>

namespace calyvox {

void V2UserTexWebFrame::SetDescriptor(const std::string& text) { descriptor_ = CodePage::Trim(text); }

void V2UserTexWebFrame::SetContent(const std::string& text) { content_ = CodePage::Trim(text); }

bool V2UserTexWebFrame::SameSubject(const V2Frame& other) const {
    const auto* described = dynamic_cast<const V2UserTexWebFrame*>(&other);
    return described && described->descriptor_ == descriptor_;
}

bool V2UserTexWebFrame::SameValue(const V2Frame& other) const {
    const auto* described = dynamic_cast<const V2UserTexWebFrame*>(&other);
    return described && described->content_ == content_;
}

void V2UserTexWebFrame::Parse(std::string body) {
    const char encoding = Bytes::TakeFront(body, 1)[0];
    textEnc_ = static_cast<std::uint8_t>(encoding >= '0' && encoding <= '9' ? encoding - '0' : 0);
    descriptor_ = Bytes::TakeToNul(body);
    content_ = std::move(body);
}

void V2UserTexWebFrame::Clear() {
    descriptor_.clear();
    content_.clear();
}

void V2UserTexWebFrame::ClearFailed() {
    Clear();
    textEnc_ = 0;
}

std::string V2UserTexWebFrame::Body() const {
    return static_cast<char>(textEnc_) + descriptor_ + '\0' + content_;
}

} // namespace calyvox
