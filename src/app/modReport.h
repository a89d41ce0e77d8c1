// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace calyvox {

/// One line of the trace, a fixed text that names place and happening. It goes to the sink, which does
/// nothing until somebody sets one; nothing is kept.
void ReportLine(const std::string& text);

/// Whoever watches; an empty one turns the trace off.
void SetReportSink(std::function<void(const std::string& text)> sink);

} // namespace calyvox
