// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/Failure.h"

#include <cerrno>

namespace calyvox {

namespace {

const char* StandardText(std::int32_t number) {
    switch (number) {
    case Failure::kInvalidCall:
        return "Invalid procedure call or argument";
    case Failure::kOverflow:
        return "Overflow";
    case Failure::kOutOfMemory:
        return "Out of memory";
    case Failure::kBadIndex:
        return "Subscript out of range";
    case Failure::kTypeMismatch:
        return "Type mismatch";
    case Failure::kFileNotFound:
        return "File not found";
    case Failure::kFileExists:
        return "File already exists";
    case Failure::kPermissionDenied:
        return "Permission denied";
    case Failure::kDiskNotReady:
        return "Disk not ready";
    case Failure::kPathAccess:
        return "Path/File access error";
    case Failure::kPathNotFound:
        return "Path not found";
    case Failure::kKeyExists:
        return "This key is already associated with an element of this collection";
    default:
        return "Application-defined or object-defined error";
    }
}

std::int32_t NumberOf(int hostError) {
    switch (hostError) {
    case ENOENT:
        return Failure::kFileNotFound;
    case ENOTDIR:
        return Failure::kPathNotFound;
    case EEXIST:
    case ENOTEMPTY:
        return Failure::kFileExists;
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
    case ETXTBSY:
    case EWOULDBLOCK:
        return Failure::kPermissionDenied;
    case ENOSPC:
    case EDQUOT:
        return Failure::kDiskNotReady;
    case ENOMEM:
    case EMFILE:
    case ENFILE:
        return Failure::kOutOfMemory;
    default:
        return Failure::kPathAccess;
    }
}

} // namespace

Failure::Failure(std::int32_t number, std::string source)
    : Failure(number, std::move(source), StandardText(number)) {}

Failure::Failure(std::int32_t number, std::string source, std::string text)
    : number_(number), source_(std::move(source)), text_(std::move(text)) {}

Failure Failure::FromHostError(int hostError, std::string source) {
    return Failure(NumberOf(hostError), std::move(source));
}

} // namespace calyvox
