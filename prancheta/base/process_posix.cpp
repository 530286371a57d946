// SPDX-License-Identifier: MIT
// Other programs.
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "prancheta/base/process.h"
#include "prancheta/base/text.h"

extern char** environ;

namespace prancheta {

Result<std::string> outputOf(const std::vector<std::string>& arguments) {
    std::vector<char*> words;
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    int ends[2];
    if (::pipe(ends) != 0) return Error{};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", 0, 0);
    // What it complains of is told with its failure.
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    posix_spawn_file_actions_addclose(&actions, ends[1]);
    pid_t child = -1;
    const int failed = posix_spawnp(&child, words[0], &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    std::string text;
    char part[4096];
    for (ssize_t n = 1; failed == 0 && n > 0;) {
        n = ::read(ends[0], part, sizeof part);
        if (n < 0 && errno == EINTR)
            n = 1;
        else if (n > 0)
            text.append(part, static_cast<std::size_t>(n));
    }
    ::close(ends[0]);
    if (failed != 0) return Error{};
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    constexpr int kNoProgram = 127;
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return text;
    if (WIFEXITED(status) && WEXITSTATUS(status) == kNoProgram) return Error{};
    return Error{arguments[0] + ": " + std::string(trim(text))};
}

}  // namespace prancheta
