#include "recoding/ClipboardWatcher.h"

#include "support/FakePlatform.h"
#include "support/FakeSurface.h"

#include <gtest/gtest.h>

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
        timers.Tick();
    }

    Settings settings{store};
    RecodingState recoding;
    FakeSurface document;
    int takenIn = 0;
    ClipboardWatcher watcher{
        {clipboard, settings, recoding, document, FakePlatform::timers, [this] { ++takenIn; }}};
};

TEST_F(ClipboardWatcherTest, TheSameTextIsTakenInOnceAlsoIfTheStoreCantHoldIt) {
    watcher.Start();
    for (int i = 0; i < 2; ++i)
        Copy({u"\u4E2D and \0 more", 12});
    EXPECT_EQ(takenIn, 1);
}

TEST_F(ClipboardWatcherTest, TakesInBothWhereATextReplacesAnotherMeanwhile) {
    settings.Set(Setting::Accumulate, u"1");
    watcher.Start();
    clipboard.SetText(u"Џ");
    timers.Tick();
    Copy(u"а");
    timers.Tick();
    EXPECT_EQ(document.Text(), u"П\r\nр");
}

TEST_F(ClipboardWatcherTest, KeepsTheDocumentWhereNobodyAnswers) {
    document.SetText(u"kept");
    watcher.Start();
    clipboard.text.reset();
    watcher.OnClipboardChange();
    timers.Tick();
    timers.Tick();
    EXPECT_EQ(document.Text(), u"kept");
}

TEST_F(ClipboardWatcherTest, KeepsTheDocumentWhereATextIsOverTheLimit) {
    document.SetText(u"kept");
    watcher.Start();
    Copy(std::u16string(40000, u'x'));
    EXPECT_EQ(document.Text(), u"kept");
    EXPECT_FALSE(recoding.RecodeUndoAvailable);
    EXPECT_EQ(takenIn, 0);
}

} // namespace
} // namespace quillshift
