#include "support/TestProgram.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

/// A start with the switches of splash, welcome and getting started, and what has shown so far.
struct Start : TestProgram {
    explicit Start(const std::array<bool, 3>& on) {
        for (std::size_t i = 0; i < kSwitches.size(); ++i)
            settings.Switch(kSwitches[i], on[i]);
        settings.Set(Setting::FormUnload, u"1");
        TestProgram::Start();
    }
    // The one window that is up: a letter of S, W, B, the main window's M, or none.
    std::string Up() {
        std::string up;
        for (const auto& [kind, letter] : kLetters)
            if (dialogs->IsLoaded(kind))
                up += letter;
        return up + (window.shown ? "M" : "");
    }
    StartChain& Chain() { return program.Parts().start; }

    static constexpr std::array kSwitches{Setting::Splash, Setting::Welcome, Setting::WorkBegin};
    static constexpr std::pair<DialogKind, char> kLetters[] = {
        {DialogKind::Splash, 'S'}, {DialogKind::Welcome, 'W'}, {DialogKind::WorkBegin, 'B'}};
};

// Every combination of the switches, gone through by the buttons: one window at a time, in order.
TEST(StartChainTest, ShowsWhatIsSwitchedOnOneAfterAnother) {
    for (const char* const steps : {"M", "BM", "WM", "WBM", "SM", "SBM", "SWM", "SWBM"}) {
        const std::string expected = steps;
        const auto has = [&](char step) { return expected.find(step) != std::string::npos; };
        Start test({has('S'), has('W'), has('B')});
        std::string seen = test.Up();
        for (const auto& [kind, letter] : Start::kLetters) {
            if (!test.dialogs->IsLoaded(kind))
                continue;
            test.clipboard.Hold(u"meanwhile another program copies");
            if (kind != DialogKind::Splash)
                test.Chain().GoOn(kind, false);
            test.timers.Tick();
            seen += test.Up();
        }
        EXPECT_EQ(seen, expected);
        EXPECT_FALSE(test.shell.ended);
        EXPECT_EQ(test.settings.Is(Setting::Welcome), has('W')) << "nobody asked for its end";
    }
}

} // namespace
} // namespace quillshift
