// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "automation/MassUpdate.h"

#include "app/Services.h"
#include "app/modBase.h"
#include "automation/FileUpdate.h"
#include "platform/CodePage.h"
#include "platform/PrivateProfile.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <vector>

namespace calyvox {

namespace {

constexpr std::string_view kSectionPrefix = "File";

std::int32_t ReadCount(const std::string& dataFile) {
    const double count = CodePage::LeadingNumber(modBase::IniRead("Files", "Count", "0", dataFile));
    return static_cast<std::int32_t>(std::clamp<double>(count, 0, std::numeric_limits<std::int32_t>::max()));
}

// The number of a section "File" + n, decimal without blanks or leading zeros; 0 for any other.
std::int32_t FileNumber(std::string_view section) {
    if (!CodePage::EqualNoCase(section.substr(0, kSectionPrefix.size()), kSectionPrefix)) return 0;
    section.remove_prefix(kSectionPrefix.size());
    if (section.empty() || section.front() == '0' || section.front() == '-') return 0;
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(section.data(), section.data() + section.size(), number);
    return error == std::errc() && end == section.data() + section.size() ? number : 0;
}

// The numbers up to count that have a section, in order: a section that is not there has no row, however
// large a count promises it.
std::vector<std::int32_t> NumbersThere(const std::string& dataFile, std::int32_t count) {
    std::vector<std::int32_t> numbers;
    for (const std::string& section : PrivateProfile::SectionNames(dataFile)) {
        const std::int32_t number = FileNumber(section);
        if (number >= 1 && number <= count) numbers.push_back(number);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

} // namespace

MassUpdate::MassUpdate(std::string dataFile, RowList& updatedFiles)
    : dataFile_(std::move(dataFile)), updatedFiles_(updatedFiles), count_(ReadCount(dataFile_)) {}

void MassUpdate::Run(const FileDone& fileDone) {
    modBase::SingleCOMMGenre() = false;
    updatedFiles_.Clear();
    stop_ = false;
    for (const std::int32_t number : NumbersThere(dataFile_, count_)) {
        if (stop_) break;
        UpdateFile(number, fileDone);
    }
}

void MassUpdate::UpdateFile(std::int32_t number, const FileDone& fileDone) {
    const std::string section = std::string(kSectionPrefix) + std::to_string(number);
    FileUpdate update(dataFile_, section, modBase::IniReadSection(section, "NoFramesToUpdate", dataFile_));
    if (!update.HasPath()) return;
    const std::string path = update.Path();
    RowList::Row& row = updatedFiles_.Add(path);
    const FileUpdate::Result result = update.Run(path);
    if (result.Error) {
        updatedFiles_.SetBold(row, true);
        ++errors_;
    }
    updatedFiles_.SetSubItem(row, 1, result.Text);
    fileDone(number, row);
    TheServices().Yield();
}

} // namespace calyvox
