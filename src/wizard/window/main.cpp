#include "controls/JobProgress.h"
#include "platform/posix/FileBytes.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixRecoveryStore.h"
#include "platform/posix/PrivateFolder.h"
#include "platform/posix/SdlSound.h"
#include "platform/posix/SqliteSettings.h"
#include "platform/qt/Appearance.h"
#include "platform/qt/EndSignals.h"
#include "platform/qt/QtBackground.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtFileDialog.h"
#include "platform/qt/QtMessageBox.h"
#include "platform/qt/QtPrinters.h"
#include "platform/qt/QtScreens.h"
#include "platform/qt/QtShell.h"
#include "platform/qt/QtTimers.h"
#include "platform/qt/ScreenReaders.h"
#include "wizard/rescue/DiskFiles.h"
#include "wizard/window/frmWizard.h"

#include <QApplication>

namespace quillshift {
namespace {

// The window stands on the same services as the editor's, and keeps neither a document nor a lock of its own.
int Run(int argc, char** argv) {
    SurviveFailedWrites();
    WriteDatesInRussian();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillshift-rescue"));
    QApplication::setDesktopFileName(QStringLiteral("quillshift-rescue"));
    DressUp(application);
    ShowScreenReadersTheScreenAlone();
    PosixFiles files;
    QApplication::setWindowIcon(ReadIcon(files, QCoreApplication::applicationDirPath() +
                                                    QStringLiteral("/Data/icons/menu/Wizard.ico")));

    SqliteSettings store(ProgramDataFolder() / "settings.db");
    SdlSound sound;
    QtFileDialog fileDialog;
    QtMessageBox messageBox;
    QtClipboard clipboard;
    QtTimers timers;
    QtScreens screen;
    QtShell shell{{}};
    QtBackground background;
    const PosixClock wallClock;
    JobProgress progress;
    QtPrinters printers(files);
    PosixRecoveryStore recovery({}, {});
    Platform platform{store,  sound, files,      fileDialog, messageBox, clipboard, timers,
                      screen, shell, background, progress,   recovery,   wallClock, printers};
    Settings settings(store);
    SoundEvents sounds(settings, sound);

    wizard::DiskFiles disk;
    wizard::Rescue rescue(disk, clipboard);
    wizard::frmWizard window({platform, settings, sounds, nullptr}, rescue);
    const EndSignals endSignals([&window] { window.close(); });
    window.show();
    window.List({argv + 1, argv + argc});
    const int status = QApplication::exec();
    clipboard.HandOver();
    return status;
}

} // namespace
} // namespace quillshift

int main(int argc, char** argv) {
    return quillshift::Run(argc, argv);
}
