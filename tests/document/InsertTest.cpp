#include "base/TextChange.h"
#include "base/Windows1251.h"
#include "document/TimeAndDate.h"
#include "document/modDocumentProperties.h"
#include "document/modEdit.h"
#include "platform/posix/PosixClock.h"
#include "support/FakePlatform.h"
#include "support/FakeSurface.h"
#include "support/TestProgram.h"

#include <cstdlib>

namespace quillshift {
namespace {

TEST(TimeAndDate, IsOfferedInFourteenForms) {
    FakeClock clock;
    std::u16string all;
    for (const std::u16string& text : TimeAndDateTexts(clock))
        all += text + u"|";
    EXPECT_EQ(all, u"09.07|09.07.08|05-03-26|05-03-26 09.07|05-03-26 09.07.08|"
                   u"05-03-2026|05-03-2026 09.07|05-03-2026 09.07.08|"
                   u"05 марта 26|05 марта 26 09.07|05 марта 26 09.07.08|"
                   u"05 марта 2026|05 марта 2026 09.07|05 марта 2026 09.07.08|");
    clock.now.hour = 21;
    EXPECT_EQ(TimeAndDateTexts(clock)[0], u"21.07");
    std::u16string months;
    for (clock.now.month = 1; clock.now.month <= 12; ++clock.now.month)
        months += TimeAndDateTexts(clock)[8].substr(3);
    EXPECT_EQ(months, u"января 26февраля 26марта 26апреля 26мая 26июня 26"
                      u"июля 26августа 26сентября 26октября 26ноября 26декабря 26");
}

TEST(TimeAndDate, ComesFromTheMachineAndWithoutACountryIsWrittenAsInRussia) {
    setenv("TZ", "MSK-3", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    const PosixClock clock;
    const std::time_t before = std::time(nullptr) + std::time_t{3} * 60 * 60;
    const Moment now = clock.Now();
    const std::tm utc = *std::gmtime(&before);
    EXPECT_NEAR(now.hour * 60 + now.minute, utc.tm_hour * 60 + utc.tm_min, 1);
    EXPECT_EQ(now.year, utc.tm_year + 1900);
    EXPECT_EQ(now.month, utc.tm_mon + 1);
    EXPECT_EQ(clock.DateSeparator(), u'.');
    EXPECT_EQ(clock.TimeSeparator(), u':');
}

struct InsertTextFile : testing::Test {
    TestProgram test;

    void Insert(std::u16string_view path) {
        test.fileDialog.chosen.emplace_back(path);
        test.program.Run("MENU:INSERT:TEXTFILE");
    }
    FakeMainView& StartWith(std::u16string_view text) {
        FakeMainView& window = test.Start();
        window.document.SetText(text);
        window.document.Select(1, 2);
        test.clipboard.SetText(u"copied");
        test.timers.Tick();
        return window;
    }
};

TEST_F(InsertTextFile, ReplacesTheSelectionAndStaysOnTheClipboard) {
    FakeMainView& window = StartWith(u"abcd");
    test.Set(Setting::FormLoad, u"1").Set(Setting::FormLoadPath, u"/load.wav");
    test.Set(Setting::StartAtOpen, u"1").Set(Setting::StartAtImport, u"1");
    test.files.files[u"/d/i.txt"] = "\xCF\r\n!";
    test.fileDialog.InitDir = u"/left";
    Insert(u"/d/i.txt");
    EXPECT_EQ(window.document.Text(), u"aП\r\n!d");
    EXPECT_EQ(window.inserted.Text(), u"") << "empty for the next file";
    EXPECT_EQ(test.clipboard.text, u"П\r\n!");
    EXPECT_EQ(test.sound.played, std::vector<std::u16string>{u"/load.wav"});
    EXPECT_TRUE(test.dialogs->shown.empty()) << "no job goes with it";
    EXPECT_EQ(test.fileDialog.InitDir, u"/left");
    EXPECT_EQ(test.fileDialog.FileName, u"/d/i.txt");
    test.program.Run("MENU:EDIT:UNDO");
    EXPECT_EQ(window.document.Text(), u"abcd");

    test.OpenFile(u"/d/i.rtf", R"({\rtf1\ansi {\b bold}\par x})", "MENU:INSERT:TEXTFILE");
    EXPECT_NE(window.document.Text().find(u"bold\r\nx"), std::u16string_view::npos);
}

TEST_F(InsertTextFile, ThatFailsOrIsEmptyOrCancelledChangesNothing) {
    FakeMainView& window = StartWith(u"abcd");
    test.files.files[u"/d/empty.txt"] = "";
    test.files.files[u"/d/picture.rtf"] = R"({\rtf1{\pict 00}})";
    for (const auto* path : {u"/d/none.txt", u"/d/empty.txt", u"/d/picture.rtf"})
        Insert(path);
    test.program.Run("MENU:INSERT:TEXTFILE");
    EXPECT_EQ(window.document.Text(), u"abcd");
    EXPECT_EQ(window.document.SelLength(), 2U);
    EXPECT_EQ(test.clipboard.text, u"copied");
    ASSERT_EQ(test.messageBox.shown.size(), 1U);
    EXPECT_EQ(test.LastBox(), u"Произошла ошибка № 53\r\n«/d/none.txt»\r\nФайл не найден");
}

// Or it would replace the document.
TEST_F(InsertTextFile, AndImportAreNoNewsToTheWatcherButWhatIsCopiedAfterwardsIs) {
    for (const auto* const key : {"MENU:INSERT:TEXTFILE", "MENU:FILE:IMPORT:RTF"}) {
        TestProgram program;
        program.Set(Setting::ClipboardDetect, u"1").Set(Setting::DecodeClipboard, u"0");
        FakeMainView& window = program.Start();
        window.document.SetText(u"ab");
        program.OpenFile(u"/d/i.txt", "new", key);
        program.timers.Tick();
        EXPECT_EQ(window.document.Text(), u"newab") << key;
        program.Copied(u"newab");
        program.Copied(u"other");
        EXPECT_EQ(window.document.Text(), u"other") << key;
    }
}

TEST(DocumentProperties, TellsSizesInThreeDigits) {
    using Case = std::pair<std::uint64_t, std::u16string_view>;
    for (const auto& [bytes, text] :
         {Case{0, u"0 байт"}, Case{1, u"1 байт"}, Case{11, u"11 байт"}, Case{22, u"22 байта"},
          Case{1023, u"1023 байта"}, Case{1024, u"1,00 КБ"}, Case{1500, u"1,46 КБ"},
          Case{10 * 1024 + 52, u"10,0 КБ"}, Case{1022976, u"999 КБ"}, Case{1024000, u"0,976 МБ"},
          Case{5 << 20U, u"5,00 МБ"}, Case{std::uint64_t{5} << 30U, u"5,00 ГБ"},
          Case{std::uint64_t{7} << 60U, u"7,00 ЭБ"}})
        EXPECT_EQ(SizeText(bytes), text);
}

TEST(DocumentProperties, TellsMomentsInUtc) {
    const std::pair<std::int64_t, std::u16string_view> cases[] = {
        {1109840405, u"03.03.2005 г., 9:0:5"}, // date -u -d "2005-03-03 09:00:05" +%s
        {1709251199, u"29.02.2024 г., 23:59:59"},
        {-1, u"31.12.1969 г., 23:59:59"}};
    for (const auto& [seconds, text] : cases)
        EXPECT_EQ(DateText(seconds), text);
}

TEST(Editing, UndoPutsBackWithTheCaretWhereTheRuleSays) {
    FakePlatform fake;
    FakeSurface document;
    DocumentState state;
    UndoHistory history;
    modEdit edit{{document, fake.clipboard, fake.messageBox, state, history}};
    document.OnChange = [&](const TextEdit& change) { history.Record(change); };
    document.SetText(u"ab ёж");
    document.Select(3, 2);
    edit.Delete();
    edit.Undo();
    EXPECT_EQ(document.SelText(), u"ёж") << "more than a character comes back selected";
    document.SetSelText(u"\r\n");
    document.Select(3, 2);
    edit.Delete();
    edit.Undo();
    EXPECT_EQ(document.SelStart(), 5U) << "the caret stands behind a line break";
    edit.Undo();
    EXPECT_EQ(document.SelText(), u"ёж") << "so does what was typed over";
    edit.Redo();
    EXPECT_EQ(document.Text(), u"ab \r\n");
    EXPECT_EQ(document.SelStart(), 5U);
    EXPECT_EQ(document.SelLength(), 0U);
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
