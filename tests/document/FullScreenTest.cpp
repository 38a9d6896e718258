#include "base/Utf8.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

/// A program whose document is on the whole screen.
struct FullScreenTest : testing::Test, TestProgram {
    FullScreenTest() {
        Set(Setting::ClipboardDetect, u"1")
            .Set(Setting::DecodeClipboard, u"0")
            .Set(Setting::Accumulate, u"1");
        Start();
        timers.Tick();
        window.document.SetText(u"one\r\ntwo\r\nthree");
        window.document.SetSelStart(5);
        window.document.SetTopPosition(5);
        program.Run("MENU:VIEW:FULLSCREEN");
    }
    FullScreen& mode = program.Parts().fullScreen;
    FakeSurface& Screen() { return dialogs->fullScreen->surface; }
};

TEST_F(FullScreenTest, BringsTextCaretAndScrollBackAsOneStep) {
    EXPECT_EQ(Screen().Text(), u"one\r\ntwo\r\nthree");
    EXPECT_EQ(Screen().SelStart(), 0U);
    EXPECT_TRUE(window.document.readOnly);
    EXPECT_EQ(dialogs->hidings, 1) << "no dialog stands over the text, or works on what is stale";
    program.Parts().document.DocumentModified = false;
    mode.End();
    EXPECT_TRUE(program.Parts().document.DocumentModified);
    EXPECT_EQ(window.document.SelStart() + window.document.TopPosition(), 10U) << "nobody went anywhere";
    EXPECT_FALSE(window.document.readOnly);
    EXPECT_EQ(dialogs->hidings, 0);

    program.Run("TOOLBAR:FULLSCREEN");
    Screen().SetSelText(u"zero\r\n");
    Screen().SetSelText(u"half ");
    Screen().SetSelStart(6);
    Screen().SetSelLength(4);
    Screen().SetTopPosition(6);
    mode.End();
    EXPECT_EQ(window.document.Text(), u"zero\r\nhalf one\r\ntwo\r\nthree");
    EXPECT_EQ(window.document.SelText(), u"half");
    EXPECT_EQ(window.document.TopPosition(), 6U);
    EXPECT_FALSE(dialogs->fullScreen);
    program.Run("MENU:EDIT:UNDO");
    EXPECT_EQ(window.document.Text(), u"one\r\ntwo\r\nthree");
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
        program.Run("MENU:VIEW:FULLSCREEN");
        Screen().SetText(u"new");
        messageBox.answers = {BoxAnswer::No};
        road();
        EXPECT_EQ(ToUtf8(window.document.Text()), after) << &road - &roads->second;
        EXPECT_FALSE(mode.IsOn());
        EXPECT_FALSE(dialogs->fullScreen);
    }
}

// A walk that was begun before lets commands through.
TEST_F(FullScreenTest, AJobRecodesWhatWasWrittenMeanwhile) {
    mode.End();
    dialogs->atStep = [this] {
        if (mode.IsOn())
            return;
        program.Run("MENU:VIEW:FULLSCREEN");
        Screen().SetText(u"\u040F");
    };
    program.Run("MENU:DECODE:DOS:DW");
    EXPECT_EQ(window.document.Text(), u"П");
}

TEST_F(FullScreenTest, ItsOwnCommandGoesBackToTheText) {
    Screen().SetText(u"new");
    const auto shown = dialogs->shown.size();
    program.Run("MENU:VIEW:FULLSCREEN");
    EXPECT_EQ(Screen().Text(), u"new");
    EXPECT_EQ(dialogs->shown.size(), shown + 1);
}

} // namespace
} // namespace quillshift
