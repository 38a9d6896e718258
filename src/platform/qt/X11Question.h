#pragma once

#include <string>
#include <string_view>
#include <vector>

struct _XDisplay; // NOLINT(bugprone-reserved-identifier): the X library calls it so
union _XEvent;    // NOLINT(bugprone-reserved-identifier)

namespace quillshift {

/// A question to the program that has a selection, for one of several forms of it. Nothing here waits, and
/// whatever that program sends, a step is short. An answer of more than 64 MB is given up.
class X11Question {
public:
    struct Answer {
        std::string bytes; ///< of a text, or the atoms of its forms
        bool utf8 = true;  ///< else of a character set that the owner doesn't name
        bool whole = true; ///< else `bytes` are only the beginning of an answer that is too long

        /// Whether this form is among those that the owner has; for the form "TARGETS".
        bool Names(unsigned long form) const;
    };

    /// `forms`: the best one first. `time`: of the event that led to the question, 0 for now.
    X11Question(_XDisplay* display, unsigned long selection, std::vector<unsigned long> forms,
                unsigned long time);
    ~X11Question();
    X11Question(const X11Question&) = delete;
    X11Question& operator=(const X11Question&) = delete;

    /// An event of its display; those of others are left alone.
    void Handle(const _XEvent& event);
    /// Whether a part of the answer is there; to be read before further events are handled.
    bool HasPart() const { return reading_; }
    void ReadPart();
    /// What it has not answered so far is empty: its owner has gone.
    void End();

    bool IsAnswered() const { return window_ == 0; }
    /// Empty where there is none.
    Answer TakeAnswer();

private:
    void Ask();
    void GiveUp();
    void Refuse();
    bool IsWanted(unsigned long type, int format) const;
    void Begin();
    void Take(std::string_view part, std::size_t left, bool utf8);

    _XDisplay* display_;
    unsigned long selection_, time_, incr_, targets_, property_;
    std::vector<unsigned long> forms_;
    std::size_t form_ = 0;     // the one that was asked for
    unsigned long window_ = 0; // what the answer comes to; a new one for each form, 0 if there is an answer
    bool incremental_ = false; // the answer comes in pieces
    bool reading_ = false;
    long offset_ = 0;                // of what is still to be read of the piece, in units of four bytes
    std::vector<std::string> parts_; // one string would be moved again and again while it grows
    std::size_t size_ = 0;
    bool utf8_ = true;
    bool isWhole_ = true;
};

} // namespace quillshift
