// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/V2Frame.h"

namespace calyvox {

/// A frame with descriptor and content: TXXX and WXXX. One NUL parts the two in every encoding. The encoding
/// byte is read as a decimal digit, so 0 and 1 both give 0. (ID3v2.3.0, 4.2.2 and 4.3.2;
/// ID3v2.4.0-frames, 4.2.6 and 4.3.2)
///
///   size  content
///      1  encoding
///         descriptor, a NUL
///   rest  content
class V2UserTexWebFrame : public V2Frame {
public:
    std::uint8_t TextEnc() const { return textEnc_; }
    void SetTextEnc(std::uint8_t textEnc) { textEnc_ = textEnc; }
    const std::string& Descriptor() const { return descriptor_; }
    /// Blanks at both ends are cut.
    void SetDescriptor(const std::string& text);
    const std::string& Content() const { return content_; }
    /// Blanks at both ends are cut. A frame without content is not written.
    void SetContent(const std::string& text);

    /// The descriptor.
    bool SameSubject(const V2Frame& other) const override;
    bool SameValue(const V2Frame& other) const override;

protected:
    std::int64_t LeastSize() const override { return 2; }
    bool StepsOver() const override { return true; }
    void Parse(std::string body) override;
    void Clear() override;
    void ClearFailed() override;
    std::string& Tail() override { return content_; }
    bool IsEmpty() const override { return content_.empty(); }
    std::string Body() const override;

private:
    std::uint8_t textEnc_ = 0;
    std::string descriptor_;
    std::string content_;
};

} // namespace calyvox
