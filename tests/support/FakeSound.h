#pragma once

#include "platform/SoundOutput.h"

#include <string>
#include <utility>
#include <vector>

namespace quillshift {

/// Plays nothing and remembers the paths it was to play.
class FakeSound : public SoundOutput {
public:
    void Play(std::u16string_view path) override { played.emplace_back(path); }
    void PlayFromMemory(std::string bytes) override { playedFromMemory.push_back(std::move(bytes)); }
    void WaitForEnd() override { ended = played; }

    std::vector<std::u16string> played;
    std::vector<std::string> playedFromMemory;
    std::vector<std::u16string> ended; ///< those that somebody has waited for
};

} // namespace quillshift
