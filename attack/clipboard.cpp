// Odd owners of the clipboard, of the primary selection and of drags, and odd requestors, against the real
// program on a virtual display. Prints how often each was tried, how often it held the window, how often a
// text was lost, and the longest turn of the program's event loop meanwhile.

#include "Drag.h"
#include "Owner.h"
#include "Requestor.h"
#include "Table.h"
#include "Turns.h"

#include "base/Utf8.h"
#include "harness/Editor.h"

#include <chrono>
#include <cstdio>
#include <functional>
#include <thread>

namespace quillshift::attack {
namespace {

using namespace e2e;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

class ClipboardAttack {
public:
    ClipboardAttack(int argc, char** argv)
        : table_("clipboard", argc, argv), display_(desktop_.ProgramEnvironment("").at("DISPLAY")) {
        Begin();
    }
    int Run();

private:
    void Begin();
    void Row(const std::string& name, std::chrono::milliseconds limit, const std::function<void()>& attempt,
             const std::function<bool()>& isLost);
    Count Try(std::chrono::milliseconds limit, const std::function<void()>& attempt,
              const std::function<bool()>& isLost);
    void OwnerRow(const char* name, Manner manner);
    void RequestorRow(const Request& request);
    bool Within(std::chrono::milliseconds patience, const std::function<bool()>& condition);
    bool IsSeen(const std::string& text, std::chrono::milliseconds within);
    bool Comes();
    std::string GivenOut() const;
    bool IsPutIn(const std::string& text);
    void ClickRow(const char* name, Manner manner, const std::string& text);
    void DropRow(const char* name, Manner manner, const std::string& text);
    void Settle();
    void CopyOwn();
    void WaitAndDismiss();

    Table table_;
    Desktop desktop_;
    std::string display_;
    std::unique_ptr<Editor> editor_;
    std::unique_ptr<Turns> turns_;
    int number_ = 0;
};

void ClipboardAttack::Begin() {
    turns_.reset();
    editor_ = std::make_unique<Editor>(desktop_);
    editor_->Set(Setting::ClipboardDetect, u"1")
        .Set(Setting::DecodeClipboard, u"0")
        .Set(Setting::SaveChange, u"0")
        .Start();
    turns_ = std::make_unique<Turns>(display_, editor_->Window(),
                                     std::vector<pid_t>{editor_->Program().Pid(), desktop_.Server().Pid()});
}

bool ClipboardAttack::Within(std::chrono::milliseconds patience, const std::function<bool()>& condition) {
    for (const auto end = Clock::now() + patience; Clock::now() < end && editor_->Runs();
         std::this_thread::sleep_for(2ms))
        if (condition())
            return true;
    return false;
}

bool ClipboardAttack::IsSeen(const std::string& text, std::chrono::milliseconds within) {
    return Within(within, [&] { return editor_->Store().Is(Setting::ClipboardText, FromUtf8(text)); });
}

// Whether a text that is honestly copied now is taken in.
bool ClipboardAttack::Comes() {
    const std::string text = "text " + std::to_string(++number_);
    const Owner honest(display_, "CLIPBOARD", Manner::Honest, text);
    return IsSeen(text, 5s);
}

void ClipboardAttack::Settle() {
    const Turns::Pause pause(*turns_);
    editor_->Settle();
}

void ClipboardAttack::CopyOwn() {
    desktop_.Press("Ctrl+a");
    desktop_.Type(u"own");
    desktop_.Press("Ctrl+a");
    desktop_.Press("Ctrl+c");
    Settle();
}

// Longer than the program waits, and until it has told so and that is read.
void ClipboardAttack::WaitAndDismiss() {
    std::this_thread::sleep_for(700ms);
    for (const auto end = Clock::now() + 5s; desktop_.Active() != editor_->Window() && Clock::now() < end;
         std::this_thread::sleep_for(50ms))
        desktop_.Press("Escape");
}

// What the program gives out that has the clipboard.
std::string ClipboardAttack::GivenOut() const {
    const std::string file = editor_->home / "read.txt";
    Process("sh", {"-c", "timeout 5 xclip -selection clipboard -o >" + file},
            desktop_.ProgramEnvironment(editor_->home.Path()))
        .WaitForEnd();
    return Contents(file);
}

// Whether a text is in the document, which is copied for that.
bool ClipboardAttack::IsPutIn(const std::string& text) {
    desktop_.Press("Ctrl+a");
    desktop_.Press("Ctrl+c");
    Settle();
    return GivenOut().find(text) != std::string::npos;
}

void ClipboardAttack::Row(const std::string& name, std::chrono::milliseconds limit,
                          const std::function<void()>& attempt, const std::function<bool()>& isLost) {
    table_.Add(name, [=, this] { return Try(limit, attempt, isLost); });
}

Count ClipboardAttack::Try(std::chrono::milliseconds limit, const std::function<void()>& attempt,
                           const std::function<bool()>& isLost) {
    Count count;
    turns_->TakeLongest();
    bool gone = true;
    try {
        attempt();
        count.longest = turns_->TakeLongest();
        count.held = count.longest > limit ? 1 : 0;
        gone = isLost() || !editor_->Runs();
    } catch (const std::runtime_error& error) { // the program has ended, or takes no keys
        std::fprintf(stderr, "%s\n", error.what());
    }
    count.lost = gone ? 1 : 0;
    if (gone)
        Begin();
    return count;
}

void ClipboardAttack::OwnerRow(const char* name, Manner manner) {
    Row(
        name, 50ms,
        [=, this] {
            const std::string text = "odd " + std::to_string(++number_);
            const Owner owner(display_, "CLIPBOARD", manner, text);
            std::this_thread::sleep_for(300ms);
        },
        [=, this] { return !Comes(); });
}

void ClipboardAttack::ClickRow(const char* name, Manner manner, const std::string& text) {
    Row(
        name, 50ms,
        [=, this] {
            const Owner owner(display_, "PRIMARY", manner, text);
            const Rect place = desktop_.Place(editor_->Window());
            desktop_.Click({place.left + 150, place.top + 200}, 2);
            WaitAndDismiss();
        },
        [=, this] { return (!text.empty() && !IsPutIn(text)) || !Comes(); });
}

void ClipboardAttack::DropRow(const char* name, Manner manner, const std::string& text) {
    Row(
        name, 500ms,
        [=, this] {
            const Owner owner(display_, "XdndSelection", manner, text);
            DragAndDrop(display_, editor_->Window(), 15);
            WaitAndDismiss();
        },
        [=, this] { return (!text.empty() && !IsPutIn(text)) || !Comes(); });
}

void ClipboardAttack::RequestorRow(const Request& request) {
    Row(
        "asks with " + request.name, 50ms,
        [=, this] {
            CopyOwn();
            Requestor(display_).Ask(request);
            std::this_thread::sleep_for(50ms);
        },
        [=, this] { return GivenOut() != "own"; });
}

int ClipboardAttack::Run() {
    const auto nothingLost = [&] { return !Comes(); };
    Row(
        "nothing at all", 50ms, [&] { std::this_thread::sleep_for(300ms); }, nothingLost);
    OwnerRow("copies, and has 60,000 forms", Manner::Honest);
    OwnerRow("is silent", Manner::Silent);
    OwnerRow("refuses", Manner::Refusing);
    OwnerRow("gives a picture", Manner::WrongType);
    OwnerRow("gives a text of numbers", Manner::WrongFormat);
    OwnerRow("stalls", Manner::Stalled);
    OwnerRow("drips", Manner::Dripping);
    bool givenUp = false;
    Row(
        "never ends, and is given up", 50ms,
        [&] {
            const Owner owner(display_, "CLIPBOARD", Manner::Endless, "");
            givenUp = Within(
                5s, [&] { return editor_->Store().Text(Setting::ClipboardText).starts_with(u"too long"); });
        },
        [&] { return !givenUp || !Comes(); });
    OwnerRow("floods", Manner::Flooding);
    OwnerRow("dies", Manner::Dying);
    OwnerRow("changes hands", Manner::ChangingHands);
    bool taken = false;
    Row(
        "answers and hands over to a silent one", 50ms,
        [&] {
            const std::string text = "handed over " + std::to_string(++number_);
            const Owner owner(display_, "CLIPBOARD", Manner::HandingOver, text);
            taken = IsSeen(text, 1s);
        },
        [&] { return !taken; });
    const auto pasteFrom = [&](Manner manner) {
        const Owner owner(display_, "CLIPBOARD", manner, "");
        desktop_.Press("Ctrl+v");
        WaitAndDismiss();
    };
    Row(
        "is silent while pasting", 50ms, [&] { pasteFrom(Manner::Silent); }, nothingLost);
    Row(
        "drips while pasting", 50ms, [&] { pasteFrom(Manner::Dripping); }, nothingLost);
    ClickRow("is selected, and put in by a middle click", Manner::Honest, "selected");
    ClickRow("is silent at a middle click", Manner::Silent, "");
    ClickRow("drips at a middle click", Manner::Dripping, "");
    ClickRow("floods at a middle click", Manner::Flooding, "");
    DropRow("is dropped", Manner::Honest, "dropped");
    DropRow("is silent when dropped", Manner::Silent, "");
    DropRow("drips when dropped", Manner::Dripping, "");
    DropRow("floods when dropped", Manner::Flooding, "");
    for (const Request& request : OddRequests())
        RequestorRow(request);
    return table_.Run();
}

} // namespace
} // namespace quillshift::attack

int main(int argc, char** argv) {
    return quillshift::attack::ClipboardAttack(argc, argv).Run();
}
