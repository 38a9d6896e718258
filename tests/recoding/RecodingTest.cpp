#include "base/Utf8.h"
#include "base/Windows1251.h"
#include "harness/Iconv.h"
#include "recoding/ClipboardWatcher.h"
#include "recoding/modDecode.h"
#include "support/FailureOf.h"
#include "support/FakePlatform.h"
#include "support/FakeSurface.h"
#include "support/TestProgram.h"

#include <gmock/gmock.h>

namespace quillshift {
namespace {

constexpr const char* kPublishedNames[kCharsets] = {"CP866", "CP1251", "KOI8-R", "ISO-8859-5",
                                                    "MAC-CYRILLIC"};

bool IsLetter(char16_t character) {
    return character >= u'А' && character <= u'я';
}

std::uint8_t ByteOfLetter(int set, char16_t letter) {
    for (int byte = 0x80; byte < 0x100; ++byte)
        if (Published(kPublishedNames[set], static_cast<std::uint8_t>(byte)) == letter)
            return static_cast<std::uint8_t>(byte);
    ADD_FAILURE() << "no byte for a letter in " << kPublishedNames[set];
    return 0;
}

TEST(RecodeText, MovesTheLettersOfEveryDirectionAndNothingElse) {
    for (int number = 0; number < kDirections; ++number) {
        const Direction direction = DirectionOf(number);
        for (int i = 0; i < 256; ++i) {
            const auto byte = static_cast<std::uint8_t>(i);
            const char16_t letter = Published(kPublishedNames[direction.source - 1], byte);
            const std::uint8_t expected =
                IsLetter(letter) ? ByteOfLetter(direction.target - 1, letter) : byte;
            const std::u16string recoded = RecodeText(std::u16string(1, windows1251::FromByte(byte)),
                                                      direction.source, direction.target);
            EXPECT_EQ(windows1251::Encode(recoded), std::string(1, static_cast<char>(expected)))
                << "direction " << number << ", byte " << i;
        }
    }
}

TEST(RecodeText, LeavesCharactersOutsideThePageAndUnknownSetsAlone) {
    const std::u16string text = u"\u4E2D\U0001F600Привет\r\n";
    EXPECT_EQ(RecodeText(text, 1, 1), text);
    EXPECT_EQ(RecodeText(text, 0, 2), text);
    EXPECT_EQ(RecodeText(text, 2, 6), text);
    EXPECT_EQ(RecodeText(text, 2, 3).substr(0, 3), text.substr(0, 3));
    EXPECT_EQ(TranslateText(u"aba", u"xyz", u"aba"), u"xyx"); // the first place of a repeated letter counts
}

TEST(RecodeText, TakesAsMuchAsItsLimitAndOverflowsBeyond) {
    EXPECT_EQ(RecodeText(std::u16string(32766, u'А'), 2, 5), std::u16string(32766, u'\u0402'));
    const Error error = FailureOf([] { RecodeText(std::u16string(32767, u'А'), 2, 5); });
    EXPECT_EQ(error.Number(), 6);
    EXPECT_NE(error.Description().find(u"32766"), std::u16string::npos) << "it tells the limit";
}

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
    using Case = std::pair<std::size_t, std::vector<float>>;
    for (const auto& [length, expected] :
         {Case{5, {0}}, Case{6, {0, 166.66667F}}, Case{15, {0, 66.666667F, 133.33333F}},
          Case{25, {0, 40, 80}}, Case{20, {0, 50, 100}}}) {
        window.document.SetText(std::u16string(length, u'x'));
        test.dialogs->decoding.reset();
        RecodeFromDos();
        const std::vector<float>& progress = test.dialogs->decoding->progress;
        EXPECT_THAT(progress, testing::Pointwise(testing::FloatEq(), expected)) << length;
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

struct ClipboardWatcherTest : testing::Test, FakePlatform {
    ClipboardWatcherTest() {
        clipboard.OnChange = [this] { watcher.OnClipboardChange(); };
        settings.Set(Setting::DecodeClipboard, u"1");
    }
    /// Somebody copies a text, and the program has a moment.
    void Copy(std::u16string_view text) {
        clipboard.SetText(text);
        timers.Tick();
    }

    Settings settings{store};
    RecodingState recoding;
    FakeSurface document;
    int takenIn = 0;
    bool inUse = false;
    ClipboardWatcher watcher{{clipboard, settings, recoding, document, FakePlatform::timers, [] {}, [] {},
                              [this] { ++takenIn; }, inUse}};
};

TEST_F(ClipboardWatcherTest, TheSameTextIsTakenInOnceAlsoIfTheStoreCantHoldIt) {
    watcher.Start();
    for (int i = 0; i < 2; ++i)
        Copy({u"\u4E2D and \0 more", 12});
    EXPECT_EQ(takenIn, 1);
}

TEST_F(ClipboardWatcherTest, TakesInWhatHasArrivedThoughItsOwnerHasChanged) {
    settings.Set(Setting::Accumulate, u"1");
    watcher.Start();
    timers.Tick();
    for (const char16_t* copied : {u"Џ", u"а"})
        clipboard.SetText(copied);
    clipboard.Hold(std::nullopt);
    timers.Tick();
    EXPECT_EQ(document.Text(), u"П\r\nр");
}

TEST_F(ClipboardWatcherTest, LeavesTheDocumentAloneWhileSomebodyCountsOnIt) {
    watcher.Start();
    clipboard.isWaiting = true;
    Copy(u"Џ");
    EXPECT_EQ(document.Text(), u"");
    clipboard.isWaiting = false;
    timers.Tick();
    EXPECT_EQ(document.Text(), u"П");
}

TEST_F(ClipboardWatcherTest, TakesInARepairedTextOfAnyLengthAsItIs) {
    watcher.Start();
    const std::u16string text(32767, u'П');
    clipboard.SetRepaired(text);
    timers.Tick();
    EXPECT_TRUE(document.Text() == text);
    EXPECT_FALSE(recoding.RecodeUndoAvailable);
}

// Of texts that are too long only a mark is remembered, which tells each from others.
TEST_F(ClipboardWatcherTest, KeepsTheDocumentWhereATextIsTooLong) {
    const auto memory = [&] { return settings.Text(Setting::ClipboardText); };
    watcher.Start();
    std::u16string last;
    using Case = std::tuple<const char16_t*, std::size_t, bool, bool>;
    for (const auto& [decodes, length, whole, isTakenIn] :
         {Case{u"1", 32766U, true, true}, Case{u"1", 32767U, true, false}, Case{u"0", 32767U, true, true},
          Case{u"1", 100U, false, false}, Case{u"0", 100U, false, false}}) {
        settings.Set(Setting::DecodeClipboard, decodes);
        for (const char16_t letter : {u'x', u'y'}) {
            SCOPED_TRACE(std::to_string(length) + " of " + std::to_string(letter));
            document.SetText(u"kept");
            recoding = {};
            clipboard.Hold(std::u16string(length, letter), whole);
            timers.Tick();
            EXPECT_EQ(document.Text() != u"kept", isTakenIn);
            EXPECT_EQ(recoding.RecodeUndoAvailable, isTakenIn && decodes[0] == u'1');
            EXPECT_EQ(memory().size() < 80, !isTakenIn);
            EXPECT_NE(std::exchange(last, memory()), memory());
        }
    }
    settings.Set(Setting::DecodeClipboard, u"1");
    watcher.Overlook([&] { clipboard.Hold(std::u16string(32767, u'z')); });
    EXPECT_LT(memory().size(), 80U);
}

} // namespace
} // namespace quillshift
