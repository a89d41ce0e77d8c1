// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

/// What screen readers and other assistive programs are told of each RowListView: a table whose rows are
/// selected as the RowList says. What Qt itself would tell asks Qt's selection, where nothing is.
namespace calyvox::RowListAccessible {

/// For all views of the process; once is enough.
void Install();

} // namespace calyvox::RowListAccessible
