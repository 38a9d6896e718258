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
      toolBars(bars, layout, settings, platform.timers),
      dialogs(makeDialogs(*this)),
      start({settings, *dialogs, platform.timers, platform.sound, platform.shell}),
      lock({settings, platform.messageBox, *dialogs, window, platform.shell,
            [this](bool isLocked) { recovery.SetLocked(isLocked); }}),
      fullScreen(
          {window.RichTextBox(), *dialogs, [this](const TextSurface& surface) { recovery.Follow(surface); },
           [this](const TextSurface& surface, const TextEdit& one) { recovery.Edited(surface, one); }}),
      job({recoding, settings, platform.messageBox, window.RichTextBox(), window, *dialogs,
           platform.fileDialog.FileName, [this] { fullScreen.End(); }}),
      edit({window.RichTextBox(), platform.clipboard, platform.messageBox, document, history}),
      recovery({platform.recovery, settings, platform.timers, document, window.RichTextBox()}),
      search({window.RichTextBox(), platform.messageBox, platform.progress, *dialogs}),
      lines(window.RichTextBox(), platform.messageBox),
      documents({document, settings, sounds, platform, window.RichTextBox(), window.RichTextBoxBackup(),
                 window.RichTextBoxImport(), window.RtfTemp(), window, recovery,
                 [this] { job.StartDecode(); }, [this] { edit.Paste(); },
                 [this](std::u16string_view text) {
                     watcher.Overlook([&] { platform.clipboard.SetText(text); });
                 }}),
      reopenOffer({platform.files, platform.background, platform.messageBox, document, window.RichTextBox(),
                   [this] { return MayInterrupt(); }, [this] { documents.ReopenOwnFile(); }}),
      recovered({platform.recovery, platform.messageBox, recovery, documents}),
      print({settings, platform, window.RichTextBox(), [this] { dialogs->Load(DialogKind::Settings); },
             [this] { dialogs->Show(DialogKind::Printing); },
             [this] { return platform.fileDialog.FileTitle; }, document.printing}),
      watcher({platform.clipboard, settings, recoding, window.RichTextBox(), platform.timers,
               [this] { fullScreen.End(); }, [this] { recovery.KeepReplaced(); },
               [this] { document.DocumentModified = true; }, document.printing}) {}

} // namespace quillshift
