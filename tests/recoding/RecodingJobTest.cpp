#include "support/TestProgram.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

const std::u16string kDosHello = u"\u040F\u0430\u0401\u045E\u0490\u0432"; // Привет, as DOS letters are read

struct RecodingJobTest : testing::Test {
    TestProgram test;
    FakeMainView& window = test.Start();

    void RecodeFromDos() { test.program.Dispatch("MENU:DECODE:DOS:DW"); }
};

TEST_F(RecodingJobTest, ChangesTheDocumentAndBringsItBackAsOftenAsAsked) {
    window.document.SetText(kDosHello);
    RecodeFromDos();
    EXPECT_EQ(window.document.Text(), u"Привет");
    EXPECT_EQ(window.decoding.code, u"DOS 866 -> Windows 1251");
    EXPECT_EQ(window.decoding.path, u"Документ не сохранен");
    EXPECT_TRUE(window.decoding.created);
    EXPECT_FALSE(window.decoding.visible);
    EXPECT_FALSE(window.decoding.waiting);

    window.document.SetText(u"edited");
    for (int i = 0; i < 2; ++i) {
        test.program.Dispatch("MENU:DECODE:UNDO");
        EXPECT_EQ(window.document.Text(), kDosHello);
    }
}

TEST_F(RecodingJobTest, WalksOneStepForTenCharactersWithExactHalvesToTheEvenNeighbour) {
    struct Case {
        std::size_t length;
        std::vector<float> progress;
    };
    for (const Case& c : {Case{5, {0}}, Case{6, {0, 166.66667F}}, Case{15, {0, 66.666667F, 133.33333F}},
                          Case{25, {0, 40, 80}}, Case{20, {0, 50, 100}}}) {
        window.document.SetText(std::u16string(c.length, u'x'));
        window.decoding.progress.clear();
        RecodeFromDos();
        ASSERT_EQ(window.decoding.progress.size(), c.progress.size()) << c.length;
        for (std::size_t i = 0; i < c.progress.size(); ++i)
            EXPECT_FLOAT_EQ(window.decoding.progress[i], c.progress[i]) << c.length;
    }
}

TEST_F(RecodingJobTest, StopAtAnyStepLeavesEverythingAlone) {
    const std::u16string text(50, u'\u040F');
    for (std::size_t step = 1; step <= 5; ++step) {
        window.document.SetText(text);
        window.decoding.progress.clear();
        window.decoding.atStep = [&] {
            if (window.decoding.progress.size() == step)
                test.program.Dispatch("TOOLBAR2:STOP");
        };
        RecodeFromDos();
        EXPECT_EQ(window.document.Text(), text);
        EXPECT_EQ(test.program.Recoding().SavedText, u"");
        EXPECT_FALSE(test.program.Recoding().RecodeUndoAvailable);
        EXPECT_FALSE(window.decoding.created);
    }
    window.decoding.atStep = {};
    RecodeFromDos();
    EXPECT_EQ(window.document.Text(), std::u16string(50, u'П')) << "an old stop must not reach the next job";
}

TEST_F(RecodingJobTest, TakesEditsOfTheWalkAlongAndEndsQuietlyWhenTheTextIsGone) {
    window.document.SetText(kDosHello);
    window.decoding.atStep = [&] { window.document.SetText(kDosHello + kDosHello); };
    RecodeFromDos();
    EXPECT_EQ(window.document.Text(), u"ПриветПривет");

    window.decoding.atStep = [&] { window.document.SetText(u""); };
    RecodeFromDos();
    EXPECT_EQ(window.document.Text(), u"");
    EXPECT_FALSE(window.decoding.created);
    EXPECT_TRUE(test.messageBox.shown.empty());
}

TEST_F(RecodingJobTest, IgnoresASecondStartWhileItWalks) {
    window.document.SetText(kDosHello);
    window.decoding.atStep = [&] {
        window.decoding.atStep = {};
        test.program.Dispatch("MENU:DECODE:WIN:WK");
        test.Set(Setting::DefaultCode, u"7");
        test.program.Dispatch("TOOLBAR2:START");
    };
    RecodeFromDos();
    EXPECT_EQ(window.document.Text(), u"Привет");
}

TEST_F(RecodingJobTest, ReportsAnEmptyDocumentAndOneOverTheLimit) {
    RecodeFromDos();
    EXPECT_EQ(test.LastBox(), u"Нет текста для перекодирования !");
    EXPECT_FALSE(window.decoding.created);

    const std::u16string text(32767, u'\u040F');
    window.document.SetText(text);
    RecodeFromDos();
    EXPECT_EQ(test.LastBox(), u"Произошла ошибка № 6\r\nOverflow");
    EXPECT_EQ(window.document.Text(), text);
    EXPECT_FALSE(window.decoding.created);
    EXPECT_FALSE(test.program.Recoding().RecodeUndoAvailable);
}

TEST_F(RecodingJobTest, StartsByTheStoredDirectionOnlyIfItIsANumberOfOne) {
    for (const auto* wrong : {u"", u"20", u"-1", u"01", u" 0", u"x"}) {
        test.Set(Setting::DefaultCode, wrong);
        window.document.SetText(kDosHello);
        test.program.Dispatch("TOOLBAR2:START");
        EXPECT_EQ(window.document.Text(), kDosHello);
    }
    test.Set(Setting::DefaultCode, u"0");
    test.program.Dispatch("TOOLBAR2:START");
    EXPECT_EQ(window.document.Text(), u"Привет");
}

TEST_F(RecodingJobTest, AChosenDirectionRunsAtOnceOnlyWhereThatIsAskedFor) {
    test.Set(Setting::DefaultCode, u"4");
    window.direction = 0;
    window.document.SetText(kDosHello);
    test.program.OnDirectionChange();
    EXPECT_EQ(window.document.Text(), kDosHello);

    test.Set(Setting::DecodeAtCodeChange, u"1");
    test.program.OnDirectionChange();
    EXPECT_EQ(window.document.Text(), u"Привет");
    EXPECT_EQ(test.settings.Text(Setting::DefaultCode), u"0");

    window.document.SetText(u"");
    window.direction = 5;
    test.program.OnDirectionChange();
    EXPECT_EQ(test.settings.Text(Setting::DefaultCode), u"0");
}

TEST_F(RecodingJobTest, ClosingDuringTheWalkStopsItFirst) {
    window.document.SetText(kDosHello);
    window.decoding.atStep = [&] {
        window.decoding.atStep = {};
        EXPECT_FALSE(test.program.OnClose());
    };
    RecodeFromDos();
    EXPECT_EQ(window.document.Text(), kDosHello);
    EXPECT_EQ(window.closeRequests, 0);
    EXPECT_FALSE(test.shell.ended);
    test.timers.Tick();
    EXPECT_EQ(window.closeRequests, 1);
}

} // namespace
} // namespace quillshift
