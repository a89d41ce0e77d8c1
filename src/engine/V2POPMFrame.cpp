// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/V2POPMFrame.h"

#include "engine/Bytes.h"

#include <utility>

namespace calyvox {

bool V2POPMFrame::SameSubject(const V2Frame& other) const {
    const auto* popularimeter = dynamic_cast<const V2POPMFrame*>(&other);
    return popularimeter && popularimeter->user_ == user_;
}

bool V2POPMFrame::SameValue(const V2Frame& other) const {
    const auto* popularimeter = dynamic_cast<const V2POPMFrame*>(&other);
    return popularimeter && popularimeter->rating_ == rating_ && popularimeter->counter_ == counter_;
}

void V2POPMFrame::Parse(std::string body) {
    user_ = Bytes::TakeToNul(body);
    rating_ = static_cast<std::uint8_t>(Bytes::TakeFront(body, 1)[0]);
    counter_ = std::move(body);
}

void V2POPMFrame::Clear() {
    user_.clear();
    rating_ = 0;
    counter_.clear();
}

std::string V2POPMFrame::Body() const { return user_ + '\0' + static_cast<char>(rating_) + counter_; }

} // namespace calyvox
