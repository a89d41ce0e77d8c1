// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <string>

/// The host's file calls, each a line around the call of the same name that repeats it after a signal.
/// Results and errno are the host's; a name with a NUL, which the host would cut there, is EINVAL. All file
/// work of this floor goes through here, so that a test can make any one call fail or write less than it was
/// given.
namespace calyvox::HostCalls {

enum class Call { Open, Read, Write, Sync, Truncate, Rename, Unlink, MakeFolder, Lock };

/// Asked before each call: 0 lets it through, anything else is the errno with which it fails unmade.
/// It may lower length, the bytes that a read or write moves at once. An empty one lets all through.
using Interceptor = std::function<int(Call call, std::size_t& length)>;
void SetInterceptor(Interceptor interceptor);

int Open(const std::string& path, int flags, mode_t mode = 0666);
ssize_t ReadAt(int handle, void* bytes, std::size_t length, off_t offset);
ssize_t WriteAt(int handle, const void* bytes, std::size_t length, off_t offset);
int Sync(int handle);
int Truncate(int handle, off_t length);
/// Fails with EEXIST where "to" exists, also on hosts without such a call of their own.
int RenameNew(const std::string& from, const std::string& to);
/// Takes the place of "to" in one step.
int RenameOver(const std::string& from, const std::string& to);
int Unlink(const std::string& path);
int MakeFolder(const std::string& path, mode_t mode);
/// An exclusive lock, not waited for.
int Lock(int handle);

/// Follows links. Nothing intercepts it.
int Stat(const std::string& path, struct stat& found);

/// What a plain close does, with -1 allowed and set afterwards.
void Close(int& handle);

} // namespace calyvox::HostCalls
