#pragma once

#include "controls/Dialog.h"
#include "controls/TabControl.h"

#include <span>

class QStackedWidget;

namespace quillshift {

class QtTabStrip;

/// A page of a dialog, with its tab.
struct DialogPage {
    std::u16string_view caption;
    std::u16string_view key;
    int data;
    const char* panel; ///< name of the page
};

/// A dialog of pages behind tabs, on which settings are edited. Nothing is written before it is applied: by
/// its button, which is off until something was edited, or by "OK".
class PagedDialog : public Dialog {
    Q_OBJECT

public:
    /// `tabs`: name of the row of tabs.
    PagedDialog(const DialogContext& context, const QString& title, const char* tabs,
                std::span<const DialogPage> pages);

    /// Shows one page, from 1; 0: the one that was shown last.
    void TurnTo(int tab) override;
    /// Writes what the fields hold.
    void Apply();

protected:
    /// Adds a page behind those that are there.
    void AddPage(QWidget* page);
    /// The buttons below the pages, where all pages are added. `cancel` may be null.
    void AddButtons(const QString& reset, DialogButton* cancel);
    /// Something is there to be applied.
    void NoteEdit() { cmdApply->setEnabled(true); }

    virtual void WriteFields() = 0;
    /// Gives the fields what a reset gives them, and applies that.
    virtual void ApplyDefaults() = 0;

private:
    void ShowTab(int tab);
    void Reset();

    std::span<const DialogPage> rows_;
    QtTabStrip* strip_;
    TabControl tabs_;
    QStackedWidget* pages_;
    DialogButton* cmdApply;
};

} // namespace quillshift
