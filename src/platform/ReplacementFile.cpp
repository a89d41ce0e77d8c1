// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/ReplacementFile.h"

#include "platform/BinaryFile.h"
#include "platform/Failure.h"
#include "platform/HostCalls.h"
#include "platform/HostPath.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <utility>

namespace calyvox {

namespace {

constexpr const char* kSource = "ReplacementFile";
constexpr std::string_view kSuffix = ".tmp";

[[noreturn]] void ThrowHostError() { throw Failure::FromHostError(errno, kSource); }

std::string FolderOf(const std::string& hostPath) {
    const std::size_t slash = hostPath.rfind('/');
    return slash == std::string::npos ? "./" : hostPath.substr(0, slash + 1);
}

// What the path leads to, whether it is there or not.
std::string BehindLinks(std::string hostPath) {
    constexpr int kMostLinks = 40;
    for (int i = 0; i < kMostLinks; ++i) {
        std::string target(PATH_MAX, '\0');
        const ssize_t length = ::readlink(hostPath.c_str(), target.data(), target.size());
        if (length < 0 && (errno == EINVAL || errno == ENOENT)) return hostPath;
        if (length < 0) ThrowHostError();
        target.resize(static_cast<std::size_t>(length));
        if (!target.starts_with('/')) target.insert(0, FolderOf(hostPath));
        hostPath = std::move(target);
    }
    throw Failure(Failure::kPathAccess, kSource);
}

std::string ShortTemporaryFor(const std::string& target) {
    static int made = 0;
    return target.substr(0, target.rfind('/') + 1) + ".calyvox-" + std::to_string(::getpid()) + "-" +
           std::to_string(++made) + std::string(kSuffix);
}

void RemoveLeftover(const std::string& path) {
    struct stat found {};
    if (::lstat(path.c_str(), &found) != 0) return;
    if (!S_ISREG(found.st_mode)) throw Failure(Failure::kPathAccess, kSource);
    int leftover = HostCalls::Open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    const bool beingWritten = leftover >= 0 && HostCalls::Lock(leftover) != 0 && errno == EWOULDBLOCK;
    HostCalls::Close(leftover);
    if (beingWritten) throw Failure(Failure::kPermissionDenied, kSource);
    if (HostCalls::Unlink(path) != 0) ThrowHostError();
}

// Some attributes are the system's own and cannot be set; the file is none the worse for it.
void CopyAttributes(const std::string& from, int to) {
    std::string names(static_cast<std::size_t>(std::max<ssize_t>(0, ::listxattr(from.c_str(), nullptr, 0))),
                      '\0');
    const ssize_t size = names.empty() ? 0 : ::listxattr(from.c_str(), names.data(), names.size());
    for (ssize_t at = 0; at < size;) {
        const std::string name = names.c_str() + at;
        at += static_cast<ssize_t>(name.size()) + 1;
        const ssize_t room = ::getxattr(from.c_str(), name.c_str(), nullptr, 0);
        if (room < 0) continue;
        std::string value(static_cast<std::size_t>(room), '\0');
        // A size of 0 would ask for the length alone.
        const ssize_t got =
            room == 0 ? 0 : ::getxattr(from.c_str(), name.c_str(), value.data(), value.size());
        if (got >= 0)
            static_cast<void>(::fsetxattr(to, name.c_str(), value.data(), static_cast<std::size_t>(got), 0));
    }
}

// Owner first: changing it takes mode bits away. An owner or a group that is not ours to give stays the
// user's, and gets no rights that were meant for the other.
void CopyOwnerAndMode(const std::string& model, int to) {
    struct stat old {};
    if (HostCalls::Stat(model, old) != 0) {
        if (errno != ENOENT) ThrowHostError();
        return;
    }
    mode_t mode = old.st_mode & 07777;
    if (::fchown(to, old.st_uid, old.st_gid) != 0) {
        mode &= 01777;
        if (::fchown(to, static_cast<uid_t>(-1), old.st_gid) != 0) mode &= 01707 | ((mode & 07) << 3);
    }
    CopyAttributes(model, to);
    if (::fchmod(to, mode) != 0) ThrowHostError();
}

} // namespace

ReplacementFile::ReplacementFile(const std::string& path) : target_(BehindLinks(HostPath::ToHost(path))) {
    temporary_ = target_ + std::string(kSuffix);
    if (temporary_.size() - (temporary_.rfind('/') + 1) > NAME_MAX) temporary_ = ShortTemporaryFor(target_);
    MakeTemporary();
    // Whoever finds it knows by the lock that it is no leftover.
    static_cast<void>(HostCalls::Lock(handle_));
}

void ReplacementFile::MakeTemporary() {
    RemoveLeftover(temporary_);
    // The copy of a private file is never readable for others, not even before it has the old file's mode.
    struct stat old {};
    const mode_t mode = HostCalls::Stat(target_, old) == 0 ? 0600 : 0666;
    constexpr int kFlags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW;
    handle_ = HostCalls::Open(temporary_, kFlags, mode);
    if (handle_ < 0 && errno == ENAMETOOLONG) {
        temporary_ = ShortTemporaryFor(target_);
        handle_ = HostCalls::Open(temporary_, kFlags, mode);
    }
    if (handle_ < 0) ThrowHostError();
}

ReplacementFile::~ReplacementFile() {
    if (handle_ < 0) return;
    if (IsOurs()) static_cast<void>(HostCalls::Unlink(temporary_));
    HostCalls::Close(handle_);
}

// Another program may have taken the name for a temporary of its own.
bool ReplacementFile::IsOurs() const {
    struct stat open {};
    struct stat named {};
    return ::fstat(handle_, &open) == 0 && ::lstat(temporary_.c_str(), &named) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

void ReplacementFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t put = HostCalls::WriteAt(handle_, bytes.data(), bytes.size(), written_);
        if (put <= 0) throw Failure(Failure::kDiskNotReady, kSource);
        bytes.remove_prefix(static_cast<std::size_t>(put));
        written_ += put;
    }
}

void ReplacementFile::CopyFrom(BinaryFile& source, std::int64_t position, std::int64_t count,
                               const std::function<void(std::int64_t)>& afterBlock) {
    const auto checkEnd = [&source, end = position - 1 + count] {
        if (end > source.Length()) throw Failure(Failure::kPathAccess, kSource);
    };
    if (count < 0) throw Failure(Failure::kPathAccess, kSource);
    checkEnd();
    source.Seek(position);
    while (count > 0) {
        const std::int64_t block = std::min(kBlock, count);
        Write(source.Read(block));
        count -= block;
        if (afterBlock) afterBlock(block);
    }
    checkEnd(); // a source cut meanwhile was read as NULs
}

void ReplacementFile::Commit() {
    Finish(target_);
    Publish(true);
    HostCalls::Close(handle_);
}

void ReplacementFile::CommitInto(BinaryFile& file) {
    Finish(target_);
    Publish(true);
    file.Adopt(std::exchange(handle_, -1));
}

void ReplacementFile::CommitNew(const std::string& model) {
    Finish(HostPath::ToHost(model));
    Publish(false);
    HostCalls::Close(handle_);
}

void ReplacementFile::Finish(const std::string& hostModel) {
    CopyOwnerAndMode(hostModel, handle_);
    const bool flushed = HostCalls::Sync(handle_) == 0 || errno == EINVAL || errno == ENOTSUP;
    if (!flushed) throw Failure(Failure::kDiskNotReady, kSource);
    if (!IsOurs()) throw Failure(Failure::kPathAccess, kSource);
}

void ReplacementFile::Publish(bool overOld) {
    const int renamed =
        overOld ? HostCalls::RenameOver(temporary_, target_) : HostCalls::RenameNew(temporary_, target_);
    if (renamed != 0) ThrowHostError();
    // The new name is on the disk only with its folder; a folder that cannot be flushed is no failure now.
    int folder = HostCalls::Open(FolderOf(target_), O_RDONLY | O_DIRECTORY);
    if (folder >= 0) static_cast<void>(HostCalls::Sync(folder));
    HostCalls::Close(folder);
}

} // namespace calyvox
