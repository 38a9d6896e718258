#include "platform/posix/SdlLibrary.h"

#include <dlfcn.h>
#include <optional>

namespace quillshift {
namespace {

template <typename Function>
bool Find(void* library, const char* name, Function& function) {
    // The system's way from an address to a function.
    function = reinterpret_cast<Function>(dlsym(library, name)); // NOLINT(*-reinterpret-cast)
    return function != nullptr;
}

std::optional<SdlLibrary> Load() {
    void* const library = dlopen("libSDL2-2.0.so.0", RTLD_NOW | RTLD_LOCAL);
    SdlLibrary sdl{};
    const bool found =
        library != nullptr && Find(library, "SDL_InitSubSystem", sdl.InitSubSystem) &&
        Find(library, "SDL_QuitSubSystem", sdl.QuitSubSystem) && Find(library, "SDL_SetHint", sdl.SetHint) &&
        Find(library, "SDL_TLSCleanup", sdl.TLSCleanup) &&
        Find(library, "SDL_RWFromConstMem", sdl.RWFromConstMem) &&
        Find(library, "SDL_LoadWAV_RW", sdl.LoadWAV_RW) && Find(library, "SDL_FreeWAV", sdl.FreeWAV) &&
        Find(library, "SDL_OpenAudioDevice", sdl.OpenAudioDevice) &&
        Find(library, "SDL_CloseAudioDevice", sdl.CloseAudioDevice) &&
        Find(library, "SDL_GetAudioDeviceStatus", sdl.GetAudioDeviceStatus) &&
        Find(library, "SDL_PauseAudioDevice", sdl.PauseAudioDevice) &&
        Find(library, "SDL_QueueAudio", sdl.QueueAudio) &&
        Find(library, "SDL_ClearQueuedAudio", sdl.ClearQueuedAudio);
    return found ? std::optional(sdl) : std::nullopt;
}

} // namespace

const SdlLibrary* LoadedSdl() {
    static const std::optional<SdlLibrary> sdl = Load();
    return sdl ? &*sdl : nullptr;
}

} // namespace quillshift
