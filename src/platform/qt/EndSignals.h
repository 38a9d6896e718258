#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace quillshift {

/// Hears of the signals by which the system or a person asks a program to end (SIGTERM, SIGHUP, SIGINT), in
/// the event loop. One that was ignored at the start, as under nohup, stays ignored. There is one of these.
class EndSignals {
public:
    explicit EndSignals(std::function<void()> onSignal);

private:
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace quillshift
