#include "base/Utf8.h"
#include "document/RecoveryFormat.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

using namespace std::string_literals;

/// A program whose document stands somewhere, to be seen on the whole screen.
struct FullScreenTest : testing::Test, TestProgram {
    FullScreenTest() {
        Set(Setting::ClipboardDetect, u"1")
            .Set(Setting::DecodeClipboard, u"0")
            .Set(Setting::Accumulate, u"1");
        Start();
        timers.Tick();
    }
    void Begin() {
        window.document.SetText(kText);
        window.document.SetSelStart(5);
        window.document.SetTopPosition(5);
        program.Run("MENU:VIEW:FULLSCREEN");
    }
    std::u16string Recovered() {
        program.SaveWhatIsNew();
        return ReadRecoveryFile(recovery.file.value_or(""))->text;
    }
    static constexpr const char16_t* kText = u"one\r\ntwo\r\nthree";
    FullScreen& mode = program.Parts().fullScreen;
    FakeSurface& Screen() { return dialogs->fullScreen->surface; }
};

TEST_F(FullScreenTest, BringsTextCaretAndScrollBackAsOneStep) {
    using Place = std::array<std::size_t, 3>; // caret, length of the selection, scroll
    for (const auto& [written, left, after] : {std::tuple(u""s, Place{0, 0, 0}, Place{5, 0, 5}),
                                               {u""s, {0, 0, 10}, {0, 0, 10}},
                                               {u"x"s, {0, 0, 0}, {0, 0, 0}},
                                               {u"zero\r\nhalf "s, {6, 4, 6}, {6, 4, 6}}}) {
        Begin();
        EXPECT_EQ(Screen().SelStart(), 0U);
        EXPECT_TRUE(window.document.readOnly && !program.Parts().MayInterrupt());
        Screen().SetSelText(written);
        Screen().SetSelStart(left[0]);
        Screen().SetSelLength(left[1]);
        Screen().SetTopPosition(left[2]);
        program.Parts().document.DocumentModified = false;
        program.Run("TOOLBAR:FULLSCREEN"); // leads back to it
        EXPECT_EQ(dialogs->hidings, 1) << "no dialog stands over the text, or works on what is stale";
        EXPECT_EQ(Recovered(), written + kText);
        mode.End();
        const FakeSurface& document = window.document;
        EXPECT_EQ(document.Text(), written + kText);
        EXPECT_EQ((Place{document.SelStart(), document.SelLength(), document.TopPosition()}), after);
        EXPECT_TRUE(program.Parts().document.DocumentModified && !document.readOnly);
        EXPECT_TRUE(dialogs->hidings == 0 && !dialogs->fullScreen);
        if (!written.empty())
            program.Run("MENU:EDIT:UNDO");
        EXPECT_EQ(document.Text(), kText);
        EXPECT_EQ(Recovered(), kText);
    }
}

TEST_F(FullScreenTest, EndsBeforeAnybodyUsesTheDocument) {
    const std::pair<const char*, std::function<void()>> roads[] = {
        {"new", [this] { program.Run("MENU:EDIT:SELECTALL"); }},
        {"new\r\ncopied", [this] { clipboard.Hold(u"copied"), timers.Tick(); }},
        {"dropped", [this] { window.document.OnFileDrop(u"/d/file"); }},
        {"new", [this] { window.OnDirectionChange(); }},
        {"new", [this] { window.OnClose(); }}};
    files.files[u"/d/file"] = "dropped";
    for (const auto& [after, road] : roads) {
        Begin();
        Screen().SetText(u"new");
        messageBox.answers = {BoxAnswer::No};
        road();
        EXPECT_EQ(ToUtf8(window.document.Text()), after) << &road - &roads->second;
        EXPECT_TRUE(!mode.IsOn() && !dialogs->fullScreen);
    }
}

// A walk that was begun before lets commands through.
TEST_F(FullScreenTest, AJobRecodesWhatWasWrittenMeanwhile) {
    window.document.SetText(u"before");
    dialogs->atStep = [this] {
        if (!mode.IsOn()) {
            program.Run("MENU:VIEW:FULLSCREEN");
            Screen().SetText(u"\u040F");
        }
    };
    program.Run("MENU:DECODE:DOS:DW");
    EXPECT_EQ(window.document.Text(), u"П");
}

} // namespace
} // namespace quillshift
