#include "platform/qt/X11Question.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

namespace quillshift {
namespace {

constexpr std::size_t kLongestAnswer = std::size_t{64} << 20U;
constexpr std::size_t kPart = std::size_t{64} << 10U;
constexpr long kPartUnits = kPart / 4; // the server counts in four bytes

} // namespace

X11Question::X11Question(_XDisplay* display, unsigned long selection, std::vector<unsigned long> forms,
                         unsigned long time)
    : display_(display),
      selection_(selection),
      time_(time),
      incr_(XInternAtom(display, "INCR", False)),
      targets_(XInternAtom(display, "TARGETS", False)),
      property_(XInternAtom(display, "QUILLSHIFT_ANSWER", False)),
      forms_(std::move(forms)) {
    Ask();
}

X11Question::~X11Question() {
    GiveUp();
}

void X11Question::Ask() {
    GiveUp();
    parts_.clear();
    size_ = 0;
    window_ = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0);
    XSelectInput(display_, window_, PropertyChangeMask);
    XConvertSelection(display_, selection_, forms_[form_], property_, window_, time_);
    XFlush(display_);
}

// An owner in the middle of an answer notices that the window has gone.
void X11Question::GiveUp() {
    if (window_ != 0) {
        XDestroyWindow(display_, window_);
        XFlush(display_);
    }
    window_ = 0;
    incremental_ = false;
    reading_ = false;
    offset_ = 0;
}

// The owner has nothing of the form that was asked for.
void X11Question::Refuse() {
    if (++form_ < forms_.size())
        Ask();
    else
        End();
}

void X11Question::End() {
    parts_.clear();
    GiveUp();
}

void X11Question::Handle(const _XEvent& event) {
    if (window_ == 0 || event.xany.window != window_)
        return;
    if (event.type == SelectionNotify && event.xselection.property == None)
        Refuse();
    else if (event.type == SelectionNotify)
        reading_ = true;
    else if (event.type == PropertyNotify)
        reading_ = incremental_ && event.xproperty.state == PropertyNewValue;
}

// Reading the last part takes the property away, and tells an owner that sends in pieces to send the next.
void X11Question::ReadPart() {
    ::Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    const int code = XGetWindowProperty(display_, window_, property_, offset_, kPartUnits, True,
                                        AnyPropertyType, &type, &format, &count, &left, &data);
    const std::unique_ptr<unsigned char, int (*)(void*)> keeper(data, XFree);
    const bool isNew = offset_ == 0;
    reading_ = left > 0;
    offset_ = reading_ ? offset_ + kPartUnits : 0;
    if (code != Success)
        End(); // the owner has made it shorter meanwhile
    else if (type == incr_ && !incremental_)
        Begin();
    else if (incremental_ && type == None)
        return; // pieces that were put on one another were taken with the first of them
    else if (incremental_ && isNew && count == 0)
        GiveUp(); // the last piece
    else if (!IsWanted(type, format))
        Refuse(); // there are owners that give what they have, whatever the form they are asked for
    else
        Take({reinterpret_cast<const char*>(data), format == 8 ? count : count * sizeof(long)}, left,
             type != XA_STRING);
}

bool X11Question::IsWanted(unsigned long type, int format) const {
    if (forms_[form_] == targets_)
        return (type == XA_ATOM || type == targets_) && format == 32;
    return format == 8 && std::ranges::find(forms_, type) != forms_.end();
}

bool X11Question::Answer::Names(unsigned long form) const {
    for (std::size_t i = 0; i + sizeof(form) <= bytes.size(); i += sizeof(form))
        if (std::memcmp(bytes.data() + i, &form, sizeof(form)) == 0)
            return true;
    return false;
}

// The answer will come in pieces.
void X11Question::Begin() {
    incremental_ = true;
    reading_ = false;
    offset_ = 0;
}

void X11Question::Take(std::string_view part, std::size_t left, bool utf8) {
    if (parts_.empty() || parts_.back().size() >= kPart)
        parts_.emplace_back();
    parts_.back() += part;
    size_ += part.size();
    utf8_ = utf8;
    const bool tooLong = size_ + left > kLongestAnswer;
    if (tooLong)
        parts_.resize(1);
    isWhole_ = !tooLong;
    if (tooLong || (!incremental_ && !reading_))
        GiveUp();
}

X11Question::Answer X11Question::TakeAnswer() {
    Answer answer{.bytes = {}, .utf8 = utf8_, .whole = isWhole_};
    for (const std::string& part : parts_)
        answer.bytes += part;
    parts_.clear();
    return answer;
}

} // namespace quillshift
