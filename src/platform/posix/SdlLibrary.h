#pragma once

#include <SDL.h>

namespace quillshift {

/// The functions of the sound library that are used here. It is loaded at the first sound, not with the
/// program: it brings thirty other libraries along, and most runs play none.
struct SdlLibrary {
    decltype(&SDL_InitSubSystem) InitSubSystem;
    decltype(&SDL_QuitSubSystem) QuitSubSystem;
    decltype(&SDL_SetHint) SetHint;
    decltype(&SDL_TLSCleanup) TLSCleanup;
    decltype(&SDL_RWFromConstMem) RWFromConstMem;
    decltype(&SDL_LoadWAV_RW) LoadWAV_RW;
    decltype(&SDL_FreeWAV) FreeWAV;
    decltype(&SDL_OpenAudioDevice) OpenAudioDevice;
    decltype(&SDL_CloseAudioDevice) CloseAudioDevice;
    decltype(&SDL_GetAudioDeviceStatus) GetAudioDeviceStatus;
    decltype(&SDL_PauseAudioDevice) PauseAudioDevice;
    decltype(&SDL_QueueAudio) QueueAudio;
    decltype(&SDL_ClearQueuedAudio) ClearQueuedAudio;
};

/// Loads the library at the first call. Null on a machine without it.
const SdlLibrary* LoadedSdl();

} // namespace quillshift
