// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/FileSystem.h"

#include "platform/BinaryFile.h"
#include "platform/Failure.h"
#include "platform/HostCalls.h"
#include "platform/HostPath.h"
#include "platform/ReplacementFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>

namespace calyvox::FileSystem {

namespace {

constexpr const char* kSource = "FileSystem";

[[noreturn]] void ThrowHostError() { throw Failure::FromHostError(errno, kSource); }

std::optional<struct stat> StatOf(const std::string& hostPath) {
    struct stat found {};
    if (HostCalls::Stat(hostPath, found) != 0) return std::nullopt;
    return found;
}

std::string FolderOf(const std::string& hostPath) {
    const std::size_t slash = hostPath.rfind('/');
    return slash == std::string::npos ? "." : hostPath.substr(0, slash + 1);
}

std::string NameOf(const std::string& hostPath) { return hostPath.substr(hostPath.rfind('/') + 1); }

// Whether a folder lists the name itself, to the letter; a host that ignores case finds more than it lists.
bool HasEntry(const std::string& hostPath) {
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(FolderOf(hostPath).c_str()), ::closedir);
    if (!open) return false;
    while (const dirent* entry = ::readdir(open.get()))
        if (NameOf(hostPath) == entry->d_name) return true;
    return false;
}

bool AreSame(const std::string& hostA, const std::string& hostB) {
    const auto a = StatOf(hostA);
    const auto b = StatOf(hostB);
    return a && b && a->st_dev == b->st_dev && a->st_ino == b->st_ino;
}

// Result 0, or the errno of the rename.
int TryRename(const std::string& from, const std::string& to) {
    const std::string hostFrom = HostPath::ToHost(from);
    const std::string hostTo = HostPath::ToHost(to);
    if (HostCalls::RenameNew(hostFrom, hostTo) == 0) return 0;
    const int error = errno;
    if (error == ENOENT && StatOf(hostFrom)) return ENOTDIR; // it is the new name's folder that is missing
    if (error != EEXIST || !AreSame(hostFrom, hostTo)) return error;
    if (!AreSame(FolderOf(hostFrom), FolderOf(hostTo))) return error;
    if (NameOf(hostFrom) == NameOf(hostTo)) return 0;
    // A name that the folder does not list is the old name in other letter case.
    if (HasEntry(hostTo)) return error;
    return HostCalls::RenameOver(hostFrom, hostTo) == 0 ? 0 : errno;
}

void CopyTimes(const struct stat& from, const std::string& hostTo) {
    const timespec times[] = {from.st_atim, from.st_mtim};
    static_cast<void>(::utimensat(AT_FDCWD, hostTo.c_str(), times, 0));
}

// Owns the process's private folder for temporary files.
class TempFolder {
public:
    TempFolder() {
        const char* base = std::getenv("TMPDIR");
        path_ = std::string(base && *base ? base : "/tmp") + "/calyvox-XXXXXX";
        if (!::mkdtemp(path_.data())) ThrowHostError();
    }
    ~TempFolder() {
        if (::getpid() != owner_) return;
        Skip([&] {
            for (const Entry& entry : ListFolder(HostPath::FromHost(path_)))
                static_cast<void>(HostCalls::Unlink(path_ + "/" + HostPath::ToHost(entry.Name)));
        });
        static_cast<void>(::rmdir(path_.c_str()));
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    const std::string& Path() const { return path_; }

private:
    std::string path_;
    pid_t owner_ = ::getpid();
};

} // namespace

bool FileExists(const std::string& path) {
    const auto found = StatOf(HostPath::ToHost(path));
    return found && S_ISREG(found->st_mode);
}

bool FolderExists(const std::string& path) {
    const auto found = StatOf(HostPath::ToHostFolder(path));
    return found && S_ISDIR(found->st_mode);
}

std::optional<FileIdentity> Identity(const std::string& path) {
    const auto found = StatOf(HostPath::ToHostFolder(path));
    if (!found) return std::nullopt;
    constexpr std::int64_t kNsPerSecond = 1'000'000'000;
    return FileIdentity{found->st_dev, found->st_ino, found->st_size,
                        found->st_mtim.tv_sec * kNsPerSecond + found->st_mtim.tv_nsec};
}

bool IsReadOnly(const std::string& path) {
    const std::string host = HostPath::ToHost(path);
    const auto found = StatOf(host);
    if (!found) ThrowHostError();
    return (found->st_mode & S_IWUSR) == 0 || ::access(host.c_str(), W_OK) != 0;
}

std::vector<Entry> ListFolder(const std::string& path) {
    const std::string host = HostPath::ToHostFolder(path);
    if (!StatOf(host) && (errno == ENOENT || errno == EINVAL)) throw Failure(Failure::kPathNotFound, kSource);
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(host.c_str()), ::closedir);
    if (!open) ThrowHostError();
    std::vector<Entry> entries;
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(open.get());
        if (!entry && errno != 0) ThrowHostError();
        if (!entry) break;
        const std::string name = entry->d_name;
        if (name == "." || name == "..") continue;
        bool folder = entry->d_type == DT_DIR;
        if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) {
            struct stat found {};
            folder = ::fstatat(::dirfd(open.get()), entry->d_name, &found, 0) == 0 && S_ISDIR(found.st_mode);
        }
        entries.push_back({HostPath::FromHost(name), folder});
    }
    return entries;
}

void CreateFolder(const std::string& path) {
    if (HostCalls::MakeFolder(HostPath::ToHost(path), 0777) == 0) return;
    if (errno == ENOENT) throw Failure(Failure::kPathNotFound, kSource);
    ThrowHostError();
}

void DeleteFile(const std::string& path) {
    if (HostCalls::Unlink(HostPath::ToHost(path)) != 0) ThrowHostError();
}

void Rename(const std::string& from, const std::string& to) {
    const int error = TryRename(from, to);
    if (error != 0) throw Failure::FromHostError(error, kSource);
}

void Move(const std::string& from, const std::string& to) {
    const int error = TryRename(from, to);
    if (error == 0) return;
    if (error != EXDEV) throw Failure::FromHostError(error, kSource);
    Copy(from, to);
    try {
        const auto old = Identity(from);
        const auto copy = Identity(to);
        if (!old || !copy || old->Size != copy->Size) throw Failure(Failure::kPathAccess, kSource);
        DeleteFile(from);
    } catch (const Failure&) {
        Skip([&] { DeleteFile(to); });
        throw;
    }
}

void Copy(const std::string& from, const std::string& to) {
    const std::string hostTo = HostPath::ToHost(to);
    const auto old = StatOf(HostPath::ToHost(from));
    if (!old) ThrowHostError();
    struct stat there {};
    if (::lstat(hostTo.c_str(), &there) == 0) throw Failure(Failure::kFileExists, kSource);
    BinaryFile source;
    source.OpenExisting(from);
    ReplacementFile copy(to);
    copy.CopyFrom(source, 1, source.Length());
    copy.CommitNew(from);
    CopyTimes(*old, hostTo);
}

std::string CurrentFolder() {
    const std::unique_ptr<char, void (*)(void*)> folder(::getcwd(nullptr, 0), std::free);
    if (!folder) ThrowHostError();
    return HostPath::FromHost(folder.get());
}

std::string ProgramFile() {
    std::string host(PATH_MAX, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", host.data(), host.size());
    if (length < 0) ThrowHostError();
    host.resize(static_cast<std::size_t>(length));
    return HostPath::FromHost(host);
}

std::string CreateTempFile(const std::string& prefix) {
    static auto folder = std::make_unique<TempFolder>();
    if (!StatOf(folder->Path())) folder = std::make_unique<TempFolder>(); // something tidied it away
    std::string host = folder->Path() + "/" + HostPath::ToHost(prefix) + "XXXXXX.tmp";
    int handle = ::mkstemps(host.data(), 4);
    if (handle < 0) ThrowHostError();
    HostCalls::Close(handle);
    return HostPath::FromHost(host);
}

} // namespace calyvox::FileSystem
