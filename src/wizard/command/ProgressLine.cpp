#include "wizard/command/ProgressLine.h"

#include <string>

namespace quillshift::wizard {

namespace {

constexpr std::size_t kWidth = 40;
constexpr std::string_view kClearLine = "\r\x1b[K";

} // namespace

ProgressLine::~ProgressLine() {
    if (isShown_)
        talk_.err << kClearLine << std::flush;
}

void ProgressLine::Show(std::size_t done) {
    const auto now = Clock::now();
    if (!talk_.errIsTerminal || now < next_)
        return;
    next_ = now + std::chrono::milliseconds(100);
    isShown_ = true;
    const std::size_t full = kWidth * done / total_;
    talk_.err << kClearLine << '[' << std::string(full, '#') << std::string(kWidth - full, '.') << "] "
              << done << '/' << total_ << std::flush;
}

} // namespace quillshift::wizard
