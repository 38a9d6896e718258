#include "settings/FirstValues.h"

#include "settings/SoundEvents.h"

namespace quillshift {
namespace {

constexpr int kStandartItems = 40;
constexpr int kDecodeItems = 8;

void ShowItems(Settings& settings, ItemBar bar, int count) {
    for (int item = 0; item < count; ++item)
        settings.ShowItem(bar, item, true);
}

} // namespace

void WriteFirstValues(Settings& settings, const FirstValueInputs& inputs) {
    for (const SettingRow& row : SettingRows()) {
        if (row.firstText)
            settings.Set(row.setting, *row.firstText);
        else if (row.type == ValueType::Number)
            settings.Switch(row.setting, row.firstNumber != 0);
    }
    ShowItems(settings, ItemBar::Standart, kStandartItems);
    ShowItems(settings, ItemBar::Decode, kDecodeItems);
    for (const SoundEvent& event : kSoundEvents)
        settings.Set(event.path, inputs.programFolder + u"/Sounds/" + std::u16string(event.defaultFile));
    settings.Set(Setting::PrinterName, inputs.printerName);
    settings.Set(Setting::MainLeft, DecimalText(inputs.mainWindow.left.value));
    settings.Set(Setting::MainTop, DecimalText(inputs.mainWindow.top.value));
    settings.Set(Setting::MainHeight, DecimalText(inputs.mainWindow.height.value));
    settings.Set(Setting::MainWidth, DecimalText(inputs.mainWindow.width.value));
}

} // namespace quillshift
