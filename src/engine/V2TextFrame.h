// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/V2Frame.h"

namespace calyvox {

/// A text frame (IDs beginning with T, and IPLS). (ID3v2.3.0, 4.2; ID3v2.4.0-frames, 4.2)
///
///   size  content
///      1  encoding: 0 ISO-8859-1, 1 UTF-16 with byte order mark, 2 UTF-16BE, 3 UTF-8; carried alone
///   rest  text
class V2TextFrame : public V2Frame {
public:
    std::uint8_t TextEnc() const { return textEnc_; }
    void SetTextEnc(std::uint8_t textEnc) { textEnc_ = textEnc; }
    const std::string& Content() const { return content_; }
    /// Blanks at both ends are cut. A frame without content is not written.
    void SetContent(const std::string& text);

    bool SameValue(const V2Frame& other) const override;

protected:
    std::int64_t LeastSize() const override { return 2; }
    bool StepsOver() const override { return true; }
    void Parse(std::string body) override;
    void Clear() override;
    std::string& Tail() override { return content_; }
    bool IsEmpty() const override { return content_.empty(); }
    std::string Body() const override { return static_cast<char>(textEnc_) + content_; }
    std::size_t WideTextLength() const override;

private:
    std::uint8_t textEnc_ = 0;
    std::string content_;
};

} // namespace calyvox
