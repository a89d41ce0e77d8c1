// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "platform/HostPath.h"

#include <algorithm>

namespace HostPath = calyvox::HostPath;
using calyvox::Fuzz::Require;

namespace {

auto Count(const std::string& text, char c) { return std::count(text.begin(), text.end(), c); }

void CheckHostName(const std::string& host) {
    const std::string inside = HostPath::FromHost(host);
    Require(HostPath::ToHost(inside) == host, "a host name comes back as it was");
    Require(Count(inside, '/') == 0, "no slash is inside a path");
    Require(HostPath::Shown(inside).size() == host.size(), "what is shown is the host's own bytes");
    const std::size_t half = HostPath::Length(inside) / 2;
    Require(HostPath::Length(HostPath::Left(inside, half)) == half, "a cut leaves whole units");
    const std::string cut = HostPath::ToHost(HostPath::Left(inside, half));
    Require(host.starts_with(cut), "the host's name of a cut name is the start of the whole one");
}

void CheckInsideName(const std::string& inside) {
    const std::string host = HostPath::ToHost(inside);
    Require(Count(host, '/') == Count(inside, '\\') + Count(inside, '/'), "no escape hides a slash");
    Require(Count(host, '\0') == Count(inside, '\0'), "no escape hides a NUL");
    bool changed = false;
    const std::string name = HostPath::ToHost(HostPath::Clean(inside, changed));
    // A backslash may stand for itself: only an escape can have brought it.
    Require(name.find_first_of("/:*?<>|\"\r\n") == std::string::npos, "a cleaned name is one name");
    Require(HostPath::Length(HostPath::Upper(inside)) == HostPath::Length(inside), "case keeps the units");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = calyvox::Fuzz::AsText(data, size);
    CheckHostName(text);
    CheckInsideName(text);
    return 0;
}
