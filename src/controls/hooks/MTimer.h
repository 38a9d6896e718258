#pragma once

#include "controls/hooks/HookError.h"
#include "platform/Timer.h"

#include <memory>
#include <string>
#include <vector>

namespace quillshift {

class CTimer;

/// The table of the running `CTimer`s. An identifier is the number of a slot, from 1.
class MTimer {
public:
    static constexpr std::size_t kSlots = 100;

    /// `executable`: name of the program, for the source of errors.
    MTimer(Timers& timers, std::u16string executable);
    MTimer(const MTimer&) = delete;
    MTimer& operator=(const MTimer&) = delete;

    /// Starts a timer for `client` and answers its identifier. Throws Error 13651 when all slots are taken
    /// and 13652 when the system gives no timer, both above the object-error base.
    int Create(CTimer& client, int interval);
    /// Stops a timer and frees its slot.
    void Delete(int identifier);

private:
    // The system's timer stays with the slot: it may be stopped from within its own tick.
    struct Slot {
        CTimer* client = nullptr;
        std::unique_ptr<Timer> timer;
    };
    int FreeSlot() const;
    void Tick(int identifier);
    Slot& At(int identifier) { return slots_[static_cast<std::size_t>(identifier - 1)]; }

    Timers& timers_;
    std::u16string executable_;
    std::vector<Slot> slots_; ///< up to the highest one yet used; never shrinks
};

} // namespace quillshift
