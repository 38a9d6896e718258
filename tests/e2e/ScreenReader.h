#pragma once

#include "harness/Desktop.h"
#include "support/TestsFolder.h"

#include <gtest/gtest.h>

namespace quillshift::e2e {

/// A bus of its own, and the script that goes through a program there as a screen reader does.
class ScreenReader {
public:
    /// `home`: of the program's user.
    ScreenReader(const Desktop& desktop, std::filesystem::path home)
        : home_(std::move(home)), environment_(desktop.ProgramEnvironment(home_)) {
        environment_["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + (home_ / "bus").string();
        bus_ = std::make_unique<Process>(
            "dbus-daemon",
            std::vector<std::string>{"--session", "--nofork",
                                     "--address=" + environment_["DBUS_SESSION_BUS_ADDRESS"]},
            environment_);
        desktop.WaitUntil("the bus is there", [&] { return std::filesystem::exists(home_ / "bus"); });
    }

    /// What a program needs to know to be read here.
    Environment Needs() const {
        return {{"DBUS_SESSION_BUS_ADDRESS", environment_.at("DBUS_SESSION_BUS_ADDRESS")},
                {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"}};
    }
    /// For those who speak with programs there.
    const Environment& Its() const { return environment_; }
    /// What the script prints; the test fails with what it tells if it fails.
    std::string Ask(const std::string& what) const {
        EXPECT_EQ(Begin(what)->WaitForEnd(), 0) << Contents(home_ / "failure");
        return Contents(home_ / "answer");
    }
    /// As `Ask`, without waiting for its end.
    std::unique_ptr<Process> Begin(const std::string& what) const {
        const std::string script = (TestsFolder().parent_path() / "harness/accessible.py").string();
        return std::make_unique<Process>(
            "sh",
            std::vector<std::string>{"-c", "exec /usr/bin/python3 " + script + " " + what + " >" +
                                               (home_ / "answer").string() + " 2>" +
                                               (home_ / "failure").string()},
            environment_);
    }

private:
    std::filesystem::path home_;
    Environment environment_;
    std::unique_ptr<Process> bus_;
};

} // namespace quillshift::e2e
