#pragma once

#include "harness/Desktop.h"

#include <functional>
#include <memory>
#include <string>

union _XEvent; // NOLINT(bugprone-reserved-identifier): the X library calls it so

namespace quillshift::e2e {

/// A program of the desktop that keeps what another one has copied when it says that it is about to end, and
/// gives it out from then on.
class ClipboardManager {
public:
    explicit ClipboardManager(const Desktop& desktop);
    /// Answers other programs as long as the condition holds.
    void ServeWhile(const std::function<bool()>& condition);

private:
    void Handle(_XEvent& event);
    void Answer(_XEvent request, unsigned long property) const;
    unsigned long AtomOf(const char* name) const;

    std::shared_ptr<_XDisplay> display_;
    XWindow window_;
    std::shared_ptr<_XEvent> asked_; // by the window that wants its text to be kept
    std::string text_;
};

} // namespace quillshift::e2e
