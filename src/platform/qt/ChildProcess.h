#pragma once

#include <QProcess>

#include <memory>

namespace quillshift {

/// Ends a process that this program started. One that doesn't die at once, as it waits for a device, is left
/// to the system: the toolkit would wait for it for half a minute.
struct EndOfProcess {
    void operator()(QProcess* process) const {
        constexpr int kPatience = 100; // milliseconds
        process->disconnect();
        process->kill();
        if (process->state() == QProcess::NotRunning || process->waitForFinished(kPatience))
            delete process;
    }
};
using ChildProcess = std::unique_ptr<QProcess, EndOfProcess>;

} // namespace quillshift
