#pragma once

#include "controls/Dialog.h"
#include "platform/Dialogs.h"
#include "shell/ProgramParts.h"

#include <QPointer>
#include <QWindow>

#include <map>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace quillshift {

/// The program's dialogs: one row each, how it is shown and how to make it.
class ProgramDialogs final : public Dialogs {
public:
    /// Keeps the parts, and uses them only when a dialog is made. `owner` is the main window.
    ProgramDialogs(ProgramParts& parts, QWidget& owner);
    ~ProgramDialogs() override;

    void Load(DialogKind kind) override { Loaded(kind); }
    void Show(DialogKind kind, int argument = 0) override;
    void Close(DialogKind kind) override;
    bool IsLoaded(DialogKind kind) const override { return loaded_.contains(kind); }
    void HideAll() override;
    void BringBack() override;

    /// All dialogs there are.
    static std::vector<DialogKind> Kinds();
    /// A dialog by itself, hidden, beside the one that may be loaded.
    std::unique_ptr<Dialog> Make(DialogKind kind, int argument = 0) const;

private:
    struct Row;

    static std::span<const Row> Rows();
    static const Row& RowOf(DialogKind kind);
    Dialog& Loaded(DialogKind kind, int argument = 0);
    void ShowBeside(Dialog& dialog);
    void ShowKept(Dialog& dialog, int argument);
    void NoteFocus(QWindow* window);
    /// The greater, the later it had the keyboard.
    std::ptrdiff_t RankOf(const QWidget& window) const;

    ProgramParts& parts_;
    QWidget& owner_;
    std::map<DialogKind, std::unique_ptr<Dialog>> loaded_;
    std::vector<std::pair<QPointer<QWidget>, QPoint>> hidden_; ///< to be brought back, and where
    std::vector<QPointer<QWindow>> focused_;                   ///< that had the keyboard, the last one last
    QMetaObject::Connection focusNotices_;
};

} // namespace quillshift
