#pragma once

#include "controls/PagedDialog.h"
#include "document/modPrint.h"
#include "platform/FileDialog.h"
#include "settings/FontPage.h"
#include "settings/PrinterPage.h"

namespace quillshift {

/// Edits what the program keeps, on eight pages. What stands in its boxes for margins and copies, applied or
/// not, is what a document is printed with.
class frmSettings final : public PagedDialog, public PrintBoxes {
    Q_OBJECT

public:
    /// `document` gets a new font at once.
    frmSettings(const DialogContext& context, TextSurface& document, modPrint& print,
                std::unique_ptr<FolderDialog> folders);
    ~frmSettings() override;

    PrintBoxTexts Boxes() const override;

private:
    void AddToFrame(std::u16string_view frame, QGridLayout& rows);
    void FillLists();
    void ConnectFields();

    void FollowClipboard();
    void FollowBackup();
    void FollowSounds();
    void FollowPassword();
    void StartDependencies();
    /// A tick that comes back later where a reset or an apply is on its way.
    std::unique_ptr<Timer> Dependency(void (frmSettings::*follow)());

    void BrowseFolder(const SettingField& field);
    void BrowseSound(const SettingField& field);
    void WriteFields() override;
    void ApplyDefaults() override;
    void ResetSounds();

    TextSurface& document_;
    modPrint& print_;
    std::unique_ptr<FolderDialog> folders_;
    SettingForm form_;
    PrinterPage printers_;
    FontPage fonts_;
    bool isResetting_ = false;
    std::unique_ptr<Timer> timerClipboard_, timerBackup_, timerSounds_, timerLocked_;
};

} // namespace quillshift
