#include "settings/SoundEvents.h"
#include "support/FakeSettings.h"
#include "support/FakeSound.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillshift {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SoundEvents, OnlyTheExactSwitchPlaysAndOnlyThenThePathIsRead) {
    const std::pair<std::optional<std::u16string>, bool> cases[] = {
        {u"1", true}, {u"0", false}, {u"2", false}, {u"", false}, {u"11", false}, {std::nullopt, false}};
    for (const auto& [value, on] : cases) {
        FakeSettings backend;
        SettingsStore settings(backend);
        FakeSound sound;
        settings.WriteString(Hive::CurrentUser, settings_path::kSounds, "FormLoadPath", u"/звук.wav");
        if (value)
            settings.WriteString(Hive::CurrentUser, settings_path::kSounds, "FormLoad", *value);
        SoundEvents(settings, sound).Play(sound_event::kFormLoad);
        if (on) {
            EXPECT_THAT(sound.played, ElementsAre(u"/звук.wav"));
        } else {
            EXPECT_THAT(sound.played, IsEmpty());
            EXPECT_THAT(backend.namesRead, ElementsAre("FormLoad"));
        }
    }
}

} // namespace
} // namespace quillshift
