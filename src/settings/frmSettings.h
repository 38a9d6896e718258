#pragma once

#include "controls/Dialog.h"
#include "controls/TabControl.h"
#include "platform/FileDialog.h"
#include "platform/Printers.h"
#include "platform/TextSurface.h"
#include "settings/SettingForm.h"

class QGridLayout;
class QStackedWidget;

namespace quillshift {

class QtTabStrip;

/// Edits what the program keeps, on eight pages. Nothing is written before it is applied.
class frmSettings final : public Dialog {
    Q_OBJECT

public:
    /// `document` gets a new font at once.
    frmSettings(const DialogContext& context, TextSurface& document, Printers& printers,
                std::unique_ptr<FolderDialog> folders);
    ~frmSettings() override;

    /// Shows one page, from 1; 0: the one that was shown last.
    void TurnTo(int tab) override;
    /// Writes what the fields hold.
    void Apply();

private:
    void AddPages(QStackedWidget& pages);
    void AddToFrame(std::u16string_view frame, QGridLayout& rows);
    void FillLists();
    void ConnectFields();
    void ShowTab(int tab);

    void FillPrinters();
    void ChoosePrinter();
    void ApplyPrinter();
    void OpenPrinterTool(std::u16string_view page);

    void FillFonts();
    void FollowClipboard();
    void FollowBackup();
    void FollowSounds();
    void FollowPassword();
    void StartDependencies();
    /// A tick that comes back later where a reset or an apply is on its way.
    std::unique_ptr<Timer> Dependency(void (frmSettings::*follow)());

    void BrowseFolder(const SettingField& field);
    void BrowseSound(const SettingField& field);
    void Reset();
    void ResetSounds();

    SettingForm form_;
    TextSurface& document_;
    Printers& printers_;
    std::unique_ptr<FolderDialog> folders_;
    QtTabStrip* strip_;
    TabControl tabSettings_;
    QStackedWidget* pages_;
    DialogButton* cmdApply;
    QLabel* lblExample = nullptr;
    QLabel* lblDefaultPrinter = nullptr;
    bool isResetting_ = false;
    bool fillsPrinters_ = false;
    std::unique_ptr<Timer> timerClipboard_, timerBackup_, timerSounds_, timerLocked_, timerFonts_;
};

} // namespace quillshift
