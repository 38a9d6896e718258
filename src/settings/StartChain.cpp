#include "settings/StartChain.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace quillshift {
namespace {

constexpr std::chrono::milliseconds kSplashTime(6000);

struct Step {
    DialogKind dialog;
    Setting isShown;
};
constexpr std::array kSteps{Step{DialogKind::Welcome, Setting::Welcome},
                            Step{DialogKind::WorkBegin, Setting::WorkBegin}};

std::size_t StepOf(DialogKind dialog) {
    const auto* const step = std::ranges::find(kSteps, dialog, &Step::dialog);
    return static_cast<std::size_t>(step - kSteps.begin());
}

} // namespace

StartChain::StartChain(const Services& services)
    : services_(services),
      timerSplash_(services.timers.Make([this] { EndSplash(); })),
      timerNext_(services.timers.Make([this] { next_(); })) {}

void StartChain::Begin() {
    if (!services_.settings.Is(Setting::Splash)) {
        ShowFirstWindow();
        return;
    }
    services_.dialogs.Show(DialogKind::Splash);
    timerSplash_->StartOnce(kSplashTime);
}

void StartChain::EndSplash() {
    services_.dialogs.Close(DialogKind::Splash);
    ShowFirstWindow();
}

void StartChain::ShowFrom(std::size_t step) {
    while (step < kSteps.size() && !services_.settings.Is(kSteps[step].isShown))
        ++step;
    if (step < kSteps.size())
        services_.dialogs.Show(kSteps[step].dialog);
    else
        ShowMainWindow();
}

void StartChain::GoOn(DialogKind from, bool notAgain) {
    const std::size_t step = StepOf(from);
    if (notAgain)
        services_.settings.Switch(kSteps[step].isShown, false);
    services_.dialogs.Close(from);
    next_ = [this, step] { ShowFrom(step + 1); };
    timerNext_->StartOnce();
}

void StartChain::Leave(DialogKind from) {
    services_.dialogs.Close(from);
    next_ = [this] {
        services_.sound.WaitForEnd(); // the end would cut that of the dialog
        services_.shell.EndProcess();
    };
    timerNext_->StartOnce();
}

} // namespace quillshift
