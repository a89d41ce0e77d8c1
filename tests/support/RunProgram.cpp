// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "support/RunProgram.h"

#include "support/TempFolder.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace calyvox {

ProgramResult RunProgram(const std::vector<std::string>& arguments,
                         const std::vector<std::string>& settings) {
    // env(1) wants what is to be unset first.
    std::vector<std::string> words = {"/usr/bin/env"};
    for (const std::string& setting : settings) {
        const bool sets = setting.find('=') != std::string::npos;
        words.insert(sets ? words.end() : words.begin() + 1, sets ? setting : "-u" + setting);
    }
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    const TempFolder folder;
    const std::string files[] = {"/dev/null", folder.Host("out"), folder.Host("err")};
    const pid_t child = ::fork();
    if (child == 0) {
        for (const int handle : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            ::dup2(::open(files[handle].c_str(), O_RDWR | O_CREAT, 0600), handle);
        ::alarm(60); // a program that hangs is ended by it
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    ProgramResult result;
    int status = 0;
    if (::waitpid(child, &status, 0) == child)
        result.ExitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    result.Output = folder.Read("out");
    result.Errors = folder.Read("err");
    return result;
}

} // namespace calyvox
