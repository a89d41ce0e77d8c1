// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/HostCalls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

namespace calyvox::HostCalls {

namespace {

Interceptor& TheInterceptor() {
    static Interceptor interceptor;
    return interceptor;
}

template <typename HostCall>
auto Through(Call call, std::size_t& length, HostCall hostCall) -> decltype(hostCall()) {
    if (TheInterceptor()) {
        const int error = TheInterceptor()(call, length);
        if (error != 0) {
            errno = error;
            return -1;
        }
    }
    auto result = hostCall();
    while (result == -1 && errno == EINTR)
        result = hostCall();
    return result;
}

// The host would take such a name for the part before the NUL.
bool CannotBeNamed(const std::string& path) {
    if (path.find('\0') == std::string::npos) return false;
    errno = EINVAL;
    return true;
}

template <typename HostCall>
auto Through(Call call, HostCall hostCall) -> decltype(hostCall()) {
    std::size_t unused = 0;
    return Through(call, unused, hostCall);
}

} // namespace

void SetInterceptor(Interceptor interceptor) { TheInterceptor() = std::move(interceptor); }

int Open(const std::string& path, int flags, mode_t mode) {
    if (CannotBeNamed(path)) return -1;
    return Through(Call::Open, [&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); });
}

ssize_t ReadAt(int handle, void* bytes, std::size_t length, off_t offset) {
    return Through(Call::Read, length, [&] { return ::pread(handle, bytes, length, offset); });
}

ssize_t WriteAt(int handle, const void* bytes, std::size_t length, off_t offset) {
    return Through(Call::Write, length, [&] { return ::pwrite(handle, bytes, length, offset); });
}

int Sync(int handle) {
    return Through(Call::Sync, [&] { return ::fsync(handle); });
}

int Truncate(int handle, off_t length) {
    return Through(Call::Truncate, [&] { return ::ftruncate(handle, length); });
}

int RenameNew(const std::string& from, const std::string& to) {
    if (CannotBeNamed(from) || CannotBeNamed(to)) return -1;
    const int result = Through(Call::Rename, [&] {
        return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
    });
    if (result == 0 || (errno != EINVAL && errno != ENOSYS)) return result;
    // The file system cannot refuse by itself: look first.
    struct stat there {};
    if (::lstat(to.c_str(), &there) == 0) {
        errno = EEXIST;
        return -1;
    }
    return ::rename(from.c_str(), to.c_str());
}

int RenameOver(const std::string& from, const std::string& to) {
    if (CannotBeNamed(from) || CannotBeNamed(to)) return -1;
    return Through(Call::Rename, [&] { return ::rename(from.c_str(), to.c_str()); });
}

int Unlink(const std::string& path) {
    if (CannotBeNamed(path)) return -1;
    return Through(Call::Unlink, [&] { return ::unlink(path.c_str()); });
}

int MakeFolder(const std::string& path, mode_t mode) {
    if (CannotBeNamed(path)) return -1;
    return Through(Call::MakeFolder, [&] { return ::mkdir(path.c_str(), mode); });
}

int Lock(int handle) {
    return Through(Call::Lock, [&] { return ::flock(handle, LOCK_EX | LOCK_NB); });
}

int Stat(const std::string& path, struct stat& found) {
    return CannotBeNamed(path) ? -1 : ::stat(path.c_str(), &found);
}

void Close(int& handle) {
    if (handle >= 0) ::close(handle);
    handle = -1;
}

} // namespace calyvox::HostCalls
