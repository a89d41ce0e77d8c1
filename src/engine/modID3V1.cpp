// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/modID3V1.h"

#include "engine/Tables.h"
#include "platform/CodePage.h"

namespace calyvox {

namespace {

constexpr const char* kUndefined = "< undefined >";

} // namespace

std::uint8_t GenreNumber(const std::string& name) {
    if (CodePage::EqualNoCase(name, kUndefined)) return kNoGenre;
    for (std::uint8_t number = 0; number < kGenreCount; ++number)
        if (CodePage::EqualNoCase(name, Tables().GenreNames.at(number))) return number;
    return kNoGenre;
}

std::string GenreName(std::uint8_t number) {
    return number < kGenreCount ? Tables().GenreNames.at(number) : kUndefined;
}

} // namespace calyvox
