// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/V2Frame.h"

namespace calyvox {

/// The popularimeter. (ID3v2.3.0, 4.18; ID3v2.4.0-frames, 4.17)
///
///   size  content
///         user, a NUL
///      1  rating; a frame of rating 0 is not written
///   rest  counter, kept as bytes
class V2POPMFrame : public V2Frame {
public:
    const std::string& User() const { return user_; }
    void SetUser(const std::string& user) { user_ = user; }
    std::uint8_t Rating() const { return rating_; }
    void SetRating(std::uint8_t rating) { rating_ = rating; }
    const std::string& Counter() const { return counter_; }
    void SetCounter(const std::string& bytes) { counter_ = bytes; }

    /// The user.
    bool SameSubject(const V2Frame& other) const override;
    /// Rating and counter.
    bool SameValue(const V2Frame& other) const override;

protected:
    std::int64_t LeastSize() const override { return 1; }
    bool StepsOver() const override { return false; }
    void Parse(std::string body) override;
    void Clear() override;
    std::string& Tail() override { return counter_; }
    bool CutsTailOnReading() const override { return false; }
    bool IsEmpty() const override { return rating_ == 0; }
    std::string Body() const override;

private:
    std::string user_;
    std::uint8_t rating_ = 0;
    std::string counter_;
};

} // namespace calyvox
