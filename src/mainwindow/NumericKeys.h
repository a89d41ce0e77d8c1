// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace calyvox {

/// The key by which a cell sorts as a number, compared as text: the number with thirty places before and
/// behind the point, a negative one as "&" and the complement of its digits, so that it stands before all
/// others and in reverse. Of "2/12" the part before the slash counts, if it is a number; a text with a slash
/// that is none stays, any other has an empty key. A number is blanks, a sign, digits and one point.
std::string NumericSortKey(const std::string& cell);

} // namespace calyvox
