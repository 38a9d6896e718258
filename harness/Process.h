#pragma once

#include <map>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace quillshift::e2e {

using Environment = std::map<std::string, std::string>;

/// A program that runs until it ends by itself or this object goes. It dies with the test, too.
class Process {
public:
    /// `program` is searched in the path. The environment is the given one and nothing else.
    Process(const std::string& program, const std::vector<std::string>& arguments,
            const Environment& environment);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    pid_t Pid() const { return pid_; }
    /// The exit code once it has ended; the number of a signal that ended it, negative.
    std::optional<int> ExitCode();
    /// What its threads have done so far, to compare with a later answer, and whether all of them sleep now.
    struct WorkDone {
        long turns = 0; ///< how often a thread was given the processor
        bool sleeps = true;
        bool operator==(const WorkDone&) const = default;
    };
    WorkDone Work() const;
    /// Waits for its end and gives the exit code.
    int WaitForEnd();

private:
    pid_t pid_ = -1;
    std::optional<int> exitCode_;
};

/// The environment variables that every program here needs, with the user's folders under `home`.
Environment HomeEnvironment(const std::string& home);

} // namespace quillshift::e2e
