// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

/// How the date boxes of the ID3V2 editor (year YYYY, date DDMM, time HHMM) become frames and come from them.
namespace calyvox::DateFrames {

/// The last four characters of "0000" and the text; an empty text stays empty.
std::string PaddedOrEmpty(const std::string& text);
/// The last four characters of "0000" and the text.
std::string Padded(const std::string& text);

/// The boxes that a TDRC fills; those without a value stay as they are.
struct Boxes {
    std::string Year;
    std::optional<std::string> Date;
    std::optional<std::string> Time;
};
Boxes FromTDRC(const std::string& content);
/// YYYY-MM-DDTHH:MM as far as the boxes go: no month without a year, no day without a month, no time without
/// a day.
std::string TDRC(const std::string& year, const std::string& date, const std::string& time);

} // namespace calyvox::DateFrames
