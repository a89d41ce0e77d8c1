// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/V2Frame.h"

namespace calyvox {

/// A frame with language, descriptor and content: COMM and USLT. One NUL parts descriptor and content in
/// every encoding. (ID3v2.3.0, 4.9 and 4.11; ID3v2.4.0-frames, 4.8 and 4.10)
///
///   size  content
///      1  encoding
///      3  language
///         descriptor, a NUL
///   rest  content
class V2LDCFrame : public V2Frame {
public:
    std::uint8_t TextEnc() const { return textEnc_; }
    void SetTextEnc(std::uint8_t textEnc) { textEnc_ = textEnc; }
    const std::string& Lan() const { return lan_; }
    /// Stored and written as given, whatever its length. A frame without one is not written.
    void SetLan(const std::string& language) { lan_ = language; }
    const std::string& Descriptor() const { return descriptor_; }
    /// Blanks at both ends are cut.
    void SetDescriptor(const std::string& text);
    const std::string& Content() const { return content_; }
    /// Blanks at both ends are cut. A frame without content is not written.
    void SetContent(const std::string& text);

    /// Descriptor and language.
    bool SameSubject(const V2Frame& other) const override;
    bool SameValue(const V2Frame& other) const override;

protected:
    std::int64_t LeastSize() const override { return 6; }
    bool StepsOver() const override { return true; }
    void Parse(std::string body) override;
    void Clear() override;
    std::string& Tail() override { return content_; }
    bool IsEmpty() const override { return content_.empty() || lan_.empty(); }
    std::string Body() const override;
    std::size_t WideTextLength() const override;

private:
    std::uint8_t textEnc_ = 0;
    std::string lan_;
    std::string descriptor_;
    std::string content_;
};

} // namespace calyvox
