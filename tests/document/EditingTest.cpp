#include "document/modEdit.h"

#include "base/TextChange.h"
#include "base/Windows1251.h"
#include "support/FakePlatform.h"
#include "support/FakeSurface.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

struct Editing : testing::Test, FakePlatform {
    Editing() {
        document.OnChange = [this](const TextEdit& change) { history.Record(change); };
    }
    void Type(std::u16string_view text) { document.SetSelText(text); }

    FakeSurface document;
    DocumentState state;
    UndoHistory history;
    modEdit edit{{document, clipboard, messageBox, state, history}};
};

TEST_F(Editing, UndoPutsBackWithTheCaretWhereTheRuleSays) {
    Type(u"a");
    edit.Undo();
    EXPECT_EQ(document.Text(), u"a") << "the first edit of all stays";
    Type(u"b");
    edit.Undo();
    EXPECT_EQ(document.Text(), u"a");
    edit.Redo();
    EXPECT_EQ(document.Text(), u"ab");
    EXPECT_EQ(document.SelStart(), 2U);

    Type(u" ёж");
    document.SetSelStart(3);
    document.SetSelLength(2);
    edit.Delete();
    edit.Undo();
    EXPECT_EQ(document.Text(), u"ab ёж");
    EXPECT_EQ(document.SelText(), u"ёж") << "more than a character comes back selected";
    Type(u"\r\n");
    document.SetSelStart(3);
    document.SetSelLength(2);
    edit.Delete();
    edit.Undo();
    EXPECT_EQ(document.SelStart(), 5U) << "the caret stands behind a line break";
    edit.Undo();
    EXPECT_EQ(document.SelText(), u"ёж") << "so does what was typed over";
    edit.Redo();
    EXPECT_EQ(document.Text(), u"ab \r\n");
    EXPECT_EQ(document.SelStart(), 5U);
    EXPECT_EQ(document.SelLength(), 0U);
    Type(u"x");
    EXPECT_EQ(history.RedoSteps(), 0U);
}

TEST(ToCase, ConvertsTheLettersOfThePageAndKeepsTheRest) {
    constexpr std::u16string_view kCapitals =
        u"ABCDEFGHIJKLMNOPQRSTUVWXYZАБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯЁҐЂЃЄЅІЇЈЉЊЋЌЎЏ";
    constexpr std::u16string_view kSmall =
        u"abcdefghijklmnopqrstuvwxyzабвгдежзийклмнопрстуфхцчшщъыьэюяёґђѓєѕіїјљњћќўџ";
    for (int byte = 0; byte < 256; ++byte) {
        const char16_t letter = windows1251::FromByte(static_cast<std::uint8_t>(byte));
        const std::u16string_view text(&letter, 1);
        const std::size_t capital = kCapitals.find(letter);
        const std::size_t small = kSmall.find(letter);
        EXPECT_EQ(ToCase(text, LetterCase::Lower), capital < kSmall.size() ? kSmall.substr(capital, 1) : text)
            << byte;
        EXPECT_EQ(ToCase(text, LetterCase::Upper),
                  small < kCapitals.size() ? kCapitals.substr(small, 1) : text)
            << byte;
    }
    constexpr std::u16string_view kOutside = u"\u4E2D\u00DF\u045D\u0450\u00D7\u00E9";
    EXPECT_EQ(ToCase(kOutside, LetterCase::Upper), kOutside);
}

} // namespace
} // namespace quillshift
