// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

class QLineEdit;

/// What a box for a tag's text takes.
namespace calyvox::TagInput {

/// Characters that the code page lacks: typed ones are refused with a tooltip, pasted ones become "?".
void HoldToCodePage(QLineEdit& box);
/// The same, and typing gives digits alone.
void HoldToDigits(QLineEdit& box);

} // namespace calyvox::TagInput
