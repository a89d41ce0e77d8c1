// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HostCalls.h"

#include <cerrno>

namespace calyvox {

/// While one lives, the host's calls of one kind fail from the nth on (1-based), as many as are asked for.
class FailingCalls {
public:
    explicit FailingCalls(HostCalls::Call kind, int nth, int error, int howMany = 1) {
        HostCalls::SetInterceptor([=, this](HostCalls::Call call, std::size_t&) {
            if (call != kind || ++seen_ < nth) return 0;
            return seen_ < nth + howMany ? error : 0;
        });
    }
    ~FailingCalls() { HostCalls::SetInterceptor({}); }
    FailingCalls(FailingCalls&&) = delete;

    int Seen() const { return seen_; }

private:
    int seen_ = 0;
};

/// While one lives, the disk takes so many bytes in all and is full then.
class FullDisk {
public:
    explicit FullDisk(std::size_t room) : room_(room) {
        HostCalls::SetInterceptor([this](HostCalls::Call call, std::size_t& length) {
            if (call != HostCalls::Call::Write) return 0;
            if (room_ == 0) return ENOSPC;
            if (length > room_) length = room_;
            room_ -= length;
            return 0;
        });
    }
    ~FullDisk() { HostCalls::SetInterceptor({}); }
    FullDisk(FullDisk&&) = delete;

private:
    std::size_t room_;
};

} // namespace calyvox
