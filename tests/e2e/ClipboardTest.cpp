#include "e2e/EditorTest.h"
#include "harness/ClipboardManager.h"

namespace quillshift::e2e {
namespace {

class ClipboardElsewhere : public EditorTest {
protected:
    ClipboardElsewhere() { editor.Set(Setting::SaveChange, u"0"); }

    // Another program puts a text on the clipboard, and stays behind to give it out.
    void Copy(const std::string& text, const char* form = "UTF8_STRING") {
        const XWindow before = desktop.ClipboardOwner();
        StartCopying(text, {"-silent", "-t", form}).WaitForEnd();
        desktop.WaitUntil("the text is copied", [&] { return desktop.ClipboardOwner() != before; });
    }
    Process StartReading(const std::string& selection) const {
        const std::string command = "xclip -selection " + selection + " -o >" + Path("read.txt").string();
        return {"sh", {"-c", command}, Elsewhere()};
    }
    // As another program reads it.
    std::string Read(const std::string& selection) {
        StartReading(selection).WaitForEnd();
        return Contents(Path("read.txt"));
    }
    enum Form { AsItCame, Recode };
    enum Place { Replace, Collect };
    Editor& Watch(Form form, Place place) {
        return editor.Set(Setting::ClipboardDetect, u"1")
            .Set(Setting::DecodeClipboard, form == Recode ? u"1" : u"0")
            .Set(Setting::Accumulate, place == Collect ? u"1" : u"0");
    }
};

TEST_F(ClipboardElsewhere, WhatIsCopiedElsewhereArrivesByItselfAndCanBeTakenBack) {
    Watch(Recode, Collect).Start();
    for (const char* copied : {"Џа", "аЁ", "ЁЎ"}) { // the programs answer a single time
        Process owner = StartCopying(copied, {"-quiet", "-loops", "1"});
        WaitUntilSeen(copied);
        EXPECT_EQ(owner.WaitForEnd(), 0);
    }
    EXPECT_EQ(Saved(), Bytes("Пр\r\nри\r\nиб"));
    desktop.Press("Ctrl+F9");
    EXPECT_EQ(Saved(), Bytes("Пр\r\nри"));
}

TEST_F(ClipboardElsewhere, ALongTextArrivesWholeAndOutlivesTheProgramItCameFrom) {
    std::string text;
    while (text.size() < 5U << 20U)
        text += "Я помню чудное мгновенье: передо мной явилась ты\r\n";
    Watch(AsItCame, Replace).Start();
    {
        const Process owner = StartCopying(text, {"-quiet", "-t", "UTF8_STRING"});
        WaitUntilSeen(text);
    }
    desktop.WaitUntilQuiet(editor.Program());
    desktop.Press("Ctrl+v");
    EXPECT_TRUE(Saved() == Bytes(text + text));
}

TEST_F(ClipboardElsewhere, BytesOfAnOldProgramAreReadAsThoseOfFilesAre) {
    Watch(Recode, Replace).Start();
    Copy("\x8F\xE0", "STRING");
    WaitUntilSeen("Џа");
    EXPECT_EQ(Saved(), Bytes("Пр"));
    Copy("no text", "image/png");
    WaitUntilSeen("");
    EXPECT_EQ(Saved(), Bytes(""));
}

TEST_F(ClipboardElsewhere, ArrivesWhateverTheProgramIsBusyWith) {
    Watch(AsItCame, Collect).Start();
    const auto copy = [this](const std::string& text) {
        Copy(text);
        WaitUntilSeen(text);
    };
    desktop.Press("Alt Down");
    desktop.WaitUntilQuiet(editor.Program());
    copy("menu");
    editor.Press("Escape Escape F9", u"Перекодирование");
    copy("dialog");
    editor.Press("Escape");
    desktop.Minimise(editor.Window());
    desktop.WaitUntil("the window is hidden", [&] { return desktop.Active() == 0; });
    copy("hidden");
    desktop.Activate(editor.Window());
    editor.Settle();
    EXPECT_EQ(Saved(), Bytes("menu\r\ndialog\r\nhidden"));
}

TEST_F(ClipboardElsewhere, ACopiedTextOutlivesTheProgramWhereSomebodyKeepsIt) {
    ClipboardManager manager(desktop);
    editor.Start();
    desktop.Type(u"мой");
    editor.Press("Ctrl+a Ctrl+c");
    desktop.AskToClose(editor.Window());
    manager.ServeWhile([&] { return editor.Runs(); });
    EXPECT_EQ(editor.WaitForEnd(), 0);
    Process reader = StartReading("clipboard");
    manager.ServeWhile([&] { return !reader.ExitCode(); });
    EXPECT_EQ(Contents(Path("read.txt")), "мой");
}

TEST_F(ClipboardElsewhere, TheMiddleButtonPutsInWhatIsSelectedElsewhere) {
    editor.Start();
    desktop.Type(u"ab");
    StartCopying("слово\nещё", {"-silent", "-t", "UTF8_STRING"}, "primary").WaitForEnd();
    desktop.WaitUntil("the word is selected", [&] { return Read("primary") == "слово\nещё"; });
    const Rect window = desktop.Place(editor.Window());
    desktop.Click({window.left + 12, window.top + 100}, 2);
    editor.Settle(); // the window manager sees clicks first, and keys could overtake this one
    EXPECT_EQ(Saved(), Bytes("abслово\r\nещё"));
}

TEST_F(ClipboardElsewhere, CanBeEmptiedAndTakenFromTheProgram) {
    editor.Start();
    desktop.Type(u"own");
    editor.Press("Return Ctrl+a Ctrl+c");
    EXPECT_EQ(Read("clipboard"), "own\n");
    for (int i = 0; i < 20; ++i) { // the program may hear of the two changes in one go or in two
        desktop.Press("Ctrl+c");
        desktop.EmptyClipboard();
        desktop.HoldClipboard();
    }
    desktop.Type(u"nobody waits");
    EXPECT_EQ(Saved(), Bytes("nobody waits"));
    Copy("secret");
    desktop.WaitUntilQuiet(editor.Program());
    desktop.EmptyClipboard();
    desktop.WaitUntilQuiet(editor.Program());
    desktop.Press("Ctrl+v");
    EXPECT_EQ(Saved(), Bytes("nobody waits"));
}

TEST_F(ClipboardElsewhere, IsRecodedOnceAtAStartThatTakesItInTwice) {
    std::string letter, expected;
    while (letter.size() < 4000) {
        letter += "Џа";
        expected += "Пр";
    }
    Copy(letter);
    Watch(Recode, Replace).Set(Setting::StartAtStartup, u"1").Start();
    WaitUntilSeen(letter);
    EXPECT_EQ(Saved(), Bytes(expected));
}

} // namespace
} // namespace quillshift::e2e
