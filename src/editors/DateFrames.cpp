// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/DateFrames.h"

#include "platform/CodePage.h"

namespace calyvox::DateFrames {

namespace {

// From a 1-based position; what the text lacks is missing.
std::string Cut(const std::string& text, std::size_t position, std::size_t count) {
    return position <= text.size() ? text.substr(position - 1, count) : std::string();
}

} // namespace

std::string Padded(const std::string& text) {
    const std::string padded = "0000" + text;
    return padded.substr(padded.size() - 4);
}

std::string PaddedOrEmpty(const std::string& text) { return text.empty() ? text : Padded(text); }

Boxes FromTDRC(const std::string& content) {
    Boxes boxes{Cut(content, 1, 4), std::nullopt, std::nullopt};
    if (Cut(content, 5, 1) == "-") {
        const std::string day = Cut(content, 8, 1) == "-" ? Cut(content, 9, 2) : "00";
        boxes.Date = day + Cut(content, 6, 2);
    }
    if (Cut(content, 11, 1) == "T") {
        const std::string minutes = Cut(content, 14, 1) == ":" ? Cut(content, 15, 2) : "00";
        boxes.Time = Cut(content, 12, 2) + minutes;
    }
    return boxes;
}

std::string TDRC(const std::string& year, const std::string& date, const std::string& time) {
    if (year.empty()) return {};
    std::string text = Padded(year);
    const std::string month = Cut(Padded(date), 3, 2);
    const std::string day = Cut(Padded(date), 1, 2);
    if (!(CodePage::LeadingNumber(month) > 0)) return text;
    text += "-" + month;
    if (!(CodePage::LeadingNumber(day) > 0)) return text;
    text += "-" + day;
    if (time.empty()) return text;
    return text + "T" + Cut(Padded(time), 1, 2) + ":" + Cut(Padded(time), 3, 2);
}

} // namespace calyvox::DateFrames
