// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/HostPath.h"

#include "platform/CodePage.h"

namespace calyvox::HostPath {

namespace {

constexpr char32_t kRawByteBase = 0x110000;
constexpr char32_t kByteUnit = 0xDC00;

// The value of the escape that the text begins with; false where it begins with none. An escape for what
// has a plain form of its own does not count: so no escape can smuggle in a "/" or a NUL.
bool ReadEscape(std::string_view text, char32_t& value) {
    if (text.size() < kEscapeLength || text[0] != kEscapeLead) return false;
    value = 0;
    for (std::size_t i = 1; i < kEscapeLength; ++i) {
        if (text[i] < '0' || text[i] > '9') return false;
        value = value * 10 + static_cast<char32_t>(text[i] - '0');
    }
    if (value == U'\\' || value == static_cast<unsigned char>(kEscapeLead)) return true;
    if (value >= kRawByteBase) return value >= kRawByteBase + 0x80 && value <= kRawByteBase + 0xFF;
    char byte = 0;
    const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
    return !surrogate && !CodePage::FromCodePoint(value, byte);
}

void AppendEscape(std::string& path, char32_t value) {
    std::string digits = std::to_string(static_cast<unsigned long>(value));
    path += kEscapeLead;
    path.append(kEscapeLength - 1 - digits.size(), '0');
    path += digits;
}

void AppendMeaning(std::string& host, char32_t escape) {
    if (escape >= kRawByteBase)
        host += static_cast<char>(escape - kRawByteBase);
    else
        CodePage::AppendUtf8(host, escape);
}

// Walks the name unit by unit: onByte gets a plain byte, onEscape a whole escape and its value.
template <typename OnByte, typename OnEscape>
void Walk(std::string_view name, OnByte onByte, OnEscape onEscape) {
    for (std::size_t i = 0; i < name.size();) {
        char32_t value = 0;
        if (name[i] == kEscapeLead && ReadEscape(name.substr(i), value)) {
            onEscape(name.substr(i, kEscapeLength), value);
            i += kEscapeLength;
        } else {
            onByte(name[i]);
            ++i;
        }
    }
}

template <typename ByteCase>
std::string Convert(std::string_view name, ByteCase convert) {
    std::string result;
    Walk(
        name, [&](char c) { result += convert(c); },
        [&](std::string_view escape, char32_t) { result += escape; });
    return result;
}

} // namespace

std::string FromHost(std::string_view hostPath) {
    std::string path;
    while (!hostPath.empty()) {
        const CodePage::Utf8Character character = CodePage::DecodeUtf8(hostPath);
        char byte = 0;
        if (character.Length == 0)
            AppendEscape(path, kRawByteBase + static_cast<unsigned char>(hostPath[0]));
        else if (character.CodePoint == U'/')
            path += '\\';
        else if (character.CodePoint == U'\\' || character.CodePoint == U'\x1A' ||
                 !CodePage::FromCodePoint(character.CodePoint, byte))
            AppendEscape(path, character.CodePoint);
        else
            path += byte;
        hostPath.remove_prefix(character.Length == 0 ? 1 : character.Length);
    }
    return path;
}

std::string ToHost(std::string_view path) {
    std::string host;
    Walk(
        path,
        [&](char c) {
            if (c == '\\') c = '/';
            if (c == kEscapeLead) c = '_';
            CodePage::AppendUtf8(host, CodePage::ToCodePoint(c));
        },
        [&](std::string_view, char32_t value) { AppendMeaning(host, value); });
    return host;
}

std::string ToHostFolder(std::string_view path) { return path.empty() ? "/" : ToHost(path); }

std::string Shown(std::string_view path) {
    std::string text;
    Walk(
        path, [&](char c) { CodePage::AppendUtf8(text, CodePage::ToCodePoint(c)); },
        [&](std::string_view, char32_t value) { AppendMeaning(text, value); });
    return text;
}

std::size_t Length(std::string_view name) {
    std::size_t units = 0;
    Walk(
        name, [&](char) { ++units; }, [&](std::string_view, char32_t) { ++units; });
    return units;
}

std::string Left(std::string_view name, std::size_t units) {
    std::string result;
    Walk(
        name,
        [&](char c) {
            if (units > 0) --units, result += c;
        },
        [&](std::string_view escape, char32_t) {
            if (units > 0) --units, result += escape;
        });
    return result;
}

std::string Lower(std::string_view name) {
    return Convert(name, [](char c) { return CodePage::Lower(c); });
}

std::string Upper(std::string_view name) {
    return Convert(name, [](char c) { return CodePage::Upper(c); });
}

std::string Clean(std::string_view name, bool& changed) {
    constexpr std::string_view kForbidden = "\\/:*?<>|\"\r\n";
    return Convert(name, [&](char c) {
        if (c == kEscapeLead) return '_';
        if (kForbidden.find(c) == std::string_view::npos) return c;
        changed = true;
        return '_';
    });
}

std::u32string Units(std::string_view name) {
    std::u32string units;
    Walk(
        name, [&](char c) { units += CodePage::ToCodePoint(c); },
        [&](std::string_view, char32_t value) {
            const bool plain = value == U'\\' || value == static_cast<unsigned char>(kEscapeLead);
            units += value >= kRawByteBase ? kByteUnit + (value - kRawByteBase)
                     : plain               ? kByteUnit + value
                                           : value;
        });
    return units;
}

std::string FromUnits(std::u32string_view units) {
    std::string name;
    for (const char32_t unit : units) {
        char byte = 0;
        if (unit >= kByteUnit && unit <= kByteUnit + 0xFF) {
            const char32_t value = unit - kByteUnit;
            AppendEscape(name, value >= 0x80 ? kRawByteBase + value : value);
        } else if (CodePage::FromCodePoint(unit, byte)) {
            name += byte;
        } else {
            AppendEscape(name, unit);
        }
    }
    return name;
}

std::string ToTagText(std::string_view name) {
    std::string result;
    Walk(
        name, [&](char c) { result += c; }, [&](std::string_view, char32_t) { result += '?'; });
    return result;
}

} // namespace calyvox::HostPath
