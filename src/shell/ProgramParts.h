#pragma once

#include "document/FullScreen.h"
#include "document/GoToLine.h"
#include "document/RecoveredTexts.h"
#include "document/Recovery.h"
#include "document/ReopenOffer.h"
#include "document/Search.h"
#include "document/UndoHistory.h"
#include "document/modDocument.h"
#include "document/modEdit.h"
#include "document/modPrint.h"
#include "platform/Dialogs.h"
#include "platform/Platform.h"
#include "recoding/ClipboardWatcher.h"
#include "recoding/RecodingJob.h"
#include "settings/ProgramLock.h"
#include "settings/Settings.h"
#include "settings/SoundEvents.h"
#include "settings/StartChain.h"
#include "shell/Layout.h"
#include "shell/MainBars.h"
#include "shell/MainView.h"
#include "shell/StoredToolBars.h"

#include <functional>
#include <memory>

namespace quillshift {

struct ProgramParts;
/// Makes the program's dialogs over its parts, of which it may keep references but use none yet.
using MakeDialogs = std::function<std::unique_ptr<Dialogs>(ProgramParts&)>;

/// What the program is made of, each part over those before it.
struct ProgramParts {
    ProgramParts(Platform& thePlatform, MainView& mainWindow, mCommandBars& toolkit,
                 const MakeDialogs& makeDialogs);
    /// Dialogs that are still loaded go first: they take their leave of the other parts.
    ~ProgramParts() { dialogs.reset(); }
    ProgramParts(const ProgramParts&) = delete;
    ProgramParts& operator=(const ProgramParts&) = delete;

    Platform& platform;
    MainView& window;
    Settings settings;
    SoundEvents sounds;
    RecodingState recoding;
    DocumentState document;
    UndoHistory history;
    MainBars bars;
    MainLayout layout;
    StoredToolBars toolBars;
    std::unique_ptr<Dialogs> dialogs;
    StartChain start;
    ProgramLock lock;
    FullScreen fullScreen;
    RecodingJob job;
    modEdit edit;
    Recovery recovery;
    Search search;
    GoToLine lines;
    modDocument documents;
    ReopenOffer reopenOffer;
    RecoveredTexts recovered;
    modPrint print;
    ClipboardWatcher watcher;

    /// Whether a question may come up that answers no command: nothing else has the user's attention.
    bool MayInterrupt() const {
        return window.IsFree() && !recoding.walking && !fullScreen.IsOn() && !lock.IsLocked();
    }
};

} // namespace quillshift
