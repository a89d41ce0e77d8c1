// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/BinaryFile.h"

#include "platform/Failure.h"
#include "platform/FileSystem.h"
#include "platform/HostCalls.h"
#include "platform/HostPath.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <iterator>
#include <new>
#include <thread>

namespace calyvox {

namespace {

constexpr std::int64_t kWindowSize = 16384;
constexpr auto kLongestWait = std::chrono::milliseconds(500);
constexpr auto kWaitStep = std::chrono::milliseconds(20);
constexpr const char* kSource = "BinaryFile";
// Not to hang on a pipe, nor to own a terminal.
constexpr int kPlain = O_NONBLOCK | O_NOCTTY;

[[noreturn]] void ThrowHostError() { throw Failure::FromHostError(errno, kSource); }

std::int64_t PlainFileLength(int handle) {
    struct stat found {};
    if (::fstat(handle, &found) != 0) ThrowHostError();
    if (!S_ISREG(found.st_mode)) throw Failure(Failure::kPathAccess, kSource);
    if (found.st_size > BinaryFile::kMostLength) throw Failure(Failure::kOverflow, kSource);
    return found.st_size;
}

// Network file systems refuse a lease for reasons of their own.
bool TellsWhoElseHasItOpen(int handle) {
    struct statfs found {};
    if (::fstatfs(handle, &found) != 0) return false;
    constexpr std::uint32_t kNetworks[] = {0x6969, 0x517B, 0xFF534D42, 0xFE534D42, 0x65735546, 0x01021997};
    return std::find(std::begin(kNetworks), std::end(kNetworks), static_cast<std::uint32_t>(found.f_type)) ==
           std::end(kNetworks);
}

// A lease is granted only to the one who has the file open alone; it is given back at once. Where leases do
// not exist or are not ours to take, nobody can tell: false.
bool IsOpenElsewhere(int handle) {
    static const auto kIgnored = std::signal(SIGIO, SIG_IGN);
    static_cast<void>(kIgnored);
    if (::fcntl(handle, F_SETLEASE, F_WRLCK) != 0) return errno == EAGAIN && TellsWhoElseHasItOpen(handle);
    ::fcntl(handle, F_SETLEASE, F_UNLCK);
    return false;
}

// True where another program holds the lock; file systems without locks lock nothing.
bool IsLockedElsewhere(int handle) {
    if (HostCalls::Lock(handle) == 0 || errno == ENOTSUP || errno == ENOLCK) return false;
    if (errno != EWOULDBLOCK) ThrowHostError();
    return true;
}

// Whether the path still leads to what is open: another program may have replaced the file meanwhile.
bool BearsName(int handle, const std::string& hostPath) {
    struct stat open {};
    struct stat named {};
    return ::fstat(handle, &open) == 0 && HostCalls::Stat(hostPath, named) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

} // namespace

BinaryFile::~BinaryFile() { LetGo(); }

BinaryFile::Keep::~Keep() {
    file_.kept_ = false;
    if (!file_.open_) file_.LetGo();
}

void BinaryFile::Open(const std::string& path) {
    try {
        OpenExisting(path);
    } catch (const Failure& failure) {
        if (failure.Number() != Failure::kFileNotFound) throw;
        handle_ = HostCalls::Open(HostPath::ToHost(path), O_RDWR | O_CREAT | kPlain);
        writable_ = handle_ >= 0;
        Begin(path);
    }
}

void BinaryFile::OpenExisting(const std::string& path) {
    if (TakeUpAgain(path)) return;
    handle_ = HostCalls::Open(HostPath::ToHost(path), O_RDONLY | kPlain);
    Begin(path);
}

void BinaryFile::OpenLocked(const std::string& path) {
    if (TakeUpAgain(path)) return;
    const auto end = std::chrono::steady_clock::now() + kLongestWait;
    bool used = false;
    while (!TryOpenLocked(path, used)) {
        if (std::chrono::steady_clock::now() >= end) throw Failure(Failure::kPermissionDenied, kSource);
        if (used) std::this_thread::sleep_for(kWaitStep);
    }
}

// False, with nothing open, where the file is used or was replaced just now.
bool BinaryFile::TryOpenLocked(const std::string& path, bool& used) {
    if (FileSystem::IsReadOnly(path)) throw Failure(Failure::kPathAccess, kSource);
    const std::string host = HostPath::ToHost(path);
    handle_ = HostCalls::Open(host, O_RDWR | kPlain);
    Begin(path);
    try {
        used = IsLockedElsewhere(handle_) || IsOpenElsewhere(handle_);
    } catch (const Failure&) {
        LetGo();
        throw;
    }
    if (used || !BearsName(handle_, host)) {
        LetGo();
        return false;
    }
    locked_ = writable_ = true;
    return true;
}

void BinaryFile::Adopt(int handle) {
    LetGo();
    handle_ = handle;
    locked_ = writable_ = open_ = true;
    position_ = 1;
}

// The file that a Keep held for this very path, at its first position.
bool BinaryFile::TakeUpAgain(const std::string& path) {
    if (kept_ && locked_ && handle_ >= 0 && path == path_) {
        open_ = true;
        position_ = 1;
        return true;
    }
    LetGo();
    return false;
}

void BinaryFile::Begin(const std::string& path) {
    if (handle_ < 0) ThrowHostError();
    try {
        PlainFileLength(handle_);
    } catch (const Failure&) {
        LetGo();
        throw;
    }
    path_ = path;
    open_ = true;
    position_ = 1;
}

void BinaryFile::Close() {
    open_ = false;
    if (!kept_ || !locked_) LetGo();
}

void BinaryFile::LetGo() {
    HostCalls::Close(handle_);
    open_ = locked_ = writable_ = false;
    windowLength_ = 0;
}

std::int64_t BinaryFile::Length() const { return PlainFileLength(Handle()); }

void BinaryFile::Seek(std::int64_t position) {
    if (position < 1) throw Failure(Failure::kInvalidCall, kSource);
    position_ = position;
}

std::string BinaryFile::Read(std::int64_t count) {
    if (!open_ || count < 0) throw Failure(Failure::kInvalidCall, kSource);
    const std::int64_t offset = position_ - 1;
    const auto inWindow = [&] {
        return offset >= windowOffset_ && offset + count <= windowOffset_ + windowLength_;
    };
    if (!inWindow() && count <= kWindowSize) FillWindow(offset);
    if (inWindow() || count <= kWindowSize) {
        const auto got = std::clamp<std::int64_t>(windowLength_ - (offset - windowOffset_), 0, count);
        std::string bytes =
            window_.substr(static_cast<std::size_t>(offset - windowOffset_), static_cast<std::size_t>(got));
        bytes.resize(static_cast<std::size_t>(count));
        position_ += count;
        return bytes;
    }
    const std::int64_t there = std::clamp<std::int64_t>(Length() - offset, 0, count);
    if (count - there > kMostBeyondEnd) throw Failure(Failure::kOutOfMemory, kSource);
    std::string bytes;
    try {
        bytes.resize(count);
    } catch (const std::bad_alloc&) {
        throw Failure(Failure::kOutOfMemory, kSource);
    }
    ReadAt(offset, bytes.data(), there);
    position_ += count;
    return bytes;
}

void BinaryFile::FillWindow(std::int64_t offset) {
    window_.resize(kWindowSize);
    windowLength_ = 0;
    windowOffset_ = offset;
    while (windowLength_ < kWindowSize) {
        const ssize_t got =
            HostCalls::ReadAt(handle_, window_.data() + windowLength_,
                              static_cast<std::size_t>(kWindowSize - windowLength_), offset + windowLength_);
        if (got < 0) {
            windowLength_ = 0;
            ThrowHostError();
        }
        if (got == 0) break;
        windowLength_ += got;
    }
}

void BinaryFile::ReadAt(std::int64_t offset, char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t got = HostCalls::ReadAt(handle_, bytes, count, offset);
        if (got < 0) ThrowHostError();
        if (got == 0) return;
        bytes += got;
        count -= static_cast<std::size_t>(got);
        offset += got;
    }
}

void BinaryFile::WriteAt(std::int64_t offset, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t put = HostCalls::WriteAt(handle_, bytes.data(), bytes.size(), offset);
        if (put < 0) ThrowHostError();
        if (put == 0) throw Failure(Failure::kDiskNotReady, kSource);
        bytes.remove_prefix(static_cast<std::size_t>(put));
        offset += put;
    }
}

void BinaryFile::MakeWritable() {
    if (!open_) throw Failure(Failure::kInvalidCall, kSource);
    if (writable_) return;
    struct stat found {};
    if (::fstat(handle_, &found) != 0) ThrowHostError();
    if ((found.st_mode & S_IWUSR) == 0) throw Failure(Failure::kPermissionDenied, kSource);
    int again = HostCalls::Open("/proc/self/fd/" + std::to_string(handle_), O_RDWR | O_NONBLOCK);
    if (again < 0) ThrowHostError();
    HostCalls::Close(handle_);
    handle_ = again;
    writable_ = true;
}

void BinaryFile::Write(std::string_view bytes) {
    MakeWritable();
    const std::int64_t offset = position_ - 1;
    const std::int64_t length = Length();
    if (offset + static_cast<std::int64_t>(bytes.size()) > kMostLength)
        throw Failure(Failure::kOverflow, kSource);
    const auto covered =
        std::clamp<std::int64_t>(length - offset, 0, static_cast<std::int64_t>(bytes.size()));
    std::string before(covered, '\0');
    ReadAt(offset, before.data(), covered);
    windowLength_ = 0;
    try {
        // What makes the file longer comes first: where there is no room for it, nothing was overwritten yet.
        WriteAt(offset + covered, bytes.substr(covered));
        WriteAt(offset, bytes.substr(0, covered));
    } catch (const Failure&) {
        Skip([&] { WriteAt(offset, before); });
        static_cast<void>(HostCalls::Truncate(handle_, length));
        throw;
    }
    position_ += static_cast<std::int64_t>(bytes.size());
}

void BinaryFile::Truncate(std::int64_t length) {
    MakeWritable();
    windowLength_ = 0;
    if (HostCalls::Truncate(handle_, length) != 0) ThrowHostError();
}

} // namespace calyvox
