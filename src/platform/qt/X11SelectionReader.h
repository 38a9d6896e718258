#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <memory>
#include <string>

struct _XDisplay; // NOLINT(bugprone-reserved-identifier): the X library calls it so
struct xcb_connection_t;
union _XEvent; // NOLINT(bugprone-reserved-identifier)

namespace quillshift {

/// Follows the clipboard of an X11 display, and reads its text from other programs, over a connection of its
/// own: a program that is slow or never answers holds up only those who wait for it. What was read stays when
/// the program it came from ends, but not when somebody empties the clipboard.
class X11SelectionReader {
public:
    struct Answer {
        std::string bytes;
        bool utf8 = true; ///< else of a character set that the owner doesn't name
    };

    /// Opens one more connection to the display. `programs`: by which this program is known there.
    X11SelectionReader(_XDisplay* display, xcb_connection_t* programs);
    ~X11SelectionReader();
    X11SelectionReader(const X11SelectionReader&) = delete;
    X11SelectionReader& operator=(const X11SelectionReader&) = delete;

    bool IsOpen() const { return display_ != nullptr; }
    /// Readable when there is something for `Advance`.
    int Descriptor() const;

    /// Takes what has arrived, and never waits.
    void Advance();
    /// Takes all that has happened on the display so far.
    void Sync();
    /// Does so, and waits while the owner goes on sending, for a second at most. False if its answer isn't
    /// there then.
    bool WaitForAnswer();

    /// Whether the clipboard is this program's own, which is not read.
    bool IsOwn() const { return own_; }
    /// What another program has put there, as far as it has answered; empty without a text.
    const Answer& Last() const { return last_; }
    /// The clipboard has changed, and what is on it is known.
    std::function<void()> OnChange;

private:
    using Clock = std::chrono::steady_clock;
    struct Atoms {
        unsigned long clipboard, incremental, property;
        std::array<unsigned long, 3> targets; // the forms of a text, the best one first
    };

    void TakeOwner(unsigned long owner);
    void OnOwnerEvent(const _XEvent& event);
    void OnAnswerEvent(const _XEvent& event);
    void Request();
    void GiveUp();
    void Refuse();
    void TakeProperty();
    bool IsText(unsigned long type) const;
    void Finish(Answer answer);
    void Tell() const;

    struct Closer {
        void operator()(_XDisplay* display) const;
    };
    std::unique_ptr<_XDisplay, Closer> display_;
    Atoms atoms_{};
    int ownerEvent_ = 0;
    struct {
        unsigned long base, mask;
    } ownIds_{}; // the windows of this program
    bool own_ = false;
    Answer last_;

    unsigned long window_ = 0; // what the answer comes to; one for each question, 0 if none is open
    std::size_t target_ = 0;   // the form that was asked for
    bool incremental_ = false; // the answer comes in pieces
    std::string pieces_;
    Clock::time_point progress_;
};

} // namespace quillshift
