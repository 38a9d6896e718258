#pragma once

#include "platform/SoundOutput.h"
#include "settings/SettingsStore.h"

#include <string_view>

namespace quillshift {

/// One event a sound can be played on: the names of its switch and of the path of its wave file.
struct SoundEvent {
    std::string_view switchName;
    std::string_view pathName;
    std::u16string_view defaultFile;
};

namespace sound_event {
inline constexpr SoundEvent kButtonMouseMove{"ButtonMouseMove", "ButtonMouseMovePath", u"ButtonMove.wav"};
inline constexpr SoundEvent kButtonMouseClick{"ButtonMouseClick", "ButtonMouseClickPath", u"ButtonClick.wav"};
inline constexpr SoundEvent kFormLoad{"FormLoad", "FormLoadPath", u"FormLoad.wav"};
inline constexpr SoundEvent kFormUnload{"FormUnload", "FormUnloadPath", u"FormUnload.wav"};
inline constexpr SoundEvent kKeyDown{"KeyDown", "KeyDownPath", u"KeyDown.wav"};
} // namespace sound_event

/// Plays the sounds of the user interface, as far as the user has switched them on.
class SoundEvents {
public:
    SoundEvents(SettingsStore& settings, SoundOutput& output) : settings_(settings), output_(output) {}

    /// Plays the file stored under `pathName` if the switch reads exactly "1"; otherwise the path is not
    /// read.
    void PlaySoundEvent(std::string_view switchName, std::string_view pathName);
    void Play(const SoundEvent& event) { PlaySoundEvent(event.switchName, event.pathName); }

private:
    SettingsStore& settings_;
    SoundOutput& output_;
};

} // namespace quillshift
