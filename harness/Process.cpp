#include "harness/Process.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillshift::e2e {
namespace {

int CodeOf(int status) {
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace

Process::Process(const std::string& program, const std::vector<std::string>& arguments,
                 const Environment& environment) {
    std::vector<std::string> variables;
    for (const auto& [name, value] : environment)
        variables.emplace_back(name).append("=").append(value);
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    std::vector<char*> envp(variables.size() + 1); // the last one stays null
    std::transform(variables.begin(), variables.end(), envp.begin(),
                   [](std::string& variable) { return variable.data(); });

    pid_ = fork();
    if (pid_ < 0)
        throw std::runtime_error("can't start " + program);
    if (pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        execvpe(program.c_str(), argv.data(), envp.data());
        _exit(127);
    }
}

Process::~Process() {
    if (!ExitCode()) {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
}

std::optional<int> Process::ExitCode() {
    int status = 0;
    if (!exitCode_ && waitpid(pid_, &status, WNOHANG) == pid_)
        exitCode_ = CodeOf(status);
    return exitCode_;
}

int Process::WaitForEnd() {
    int status = 0;
    if (!exitCode_ && waitpid(pid_, &status, 0) == pid_)
        exitCode_ = CodeOf(status);
    return exitCode_.value();
}

Process::WorkDone Process::Work() const {
    WorkDone work;
    std::error_code gone; // threads come and go while we look at them
    for (const auto& thread :
         std::filesystem::directory_iterator("/proc/" + std::to_string(pid_) + "/task", gone)) {
        std::ifstream status(thread.path() / "status");
        for (std::string name, value; status >> name; std::getline(status, value)) {
            if (name == "State:")
                work.sleeps = work.sleeps && status >> value && value == "S";
            else if (name.ends_with("voluntary_ctxt_switches:"))
                work.turns += status >> value ? std::stol(value) : 0;
        }
    }
    return work;
}

Environment HomeEnvironment(const std::string& home) {
    Environment environment{{"HOME", home},
                            {"XDG_DATA_HOME", home + "/data"},
                            {"XDG_STATE_HOME", home + "/state"},
                            {"XDG_CONFIG_HOME", home + "/config"},
                            {"XDG_CACHE_HOME", home + "/cache"},
                            {"XDG_RUNTIME_DIR", home},
                            {"LANG", "C.UTF-8"},
                            {"SDL_AUDIODRIVER", "dummy"}};
    for (const char* name : {"PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS"})
        if (const char* value = std::getenv(name))
            environment[name] = value;
    return environment;
}

} // namespace quillshift::e2e
