#include "shell/ProgramParts.h"

namespace quillshift {

ProgramParts::ProgramParts(Platform& thePlatform, MainView& mainWindow, mCommandBars& toolkit,
                           const MakeDialogs& makeDialogs)
    : platform(thePlatform),
      window(mainWindow),
      settings(platform.settings),
      sounds(settings, platform.sound),
      bars(toolkit, window, platform.files, platform.shell.ProgramFolder()),
      layout(window, bars, settings, platform.timers),
      dialogs(makeDialogs(*this)),
      start({settings, *dialogs, platform.timers, platform.sound, platform.shell}),
      fullScreen({window.RichTextBox(), *dialogs, [](const TextSurface&) {},
                  [](const TextSurface&, const TextEdit&) {}}),
      job({recoding, settings, platform.messageBox, window.RichTextBox(), window, *dialogs,
           platform.fileDialog.FileName, [this] { fullScreen.End(); }}),
      edit({window.RichTextBox(), platform.clipboard, platform.messageBox, document, history}),
      documents({document, settings, sounds, platform, window.RichTextBox(), window.RichTextBoxBackup(),
                 window.RichTextBoxImport(), window, [this] { job.StartDecode(); },
                 [this] { edit.Paste(); }}),
      reopenOffer({platform.files, platform.background, platform.messageBox, document, window.RichTextBox(),
                   [this] { return MayInterrupt(); }, [this] { documents.ReopenOwnFile(); }}),
      watcher({platform.clipboard, settings, recoding, window.RichTextBox(), platform.timers,
               [this] { fullScreen.End(); }, [this] { document.DocumentModified = true; }}) {}

} // namespace quillshift
