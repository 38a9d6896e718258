#include "platform/qt/EndSignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace quillshift {
namespace {

int toEventLoop = -1; // all that a signal may touch

void OnSignal(int /*number*/) {
    const int before = errno;
    [[maybe_unused]] const ssize_t written = write(toEventLoop, "", 1);
    errno = before;
}

} // namespace

EndSignals::EndSignals(std::function<void()> onSignal) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    toEventLoop = ends[1];
    notifier_ = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, std::move(onSignal));
    for (const int number : {SIGTERM, SIGHUP, SIGINT})
        if (std::signal(number, OnSignal) == SIG_IGN)
            std::signal(number, SIG_IGN);
}

} // namespace quillshift
