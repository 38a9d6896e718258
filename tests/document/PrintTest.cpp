#include "base/Utf8.h"
#include "support/TestProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
        Store(Setting::Printing, 0);
        test.Set(Setting::PrintQuality, u"vbPRPQLow").Set(Setting::ColorMode, u"vbPRCMColor");
        test.Set(Setting::Orientation, u"vbPRORLandscape").Set(Setting::PaperSize, u"B5 182 x 257 мм");
        test.Set(Setting::Copies, u"2").Set(Setting::PrinterName, u"Laser");
        test.Set(Setting::PositionLeft, u"20").Set(Setting::PositionTop, u"5");
        test.Set(Setting::PositionWidth, u"10").Set(Setting::PositionHeight, u"x");
    }
    void Store(Setting setting, bool on) { test.settings.Switch(setting, on); }
    void Run() { test.program.Run("MENU:FILE:PRINT"); }
    bool HasPrinted() const { return !window.document.printed.empty(); }
};

// The boxes come first: reading them makes the stored printer current.
TEST_F(Print, SetsThePrinterUpAndDrawsPageAfterPageBetweenTheMargins) {
    test.fileDialog.FileTitle = u"letter.txt";
    Run();
    EXPECT_THAT(printer.done, ElementsAre("current", "quality -2", "colours 2", "orientation 2", "paper 13",
                                          "font 12", "copies 2", "start", "page", "end"));
    EXPECT_EQ(printer.documentName, u"letter.txt");
    const auto& printed = window.document.printed;
    ASSERT_EQ(printed.size(), 2U);
    EXPECT_EQ(printed[1].from, 10U);
    // 20 mm are 1134 twips, and a box without a number is no margin.
    EXPECT_EQ(printed[0].rectangle,
              (TwipsRect{1034_twips, {83.5F}, 11907_twips - 567_twips - 1134_twips, {16839 - 283.5F}}));
    EXPECT_EQ(printed[0].page, (TwipsRect{0_twips, 0_twips, 11707_twips, 16439_twips}));
    EXPECT_EQ(window.document.layoutsForgotten, 1);
    EXPECT_TRUE(test.messageBox.shown.empty());
}

TEST_F(Print, LeavesNoBlankPageBehindAFullOne) {
    window.document.SetText(u"ten chars.");
    Run();
    EXPECT_THAT(printer.done, testing::Not(testing::Contains("page")));
    printer.done.clear();
    printer.passes = 3;
    Run();
    EXPECT_EQ(std::count(printer.done.begin(), printer.done.end(), "page"), 2) << "one between two copies";
}

TEST_F(Print, LeavesPropertiesAsTheyWereForValuesThatItDoesNotKnow) {
    for (const Setting setting :
         {Setting::PrintQuality, Setting::ColorMode, Setting::Orientation, Setting::PaperSize})
        test.Set(setting, u"vbOther");
    test.Set(Setting::Copies, u"-3");
    Run();
    EXPECT_THAT(printer.done, ElementsAre("current", "font 12", "copies 1", "start", "page", "end"));
    const PrintInformation told = test.program.Parts().print.Information();
    EXPECT_EQ(told.quality + told.colours + told.orientation + told.paper, u"");
}

TEST_F(Print, ShowsItsDialogFirstUnlessItIsNotWanted) {
    Store(Setting::Printing, true);
    modPrint& print = test.program.Parts().print;
    bool sure = false;
    test.dialogs->whileModal = [&] {
        EXPECT_FALSE(HasPrinted());
        print.ShowDialogBefore(false);
        if (sure)
            print.Confirm();
    };
    Run();
    EXPECT_FALSE(HasPrinted()) << "closed";
    Store(Setting::Printing, true);
    sure = true;
    Run();
    EXPECT_TRUE(HasPrinted());
    window.document.printed.clear();
    test.dialogs->whileModal = nullptr;
    Run(); // at once
    EXPECT_TRUE(HasPrinted());
    EXPECT_EQ(test.dialogs->shown.size(), 2U);
}

TEST_F(Print, AsksWhatToDoWithARefusedPropertyAndReportsFailures) {
    printer.refused = "paper";
    Run();
    EXPECT_THAT(ToUtf8(test.LastBox()), HasSubstr("размер бумаги"));
    EXPECT_FALSE(HasPrinted());
    test.messageBox.answers = {BoxAnswer::Yes};
    Run();
    EXPECT_TRUE(HasPrinted());

    printer.refused.clear();
    printer.atEnd = PrintFailure{482, u"Принтер исчез"};
    Run();
    EXPECT_EQ(test.LastBox(), u"Произошла ошибка № 482\r\nПринтер исчез");
    printer.atStart = PrintFailure{482, u"Нет места"};
    window.document.printed.clear();
    Run();
    EXPECT_EQ(test.LastBox(), u"Произошла ошибка № 482\r\nНет места");
    EXPECT_FALSE(HasPrinted());
}

TEST_F(Print, IsCancelledWithoutATraceAndKeepsTheTextAsItIs) {
    test.Set(Setting::ClipboardDetect, u"1").Set(Setting::DecodeClipboard, u"0");
    test.program.Parts().watcher.Start();
    test.timers.Tick();
    window.document.SetText(u"ten chars.and five");
    test.progress.dueEach = 1;
    test.progress.atStep = [&] {
        test.clipboard.Hold(u"new");
        test.timers.Tick();
        EXPECT_EQ(window.document.Text(), u"ten chars.and five");
        return false;
    };
    Run();
    EXPECT_EQ(printer.done.back(), "cancel");
    EXPECT_EQ(test.progress.steps, std::vector{10.0 / 18});
    EXPECT_TRUE(test.messageBox.shown.empty());
    test.timers.Tick();
    EXPECT_EQ(window.document.Text(), u"new");
}

TEST_F(Print, CanBeLeftWhileAQueueTakesNothing) {
    printer.isSlow = true;
    test.progress.dueEach = 3; // the pages are drawn at two
    test.progress.atStep = [] { return false; };
    Run();
    EXPECT_EQ(printer.done.back(), "cancel");
    EXPECT_EQ(test.progress.steps, std::vector{1.0});
    EXPECT_TRUE(test.messageBox.shown.empty());
    EXPECT_EQ(window.document.layoutsForgotten, 1);
}

TEST_F(Print, AsksBeforeItTakesAnotherPrinterThanTheStoredOne) {
    test.Set(Setting::PrinterName, u"Gone");
    Run();
    EXPECT_EQ(test.LastBox(), u"Принтер «Gone» не найден.\r\nПечатать на «Laser»?");
    EXPECT_FALSE(HasPrinted());
    test.messageBox.answers = {BoxAnswer::Yes};
    Run();
    EXPECT_TRUE(HasPrinted());
}

TEST_F(Print, AsksForTheNameOfAFileAndLeavesTheDocumentsOwn) {
    printer.isFile = true;
    test.fileDialog.FileName = u"/d/letter.txt";
    test.fileDialog.FileTitle = u"letter.txt";
    test.fileDialog.InitDir = u"/left";
    Run(); // cancelled
    EXPECT_FALSE(HasPrinted());
    test.fileDialog.chosen = {u"/e/out.pdf"};
    Run();
    EXPECT_EQ(printer.file, u"/e/out.pdf");
    EXPECT_EQ(test.LastBox(), u"Документ напечатан в файл\r\n/e/out.pdf");
    EXPECT_EQ(test.fileDialog.FileName, u"/d/letter.txt");
    EXPECT_EQ(test.fileDialog.FileTitle, u"letter.txt");
    EXPECT_EQ(test.fileDialog.InitDir, u"/left");
    test.fileDialog.FileName = test.fileDialog.FileTitle = u"";
    Run();
    EXPECT_EQ(test.fileDialog.namesAtOpening,
              (std::vector<std::u16string>{u"/d/letter.pdf", u"/d/letter.pdf", u"Документ.pdf"}));
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
