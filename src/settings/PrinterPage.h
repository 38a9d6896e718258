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
    /// Makes the printer that the list shows current.
    void MakeCurrent() const;
    /// Writes the printer, where the print system has told which there are.
    void Apply();

private:
    void Fill(const std::vector<std::u16string>& names);
    QString ChosenName() const;
    void ShowDefault();
    void OpenTool(std::u16string_view page);
    QListWidget& List() const;

    const DialogContext& context_;
    SettingForm& form_;
    Printers& printers_;
    QLabel* lblDefaultPrinter = nullptr;
    bool isChosen_ = false; ///< by hand
};

} // namespace quillshift
