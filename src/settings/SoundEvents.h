#pragma once

#include "platform/SoundOutput.h"
#include "settings/Settings.h"

#include <array>
#include <string_view>

namespace quillshift {

/// One event a sound can be played on: its switch, its wave file, and the file it has at first.
struct SoundEvent {
    Setting on;
    Setting path;
    std::u16string_view defaultFile;
};

namespace sound_event {
inline constexpr SoundEvent kButtonMouseMove{Setting::ButtonMouseMove, Setting::ButtonMouseMovePath,
                                             u"ButtonMove.wav"};
inline constexpr SoundEvent kButtonMouseClick{Setting::ButtonMouseClick, Setting::ButtonMouseClickPath,
                                              u"ButtonClick.wav"};
inline constexpr SoundEvent kFormLoad{Setting::FormLoad, Setting::FormLoadPath, u"FormLoad.wav"};
inline constexpr SoundEvent kFormUnload{Setting::FormUnload, Setting::FormUnloadPath, u"FormUnload.wav"};
inline constexpr SoundEvent kKeyDown{Setting::KeyDown, Setting::KeyDownPath, u"KeyDown.wav"};
} // namespace sound_event

inline constexpr std::array kSoundEvents{sound_event::kButtonMouseMove, sound_event::kButtonMouseClick,
                                         sound_event::kFormLoad, sound_event::kFormUnload,
                                         sound_event::kKeyDown};

/// Plays the sounds of the user interface, as far as the user has switched them on.
class SoundEvents {
public:
    SoundEvents(Settings& settings, SoundOutput& output) : settings_(settings), output_(output) {}

    /// Plays the event's file if its switch is on; otherwise the path is not read.
    void PlaySoundEvent(const SoundEvent& event) {
        // This runs on every mouse move over a button: a switch that is off costs one read.
        if (settings_.Is(event.on))
            output_.Play(settings_.Text(event.path));
    }

private:
    Settings& settings_;
    SoundOutput& output_;
};

} // namespace quillshift
