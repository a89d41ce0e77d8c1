// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/modReport.h"

#include <utility>

namespace calyvox {

namespace {

std::function<void(const std::string&)>& TheSink() {
    static std::function<void(const std::string&)> sink;
    return sink;
}

} // namespace

void ReportLine(const std::string& text) {
    if (TheSink()) TheSink()(text);
}

void SetReportSink(std::function<void(const std::string& text)> sink) { TheSink() = std::move(sink); }

} // namespace calyvox
