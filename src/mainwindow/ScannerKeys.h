// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace calyvox {

/// A music database that this program can hand files to, if the setting with the path of its scanner exists.
struct ScannerKey {
    const char* Key;
    const char* Product;
};

/// In the order in which they are tried.
inline constexpr std::array<ScannerKey, 2> kScannerKeys = {
    {{"HKLM\\SOFTWARE\\G.G.\\MusicStation\\1.0\\Applications\\MSScan\\Path", "MP3-MusicStation"},
     {"HKLM\\Software\\Brofle\\Andantico\\2.0\\Applications\\MSScan\\Path", "Andantico"}}};

} // namespace calyvox
