#pragma once

#include "controls/Dialog.h"
#include "platform/Printers.h"
#include "settings/SettingForm.h"

class QListWidget;

namespace quillshift {

/// The list of printers among the settings: the one that is chosen is current at once.
class PrinterPage final : public QObject {
    Q_OBJECT

public:
    /// The form has its controls by the time of `Load`.
    PrinterPage(const DialogContext& context, SettingForm& form, Printers& printers);
    ~PrinterPage() override;

    /// Adds what stands below the list.
    void AddTo(QGridLayout& rows, QLabel* defaultPrinter, DialogButton* folder, DialogButton* setup);
    /// Fills the list, also when the print system answers late, and makes the stored printer current.
    void Load();
    /// Takes the printer that the list shows for the user's own choice, and makes it current.
    void Choose();
    /// Makes the printer that the list shows current.
    void MakeCurrent() const;
    /// Writes the printer, unless the print system has not told which there are, or the stored one is missing
    /// and no other was chosen.
    void Apply();

private:
    void Fill(const std::vector<std::u16string>& names);
    QString ChosenName() const;
    void ShowDefault();
    /// Opens the desktop's administration of printers, or what adds one.
    void OpenTool(bool toAdd);
    QListWidget& List() const;

    const DialogContext& context_;
    SettingForm& form_;
    Printers& printers_;
    QLabel* lblDefaultPrinter = nullptr;
    bool isChosen_ = false; ///< by hand
};

} // namespace quillshift
