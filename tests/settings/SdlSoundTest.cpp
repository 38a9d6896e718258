#include "platform/posix/SdlSound.h"
#include "harness/TemporaryFolder.h"
#include "support/Pixels.h"

#include <chrono>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <thread>

namespace quillshift {
namespace {

namespace fs = std::filesystem;

// A wave file of one value all through, so that a listener knows whose sample it hears.
void PutWave(const fs::path& file, std::int16_t sample, int seconds) {
    constexpr unsigned kRate = 44100;
    const unsigned size = kRate * 2 * static_cast<unsigned>(seconds);
    std::string bytes = "RIFF" + Little(36 + size, 4) + "WAVEfmt " + Little(16, 4) + // PCM, one channel
                        Little(1, 2) + Little(1, 2) + Little(kRate, 4) + Little(kRate * 2, 4) + Little(2, 2) +
                        Little(16, 2) + "data" + Little(size, 4);
    for (unsigned i = 0; i < size; i += 2)
        bytes += Little(static_cast<std::uint16_t>(sample), 2);
    Put(file, bytes);
}

class SdlSoundTest : public testing::Test {
protected:
    static constexpr std::int16_t kLow = -4000;
    static constexpr std::int16_t kHigh = 4000;

    void SetUp() override {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", heard_.c_str(), 1);
        setenv("SDL_DISKAUDIODELAY", "5", 1);
        PutWave(long_, kHigh, 60);
        PutWave(short_, kLow, 1);
    }

    std::vector<std::int16_t> Heard() const {
        const std::string bytes = Contents(heard_);
        std::vector<std::int16_t> samples(bytes.size() / 2);
        std::copy_n(bytes.data(), samples.size() * 2, reinterpret_cast<char*>(samples.data()));
        return samples;
    }
    bool Hears(std::int16_t sample) const {
        const auto samples = Heard();
        return std::find(samples.begin(), samples.end(), sample) != samples.end();
    }
    bool HearsSilenceAfter(std::int16_t sample) const { return Hears(sample) && Heard().back() == 0; }
    template <typename Condition>
    static bool Soon(Condition condition) {
        for (int i = 0; i < 1000 && !condition(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        return condition();
    }

    TemporaryFolder folder_;
    fs::path heard_ = folder_ / "heard.raw";
    fs::path long_ = folder_ / "длинный.wav";
    fs::path short_ = folder_ / "short.wav";
};

TEST_F(SdlSoundTest, ANewSoundCutsTheRunningOneAndEndsByItself) {
    SdlSound sound;
    sound.Play(long_.u16string());
    ASSERT_TRUE(Soon([&] { return Hears(kHigh); }));
    sound.Play(short_.u16string());
    ASSERT_TRUE(Soon([&] { return HearsSilenceAfter(kLow); }));
    const auto samples = Heard();
    const auto secondStart = std::find(samples.begin(), samples.end(), kLow);
    EXPECT_EQ(std::find(secondStart, samples.end(), kHigh), samples.end()) << "the first one went on";
    EXPECT_EQ(std::count(samples.begin(), samples.end(), kLow), 44100) << "the second one was not whole";
}

TEST_F(SdlSoundTest, WhatCannotBePlayedIsSilentAndStillCutsTheRunningSound) {
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    Put(folder_ / "text.wav", "not a sound");
    SdlSound sound;
    for (const fs::path& unplayable : {fs::path(), folder_ / "missing.wav", folder_ / "pipe",
                                       folder_ / "text.wav", folder_.Path(), fs::path("/dev/zero")}) {
        sound.Play(long_.u16string());
        ASSERT_TRUE(Soon([&] { return Hears(kHigh) && Heard().back() == kHigh; })) << unplayable;
        sound.Play(unplayable.u16string());
        ASSERT_TRUE(Soon([&] { return HearsSilenceAfter(kHigh); })) << unplayable;
    }
}

TEST_F(SdlSoundTest, PlaysFromMemoryAndThenTheSameFileAgain) {
    SdlSound sound;
    sound.Play(long_.u16string());
    ASSERT_TRUE(Soon([&] { return Hears(kHigh); }));
    sound.PlayFromMemory(Contents(short_));
    ASSERT_TRUE(Soon([&] { return HearsSilenceAfter(kLow); }));
    sound.Play(long_.u16string());
    EXPECT_TRUE(Soon([&] { return Heard().back() == kHigh; }));
}

TEST_F(SdlSoundTest, WhoWaitsHearsTheWholeSoundButNotOneWithoutAnEnd) {
    SdlSound sound;
    sound.Play(short_.u16string());
    sound.WaitForEnd();
    const auto samples = Heard();
    EXPECT_EQ(std::count(samples.begin(), samples.end(), kLow), 44100);
    sound.Play(long_.u16string());
    sound.WaitForEnd();
    EXPECT_TRUE(Hears(kHigh) && Heard().back() == kHigh) << "it waited for the end of a minute";
}

} // namespace
} // namespace quillshift
