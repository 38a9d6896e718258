#include "settings/SoundEvents.h"

namespace quillshift {

void SoundEvents::PlaySoundEvent(std::string_view switchName, std::string_view pathName) {
    const auto read = [&](std::string_view name) {
        return settings_.ReadString(Hive::CurrentUser, settings_path::kSounds, name);
    };
    // This runs on every mouse move over a button: a switch that is off costs one read.
    if (read(switchName) != u"1")
        return;
    output_.Play(read(pathName).value_or(std::u16string()));
}

} // namespace quillshift
