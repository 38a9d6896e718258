#pragma once

#include <string>
#include <string_view>

namespace quillshift {

class SoundOutput {
public:
    virtual ~SoundOutput() = default;

    /// Starts playing a wave file once and returns at once; what is playing now stops. Stays silent when the
    /// file can't be played or the machine has no sound.
    virtual void Play(std::u16string_view path) = 0;
    /// As `Play`, with the bytes of a wave file.
    virtual void PlayFromMemory(std::string bytes) = 0;
    /// Waits until what is playing has ended, a second at most.
    virtual void WaitForEnd() = 0;
};

} // namespace quillshift
