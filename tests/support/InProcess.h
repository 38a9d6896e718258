#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace quillshift {

/// Runs `work` in a process of its own, whose exit code is what it returns.
template <typename Work>
pid_t InProcess(Work work) {
    const pid_t child = fork();
    if (child == 0)
        _exit(work());
    return child;
}

/// Waits for a process. A signal that ended it counts from 1000.
inline int ExitOf(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}

/// Becomes a user whom the rights of files bind. False if that is not allowed.
inline bool BecomeSomebody() {
    constexpr unsigned kSomebody = 65534;
    return getuid() != 0 || (setegid(kSomebody) == 0 && seteuid(kSomebody) == 0);
}

} // namespace quillshift
