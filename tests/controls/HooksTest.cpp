#include "controls/hooks/CTimer.h"
#include "controls/hooks/GSubclass.h"
#include "controls/hooks/MSubclass.h"
#include "platform/posix/clsLibrary.h"
#include "support/FailureOf.h"
#include "support/FakePlatform.h"
#include "support/FakeWindowMessages.h"

#include <deque>
#include <gmock/gmock.h>

namespace quillshift {
namespace {

using testing::ElementsAre;

constexpr WindowId kWindow = 31;
constexpr int kMessage = 43;

constexpr int Based(int number) {
    return number | -2147221504;
}

struct MSubclassTest : testing::Test {
    MSubclassTest() { windows.Open(kWindow); }

    std::vector<std::string> Sent(int message) {
        windows.log.clear();
        answer = windows.Send(kWindow, message);
        return windows.log;
    }

    FakeWindowMessages windows;
    std::vector<std::string> trace;
    MSubclass hooks{windows, u"program", [this](std::string_view line) { trace.emplace_back(line); }};
    FakeSubclass first{"first", windows.log, 1};
    FakeSubclass second{"second", windows.log, 2};
    MessageValue answer = 0;
};

TEST_F(MSubclassTest, TheFirstClientDecidesWhenTheOldHandlerRuns) {
    using Calls = std::vector<std::string>;
    using enum MessageResponse;
    const std::tuple<MessageResponse, Calls, Calls, MessageValue> cases[] = {
        // who is called alone, and together
        {Consume, {"first"}, {"second", "first"}, 1},
        {After, {"first", "old"}, {"second", "first", "old"}, FakeWindowMessages::kOldAnswer},
        {Before, {"old", "first"}, {"second", "old", "first"}, 1}};
    second.response = Consume; // is never asked while there is a first
    for (const auto& [response, alone, together, answered] : cases) {
        first.response = response;
        hooks.AttachMessage(first, kWindow, kMessage);
        hooks.AttachMessage(first, kWindow, 5);
        hooks.DetachMessage(first, kWindow, 5);
        hooks.DetachMessage(second, kWindow, kMessage); // which is on none
        EXPECT_EQ(Sent(kMessage), alone);
        EXPECT_EQ(answer, answered);
        hooks.AttachMessage(second, kWindow, kMessage);
        EXPECT_EQ(Sent(kMessage), together);
        EXPECT_EQ(answer, answered);
        EXPECT_EQ(hooks.CurrentMessage(), kMessage);
        EXPECT_THAT(Sent(kMessage + 1), ElementsAre("old")) << "a message that nobody is on";
        hooks.DetachMessage(first, kWindow, kMessage);
        EXPECT_THAT(Sent(kMessage), ElementsAre("second")) << "which is the first by now";
        hooks.DetachMessage(second, kWindow, kMessage);
        EXPECT_TRUE(windows.PropertiesOf(kWindow).empty());
    }
}

TEST_F(MSubclassTest, RefusesWhatItCantHook) {
    constexpr WindowId kForeign = 77;
    windows.Open(kForeign);
    windows.foreign = {kForeign};
    hooks.AttachMessage(first, kWindow, kMessage);
    for (const auto& [window, number, text] :
         {std::tuple(WindowId{99}, 13083, u"Invalid window"),
          {kForeign, 13084, u"Can't modify external window"},
          {kWindow, 13082, u"Message already handled by another class"}}) {
        const Error error = FailureOf([&, to = window] { hooks.AttachMessage(first, to, kMessage); });
        EXPECT_EQ(error.Number(), Based(number));
        EXPECT_EQ(error.Source(), u"program.WindowProc");
        EXPECT_EQ(error.Description(), text);
    }
    GSubclass twin(hooks);
    EXPECT_EQ(FailureOf([&] { twin.AttachMessage(first, kWindow, kMessage); }).Number(), Based(13082))
        << "one registry for both";
    EXPECT_FALSE(twin.IsWindowLocal(kForeign));
}

TEST_F(MSubclassTest, LetsGoOfAWindowThatIsDestroyed) {
    hooks.AttachMessage(first, kWindow, kMessage);
    EXPECT_THAT(Sent(message::kDestroy), ElementsAre("old"));
    EXPECT_FALSE(windows.IsHooked(kWindow));
    EXPECT_EQ(windows.Property(kWindow, "31"), 0);
    EXPECT_EQ(windows.Property(kWindow, "31C"), 0);
    hooks.DetachMessage(first, kWindow, kMessage);
    EXPECT_TRUE(windows.PropertiesOf(kWindow).empty());
}

TEST(CTimerTest, RaisesItsEventUntilItIsSwitchedOff) {
    FakeTimers timers;
    MTimer table{timers, u"program"};
    CTimer timer(table);
    int ticks = 0;
    timer.ThatTime = [&] {
        if (++ticks == 3)
            timer.SetInterval(0);
    };
    timer.SetInterval(50);
    timers.Tick();
    timer.SetInterval(20);
    for (int i = 0; i < 5; ++i)
        timers.Tick();
    EXPECT_EQ(ticks, 3);
    EXPECT_EQ(timer.Interval(), 0);
}

TEST(clsLibraryTest, HoldsOneLibraryOrTellsWhyNot) {
    clsLibrary library(u"program");
    library.SetFilename(u"libm.so.6");
    EXPECT_EQ(library.Filename(), u"libm.so.6");
    EXPECT_TRUE(library.hModule());

    const std::u16string missing = u"/nowhere/" + std::u16string(300, u'ж');
    const Error error = FailureOf([&] { library.SetFilename(missing); });
    EXPECT_EQ(error.Number(), -2147221504 + 1049);
    EXPECT_EQ(error.Source(), u"program.cLibrary");
    EXPECT_EQ(error.Description().size(), 256U);
    EXPECT_TRUE(error.Description().starts_with(u"/nowhere/ж"));
    EXPECT_TRUE(library.Filename().empty());
    EXPECT_FALSE(library.hModule());
}

} // namespace
} // namespace quillshift
