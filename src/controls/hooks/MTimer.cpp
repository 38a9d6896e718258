#include "controls/hooks/MTimer.h"

#include "controls/hooks/CTimer.h"

#include <algorithm>
#include <utility>

namespace quillshift {

MTimer::MTimer(Timers& timers, std::u16string executable)
    : timers_(timers), executable_(std::move(executable)) {}

int MTimer::Create(CTimer& client, int interval) {
    const int identifier = FreeSlot();
    if (identifier > static_cast<int>(kSlots))
        RaiseHookError(HookFailure::TooManyTimers, executable_);
    if (identifier > static_cast<int>(slots_.size()))
        slots_.emplace_back();
    Slot& slot = At(identifier);
    if (!slot.timer)
        slot.timer = timers_.Make([this, identifier] { Tick(identifier); });
    if (!slot.timer)
        RaiseHookError(HookFailure::NoSystemTimer, executable_);
    slot.client = &client;
    slot.timer->StartInterval(std::chrono::milliseconds(interval));
    return identifier;
}

void MTimer::Delete(int identifier) {
    Slot& slot = At(identifier);
    slot.timer->Stop();
    slot.client = nullptr;
}

int MTimer::FreeSlot() const {
    const auto free =
        std::find_if(slots_.begin(), slots_.end(), [](const Slot& slot) { return !slot.client; });
    return static_cast<int>(free - slots_.begin()) + 1;
}

void MTimer::Tick(int identifier) {
    if (CTimer* const client = At(identifier).client)
        client->PulseTimer();
}

} // namespace quillshift
