#include "base/Utf8.h"
#include "support/TestProgram.h"

#include <gmock/gmock.h>

namespace quillshift {
namespace {

const std::u16string kDosHello = u"\u040F\u0430\u0401\u045E\u0490\u0432"; // Привет, as DOS letters are read

struct RecodingJobTest : testing::Test {
    TestProgram test;
    FakeMainView& window = test.Start();
    RecodingState& state = test.program.Parts().recoding;

    void RecodeFromDos() { test.program.Run("MENU:DECODE:DOS:DW"); }
    bool HasDialog() { return test.dialogs->decoding != nullptr; }
};

TEST_F(RecodingJobTest, ChangesTheDocumentAndBringsItBackAsOftenAsAsked) {
    window.document.SetText(kDosHello);
    RecodeFromDos();
    EXPECT_EQ(window.document.Text(), u"Привет");
    const FakeDecoding& dialog = *test.dialogs->decoding;
    EXPECT_EQ(dialog.code, u"DOS 866 -> Windows 1251");
    EXPECT_EQ(dialog.path, u"Документ не сохранен");
    EXPECT_FALSE(dialog.visible);
    EXPECT_FALSE(dialog.waiting);

    window.document.SetText(u"edited");
    for (int i = 0; i < 2; ++i) {
        test.program.Run("MENU:DECODE:UNDO");
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
        test.dialogs->decoding.reset();
        RecodeFromDos();
        const std::vector<float>& progress = test.dialogs->decoding->progress;
        ASSERT_EQ(progress.size(), c.progress.size()) << c.length;
        for (std::size_t i = 0; i < c.progress.size(); ++i)
            EXPECT_FLOAT_EQ(progress[i], c.progress[i]) << c.length;
    }
}

// By the toolbar, and by the dialog, which is closed by it in the middle of its own step.
TEST_F(RecodingJobTest, AStopAtAnyStepLeavesEverythingAlone) {
    const std::u16string text(50, u'\u040F');
    const auto byToolbar = [&] { test.program.Run("TOOLBAR2:STOP"); };
    const auto byDialog = [&] {
        test.messageBox.answers = {BoxAnswer::Yes};
        test.program.Parts().job.AskToStop();
    };
    for (const auto& stop : {std::function<void()>(byToolbar), std::function<void()>(byDialog)})
        for (std::size_t step = 1; step <= 6; ++step) {
            window.document.SetText(text);
            window.pointer = Pointer::Wait;
            std::size_t taken = 0;
            test.dialogs->atStep = [&] {
                if (++taken == step)
                    stop();
            };
            RecodeFromDos();
            EXPECT_GE(taken, step);
            EXPECT_EQ(window.document.Text(), text) << step;
            EXPECT_EQ(state.SavedText, u"") << step;
            EXPECT_FALSE(state.RecodeUndoAvailable) << step;
            EXPECT_FALSE(HasDialog()) << step;
            EXPECT_EQ(window.pointer, Pointer::Default) << step;
        }
    test.dialogs->atStep = {};
    test.messageBox.answers = {BoxAnswer::No};
    RecodeFromDos();
    EXPECT_EQ(window.document.Text(), std::u16string(50, u'П')) << "an old stop must not reach the next job";
}

TEST_F(RecodingJobTest, TakesEditsOfTheWalkAlongAndEndsQuietlyWhenTheTextIsGone) {
    window.document.SetText(kDosHello);
    test.dialogs->atStep = [&] { window.document.SetText(kDosHello + kDosHello); };
    RecodeFromDos();
    EXPECT_EQ(window.document.Text(), u"ПриветПривет");

    test.dialogs->atStep = [&] { window.document.SetText(u""); };
    RecodeFromDos();
    EXPECT_EQ(window.document.Text(), u"");
    EXPECT_FALSE(HasDialog());
    EXPECT_TRUE(test.messageBox.shown.empty());
}

TEST_F(RecodingJobTest, IgnoresASecondStartWhileItWalks) {
    window.document.SetText(kDosHello);
    test.dialogs->atStep = [&] {
        test.dialogs->atStep = {};
        test.program.Run("MENU:DECODE:WIN:WK");
        test.Set(Setting::DefaultCode, u"7");
        test.program.Run("TOOLBAR2:START");
    };
    RecodeFromDos();
    EXPECT_EQ(window.document.Text(), u"Привет");
}

TEST_F(RecodingJobTest, ReportsAnEmptyDocumentAndOneOverTheLimit) {
    RecodeFromDos();
    EXPECT_EQ(test.LastBox(), u"Нет текста для перекодирования !");
    EXPECT_FALSE(HasDialog());

    const std::u16string text(32767, u'\u040F');
    window.document.SetText(text);
    RecodeFromDos();
    EXPECT_THAT(ToUtf8(test.LastBox()), testing::StartsWith("Произошла ошибка № 6\r\n"));
    EXPECT_THAT(ToUtf8(test.LastBox()), testing::HasSubstr("32766"));
    EXPECT_EQ(window.document.Text(), text);
    EXPECT_FALSE(HasDialog());
    EXPECT_FALSE(state.RecodeUndoAvailable);
}

TEST_F(RecodingJobTest, StartsByTheStoredDirectionOnlyIfItIsANumberOfOne) {
    for (const auto* wrong : {u"", u"20", u"-1", u"01", u" 0", u"x"}) {
        test.Set(Setting::DefaultCode, wrong);
        window.document.SetText(kDosHello);
        test.program.Run("TOOLBAR2:START");
        EXPECT_EQ(window.document.Text(), kDosHello);
    }
    test.Set(Setting::DefaultCode, u"0");
    test.program.Run("TOOLBAR2:START");
    EXPECT_EQ(window.document.Text(), u"Привет");
}

TEST_F(RecodingJobTest, AChosenDirectionRunsAtOnceOnlyWhereThatIsAskedFor) {
    test.Set(Setting::DefaultCode, u"4");
    window.direction = 0;
    window.document.SetText(kDosHello);
    window.OnDirectionChange();
    EXPECT_EQ(window.document.Text(), kDosHello);

    test.Set(Setting::DecodeAtCodeChange, u"1");
    window.OnDirectionChange();
    EXPECT_EQ(window.document.Text(), u"Привет");
    EXPECT_EQ(test.settings.Text(Setting::DefaultCode), u"0");

    window.document.SetText(u"");
    window.direction = 5;
    window.OnDirectionChange();
    EXPECT_EQ(test.settings.Text(Setting::DefaultCode), u"0");
}

TEST_F(RecodingJobTest, ClosingDuringTheWalkStopsItFirst) {
    window.document.SetText(kDosHello);
    test.dialogs->atStep = [&] {
        test.dialogs->atStep = {};
        EXPECT_FALSE(test.window.OnClose());
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
