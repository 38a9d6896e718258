// On its own because the X library's header takes words such as "None" for itself.

#include "platform/qt/X11SelectionReader.h"

#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <utility>

namespace quillshift {
namespace {

constexpr auto kTurn = std::chrono::milliseconds(4);

} // namespace

void X11SelectionReader::Closer::operator()(_XDisplay* display) const {
    XCloseDisplay(display);
}

X11SelectionReader::X11SelectionReader(_XDisplay* display, xcb_connection_t* programs)
    : display_(XOpenDisplay(DisplayString(display))) {
    int firstEvent = 0;
    int firstError = 0;
    if (display_ && XFixesQueryExtension(display_.get(), &firstEvent, &firstError) == False)
        display_.reset();
    if (!display_)
        return;
    clipboard_ = Atom("CLIPBOARD");
    ownerEvent_ = firstEvent + XFixesSelectionNotify;
    const xcb_setup_t* const setup = xcb_get_setup(programs);
    ownIds_ = {.base = setup->resource_id_base, .mask = setup->resource_id_mask};
    XFixesSelectSelectionInput(display_.get(), DefaultRootWindow(display_.get()), clipboard_,
                               XFixesSetSelectionOwnerNotifyMask | XFixesSelectionWindowDestroyNotifyMask |
                                   XFixesSelectionClientCloseNotifyMask);
    TakeOwner(XGetSelectionOwner(display_.get(), clipboard_));
}

X11SelectionReader::~X11SelectionReader() = default;

int X11SelectionReader::Descriptor() const {
    return ConnectionNumber(display_.get());
}

unsigned long X11SelectionReader::Atom(const std::string& name) const {
    return XInternAtom(display_.get(), name.c_str(), False);
}

// --- Questions

std::vector<std::string> X11SelectionReader::TextForms() {
    return {"UTF8_STRING", "text/plain;charset=utf-8", "STRING"};
}

X11SelectionReader::Question X11SelectionReader::NewQuestion(unsigned long selection,
                                                             const std::vector<std::string>& forms,
                                                             unsigned long time) const {
    std::vector<unsigned long> atoms(forms.size());
    std::ranges::transform(forms, atoms.begin(), [this](const std::string& form) { return Atom(form); });
    return std::make_unique<X11Question>(display_.get(), selection, std::move(atoms), time);
}

X11Question& X11SelectionReader::Ask(const std::string& selection, const std::vector<std::string>& forms,
                                     unsigned long time) {
    other_ = NewQuestion(Atom(selection), forms, time);
    return *other_;
}

std::optional<X11SelectionReader::Clock::time_point> X11SelectionReader::AskedAt() const {
    return toOwner_ ? std::optional(askedAt_) : std::nullopt;
}

// --- The clipboard

void X11SelectionReader::TakeOwner(unsigned long owner) {
    ForgetMark(); // the text that is there is told before it goes
    owner_ = owner;
    last_ = {};
    isLastRepaired_ = false;
    own_ = owner != None && (owner & ~ownIds_.mask) == ownIds_.base;
    toOwner_.reset();
    if (owner != None && !own_) {
        toOwner_ = NewQuestion(clipboard_, TextForms(), CurrentTime);
        askedAt_ = Clock::now();
    }
    Tell();
}

// That nobody has it now is left to the notice, which tells an owner that ended from one that emptied it.
void X11SelectionReader::Sync() {
    const unsigned long owner = XGetSelectionOwner(display_.get(), clipboard_);
    if (owner != None && owner != owner_)
        TakeOwner(owner);
}

// An owner that ends leaves what it has answered.
void X11SelectionReader::OnOwnerEvent(const _XEvent& event) {
    const auto& change = reinterpret_cast<const XFixesSelectionNotifyEvent&>(event);
    if (change.subtype == XFixesSetSelectionOwnerNotify)
        TakeOwner(change.owner);
    else
        for (const Question* question : {&toOwner_, &forMark_})
            if (*question)
                (*question)->End();
}

// A text that is there is read before anything else is looked at, such as that its owner has changed.
void X11SelectionReader::Step() {
    for (const Question* question : {&toOwner_, &forMark_, &other_})
        if (*question && (*question)->HasPart()) {
            (*question)->ReadPart();
            return;
        }
    XEvent event;
    XNextEvent(display_.get(), &event);
    if (event.type == ownerEvent_)
        OnOwnerEvent(event);
    for (const Question* question : {&toOwner_, &forMark_, &other_})
        if (*question)
            (*question)->Handle(event);
}

// The mark is asked for behind the text: there are owners that answer a single time, and then end.
void X11SelectionReader::TakeAnswer() {
    if (toOwner_ && toOwner_->IsAnswered()) {
        last_ = toOwner_->TakeAnswer();
        toOwner_.reset();
        if (!last_.bytes.empty())
            forMark_ = NewQuestion(clipboard_, {"TARGETS"}, CurrentTime);
        Tell();
    }
    if (forMark_ && forMark_->IsAnswered()) {
        isLastRepaired_ = forMark_->TakeAnswer().Names(Atom(kRepairedTarget));
        ForgetMark();
    }
}

void X11SelectionReader::ForgetMark() {
    if (std::exchange(forMark_, nullptr))
        Tell();
}

bool X11SelectionReader::Advance() {
    const auto reads = [](const Question& question) { return question && question->HasPart(); };
    const auto isMore = [&] {
        return reads(toOwner_) || reads(forMark_) || reads(other_) || XPending(display_.get()) > 0;
    };
    const auto end = Clock::now() + kTurn;
    while (isMore()) {
        if (Clock::now() > end)
            return true;
        Step();
        TakeAnswer();
    }
    return false;
}

void X11SelectionReader::Tell() const {
    if (OnChange)
        OnChange();
}

} // namespace quillshift
