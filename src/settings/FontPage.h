#pragma once

#include "controls/Dialog.h"
#include "settings/SettingForm.h"

#include <QStringList>

#include <memory>

namespace quillshift {

/// The document's font among the settings: its list, which is filled while the dialog can be used, and the
/// sample.
class FontPage final : public QObject {
    Q_OBJECT

public:
    /// `dialog` has the wait pointer while the list is filled.
    FontPage(const DialogContext& context, SettingForm& form, QWidget& dialog);

    void AddTo(QGridLayout& rows, QLabel* sample);
    /// Shows the stored font, and starts to fill the list.
    void Load();

private:
    void FillFonts();
    void AddSomeFonts();
    void SetSample(const std::function<void(QFont&)>& change);

    const DialogContext& context_;
    SettingForm& form_;
    QWidget& dialog_;
    QLabel* lblExample = nullptr;
    QStringList toAdd_; ///< fonts that are not in the list yet
    std::unique_ptr<Timer> timerFonts_;
};

} // namespace quillshift
