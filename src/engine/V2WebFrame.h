// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/V2Frame.h"

namespace calyvox {

/// A frame with an address (IDs beginning with W except WXXX): its body is the address alone.
/// (ID3v2.3.0, 4.3; ID3v2.4.0-frames, 4.3)
class V2WebFrame : public V2Frame {
public:
    const std::string& Content() const { return content_; }
    /// Blanks at both ends are cut. A frame without content is not written.
    void SetContent(const std::string& text);

    bool SameSubject(const V2Frame& other) const override { return SameValue(other); }
    bool SameValue(const V2Frame& other) const override;

protected:
    std::int64_t LeastSize() const override { return 1; }
    bool StepsOver() const override { return false; }
    void Parse(std::string body) override { SetContent(body); }
    void Clear() override { content_.clear(); }
    std::string& Tail() override { return content_; }
    bool IsEmpty() const override { return content_.empty(); }
    std::string Body() const override { return content_; }

private:
    std::string content_;
};

} // namespace calyvox
