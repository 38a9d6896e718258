#include "recoding/ClipboardWatcher.h"

#include "support/FakePlatform.h"
#include "support/FakeSurface.h"

#include <gtest/gtest.h>

#include <utility>

namespace quillshift {
namespace {

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
    struct Case {
        const char16_t* decodes;
        std::size_t length;
        bool whole, takenIn;
    };
    watcher.Start();
    std::u16string last;
    for (const auto& [decodes, length, whole, isTakenIn] : {Case{u"1", 32766, true, true},
                                                            {u"1", 32767, true, false},
                                                            {u"0", 32767, true, true},
                                                            {u"1", 100, false, false},
                                                            {u"0", 100, false, false}}) {
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
