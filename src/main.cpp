#include "base/Error.h"
#include "base/Texts.h"
#include "controls/JobProgress.h"
#include "platform/posix/FileBytes.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixRecoveryStore.h"
#include "platform/posix/PrivateFolder.h"
#include "platform/posix/SdlSound.h"
#include "platform/posix/SqliteSettings.h"
#include "platform/posix/XdgFolders.h"
#include "platform/qt/Appearance.h"
#include "platform/qt/CaretRest.h"
#include "platform/qt/EndSignals.h"
#include "platform/qt/QtBackground.h"
#include "platform/qt/QtBarSystem.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtFileDialog.h"
#include "platform/qt/QtMessageBox.h"
#include "platform/qt/QtPrinters.h"

#include "platform/qt/QtScreens.h"
#include "platform/qt/QtShell.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTimers.h"
#include "platform/qt/ScreenReaders.h"
#include "platform/qt/SessionEnd.h"
#include "settings/FirstValues.h"
#include "shell/Layout.h"
#include "shell/Program.h"
#include "shell/ProgramDialogs.h"
#include "shell/frmMain.h"

#include <QApplication>
#include <QTimer>

#include <dlfcn.h>
#include <malloc.h>
#include <thread>

namespace quillshift {
namespace {

// Reading the machine's list of fonts takes a good part of a start, and nobody needs it before the first text
// is measured. The list is the process's own: the toolkit finds it read.
void ReadFontList() {
    void* const library = dlopen("libfontconfig.so.1", RTLD_NOW);
    if (library == nullptr)
        return;
    // The system's way from an address to a function.
    const auto init = reinterpret_cast<int (*)()>(dlsym(library, "FcInit")); // NOLINT(*-reinterpret-cast)
    if (init != nullptr)
        init();
}

std::filesystem::path RecoveryFolder() {
    const std::filesystem::path state = XdgStateFolder();
    return state.empty() ? state : state / "quillshift" / "recovery";
}

// A store without the one value that every set-up leaves was deleted while a program ran, which made a new
// one for what it had to keep.
void SetUpStore(SqliteSettings& store, const Platform& platform) {
    const auto fill = [&](SettingsBackend& backend) {
        Settings settings(backend);
        WriteFirstValues(settings, {.programFolder = platform.shell.ProgramFolder(),
                                    .printerName = platform.printers.Names().front(),
                                    .mainWindow = FirstPlace(platform.screen.WorkAreas())});
    };
    store.SetUp(fill);
    if (!Settings(store).Find(Setting::FirstRun))
        fill(store);
}

// A text that was read, copied or written goes back to the system when it is done with. Left alone, the
// allocator takes the first large one as a reason to keep those that follow.
void GiveBackLargeTexts() {
    constexpr int kLarge = 1 << 20;
    mallopt(M_MMAP_THRESHOLD, kLarge);
}

int Run(int argc, char** argv) {
    GiveBackLargeTexts();
    SurviveFailedWrites();
    WriteDatesInRussian();
    std::thread fonts(ReadFontList);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillshift"));
    // At the start one window closes before the next one shows. Whoever closes the last one says so.
    QApplication::setQuitOnLastWindowClosed(false);
    DressUp(application);
    const CaretRest caretRest;
    ShowScreenReadersTheScreenAlone();

    const std::filesystem::path data = ProgramDataFolder();
    SqliteSettings store(data / "settings.db");
    SdlSound sound;
    PosixFiles files;
    QApplication::setWindowIcon(ReadIcon(files, QCoreApplication::applicationDirPath() +
                                                    QStringLiteral("/Data/icons/menu/Decoding.ico")));
    QtFileDialog fileDialog;
    QtMessageBox messageBox;
    QtClipboard clipboard;
    QtTimers timers;
    QtScreens screen;
    QtShell shell(data.empty() ? data : data / "running.lock");
    QtBackground background;
    const PosixClock wallClock;
    JobProgress progress;
    QtPrinters printers(files);
    PosixRecoveryStore recovery(RecoveryFolder(), [&application](std::function<void()> work) {
        QMetaObject::invokeMethod(&application, std::move(work), Qt::QueuedConnection);
    });
    Platform platform{store,  sound, files,      fileDialog, messageBox, clipboard, timers,
                      screen, shell, background, progress,   recovery,   wallClock, printers};
    SetUpStore(store, platform);

    QtWindowMessages windowIds;
    MSubclass subclass(windowIds, u"quillshift");
    const QtTextMeasurer texts;
    QtBarSystem barSystem(windowIds);
    const QtSystemColours colours;
    const QtTheme theme;
    mCommandBars toolkit({barSystem, windowIds, subclass, colours, theme, timers});
    fonts.join();
    frmMain window(windowIds, texts);
    Program program(platform, window, toolkit, [&window](ProgramParts& parts) {
        return std::make_unique<ProgramDialogs>(parts, window);
    });
    const EndSignals endSignals([&program] { program.EndAtOnce(); });
    const SessionEnd sessionEnd(
        {.save = [&program] { program.SaveWhatIsNew(); }, .end = [&program] { program.EndAtOnce(); }});
    QTimer::singleShot(0, &application, [&] { program.Main(); });
    return QApplication::exec();
}

} // namespace
} // namespace quillshift

int main(int argc, char** argv) {
    return quillshift::Run(argc, argv);
}
