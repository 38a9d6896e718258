#pragma once

#include "controls/Dialog.h"
#include "settings/SettingFields.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>

class QGridLayout;
class QLineEdit;

namespace quillshift {

/// The controls of a table of fields: makes them, fills them from the store and writes them back.
class SettingForm final : public QObject {
    Q_OBJECT

public:
    SettingForm(const DialogContext& context, std::span<const SettingField> fields);

    /// Makes the controls of a page. `atFrame` gets each frame when its fields are in it, to add what is no
    /// field.
    QWidget* MakePage(SettingPage page,
                      const std::function<void(std::u16string_view frame, QGridLayout& rows)>& atFrame);
    /// Fills all fields from the store, whatever it holds.
    void Load();
    /// Writes the switches, options and positions. Where no option is chosen nothing is written.
    void ApplyChoices();
    /// Writes the texts.
    void ApplyTexts();
    /// Gives the fields that have one their text for a reset.
    void Reset();

    template <typename Control = QWidget>
    Control& At(std::string_view name) const {
        return dynamic_cast<Control&>(*controls_.at(name));
    }
    /// Puts a chosen path into a field, which is an edit whatever was there.
    void Choose(std::string_view name, const QString& path);

signals:
    /// A person, or the program in their name, changed a field.
    void Edited();
    /// The button behind a path was pressed.
    void Browse(const SettingField& field);

private:
    QWidget* Make(const SettingField& field);
    QWidget* MakeWithButtons(const SettingField& field, QLineEdit* line);
    void Remember(const char* name, QWidget* control);
    void Connect(const SettingField& field, QWidget* control);
    void Show(const SettingField& field, const std::optional<std::u16string>& stored);
    void CheckPath(QLineEdit& line, bool folder);
    static void Mark(QLineEdit& line, bool folder, bool missing);

    const DialogContext& context_;
    std::span<const SettingField> fields_;
    std::map<std::string_view, QWidget*> controls_;
    std::set<const QLineEdit*> checked_; ///< whose paths are being looked for
};

} // namespace quillshift
