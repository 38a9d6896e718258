#include "platform/posix/SdlSound.h"

#include "base/Utf8.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/SdlLibrary.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <utility>
#include <vector>

namespace quillshift {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto kKeepOpen = 2s;      // an open device wakes the program up many times a second
constexpr auto kAfterFailure = 30s; // opening can take long where there is no sound
constexpr auto kFarewell = 1s;      // neither a sound nor its server keeps the program from ending for longer
constexpr off_t kLargestFile = 16L << 20U;
constexpr Uint16 kBufferFrames = 1024;
constexpr auto kLatency = 150ms; // from the queue to the ear

// Which contents of which file: the same stamp means the same sound.
struct Stamp {
    std::string path;
    ino_t inode = 0;
    off_t size = 0;
    time_t seconds = 0;
    long nanoseconds = 0;

    bool operator==(const Stamp&) const = default;
};

std::optional<Stamp> StampOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > kLargestFile)
        return std::nullopt;
    return Stamp{path, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

struct Wave {
    SDL_AudioSpec spec{};
    std::vector<Uint8> samples;

    Clock::duration Length() const {
        const double bytesPerFrame = spec.channels * SDL_AUDIO_BITSIZE(spec.format) / 8.0;
        const std::chrono::duration<double> length(static_cast<double>(samples.size()) / bytesPerFrame /
                                                   spec.freq);
        return std::chrono::duration_cast<Clock::duration>(length);
    }
};

// A device that is asked for something odd fails as if there were no sound at all.
bool IsPlayable(const SDL_AudioSpec& spec) {
    return spec.freq >= 1000 && spec.freq <= 384000 &&
           (spec.channels == 1 || (spec.channels % 2 == 0 && spec.channels <= 8));
}

// A file, or the bytes of one.
struct Wish {
    std::string path; // empty for bytes
    std::string bytes;
};

std::optional<Wave> LoadWave(const SdlLibrary& sdl, const std::string& fileBytes) {
    Wave wave;
    Uint8* samples = nullptr;
    Uint32 size = 0;
    SDL_RWops* const bytes = sdl.RWFromConstMem(fileBytes.data(), static_cast<int>(fileBytes.size()));
    if (bytes == nullptr || sdl.LoadWAV_RW(bytes, 1, &wave.spec, &samples, &size) == nullptr)
        return std::nullopt;
    wave.samples.assign(samples, samples + size);
    sdl.FreeWAV(samples);
    if (!IsPlayable(wave.spec))
        return std::nullopt;
    wave.spec.samples = kBufferFrames;
    return wave;
}

} // namespace

// What the caller and the playing thread share. The notes are guarded by the mutex; the rest is the thread's.
class SdlSound::Player {
public:
    void Note(Wish wish) {
        {
            const std::lock_guard lock(mutex_);
            wish_ = std::move(wish);
        }
        wake_.notify_all();
    }

    void WaitForEnd() {
        const auto latest = Clock::now() + kFarewell;
        std::unique_lock lock(mutex_);
        wake_.wait_until(lock, latest, [this] { return !wish_ && !starting_; });
        const auto end = std::min(latest, end_);
        lock.unlock();
        std::this_thread::sleep_until(end);
    }

    // Whether the thread has ended within a decent time.
    bool Leave() {
        std::unique_lock lock(mutex_);
        leaving_ = true;
        wake_.notify_all();
        return wake_.wait_for(lock, kFarewell, [this] { return gone_; });
    }

    void Run() {
        std::unique_lock lock(mutex_);
        while (true) {
            const auto noted = [this] { return leaving_ || wish_; };
            if (device_ == 0)
                wake_.wait(lock, noted);
            else
                wake_.wait_until(lock, closeAt_, noted);
            if (leaving_)
                break;
            const std::optional<Wish> wish = std::exchange(wish_, std::nullopt);
            starting_ = true;
            lock.unlock();
            Clock::time_point end;
            if (wish)
                end = Start(*wish);
            else
                CloseDevice();
            lock.lock();
            starting_ = false;
            end_ = end;
            wake_.notify_all();
        }
        lock.unlock();
        CloseDevice();
        if (sdl_ != nullptr)
            sdl_->TLSCleanup(); // the library can't see the end of a thread it didn't start
        lock.lock();
        gone_ = true;
        wake_.notify_all();
    }

private:
    // Gives the time of its end.
    Clock::time_point Start(const Wish& wish) {
        if (device_ != 0)
            sdl_->ClearQueuedAudio(device_);
        Clock::time_point end = Clock::now();
        if (sdl_ == nullptr)
            sdl_ = LoadedSdl();
        if (sdl_ != nullptr && Load(wish) && OpenDevice()) {
            sdl_->QueueAudio(device_, wave_->samples.data(), static_cast<Uint32>(wave_->samples.size()));
            sdl_->PauseAudioDevice(device_, 0);
            end = Clock::now() + wave_->Length() + kLatency;
        }
        closeAt_ = end + kKeepOpen;
        return end;
    }

    // Pointer moves ask for the same file again and again.
    bool Load(const Wish& wish) {
        if (!wish.bytes.empty()) {
            stamp_.reset();
            wave_ = LoadWave(*sdl_, wish.bytes);
            return wave_.has_value();
        }
        const auto stamp = StampOf(wish.path);
        if (!stamp)
            return false;
        if (stamp != stamp_) {
            stamp_ = stamp;
            wave_ = LoadWave(*sdl_, PosixFiles().Read(FromUtf8(wish.path)).bytes);
        }
        return wave_.has_value();
    }

    bool OpenDevice() {
        const auto& wanted = wave_->spec;
        const bool fits = wanted.freq == opened_.freq && wanted.format == opened_.format &&
                          wanted.channels == opened_.channels;
        if (device_ != 0 && fits && sdl_->GetAudioDeviceStatus(device_) != SDL_AUDIO_STOPPED)
            return true;
        CloseDevice();
        if (Clock::now() < notBefore_)
            return false;
        // The system's signals are the program's, not the library's.
        sdl_->SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        sdl_->SetHint(SDL_HINT_APP_NAME, "Quillshift");
        if (sdl_->InitSubSystem(SDL_INIT_AUDIO) == 0) {
            device_ = sdl_->OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
            opened_ = wanted;
            if (device_ == 0)
                sdl_->QuitSubSystem(SDL_INIT_AUDIO);
        }
        if (device_ == 0)
            notBefore_ = Clock::now() + kAfterFailure;
        return device_ != 0;
    }

    void CloseDevice() {
        if (device_ == 0)
            return;
        sdl_->CloseAudioDevice(device_);
        sdl_->QuitSubSystem(SDL_INIT_AUDIO);
        device_ = 0;
    }

    std::mutex mutex_;
    std::condition_variable wake_;
    std::optional<Wish> wish_;
    bool starting_ = false;
    Clock::time_point end_; // of what was started last
    bool leaving_ = false;
    bool gone_ = false;

    const SdlLibrary* sdl_ = nullptr; // from the first sound on
    std::optional<Stamp> stamp_;
    std::optional<Wave> wave_; // of `stamp_`; nothing if that file can't be played
    SDL_AudioDeviceID device_ = 0;
    SDL_AudioSpec opened_{};
    Clock::time_point closeAt_;
    Clock::time_point notBefore_;
};

SdlSound::SdlSound() : player_(std::make_shared<Player>()) {}

SdlSound::~SdlSound() {
    if (!thread_.joinable())
        return;
    if (player_->Leave())
        thread_.join();
    else
        thread_.detach(); // it holds what it needs
}

void SdlSound::WaitForEnd() {
    if (thread_.joinable())
        player_->WaitForEnd();
}

void SdlSound::Play(std::u16string_view path) {
    player_->Note({.path = ToUtf8(path), .bytes = {}});
    StartThread();
}

void SdlSound::PlayFromMemory(std::string bytes) {
    player_->Note({.path = {}, .bytes = std::move(bytes)});
    StartThread();
}

void SdlSound::StartThread() {
    if (thread_.joinable())
        return;
    try {
        thread_ = std::thread([player = player_] { player->Run(); });
    } catch (const std::system_error&) {
        return; // no thread to be had: silent, and the next sound tries again
    }
}

} // namespace quillshift
