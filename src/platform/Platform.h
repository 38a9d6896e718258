#pragma once

#include "platform/Background.h"
#include "platform/Clipboard.h"
#include "platform/Clock.h"
#include "platform/FileDialog.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/Printers.h"
#include "platform/Progress.h"
#include "platform/RecoveryStore.h"
#include "platform/Screen.h"
#include "platform/SettingsBackend.h"
#include "platform/Shell.h"
#include "platform/SoundOutput.h"
#include "platform/Timer.h"

namespace quillshift {

/// The services of the machine that a program stands on. The owner keeps them alive for as long as the
/// program.
struct Platform {
    SettingsBackend& settings;
    SoundOutput& sound;
    FileSystem& files;
    FileDialog& fileDialog;
    MessageBox& messageBox;
    Clipboard& clipboard;
    Timers& timers;
    Screen& screen;
    Shell& shell;
    Background& background;
    Progress& progress;
    RecoveryStore& recovery;
    const Clock& clock;
    Printers& printers;
};

} // namespace quillshift
