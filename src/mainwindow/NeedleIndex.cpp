// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/NeedleIndex.h"

#include "platform/CodePage.h"

#include <algorithm>

namespace calyvox {

namespace {

constexpr std::string_view kExtension = ".MP3";

std::string LastPart(const std::string& path) { return path.substr(std::min(path.rfind('\\'), path.size())); }

} // namespace

NeedleIndex::NeedleIndex(std::vector<std::string> paths) : taken_(paths.size(), false) {
    for (std::size_t i = paths.size(); i-- > 0;)
        exact_[LastPart(paths[i])].push_back(i);
    upper_ = std::move(paths);
    for (std::string& path : upper_)
        path = CodePage::Upper(path);
    for (std::size_t i = upper_.size(); i-- > 0;)
        anyCase_[LastPart(upper_[i])].push_back(i);
    for (std::size_t i = 0; i < upper_.size(); ++i)
        if (upper_[i].find(kExtension) + kExtension.size() < upper_[i].size()) odd_.push_back(i);
}

std::size_t NeedleIndex::First(Places& places, const std::string& name) {
    const auto found = places.find(name);
    if (found == places.end()) return kNone;
    std::vector<std::size_t>& positions = found->second;
    while (!positions.empty() && taken_[positions.back()])
        positions.pop_back();
    return positions.empty() ? kNone : positions.back();
}

std::size_t NeedleIndex::FirstHolding(const std::string& needle) {
    const std::size_t whole = First(anyCase_, needle);
    const auto odd = std::find_if(odd_.begin(), odd_.end(), [&](std::size_t i) {
        return !taken_[i] && upper_[i].find(needle) != std::string::npos;
    });
    return odd == odd_.end() ? whole : std::min(whole, *odd);
}

std::size_t NeedleIndex::Take(const std::string& needle) {
    std::size_t found = First(exact_, needle);
    if (found == kNone) found = FirstHolding(CodePage::Upper(needle));
    if (found != kNone) taken_[found] = true;
    return found;
}

} // namespace calyvox
