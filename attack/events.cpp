// Random keys, clicks and changes of the window against the real program on a virtual display. It may end
// only by the user's own order, and has to answer all the time.

#include "Fence.h"
#include "Installed.h"
#include "RandomUser.h"
#include "Table.h"
#include "Turns.h"

#include "base/Utf8.h"
#include "harness/Editor.h"
#include "support/InProcess.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace quillshift::attack {
namespace {

using namespace e2e;
using namespace std::chrono_literals;

constexpr int kEvents = 100; // in a try
constexpr auto kEnd = 200ms; // that the program may take for the user's order
constexpr auto kLimit = 5s;  // of a turn: dialogs of files take their time on a busy machine

class EventsAttack {
public:
    explicit EventsAttack(unsigned seed)
        : user_(desktop_, seed), program_(InstallEditorAlone(installed_.Path())) {}
    Desktop& Screen() { return desktop_; }
    Count Try(bool opensText);

private:
    void Begin(bool opensText);
    void Tell() const;

    Desktop desktop_;
    RandomUser user_;
    TemporaryFolder installed_;
    std::filesystem::path program_;
    std::unique_ptr<Editor> editor_;
    bool hasText_ = false;
    std::unique_ptr<Turns> turns_;
};

void EventsAttack::Begin(bool opensText) {
    hasText_ = opensText;
    turns_.reset();
    editor_.reset();
    desktop_.RenewWindowManager();
    editor_ = std::make_unique<Editor>(desktop_, program_);
    editor_->Set(Setting::FolderDocuments, FromUtf8(editor_->home.Path().string())).Start();
    if (opensText) {
        const std::filesystem::path file = editor_->home / "long.rtf";
        std::string text = "{\\rtf1\\ansi\\ansicpg1251 ";
        for (int line = 0; line < 2000; ++line)
            text += "line {\\b " + std::to_string(line) + "} \\'cf\\'f0\\'e8\\'e2\\'e5\\'f2\\par\n";
        Put(file, text + "}");
        editor_->Open(file);
    }
    turns_ = std::make_unique<Turns>(desktop_.ProgramEnvironment("").at("DISPLAY"), editor_->Window(),
                                     std::vector<pid_t>{editor_->Program().Pid(), desktop_.Server().Pid()});
}

// How the program is found, and what was done to it last.
void EventsAttack::Tell() const {
    const std::string process = "/proc/" + std::to_string(editor_->Program().Pid());
    std::fprintf(stderr, "state %s, waits in %s, the keyboard has \"%s\"; done last:\n",
                 Contents(process + "/stat").substr(0, 40).c_str(), Contents(process + "/wchan").c_str(),
                 ToUtf8(desktop_.Title(desktop_.Active())).c_str());
    for (const XWindow window : desktop_.Windows())
        std::fprintf(stderr, "  %s window \"%s\"\n", window == editor_->Window() ? "the asked" : "another",
                     ToUtf8(desktop_.Title(window)).c_str());
    for (const std::string& doing : user_.Last())
        std::fprintf(stderr, "  %s\n", doing.c_str());
}

Count EventsAttack::Try(bool opensText) {
    desktop_.KeepWindowManager(); // not all of them bear everything
    if (!editor_ || !editor_->Runs() || hasText_ != opensText)
        Begin(opensText);
    Count count;
    for (int event = 0; event < kEvents && editor_->Runs(); ++event)
        user_.Act(editor_->Window());
    std::this_thread::sleep_for(kEnd);
    if (editor_->Runs())
        count.longest = turns_->TakeLongest();
    if (editor_->Runs() && count.longest <= kLimit)
        return count;
    const bool ended = !editor_->Runs();
    count.held = ended ? 0 : 1;
    if (ended)
        count.longest = {};
    count.lost = ended && editor_->WaitForEnd() != 0 ? 1 : 0;
    if (count.lost != 0)
        std::fprintf(stderr, "the program ended with %d\n", editor_->WaitForEnd());
    if (count.lost != 0 || count.held != 0)
        Tell();
    turns_.reset();
    editor_.reset();
    return count;
}

int Attack(int argc, char** argv, const TemporaryFolder& ground) {
    Table table("events", argc, argv);
    setenv("TMPDIR", ground.Path().c_str(), 1);
    EventsAttack attack(table.Seed());
    if (!FenceIn(ground.Path())) {
        std::fprintf(stderr, "events: left out, as this system can't keep a program from others' files\n");
        return 0;
    }
    table.Add("at an empty window", [&] { return attack.Try(false); });
    table.Add("at a long text", [&] { return attack.Try(true); });
    return table.Run();
}

} // namespace
} // namespace quillshift::attack

int main(int argc, char** argv) {
    using namespace quillshift;
    const TemporaryFolder ground; // which one in a fence could not take away
    return ExitOf(InProcess([&] { return attack::Attack(argc, argv, ground); }));
}
