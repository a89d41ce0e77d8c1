// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace calyvox {

/// Makes bytes hold no false audio sync: 255, 0 becomes 255, 0, 0, and a NUL goes between 255 and a byte of
/// 224 or more. Failure 5 for fewer than 2 bytes.
std::string Unsynchronise(std::string_view bytes);

/// Each pair 255, 0 becomes 255; nothing else is undone. Never fails.
std::string Resynchronise(std::string_view bytes);

} // namespace calyvox
