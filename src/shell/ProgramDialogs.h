#pragma once

#include "controls/Dialog.h"
#include "platform/Dialogs.h"
#include "shell/ProgramParts.h"

#include <map>
#include <memory>

namespace quillshift {

/// The program's dialogs: one row each, how it is shown and how to make it.
class ProgramDialogs final : public Dialogs {
public:
    /// Keeps the parts, and uses them only when a dialog is made. `owner` is the main window.
    ProgramDialogs(ProgramParts& parts, QWidget& owner);
    ~ProgramDialogs() override;

    void Show(DialogKind kind, int argument = 0) override;
    void Close(DialogKind kind) override;
    bool IsLoaded(DialogKind kind) const override { return loaded_.contains(kind); }

private:
    struct Row;

    static const Row& RowOf(DialogKind kind);
    void ShowBeside(Dialog& dialog);

    ProgramParts& parts_;
    QWidget& owner_;
    std::map<DialogKind, std::unique_ptr<Dialog>> loaded_;
};

} // namespace quillshift
