// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/V2Frame.h"

#include <utility>

namespace calyvox {

/// A frame that is carried as bytes: pictures, private and experimental frames. In version 2.4 it is written
/// with a NUL at its end, once. An empty one is written too.
class V2BinFrame : public V2Frame {
public:
    /// The body; whoever needs the bytes asks here, each time.
    const std::string& Content() const { return content_; }
    /// Blanks at both ends are cut, from any bytes: what is only read keeps them.
    void SetContent(const std::string& bytes);

    bool SameValue(const V2Frame& other) const override;

protected:
    std::int64_t LeastSize() const override { return 1; }
    bool StepsOver() const override { return false; }
    void Parse(std::string body) override { content_ = std::move(body); }
    void Clear() override { content_.clear(); }
    std::string& Tail() override { return content_; }
    bool CutsTailOnReading() const override { return false; }
    bool CutsTailOnWriting() const override { return false; }
    bool IsEmpty() const override { return false; }
    std::string Body() const override { return Content(); }
    /// The data length flag stays.
    std::uint8_t ClearedFlags4() const override { return 8 | 2; }

private:
    std::string content_;
};

} // namespace calyvox
