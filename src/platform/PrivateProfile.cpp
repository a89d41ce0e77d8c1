// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/PrivateProfile.h"

#include "platform/CodePage.h"
#include "platform/Failure.h"
#include "platform/FileSystem.h"
#include "platform/HostCalls.h"
#include "platform/HostPath.h"
#include "platform/ReplacementFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <memory>
#include <new>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace calyvox::PrivateProfile {

namespace {

constexpr std::size_t kLongestValue = 65534;
constexpr std::size_t kLongestKeyList = 65533;
constexpr off_t kLargestFile = off_t{256} * 1024 * 1024;
constexpr std::size_t kFilesKept = 4;
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kBlanks = " \t";

struct NoCaseHash {
    std::size_t operator()(std::string_view text) const {
        std::uint64_t hash = 0xCBF29CE484222325u;
        for (const char c : text)
            hash = (hash ^ static_cast<unsigned char>(CodePage::Upper(c))) * 0x100000001B3u;
        return hash;
    }
};

struct NoCaseEqual {
    bool operator()(std::string_view a, std::string_view b) const { return CodePage::EqualNoCase(a, b); }
};

// The place of the first of each name.
using Places = std::unordered_map<std::string_view, std::size_t, NoCaseHash, NoCaseEqual>;

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view Unquoted(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.front() == value.back();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string_view OneLine(std::string_view text) {
    return text.substr(0, text.find_first_of(std::string_view("\0\r\n", 3)));
}

// Takes the next line, its end included.
std::string_view TakeLine(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = end == std::string_view::npos ? rest : rest.substr(0, end + 1);
    rest.remove_prefix(line.size());
    return line;
}

bool HasEnd(std::string_view line) { return !line.empty() && line.back() == '\n'; }

std::string_view WithoutEnd(std::string_view line) {
    if (!HasEnd(line)) return line;
    line.remove_suffix(1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

std::optional<std::string_view> SectionName(std::string_view line) {
    const std::string_view body = Trimmed(WithoutEnd(line));
    if (body.empty() || body.front() != '[') return std::nullopt;
    const std::size_t close = body.rfind(']');
    if (close == std::string_view::npos) return std::nullopt;
    return body.substr(1, close - 1);
}

struct Line {
    std::string_view Text; // with its end
    std::string_view Key;  // empty where the line is none
    std::string_view Value;
};

Line ParsedLine(std::string_view text) {
    const std::string_view body = Trimmed(WithoutEnd(text));
    const std::size_t equals = body.find('=');
    if (equals == std::string_view::npos || body.front() == ';') return {text, {}, {}};
    return {text, Trimmed(body.substr(0, equals)), Trimmed(body.substr(equals + 1))};
}

struct Lines {
    std::vector<Line> All;
    Places Keys;
};

struct Section {
    std::string_view Name;
    std::string_view Header; // the line, with its end
    std::string_view Body;   // up to the next header; no longer valid once split
    std::unique_ptr<Lines> Split;
};

/// A parsed file. Sections are split into lines when first asked for, so a file read section by section
/// costs time in proportion to its size. Views point into text_ and added_.
class Document {
public:
    explicit Document(std::string text) : text_(std::move(text)) { Parse(); }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    std::optional<std::string_view> Value(std::string_view section, std::string_view key);
    std::string KeyList(std::string_view section);
    std::vector<std::string> SectionNames() const;
    std::string Text() const;

    void Write(std::string_view section, std::string_view key, std::string_view value);
    void DeleteKey(std::string_view section, std::string_view key);
    void DeleteSection(std::string_view section);

private:
    void Parse();
    Section* Find(std::string_view section);
    Section& Made(std::string_view section);
    static Lines& Split(Section& section);
    std::string_view Keep(std::string text) { return added_.emplace_back(std::move(text)); }
    // Ends a line, the file's last, that has no end.
    void Complete(std::string_view& line);
    std::string_view Insert(Section& target, Lines& lines, std::string_view key, std::string_view value);
    std::string_view Replace(Line& line, std::string_view value);

    std::string text_;
    std::deque<std::string> added_;
    std::vector<Section> sections_; // the first holds what stands before any header
    Places places_;
};

void Document::Parse() {
    sections_.clear();
    places_.clear();
    sections_.emplace_back();
    std::string_view rest = text_;
    const char* bodyStart = rest.data();
    const auto endBody = [&](const char* end) {
        sections_.back().Body = {bodyStart, static_cast<std::size_t>(end - bodyStart)};
    };
    while (!rest.empty()) {
        const std::string_view line = TakeLine(rest);
        const auto name = SectionName(line);
        if (!name) continue;
        endBody(line.data());
        places_.emplace(*name, sections_.size());
        sections_.push_back({*name, line, {}, nullptr});
        bodyStart = line.data() + line.size();
    }
    endBody(text_.data() + text_.size());
}

Section* Document::Find(std::string_view section) {
    const auto found = places_.find(section);
    return found == places_.end() ? nullptr : &sections_[found->second];
}

Lines& Document::Split(Section& section) {
    if (section.Split) return *section.Split;
    section.Split = std::make_unique<Lines>();
    Lines& lines = *section.Split;
    for (std::string_view rest = section.Body; !rest.empty();) {
        const Line line = ParsedLine(TakeLine(rest));
        if (!line.Key.empty()) lines.Keys.emplace(line.Key, lines.All.size());
        lines.All.push_back(line);
    }
    return lines;
}

std::optional<std::string_view> Document::Value(std::string_view section, std::string_view key) {
    Section* const found = Find(section);
    if (!found) return std::nullopt;
    const Lines& lines = Split(*found);
    const auto place = lines.Keys.find(Trimmed(key));
    if (place == lines.Keys.end()) return std::nullopt;
    return lines.All[place->second].Value;
}

std::string Document::KeyList(std::string_view section) {
    std::string list;
    Section* const found = Find(section);
    if (!found) return list;
    for (const Line& line : Split(*found).All)
        if (!line.Key.empty()) list.append(line.Key).push_back('\0');
    return list;
}

std::vector<std::string> Document::SectionNames() const {
    std::vector<std::string> names;
    for (std::size_t i = 1; i < sections_.size(); ++i)
        if (places_.at(sections_[i].Name) == i) names.emplace_back(sections_[i].Name);
    return names;
}

std::string Document::Text() const {
    std::string text;
    for (const Section& section : sections_) {
        text += section.Header;
        if (!section.Split) text += section.Body;
        if (!section.Split) continue;
        for (const Line& line : section.Split->All)
            text += line.Text;
    }
    return text;
}

void Document::Complete(std::string_view& line) {
    if (!line.empty() && !HasEnd(line)) line = Keep(std::string(line).append(kLineEnd));
}

Section& Document::Made(std::string_view section) {
    if (Section* const found = Find(section)) return *found;
    Lines& last = Split(sections_.back());
    Complete(last.All.empty() ? sections_.back().Header : last.All.back().Text);
    const std::string_view header = Keep("[" + std::string(section) + "]" + std::string(kLineEnd));
    const std::string_view name = header.substr(1, section.size());
    places_.emplace(name, sections_.size());
    return sections_.emplace_back(Section{name, header, {}, nullptr});
}

void Document::Write(std::string_view section, std::string_view key, std::string_view value) {
    if (key.empty()) return;
    Section& target = Made(section);
    Lines& lines = Split(target);
    const auto place = lines.Keys.find(key);
    const std::string_view written = place == lines.Keys.end() ? Insert(target, lines, key, value)
                                                               : Replace(lines.All[place->second], value);
    // A key like "[a]" makes a header of its line.
    if (SectionName(written)) {
        text_ = Text();
        Parse();
    }
}

std::string_view Document::Insert(Section& target, Lines& lines, std::string_view key,
                                  std::string_view value) {
    std::size_t at = lines.All.size();
    while (at > 0 && Trimmed(WithoutEnd(lines.All[at - 1].Text)).empty())
        --at;
    Complete(at > 0 ? lines.All[at - 1].Text : target.Header);
    const Line line = ParsedLine(Keep(std::string(key).append("=").append(value).append(kLineEnd)));
    lines.All.insert(lines.All.begin() + static_cast<std::ptrdiff_t>(at), line);
    if (!line.Key.empty()) lines.Keys.emplace(line.Key, at);
    return line.Text;
}

std::string_view Document::Replace(Line& line, std::string_view value) {
    const std::string_view old = WithoutEnd(line.Text);
    const std::size_t valueStart = old.find_first_not_of(kBlanks, old.find('=') + 1);
    std::string text = std::string(old.substr(0, valueStart)).append(value);
    if (text != old) line = ParsedLine(Keep(text.append(kLineEnd)));
    return line.Text;
}

void Document::DeleteKey(std::string_view section, std::string_view key) {
    Section* const found = Find(section);
    if (!found) return;
    Lines& lines = Split(*found);
    const auto place = lines.Keys.find(key);
    if (place == lines.Keys.end()) return;
    lines.All.erase(lines.All.begin() + static_cast<std::ptrdiff_t>(place->second));
    lines.Keys.clear();
    for (std::size_t i = 0; i < lines.All.size(); ++i)
        if (!lines.All[i].Key.empty()) lines.Keys.emplace(lines.All[i].Key, i);
}

void Document::DeleteSection(std::string_view section) {
    const auto found = places_.find(section);
    if (found == places_.end()) return;
    sections_.erase(sections_.begin() + static_cast<std::ptrdiff_t>(found->second));
    places_.clear();
    for (std::size_t i = 1; i < sections_.size(); ++i)
        places_.emplace(sections_[i].Name, i);
}

// 0 or the errno of the failure.
int ReadWhole(const std::string& path, std::string& text) {
    int handle = HostCalls::Open(HostPath::ToHost(path), O_RDONLY | O_NONBLOCK);
    if (handle < 0) return errno;
    struct stat found {};
    int error = ::fstat(handle, &found) != 0 ? errno : 0;
    if (error == 0 && !S_ISREG(found.st_mode)) error = EINVAL;
    if (error == 0 && found.st_size > kLargestFile) error = EFBIG;
    if (error == 0) text.resize(static_cast<std::size_t>(found.st_size));
    for (std::size_t got = 0; error == 0 && got < text.size();) {
        const ssize_t count =
            HostCalls::ReadAt(handle, text.data() + got, text.size() - got, static_cast<off_t>(got));
        if (count < 0) error = errno;
        if (count == 0) text.resize(got);
        if (count > 0) got += static_cast<std::size_t>(count);
    }
    HostCalls::Close(handle);
    return error;
}

// Times of modification stand still for some ms: a file changed just now may change again unseen.
bool Settled(const FileSystem::FileIdentity& identity) {
    using namespace std::chrono;
    constexpr std::int64_t kSettlingNs = 20'000'000;
    const std::int64_t now = duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
    return std::abs(now - identity.ModifiedNs) > kSettlingNs;
}

struct KeptFile {
    std::string Path;
    FileSystem::FileIdentity Identity;
    bool Trusted = false;
    std::unique_ptr<Document> Contents;
};

// The file as it is now, nullptr if it cannot be read; valid until the next call.
Document* Loaded(const std::string& path) {
    static std::vector<KeptFile> files; // the last used comes first
    const auto identity = FileSystem::Identity(path);
    const auto kept =
        std::find_if(files.begin(), files.end(), [&](const KeptFile& file) { return file.Path == path; });
    if (kept != files.end()) {
        if (identity && kept->Trusted && kept->Identity == *identity) {
            std::rotate(files.begin(), kept, kept + 1);
            return files.front().Contents.get();
        }
        files.erase(kept);
    }
    if (!identity) return nullptr;
    try {
        const bool trusted = Settled(*identity);
        std::string text;
        if (ReadWhole(path, text) != 0) return nullptr;
        files.insert(files.begin(), {path, *identity, trusted, std::make_unique<Document>(std::move(text))});
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    if (files.size() > kFilesKept) files.pop_back();
    return files.front().Contents.get();
}

std::string Fallback(const std::string& text) {
    return text.substr(0, std::min(text.find_last_not_of(' ') + 1, kLongestValue));
}

} // namespace

std::string ReadValue(const std::string& section, const std::string& key, const std::string& fallback,
                      const std::string& path) {
    Document* const document = Loaded(path);
    const auto value = document ? document->Value(section, key) : std::nullopt;
    return value ? std::string(Unquoted(*value).substr(0, kLongestValue)) : Fallback(fallback);
}

std::string ReadKeys(const std::string& section, const std::string& fallback, const std::string& path) {
    Document* const document = Loaded(path);
    std::string list = document ? document->KeyList(section) : std::string();
    if (list.empty()) return Fallback(fallback);
    list.resize(std::min(list.size(), kLongestKeyList));
    return list;
}

std::vector<std::string> SectionNames(const std::string& path) {
    Document* const document = Loaded(path);
    return document ? document->SectionNames() : std::vector<std::string>();
}

bool WriteValue(const std::string& section, const std::string& key, const std::string& value,
                const std::string& path) {
    Batch batch(path);
    batch.WriteValue(section, key, value);
    return batch.Commit();
}

bool DeleteKey(const std::string& section, const std::string& key, const std::string& path) {
    Batch batch(path);
    batch.DeleteKey(section, key);
    return batch.Commit();
}

bool DeleteSection(const std::string& section, const std::string& path) {
    Batch batch(path);
    batch.DeleteSection(section);
    return batch.Commit();
}

Batch::Batch(std::string path) : path_(std::move(path)) {}

void Batch::WriteValue(const std::string& section, const std::string& key, const std::string& value) {
    changes_.push_back(
        {std::string(OneLine(section)), std::string(Trimmed(OneLine(key))), std::string(OneLine(value))});
}

void Batch::DeleteKey(const std::string& section, const std::string& key) {
    changes_.push_back({std::string(OneLine(section)), std::string(Trimmed(OneLine(key))), std::nullopt});
}

void Batch::DeleteSection(const std::string& section) {
    changes_.push_back({std::string(OneLine(section)), std::nullopt, std::nullopt});
}

bool Batch::Commit() {
    try {
        std::string before;
        const int error = ReadWhole(path_, before);
        if (error != 0 && error != ENOENT) return false;
        Document document(before);
        for (const Change& change : changes_) {
            if (!change.Key)
                document.DeleteSection(change.Section);
            else if (!change.Value)
                document.DeleteKey(change.Section, *change.Key);
            else
                document.Write(change.Section, *change.Key, *change.Value);
        }
        const std::string after = document.Text();
        if (after == before) return true;
        if (error == 0 && FileSystem::IsReadOnly(path_)) return false;
        ReplacementFile file(path_);
        file.Write(after);
        file.Commit();
        return true;
    } catch (const Failure&) {
        return false;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace calyvox::PrivateProfile
