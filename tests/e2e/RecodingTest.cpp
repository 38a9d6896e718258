#include "e2e/EditorTest.h"

#include "harness/Iconv.h"
#include "recoding/modDecode.h"

#include <algorithm>
#include <array>

namespace quillshift::e2e {
namespace {

struct PublishedSet {
    const char* sample;
    const char* name;
};
constexpr std::array<PublishedSet, kCharsets> kSets{{{"text/pushkin-dos866.txt", "CP866"},
                                                     {"text/pushkin-win1251.txt", "CP1251"},
                                                     {"text/pushkin-koi8r.txt", "KOI8-R"},
                                                     {"text/pushkin-iso88595.txt", "ISO-8859-5"},
                                                     {"text/pushkin-mac.txt", "MAC-CYRILLIC"}}};

const PublishedSet& SetOf(Charset number) {
    return kSets[static_cast<std::size_t>(number - 1)];
}

std::filesystem::path SampleIn(Charset number) {
    return Sample(SetOf(number).sample);
}

// What a saved recoding must hold: iconv's answer, but for ё, which no direction moves.
std::string Expected(Direction direction) {
    const PublishedSet& source = SetOf(direction.source);
    const std::string yo = Iconv("ё", "UTF-8", source.name);
    std::string expected;
    for (const char byte : Contents(SampleIn(direction.source)))
        expected += byte == yo[0] ? yo : Iconv({&byte, 1}, source.name, SetOf(direction.target).name);
    return expected + "\r\n";
}

class Recoding : public EditorTest {
protected:
    // A text whose walk lasts for many seconds.
    std::filesystem::path LongLetter() {
        std::string text;
        while (text.size() < 1000000)
            text += Contents(SampleIn(1));
        Put(Path("long.txt"), text);
        return Path("long.txt");
    }
};

TEST_F(Recoding, ALetterFromDosIsReadTakenBackRecodedAgainAndSaved) {
    editor.Start().Open(SampleIn(1));
    editor.Choose("MENU:DECODE:DOS:DW");
    editor.Settle();
    EXPECT_TRUE(Saved() == Expected({1, 2}));
    desktop.Press("Ctrl+F9");
    EXPECT_TRUE(Saved() == Contents(SampleIn(1)) + "\r\n");
    editor.Choose("MENU:DECODE:DOS:DW");
    editor.Settle();
    EXPECT_TRUE(Saved() == Expected({1, 2}));
    desktop.AskToClose(editor.Window());
    EXPECT_EQ(editor.WaitForEnd(), 0);
}

TEST_F(Recoding, ADirectionIsChosenInTheDialogByTheKeyboardAlone) {
    editor.Start().Open(SampleIn(3));
    desktop.Press("F9");
    editor.SettleIn(u"Перекодирование");
    for (const char* key :
         {"Down", "Down", "Tab", "Down", "Down", "Return"}) // from the third set to the last
        desktop.Press(key);
    editor.SettleIn(u"Перекодирование");
    desktop.Press("Escape");
    editor.Settle();
    EXPECT_TRUE(Saved() == Expected({3, 5}));
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
