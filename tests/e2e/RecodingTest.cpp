#include "e2e/EditorTest.h"

#include "harness/Iconv.h"

namespace quillshift::e2e {
namespace {

const std::filesystem::path kLetter = Sample("text/pushkin-dos866.txt");

// What a saved recoding from DOS must hold: iconv's answer, but for ё, which no direction moves.
std::string Expected() {
    std::string expected;
    for (const char byte : Contents(kLetter))
        expected += byte == Iconv("ё", "UTF-8", "CP866")[0] ? std::string(1, byte)
                                                            : Iconv({&byte, 1}, "CP866", "CP1251");
    return expected + "\r\n";
}

class Recoding : public EditorTest {
protected:
    // A text whose walk lasts for many seconds.
    std::filesystem::path LongLetter() {
        std::string text;
        while (text.size() < 1000000)
            text += Contents(kLetter);
        Put(Path("long.txt"), text);
        return Path("long.txt");
    }
};

TEST_F(Recoding, ALetterFromDosIsReadTakenBackRecodedAgainAndSaved) {
    editor.Start().Open(kLetter);
    editor.Choose("MENU:DECODE:DOS:DW");
    editor.Settle();
    EXPECT_TRUE(Saved() == Expected());
    desktop.Press("Ctrl+F9");
    EXPECT_TRUE(Saved() == Contents(kLetter) + "\r\n");
    editor.Choose("MENU:DECODE:DOS:DW");
    editor.Settle();
    EXPECT_TRUE(Saved() == Expected());
    desktop.AskToClose(editor.Window());
    EXPECT_EQ(editor.WaitForEnd(), 0);
}

TEST_F(Recoding, CancellingAStepLeavesTheTextAlone) {
    const std::string before = Contents(LongLetter());
    editor.Set(Setting::SaveChange, u"0").Start().Open(LongLetter());
    editor.Choose("MENU:DECODE:DOS:DW");
    desktop.WaitForWindow(u"Перекодирование...");
    desktop.Press("Escape");
    editor.AnswerBox(BoxAnswer::No);
    desktop.WaitForWindow(u"Перекодирование...");
    desktop.Press("Escape");
    editor.AnswerBox(BoxAnswer::Yes);
    editor.Settle();
    EXPECT_TRUE(Saved() == before + "\r\n");
}

} // namespace
} // namespace quillshift::e2e
