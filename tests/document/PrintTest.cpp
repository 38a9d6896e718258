#include "base/Utf8.h"
#include "support/TestProgram.h"

#include <gmock/gmock.h>

namespace quillshift {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Print : testing::Test {
    TestProgram test;
    FakeMainView& window = test.Start();
    FakePrinter& printer = test.printers.printer;

    Print() {
        window.document.SetText(u"ten chars.and five");
        window.document.SetFont({u"Arial", 12});
        Ask(0);
        test.Set(Setting::PrintQuality, u"vbPRPQLow").Set(Setting::ColorMode, u"vbPRCMColor");
        test.Set(Setting::Orientation, u"vbPRORLandscape").Set(Setting::PaperSize, u"B5 182 x 257 мм");
        test.Set(Setting::Copies, u"2").Set(Setting::PrinterName, u"Laser");
        test.Set(Setting::PositionLeft, u"20").Set(Setting::PositionTop, u"5");
        test.Set(Setting::PositionWidth, u"10").Set(Setting::PositionHeight, u"-3");
    }
    /// How the store says whether to ask before: 0 is no, all else is yes.
    void Ask(char stored) {
        test.settings.Switch(Setting::Printing, true);
        for (auto& [key, value] : test.store.values)
            if (key.second == "printing")
                value.data[0] = stored;
    }
    /// Whether something was printed, with this answer to a question that comes.
    bool Prints(BoxAnswer answer = BoxAnswer::No) {
        printer.done.clear();
        window.document.printed.clear();
        test.messageBox.answers = {answer};
        test.program.Run("MENU:FILE:PRINT");
        return !window.document.printed.empty();
    }
    /// How often something that the printer was told last stands there.
    auto Count(const char* what) const { return std::ranges::count(printer.done, what); }
};

// The boxes come first: reading them makes the stored printer current.
TEST_F(Print, SetsThePrinterUpAndDrawsPageAfterPageBetweenTheMargins) {
    test.fileDialog.FileTitle = u"letter.txt";
    ASSERT_TRUE(Prints());
    EXPECT_THAT(printer.done, ElementsAre("current", "quality -2", "colours 2", "orientation 2", "paper 13",
                                          "font 12", "copies 2", "start", "page", "end"));
    EXPECT_EQ(printer.documentName, u"letter.txt");
    const auto& printed = window.document.printed;
    ASSERT_EQ(printed.size(), 2U);
    EXPECT_EQ(printed[1].from, 10U);
    // 20 mm are 1134 twips, and a box without a usable number is no margin.
    EXPECT_EQ(printed[0].rectangle,
              (TwipsRect{1034_twips, {83.5F}, 11907_twips - 567_twips - 1134_twips, {16839 - 283.5F}}));
    EXPECT_EQ(printed[1].rectangle, printed[0].rectangle);
    EXPECT_EQ(printed[0].page, (TwipsRect{0_twips, 0_twips, 11707_twips, 16439_twips}));
    EXPECT_EQ(window.document.layoutsForgotten, 1);
    EXPECT_TRUE(test.messageBox.shown.empty());
}

TEST_F(Print, TakesWhatIsNoUsableValueForTheNearestOrNone) {
    for (const Setting setting :
         {Setting::PrintQuality, Setting::ColorMode, Setting::Orientation, Setting::PaperSize})
        test.Set(setting, u"vbOther");
    for (const auto& [stored, copies] :
         {std::pair(u"-3", "copies 1"), {u"x", "copies 1"}, {u"2.6", "copies 3"}, {u"70000", "copies 999"}}) {
        test.Set(Setting::Copies, stored);
        test.dialogs->settings.reset();
        Prints();
        EXPECT_THAT(printer.done, ElementsAre("current", "font 12", copies, "start", "page", "end"));
    }
    const PrintInformation told = test.program.Parts().print.Information();
    EXPECT_EQ(told.quality + told.colours + told.orientation + told.paper, u"");
}

TEST_F(Print, LeavesNoBlankPageBehindAFullOne) {
    window.document.SetText(u"ten chars.");
    Prints();
    EXPECT_EQ(Count("page"), 0);
    printer.passes = 3;
    test.progress.dueEach = 1;
    Prints();
    EXPECT_EQ(Count("page"), 2) << "one between two copies";
    EXPECT_THAT(test.progress.steps, ElementsAre(1 / 3.0, 2 / 3.0, 1));
    for (const auto& page : window.document.printed)
        EXPECT_EQ(page.from, 0U);
}

TEST_F(Print, ShowsItsDialogFirstUnlessItIsNotWanted) {
    modPrint& print = test.program.Parts().print;
    for (const char stored : {char(1), char(2)}) {
        const bool sure = stored == 2;
        Ask(stored);
        test.dialogs->whileModal = [&] {
            EXPECT_TRUE(window.document.printed.empty());
            print.ShowDialogBefore(false);
            if (sure)
                print.Confirm();
        };
        EXPECT_EQ(Prints(), sure);
    }
    test.dialogs->whileModal = nullptr;
    EXPECT_TRUE(Prints()) << "at once";
    EXPECT_EQ(test.dialogs->shown.size(), 2U);
}

TEST_F(Print, AsksWhatToDoWithARefusedPropertyAndReportsFailures) {
    using Case = std::pair<const char*, const char*>;
    for (const auto& [refused, told] :
         {Case{"paper", "размер бумаги"}, Case{"quality", "качество печати"}, Case{"colours", "тип печати"},
          Case{"orientation", "ориентация"}, Case{"font", "шрифт"},
          Case{"paper copies", "размер бумаги, количество копий."}}) {
        printer.refused = refused;
        EXPECT_FALSE(Prints()) << refused;
        EXPECT_THAT(ToUtf8(test.LastBox()), HasSubstr(told));
    }
    EXPECT_TRUE(Prints(BoxAnswer::Yes));
    printer.refused.clear();
    printer.atEnd = PrintFailure{482, u"Принтер исчез"};
    for (int twice = 0; twice < 2; ++twice) {
        EXPECT_TRUE(Prints());
        EXPECT_EQ(test.LastBox(), u"Произошла ошибка № 482\r\nПринтер исчез");
    }
    printer.atStart = PrintFailure{482, u"Нет места"};
    EXPECT_FALSE(Prints());
    EXPECT_EQ(test.LastBox(), u"Произошла ошибка № 482\r\nНет места");
}

// At a page, and where a queue takes nothing once the two pages are drawn.
TEST_F(Print, IsCancelledWithoutATraceAndKeepsTheTextAsItIs) {
    test.Set(Setting::ClipboardDetect, u"1").Set(Setting::DecodeClipboard, u"0");
    test.program.Parts().watcher.Start();
    test.timers.Tick();
    printer.isSlow = printer.isFile = true;
    for (const auto& [dueEach, done] : {std::pair(1, 10.0 / 18), {3, 1.0}}) {
        window.document.SetText(u"ten chars.and five");
        test.fileDialog.chosen = {u"/e/out.pdf"};
        test.progress.dueEach = dueEach;
        test.progress.atStep = [&] {
            test.Copied(u"new");
            test.program.Run("MENU:FILE:PRINT");
            EXPECT_EQ(window.document.Text(), u"ten chars.and five");
            return false;
        };
        Prints();
        EXPECT_EQ(printer.done.back(), "cancel");
        EXPECT_EQ(Count("start"), 1);
        EXPECT_EQ(test.progress.steps.back(), done);
        EXPECT_TRUE(test.messageBox.shown.empty());
        test.timers.Tick();
        EXPECT_EQ(window.document.Text(), u"new");
        test.Copied(u"old");
    }
    EXPECT_EQ(window.document.layoutsForgotten, 2);
}

TEST_F(Print, AsksBeforeItTakesAnotherPrinterThanTheStoredOne) {
    test.Set(Setting::PrinterName, u"Gone");
    EXPECT_FALSE(Prints());
    EXPECT_EQ(test.LastBox(), u"Принтер «Gone» не найден.\r\nПечатать на «Laser»?");
    EXPECT_TRUE(Prints(BoxAnswer::Yes));
    test.Set(Setting::PrinterName, u"");
    EXPECT_TRUE(Prints()) << "none was ever chosen";
}

TEST_F(Print, AsksForTheNameOfAFileAndLeavesTheDocumentsOwn) {
    printer.isFile = true;
    EXPECT_FALSE(Prints()) << "cancelled";
    for (const auto& [folder, title, offered] : {std::tuple(u"/d/", u"letter.txt", u"/d/letter.pdf"),
                                                 {u"", u"", u"Документ.pdf"},
                                                 {u"/d/", u".profile", u"/d/Документ.pdf"},
                                                 {u"/d/", u"noext", u"/d/noext.pdf"}}) {
        FileDialog& dialog = test.fileDialog;
        dialog.FileName = std::u16string(folder) + title;
        dialog.FileTitle = title;
        dialog.InitDir = u"/left";
        test.fileDialog.chosen = {u"/e/out.pdf"};
        EXPECT_TRUE(Prints());
        EXPECT_EQ(test.fileDialog.namesAtOpening.back(), offered);
        EXPECT_EQ(printer.file, u"/e/out.pdf");
        EXPECT_EQ(test.LastBox(), u"Документ напечатан в файл\r\n/e/out.pdf");
        EXPECT_EQ(dialog.FileName + u'|' + dialog.FileTitle + u'|' + dialog.InitDir,
                  std::u16string(folder) + title + u'|' + title + u"|/left");
    }
}

TEST_F(Print, FindsTheStoredPrinterByItsNameThenByItsPlace) {
    test.printers.names = {u"New", u"Laser", u"Ink", std::u16string(Printers::kIntoFile)};
    const std::tuple<const char16_t*, const char16_t*, int> cases[] = {
        {u"Ink", u"0", 2}, {u"Gone", u"1", 1}, {u"Gone", u"7", 3}, {u"", u"-1", 3}, {u"Gone", u"", 0}};
    EXPECT_EQ(StoredPrinter(test.settings, {}), -1);
    for (const auto& [name, place, expected] : cases) {
        test.Set(Setting::PrinterName, name).Set(Setting::Printers, place);
        EXPECT_EQ(StoredPrinter(test.settings, test.printers.names), expected) << ToUtf8(name);
    }
}

} // namespace
} // namespace quillshift
