#include "shell/ProgramDialogs.h"

#include "document/frmDocumentProperties.h"
#include "document/frmFScreen.h"
#include "document/frmFind.h"
#include "document/frmGoTo.h"
#include "document/frmInsertTimeAndDate.h"
#include "document/frmPrinting.h"
#include "document/frmRecovery.h"
#include "document/frmReplace.h"
#include "platform/Keys.h"
#include "platform/qt/QtFolderDialog.h"
#include "recoding/frmDecode.h"
#include "recoding/frmDecoding.h"
#include "settings/frmAbout.h"
#include "settings/frmLicense.h"
#include "settings/frmLockProgram.h"
#include "settings/frmSettings.h"
#include "settings/frmSplash.h"
#include "settings/frmToolBarCustomize.h"
#include "settings/frmWelcome.h"
#include "settings/frmWorkBegin.h"
#include "shell/Catalogue.h"

#include <QApplication>
#include <QShortcut>
#include <QWindow>

#include <algorithm>
#include <array>
#include <iterator>

namespace quillshift {

namespace {

// A modal dialog and one beside the main window are unloaded when they close, or when they are told to; one
// that stands alone, before the main window, only when it is told to. A kept one is modal without an argument
// and beside the main window with one; it stays loaded, hidden, where it was accepted.
enum class Stand { Modal, Beside, Alone, Kept };

// What does the same wherever the keyboard is. The others change a text that the user is not writing in.
constexpr Command kAlsoBeside[] = {Command::Lock, Command::Find, Command::FindNext, Command::Replace,
                                   Command::GoTo};

QKeySequence KeysOf(const CatalogueEntry& entry) {
    const int code = entry.ShortcutKey;
    const bool isFunctionKey = code >= key::kF1 && code < key::kF1 + 24;
    const auto modifiers =
        (entry.ShortcutModifiers & modifier::kCtrl) != 0 ? Qt::ControlModifier : Qt::NoModifier;
    return {QKeyCombination(modifiers,
                            static_cast<Qt::Key>(isFunctionKey ? Qt::Key_F1 + code - key::kF1 : code))};
}

// Behind the key's event, which may be the last one that the dialog gets.
void HearShortcuts(Dialog& dialog, MainBars& bars) {
    for (const CatalogueEntry& entry : Catalogue())
        if (entry.ShortcutKey != 0 && std::ranges::count(kAlsoBeside, entry.action.command) != 0)
            QObject::connect(
                new QShortcut(KeysOf(entry), &dialog), &QShortcut::activated, &dialog,
                [&bars, name = entry.Key] { bars.OnClick(name); }, Qt::QueuedConnection);
}

} // namespace

struct ProgramDialogs::Row {
    DialogKind kind;
    Stand stand;
    std::unique_ptr<Dialog> (*make)(const DialogContext& context, ProgramParts& parts, int argument);
};

std::span<const ProgramDialogs::Row> ProgramDialogs::Rows() {
    using Context = const DialogContext&;
    static constexpr std::array kRows{
        Row{DialogKind::Decode, Stand::Modal,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmDecode>(context, parts.job);
            }},
        Row{DialogKind::Decoding, Stand::Beside,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmDecoding>(context, parts.job);
            }},
        Row{DialogKind::Splash, Stand::Alone,
            [](Context context, ProgramParts&, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmSplash>(context);
            }},
        Row{DialogKind::Welcome, Stand::Alone,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmWelcome>(context, parts.start);
            }},
        Row{DialogKind::WorkBegin, Stand::Alone,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmWorkBegin>(context, parts.start);
            }},
        Row{DialogKind::FullScreen, Stand::Beside,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmFScreen>(context, parts.fullScreen);
            }},
        Row{DialogKind::About, Stand::Modal,
            [](Context context, ProgramParts&, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmAbout>(context);
            }},
        Row{DialogKind::License, Stand::Modal,
            [](Context context, ProgramParts&, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmLicense>(context);
            }},
        Row{DialogKind::Recovery, Stand::Modal,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmRecovery>(context, parts.recovered);
            }},
        Row{DialogKind::Find, Stand::Beside,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmFind>(context, parts.search);
            }},
        Row{DialogKind::Replace, Stand::Beside,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmReplace>(context, parts.search);
            }},
        Row{DialogKind::GoTo, Stand::Beside,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmGoTo>(context, parts.lines);
            }},
        Row{DialogKind::DocumentProperties, Stand::Modal,
            [](Context context, ProgramParts&, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmDocumentProperties>(context);
            }},
        Row{DialogKind::Printing, Stand::Modal,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmPrinting>(context, parts.print);
            }},
        Row{DialogKind::InsertTimeAndDate, Stand::Beside,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmInsertTimeAndDate>(context, parts.window.RichTextBox());
            }},
        Row{DialogKind::Lock, Stand::Modal,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmLockProgram>(
                    DialogContext{context.platform, context.settings, context.sounds, nullptr}, parts.lock);
            }},
        Row{DialogKind::Settings, Stand::Kept,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmSettings>(context, parts.window.RichTextBox(), parts.print,
                                                     std::make_unique<QtFolderDialog>());
            }},
        Row{DialogKind::ToolBarCustomize, Stand::Modal,
            [](Context context, ProgramParts& parts, int) -> std::unique_ptr<Dialog> {
                return std::make_unique<frmToolBarCustomize>(context, parts.toolBars);
            }},
    };
    return kRows;
}

const ProgramDialogs::Row& ProgramDialogs::RowOf(DialogKind kind) {
    return *std::ranges::find(Rows(), kind, &Row::kind);
}

std::vector<DialogKind> ProgramDialogs::Kinds() {
    std::vector<DialogKind> kinds;
    std::ranges::transform(Rows(), std::back_inserter(kinds), &Row::kind);
    return kinds;
}

ProgramDialogs::ProgramDialogs(ProgramParts& parts, QWidget& owner)
    : parts_(parts),
      owner_(owner),
      focusNotices_(QObject::connect(qApp, &QGuiApplication::focusWindowChanged,
                                     [this](QWindow* window) { NoteFocus(window); })) {}

ProgramDialogs::~ProgramDialogs() {
    QObject::disconnect(focusNotices_);
}

void ProgramDialogs::NoteFocus(QWindow* window) {
    if (window == nullptr)
        return;
    std::erase_if(focused_, [&](const auto& other) { return other == nullptr || other == window; });
    focused_.emplace_back(window);
}

std::ptrdiff_t ProgramDialogs::RankOf(const QWidget& window) const {
    const auto found = std::find(focused_.begin(), focused_.end(), window.windowHandle());
    return found == focused_.end() ? -1 : found - focused_.begin();
}

std::unique_ptr<Dialog> ProgramDialogs::Make(DialogKind kind, int argument) const {
    const Row& row = RowOf(kind);
    QWidget* const owner = row.stand == Stand::Alone ? nullptr : &owner_;
    return row.make({parts_.platform, parts_.settings, parts_.sounds, owner}, parts_, argument);
}

Dialog& ProgramDialogs::Loaded(DialogKind kind, int argument) {
    std::unique_ptr<Dialog>& dialog = loaded_[kind];
    if (dialog)
        return *dialog;
    dialog = Make(kind, argument);
    const Stand stand = RowOf(kind).stand;
    if (stand == Stand::Beside) {
        HearShortcuts(*dialog, parts_.bars);
        for (Dialog* const below : dialog->findChildren<Dialog*>())
            HearShortcuts(*below, parts_.bars);
        QObject::connect(dialog.get(), &QDialog::finished, [this, kind] { Close(kind); });
    }
    if (stand == Stand::Kept)
        QObject::connect(dialog.get(), &QDialog::rejected, [this, kind] { Close(kind); });
    return *dialog;
}

void ProgramDialogs::Show(DialogKind kind, int argument) {
    const bool isNew = !IsLoaded(kind);
    Dialog& dialog = Loaded(kind, argument);
    switch (RowOf(kind).stand) {
    case Stand::Modal:
        dialog.exec();
        loaded_.erase(kind);
        break;
    case Stand::Beside:
        ShowBeside(dialog);
        if (!isNew)
            dialog.BringUp();
        break;
    case Stand::Kept:
        ShowKept(dialog, argument);
        break;
    case Stand::Alone:
        dialog.show();
        break;
    }
}

// Above the dialog that is up, if one is: only so can its buttons be reached then.
void ProgramDialogs::ShowBeside(Dialog& dialog) {
    dialog.winId();
    const QWidget* above = QApplication::activeModalWidget();
    dialog.windowHandle()->setTransientParent((above != nullptr ? above : &owner_)->windowHandle());
    dialog.show();
}

// A window takes up its modality when it comes up.
void ProgramDialogs::ShowKept(Dialog& dialog, int argument) {
    dialog.TurnTo(argument);
    const QPoint place = dialog.pos();
    if (argument == 0)
        dialog.hide();
    if (!place.isNull()) // of one that was on the screen; it would come back lower by its frame
        dialog.move(place);
    if (argument == 0) {
        dialog.exec();
    } else {
        ShowBeside(dialog);
        dialog.BringUp();
    }
}

// A modal dialog that is hidden ends with that, cancelled; a menu has no place to come back to. The one that
// had the keyboard last comes back last, above the others; hiding one gives it to another.
void ProgramDialogs::HideAll() {
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([this](const QWidget* window) { return window == &owner_ || !window->isVisible(); });
    std::ranges::stable_sort(windows, {}, [this](const QWidget* window) { return RankOf(*window); });
    for (QWidget* const window : windows) {
        if (!window->isVisible()) // it went with another one
            continue;
        if (qobject_cast<QDialog*>(window) != nullptr && !window->isModal())
            hidden_.emplace_back(window, window->pos());
        window->hide();
    }
}

// The keyboard is for the text. The toolkit reads the attribute for that only when it makes a window, and
// keeps it in this property.
void ProgramDialogs::BringBack() {
    constexpr const char* kKeepsKeyboard = "_q_showWithoutActivating";
    for (const auto& [window, place] : std::exchange(hidden_, {})) {
        if (window == nullptr)
            continue;
        window->move(place);
        window->windowHandle()->setProperty(kKeepsKeyboard, true);
        window->show();
        window->windowHandle()->setProperty(kKeepsKeyboard, false);
    }
    owner_.activateWindow();
}

// The dialog may be in the middle of an event of its own, so it goes when that is over.
void ProgramDialogs::Close(DialogKind kind) {
    const auto found = loaded_.find(kind);
    if (found == loaded_.end())
        return;
    if (RowOf(kind).stand == Stand::Modal) {
        found->second->reject();
        return;
    }
    found->second->hide();
    found->second.release()->deleteLater();
    loaded_.erase(found);
}

} // namespace quillshift
