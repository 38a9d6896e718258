#include "e2e/ClipboardManager.h"
#include "e2e/EditorTest.h"

#include "base/Utf8.h"
#include "harness/Iconv.h"

namespace quillshift::e2e {
namespace {

class ClipboardElsewhere : public EditorTest {
protected:
    ClipboardElsewhere() { editor.Set(Setting::SaveChange, u"0"); }

    // Another program puts a text on the clipboard, and stays behind to give it out.
    void Copy(const std::string& text, const char* form = "UTF8_STRING") {
        const XWindow before = desktop.ClipboardOwner();
        StartCopying(text, "-silent", form).WaitForEnd();
        desktop.WaitUntil("the text is copied", [&] { return desktop.ClipboardOwner() != before; });
    }
    // One that ends when it is told.
    Process StartCopying(const std::string& text, const char* how = "-quiet",
                         const char* form = "UTF8_STRING", const char* selection = "clipboard") {
        Put(Path("clipboard.txt"), text);
        return {"xclip",
                {how, "-selection", selection, "-t", form, "-i", Path("clipboard.txt")},
                desktop.ProgramEnvironment(editor.home.Path())};
    }
    Process StartReading(const std::string& selection) const {
        return {"sh",
                {"-c", "xclip -selection " + selection + " -o >" + Path("read.txt").string()},
                desktop.ProgramEnvironment(editor.home.Path())};
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
    void WaitUntilSeen(const std::string& text) {
        desktop.WaitUntil("the text has been seen",
                          [&] { return editor.Store().Is(Setting::ClipboardText, FromUtf8(text)); });
        desktop.WaitUntilQuiet(editor.Program());
    }
    std::string Bytes(const std::string& text) { return Iconv(text, "UTF-8", "CP1251"); }
};

TEST_F(ClipboardElsewhere, WhatIsCopiedElsewhereArrivesByItselfAndCanBeTakenBack) {
    Watch(Recode, Collect).Start();
    for (const char* copied : {"Џа", "аЁ", "ЁЎ"}) { // the programs answer a single time
        Put(Path("clipboard.txt"), copied);
        Process owner("xclip",
                      {"-quiet", "-loops", "1", "-selection", "clipboard", "-i", Path("clipboard.txt")},
                      desktop.ProgramEnvironment(editor.home.Path()));
        WaitUntilSeen(copied);
        EXPECT_EQ(owner.WaitForEnd(), 0);
    }
    EXPECT_EQ(Saved(), Bytes("Пр\r\nри\r\nиб\r\n"));
    desktop.Press("Ctrl+F9");
    EXPECT_EQ(Saved(), Bytes("Пр\r\nри\r\n"));
}

TEST_F(ClipboardElsewhere, ALongTextArrivesWholeAndOutlivesTheProgramItCameFrom) {
    std::string text;
    while (text.size() < 5U << 20U)
        text += "Я помню чудное мгновенье: передо мной явилась ты\r\n";
    Watch(AsItCame, Replace).Start();
    {
        const Process owner = StartCopying(text);
        WaitUntilSeen(text);
    }
    desktop.WaitUntilQuiet(editor.Program());
    desktop.Press("Ctrl+v");
    EXPECT_TRUE(Saved() == Bytes(text + text + "\r\n"));
}

TEST_F(ClipboardElsewhere, BytesOfAnOldProgramAreReadAsThoseOfFilesAre) {
    Watch(Recode, Replace).Start();
    Copy("\x8F\xE0", "STRING");
    WaitUntilSeen("Џа");
    EXPECT_EQ(Saved(), Bytes("Пр\r\n"));
    Copy("no text", "image/png");
    WaitUntilSeen("");
    EXPECT_EQ(Saved(), "\r\n");
}

TEST_F(ClipboardElsewhere, ArrivesWhateverTheProgramIsBusyWith) {
    Watch(AsItCame, Collect).Start();
    const auto copy = [this](const std::string& text) {
        Copy(text);
        WaitUntilSeen(text);
    };
    desktop.Press("Alt");
    desktop.Press("Down");
    desktop.WaitUntilQuiet(editor.Program());
    copy("menu");
    desktop.Press("Escape");
    desktop.Press("Escape");
    desktop.Press("F9");
    editor.SettleIn(u"Перекодирование");
    copy("dialog");
    desktop.Press("Escape");
    editor.Settle();
    desktop.Minimise(editor.Window());
    desktop.WaitUntil("the window is hidden", [&] { return desktop.Active() == 0; });
    copy("hidden");
    desktop.Activate(editor.Window());
    editor.Settle();
    EXPECT_EQ(Saved(), "menu\r\ndialog\r\nhidden\r\n");
}

TEST_F(ClipboardElsewhere, ACopiedTextOutlivesTheProgramWhereSomebodyKeepsIt) {
    ClipboardManager manager(desktop);
    editor.Start();
    desktop.Type(u"мой");
    desktop.Press("Ctrl+a");
    desktop.Press("Ctrl+c");
    editor.Settle();
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
    StartCopying("слово\nещё", "-silent", "UTF8_STRING", "primary").WaitForEnd();
    desktop.WaitUntil("the word is selected", [&] { return Read("primary") == "слово\nещё"; });
    const Rect window = desktop.Place(editor.Window());
    desktop.Click({window.left + 12, window.top + 100}, 2);
    editor.Settle(); // the window manager sees clicks first, and keys could overtake this one
    EXPECT_EQ(Saved(), Bytes("abслово\r\nещё\r\n"));
}

TEST_F(ClipboardElsewhere, CanBeEmptiedAndTakenFromTheProgram) {
    editor.Start();
    desktop.Type(u"own");
    desktop.Press("Return");
    desktop.Press("Ctrl+a");
    desktop.Press("Ctrl+c");
    editor.Settle();
    EXPECT_EQ(Read("clipboard"), "own\n");
    for (int i = 0; i < 20; ++i) { // the program may hear of the two changes in one go or in two
        desktop.Press("Ctrl+c");
        desktop.EmptyClipboard();
        desktop.HoldClipboard();
    }
    desktop.Type(u"nobody waits");
    EXPECT_EQ(Saved(), "nobody waits\r\n");
    Copy("secret");
    desktop.WaitUntilQuiet(editor.Program());
    desktop.EmptyClipboard();
    desktop.WaitUntilQuiet(editor.Program());
    desktop.Press("Ctrl+v");
    EXPECT_EQ(Saved(), "nobody waits\r\n");
}

TEST_F(ClipboardElsewhere, IsRecodedOnceAtAStartThatTakesItInTwice) {
    std::string letter;
    while (letter.size() < 4000)
        letter += "Џа"; // "Пр"
    Copy(letter);
    Watch(Recode, Replace).Set(Setting::StartAtStartup, u"1").Start();
    WaitUntilSeen(letter);
    std::string expected;
    while (expected.size() < letter.size())
        expected += "Пр";
    EXPECT_EQ(Saved(), Bytes(expected + "\r\n"));
}

} // namespace
} // namespace quillshift::e2e
