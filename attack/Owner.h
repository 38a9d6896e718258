#pragma once

#include <atomic>
#include <string>
#include <thread>

struct _XDisplay; // NOLINT(bugprone-reserved-identifier): the X library calls it so
union _XEvent;    // NOLINT(bugprone-reserved-identifier)

namespace quillshift::attack {

/// What a program does that is asked for the text it has copied.
enum class Manner {
    Honest,
    Silent,
    Refusing,
    WrongType,    ///< a picture in the place of a text
    WrongFormat,  ///< a text of 32-bit units
    Stalled,      ///< begins to send in pieces, and falls silent
    Dripping,     ///< a byte at a time, and never the last
    Endless,      ///< large pieces, and never the last
    Flooding,     ///< doesn't wait for a piece to be taken before it sends the next
    Dying,        ///< ends in the middle of its answer
    HandingOver,  ///< answers, and lets one that is silent take over
    ChangingHands ///< lets one silent window after another take over
};

/// A program that has a selection of the display and gives it out in its own manner, in a thread and over a
/// connection of its own, until the object goes.
class Owner {
public:
    Owner(const std::string& display, const char* selection, Manner manner, std::string text);
    ~Owner();
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    unsigned long Window() const { return window_; }
    /// How often it has been asked.
    int Questions() const { return questions_; }

private:
    void Run();
    void Take();
    void Handle(const _XEvent& event);
    void Answer(const _XEvent& event);
    void Announce(const _XEvent& event);
    void Notify(const _XEvent& event, unsigned long property);
    void Send(std::size_t bytes, int mode);
    void Act();
    unsigned long AtomOf(const char* name) const;

    _XDisplay* display_;
    unsigned long selection_;
    Manner manner_;
    std::string text_;
    std::atomic<unsigned long> window_ = 0;
    std::atomic<int> questions_ = 0;
    unsigned long requestor_ = 0; // that a text in pieces goes to; 0 if none does
    unsigned long property_ = 0;
    bool dead_ = false;
    std::atomic<bool> ends_ = false;
    std::thread thread_;
};

} // namespace quillshift::attack
