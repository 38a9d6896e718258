#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <memory>
#include <string>

struct _XDisplay; // NOLINT(bugprone-reserved-identifier): the X library calls it so

namespace quillshift {

/// Reads the text on the clipboard of an X11 display, over a connection of its own: an owner that is slow or
/// never answers holds up only those who wait for it. What was read stays when its owner ends, as long as
/// nobody else puts something there.
class X11SelectionReader {
public:
    struct Answer {
        std::string bytes;
        bool utf8 = true; ///< else of a character set that the owner doesn't name
    };

    /// Opens one more connection to the display.
    explicit X11SelectionReader(_XDisplay* display);
    ~X11SelectionReader();
    X11SelectionReader(const X11SelectionReader&) = delete;
    X11SelectionReader& operator=(const X11SelectionReader&) = delete;

    bool IsOpen() const { return display_ != nullptr; }
    /// Readable when there is something for `Advance`.
    int Descriptor() const;

    /// Asks the present owner anew, and gives up on the one asked before.
    void Ask();
    /// Takes what has arrived, and never waits.
    void Advance();
    /// Waits while the owner goes on sending, for a second at most. False if the answer isn't there then.
    bool WaitForAnswer();
    /// Gives up on the owner, and forgets what was read.
    void Forget();

    /// What the owner that answered last had; empty if it had no text.
    const Answer& Last() const { return last_; }
    /// An owner has answered.
    std::function<void()> OnAnswer;

private:
    using Clock = std::chrono::steady_clock;
    struct Atoms {
        unsigned long clipboard, incremental, property;
        std::array<unsigned long, 3> targets; // the forms of a text, the best one first
    };

    void Request();
    void GiveUp();
    void Refuse();
    void TakeProperty();
    bool IsText(unsigned long type) const;
    void Finish(Answer answer);

    struct Closer {
        void operator()(_XDisplay* display) const;
    };
    std::unique_ptr<_XDisplay, Closer> display_;
    Atoms atoms_{};
    Answer last_;

    unsigned long window_ = 0; // what the answer comes to; one for each question, 0 if none is open
    std::size_t target_ = 0;   // the form that was asked for
    bool incremental_ = false; // the answer comes in pieces
    std::string pieces_;
    Clock::time_point progress_;
};

} // namespace quillshift
