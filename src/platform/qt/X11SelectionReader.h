#pragma once

#include "platform/qt/X11Question.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace quillshift {

/// Follows the clipboard of an X11 display, reads its text from other programs, and asks for other
/// selections, over a connection of its own and in short steps: nobody waits here. What was read stays when
/// the program it came from ends, but not when somebody empties the clipboard.
class X11SelectionReader {
public:
    using Clock = std::chrono::steady_clock;

    /// Opens one more connection to the display. `programs`: by which this program is known there.
    X11SelectionReader(_XDisplay* display, xcb_connection_t* programs);
    ~X11SelectionReader();
    X11SelectionReader(const X11SelectionReader&) = delete;
    X11SelectionReader& operator=(const X11SelectionReader&) = delete;

    bool IsOpen() const { return display_ != nullptr; }
    /// Readable when there is something for `Advance`.
    int Descriptor() const;

    /// Takes of what has arrived as much as a few milliseconds allow. Whether there is more.
    bool Advance();
    /// Looks who has the clipboard now. `Advance` is due then.
    void Sync();

    /// Whether the clipboard is this program's own, which is not read.
    bool IsOwn() const { return own_; }
    /// When the program that has the clipboard was asked for its text; nothing if its answer is there.
    std::optional<Clock::time_point> AskedAt() const;
    /// What another program has put there; empty without a text, and before it has answered.
    const X11Question::Answer& Last() const { return last_; }
    /// Whether its offer carries the mark of a repaired text; not before that is known.
    bool IsLastRepaired() const { return isLastRepaired_; }
    /// Whether the text is there, and the mark not yet known.
    bool AwaitsMark() const { return forMark_ != nullptr; }
    /// Takes it that there is none.
    void ForgetMark();
    /// The clipboard has changed, or what is on it has come to be known.
    std::function<void()> OnChange;

    /// The form that an offer names beside its text where that has been repaired. Nobody is asked for it:
    /// there are owners that answer whatever they are asked for.
    static constexpr const char* kRepairedTarget = "application/x-quillshift-repaired";
    /// The forms of a text, by their names.
    static std::vector<std::string> TextForms();
    /// Asks for another selection; a question that was open is given up. `Advance` is due then.
    X11Question& Ask(const std::string& selection, const std::vector<std::string>& forms, unsigned long time);
    void ForgetAsked() { other_.reset(); }

private:
    using Question = std::unique_ptr<X11Question>;

    unsigned long Atom(const std::string& name) const;
    Question NewQuestion(unsigned long selection, const std::vector<std::string>& forms,
                         unsigned long time) const;
    void TakeOwner(unsigned long owner);
    void Step();
    void OnOwnerEvent(const _XEvent& event);
    void TakeAnswer();
    void Tell() const;

    struct Closer {
        void operator()(_XDisplay* display) const;
    };
    std::unique_ptr<_XDisplay, Closer> display_;
    unsigned long clipboard_ = 0;
    int ownerEvent_ = 0;
    struct {
        unsigned long base, mask;
    } ownIds_{}; // the windows of this program
    unsigned long owner_ = 0;
    bool own_ = false;
    X11Question::Answer last_;
    bool isLastRepaired_ = false;
    Question toOwner_; // null if there is none to ask, or it has answered
    Question forMark_; // which forms it has
    Clock::time_point askedAt_;
    Question other_;
};

} // namespace quillshift
