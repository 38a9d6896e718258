#pragma once

#include "harness/Desktop.h"

#include <atomic>
#include <string>
#include <thread>

union _XEvent; // NOLINT(bugprone-reserved-identifier): the X library calls it so

namespace quillshift::e2e {

/// A program of the desktop that keeps what another one has copied when it says that it is about to end, and
/// gives it out from then on. It does so in a thread, until the object goes.
class ClipboardManager {
public:
    explicit ClipboardManager(const Desktop& desktop);
    ~ClipboardManager();
    ClipboardManager(const ClipboardManager&) = delete;
    ClipboardManager& operator=(const ClipboardManager&) = delete;

private:
    void Handle(const _XEvent& event);
    void Keep();
    void Answer(const _XEvent& request, unsigned long property) const;
    unsigned long AtomOf(const char* name) const;

    _XDisplay* display_;
    XWindow window_;
    XWindow asks_ = 0; // the window that wants its text to be kept
    std::string text_;
    std::atomic<bool> ends_ = false;
    std::thread thread_;
};

} // namespace quillshift::e2e
