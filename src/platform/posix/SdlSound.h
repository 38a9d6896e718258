#pragma once

#include "platform/SoundOutput.h"

#include <memory>
#include <string>
#include <thread>

namespace quillshift {

/// Sound through SDL's audio part. A thread of its own loads, opens the device and plays, so `Play` only
/// leaves a note for it and never waits. The device is opened for the first sound, closed again two seconds
/// after the last one has ended, and after a failure not asked for again for half a minute. Only regular
/// files up to 16 MB are played.
class SdlSound : public SoundOutput {
public:
    SdlSound();
    /// Cuts what is playing.
    ~SdlSound() override;
    SdlSound(const SdlSound&) = delete;
    SdlSound& operator=(const SdlSound&) = delete;

    void Play(std::u16string_view path) override;
    void PlayFromMemory(std::string bytes) override;
    void WaitForEnd() override;

private:
    class Player;

    void StartThread();

    std::shared_ptr<Player> player_;
    std::thread thread_; // runs from the first sound on
};

} // namespace quillshift
