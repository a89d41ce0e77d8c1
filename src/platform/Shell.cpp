// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "platform/Shell.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace calyvox::Shell {

namespace {

std::vector<char*> ArgvOf(const std::vector<std::string>& arguments) {
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    return argv;
}

// 0 where the start failed. Signals that this program ignores are not ignored by those it starts.
pid_t Spawn(const std::vector<char*>& argv) {
    posix_spawnattr_t attributes;
    if (argv.size() < 2 || *argv[0] == '\0' || ::posix_spawnattr_init(&attributes) != 0) return 0;
    sigset_t restored;
    ::sigemptyset(&restored);
    ::sigaddset(&restored, SIGIO);
    ::sigaddset(&restored, SIGPIPE);
    ::posix_spawnattr_setsigdefault(&attributes, &restored);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    pid_t child = 0;
    const int error = ::posix_spawnp(&child, argv[0], nullptr, &attributes, argv.data(), environ);
    ::posix_spawnattr_destroy(&attributes);
    return error == 0 ? child : 0;
}

// The status as waitpid tells it, -1 where there is nothing to wait for.
int WaitFor(pid_t child) {
    int status = 0;
    pid_t ended = -1;
    do
        ended = ::waitpid(child, &status, 0);
    while (ended == -1 && errno == EINTR);
    return ended == child ? status : -1;
}

} // namespace

bool Start(const std::vector<std::string>& arguments) {
    const std::vector<char*> argv = ArgvOf(arguments);
    // A child between the two ends at once and is waited for, so that none is left behind as a zombie.
    const pid_t between = ::fork();
    if (between < 0) return false;
    if (between == 0) {
        ::setsid();
        ::_exit(Spawn(argv) > 0 ? 0 : 1);
    }
    return WaitFor(between) == 0;
}

bool StartAndWait(const std::vector<std::string>& arguments, const std::function<void()>& meanwhile) {
    constexpr useconds_t kStepMicroseconds = 20000;
    const pid_t child = Spawn(ArgvOf(arguments));
    if (child <= 0) return false;
    if (!meanwhile) {
        WaitFor(child);
        return true;
    }
    while (::waitpid(child, nullptr, WNOHANG) == 0) {
        meanwhile();
        ::usleep(kStepMicroseconds);
    }
    meanwhile();
    return true;
}

bool OpenWithDesktop(const std::string& hostTarget) {
    return Start({"xdg-open", hostTarget}) || Start({"gio", "open", hostTarget});
}

std::vector<std::string> SplitCommandLine(const std::string& commandLine) {
    std::vector<std::string> arguments;
    bool quoted = false;
    bool inside = false;
    for (const char c : commandLine) {
        if (c == ' ' && !quoted) {
            inside = false;
            continue;
        }
        if (!inside) arguments.emplace_back();
        inside = true;
        if (c == '"')
            quoted = !quoted;
        else
            arguments.back() += c;
    }
    return arguments;
}

} // namespace calyvox::Shell
