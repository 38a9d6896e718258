#include "settings/SettingFields.h"

#include <array>

namespace quillshift {
namespace {

using namespace setting_flag;
using enum SettingPage;
using enum Setting;
using Kind = SettingKind;
using Words = std::u16string_view;
using Reset = std::optional<Words>;

constexpr Reset kAsIs = std::nullopt;
constexpr Words kBeside; // the control before it is its label

// The kinds of rows, by control.
constexpr SettingField Field(SettingPage page, Words frame, const char* name, Words label, Kind kind,
                             Setting setting, Reset reset = kAsIs, unsigned flags = 0) {
    return {page, frame, name, label, kind, setting, {}, reset, flags};
}
constexpr SettingField Check(SettingPage page, Words frame, const char* name, Words label, Setting setting,
                             Reset reset = kAsIs, unsigned flags = 0) {
    return Field(page, frame, name, label, Kind::Check, setting, reset, flags);
}
constexpr SettingField Option(SettingPage page, Words frame, const char* name, Words label, Setting setting,
                              Words option, Reset reset = kAsIs, unsigned flags = 0) {
    return {page, frame, name, label, Kind::Option, setting, option, reset, flags};
}
constexpr SettingField Path(SettingPage page, Words frame, const char* name, Words label, Setting setting,
                            const char* browse, unsigned flags) {
    return {page, frame, name, label, Kind::Text, setting, {}, kAsIs, flags, browse};
}

constexpr std::array kFields{
    Check(General, u"Программа:", "chkWrap", u"Переносить текст по словам", ViewMode, u"1"),
    Check(General, u"Программа:", "chkTopMost", u"Поверх всех окон", TopMost, u"0"),
    Check(General, u"Программа:", "chkManyCopies", u"Разрешить запуск нескольких копий программы", ManyCopies,
          u"0"),
    Check(General, u"Программа:", "chkSaveWindowPositionAndSize",
          u"Запоминать положение на экране и размеры окна", SaveWindowPositionAndSize, u"1"),
    Check(General, u"Программа:", "chkMessageOnExit", u"Запрашивать подтверждение при выходе из программы",
          MessageOnExit, u"1"),
    Check(General, u"Буфер обмена:", "chkStartAtStartup",
          u"Перекодировать буфер обмена при запуске программы", StartAtStartup, u"0"),
    Check(General, u"Буфер обмена:", "chkClearClipboard", u"Очищать буфер обмена при выходе из программы",
          ClearClipboard, u"0"),
    Check(General, u"Буфер обмена:", "chkClipboardDetect", u"Следить за изменениями буфера обмена",
          ClipboardDetect, u"0"),
    Check(General, u"Буфер обмена:", "chkDecodeClipboard",
          u"Автоматически перекодировать изменившийся буфер обмена", DecodeClipboard),
    Check(General, u"Буфер обмена:", "chkClipboardText", u"Использовать режим накопления текста", Accumulate),
    Field(Decode, u"Направление:", "cmbCode", u"Кодировка по умолчанию:", Kind::Position, DefaultCode, u"0"),
    Check(Decode, u"Когда перекодировать:", "chkStartAtImport", u"Перекодировать файлы при импорте",
          StartAtImport, u"0"),
    Check(Decode, u"Когда перекодировать:", "chkStartAtOpen", u"Перекодировать файлы при открытии",
          StartAtOpen, u"0"),
    Check(Decode, u"Когда перекодировать:", "chkDecodeAtCodeChange",
          u"Перекодировать при изменении кодировки", DecodeAtCodeChange),
    Option(View, u"Стиль меню и панелей:", "optStyleOfficeXP", u"Стиль Office XP", Style, u"OfficeXP"),
    Option(View, u"Стиль меню и панелей:", "optStyleSystem", u"Системный", Style, u"System"),
    Check(View, u"Панели инструментов:", "chkToolBarStandart", u"Стандартная", ToolBarStandart, u"1"),
    Check(View, u"Панели инструментов:", "chkToolBarDecode", u"Перекодирование", ToolBarDecode, u"1"),
    Check(View, u"Диалоги:", "chkShowWorkBeginDialog",
          u"Показывать диалог 'приступая к работе' при запуске программы", WorkBegin),
    Check(View, u"Диалоги:", "chkShowPrintingDialog",
          u"Показывать диалог 'печать документа' перед процессом печати", Printing, u"1"),
    Check(View, u"Диалоги:", "chkShowWelcomeDialog", u"Показывать диалог 'приветствие' при запуске программы",
          Welcome, u"1"),
    Check(View, u"Диалоги:", "chkShowSplash", u"Показывать заставку при запуске программы", Splash),
    Option(View, u"В заголовке окна:", "optShowNameOpenFile", u"Имя открытого файла", ShowInCaption, u"1"),
    Option(View, u"В заголовке окна:", "optShowPathOpenFile", u"Путь к открытому файлу", ShowInCaption, u"2"),
    Option(View, u"В заголовке окна:", "optShowNothing", u"Ничего не отображать", ShowInCaption, u"3", u"3"),
    Path(Save, u"Документы:", "txtFolderDoc", u"Папка для документов:", FolderDocuments, "cmdBrowse",
         kKeepIfEmpty | kFolder),
    Check(Save, u"Документы:", "chkSaveChange", u"Выдавать запрос на сохранение при изменении документа",
          SaveChange, u"1"),
    Check(Save, u"Документы:", "chkRecovery", u"Хранить несохраненный текст на случай сбоя", Recovery, u"1",
          kOnWhereAbsent),
    Check(Save, u"Резервная копия:", "chkCreateBackup", u"Создавать резервную копию файла перед сохранением",
          CreateBackup, u"1"),
    Option(Save, u"Резервная копия:", "optCreateBackupInOriginalFileFolder",
           u"В каталоге с оригинальным файлом", CreateBackupIn, u"1"),
    Option(Save, u"Резервная копия:", "optCreateBackupInCustomFolder", u"В другом:", CreateBackupIn, u"2",
           kAsIs, kOtherwise),
    Path(Save, u"Резервная копия:", "txtPathBackupFolder", kBeside, BackupFolder, "cmdBrowseBackupFolder",
         kQuiet | kFolder),
    Field(Font, u"Шрифт документа:", "cboFontName", u"Имя:", Kind::Choice, FontName, u"MS Sans Serif",
          kKeepIfEmpty),
    Field(Font, u"Шрифт документа:", "cboFontSize", u"Размер:", Kind::Choice, FontSize, u"8",
          kKeepIfEmpty | kFontSize),
    Field(Font, u"Образец:", "txtExample", u"Введите текст:", Kind::Text, TextExample, u"Example, Образец"),
    Field(Print, u"Установленные принтеры:", "lstPrinters", kBeside, Kind::Printers, Printers, u"0",
          kNeedsPrinter),
    Option(Print, u"Качество:", "optQDraft", u"Черновое", PrintQuality, u"vbPRPQDraft", kAsIs, kNeedsPrinter),
    Option(Print, u"Качество:", "optQLow", u"Низкое", PrintQuality, u"vbPRPQLow", kAsIs, kNeedsPrinter),
    Option(Print, u"Качество:", "optQMedium", u"Среднее", PrintQuality, u"vbPRPQMedium", kAsIs,
           kNeedsPrinter),
    Option(Print, u"Качество:", "optQHigh", u"Высокое", PrintQuality, u"vbPRPQHigh", u"vbPRPQHigh",
           kNeedsPrinter),
    Option(Print, u"Ориентация:", "optPortrait", u"Книжная", Orientation, u"vbPRORPortrait",
           u"vbPRORPortrait", kNeedsPrinter),
    Option(Print, u"Ориентация:", "optLandscape", u"Альбомная", Orientation, u"vbPRORLandscape", kAsIs,
           kNeedsPrinter),
    Option(Print, u"Печать:", "optCMColor", u"Цветная", ColorMode, u"vbPRCMColor", kAsIs, kNeedsPrinter),
    Option(Print, u"Печать:", "optCMMonochrome", u"Монохромная", ColorMode, u"vbPRCMMonochrome",
           u"vbPRCMMonochrome", kNeedsPrinter),
    Field(Print, u"Бумага:", "cmbPaperSize", u"Размер бумаги:", Kind::Choice, PaperSize, u"A4 210 x 297 мм",
          kNeedsPrinter),
    Field(Print, u"Бумага:", "txtCopies", u"Количество копий:", Kind::Text, Copies, u"1",
          kKeepIfEmpty | kNeedsPrinter),
    Field(Print, u"Поля:", "txtLeft", u"Левое:", Kind::Text, PositionLeft, u"20",
          kKeepIfEmpty | kMillimetres | kNeedsPrinter),
    Field(Print, u"Поля:", "txtWidth", u"Правое:", Kind::Text, PositionWidth, u"5",
          kKeepIfEmpty | kMillimetres | kNeedsPrinter),
    Field(Print, u"Поля:", "txtTop", u"Верхнее:", Kind::Text, PositionTop, u"5",
          kKeepIfEmpty | kMillimetres | kNeedsPrinter),
    Field(Print, u"Поля:", "txtHeight", u"Нижнее:", Kind::Text, PositionHeight, u"5",
          kKeepIfEmpty | kMillimetres | kNeedsPrinter),
    Field(Locked, u"Блокировка:", "txtUser", u"Имя пользователя:", Kind::Text, User),
    Field(Locked, u"Блокировка:", "txtPassword", u"Пароль:", Kind::Text, Password),
    Check(Locked, u"Блокировка:", "chkDoNotShowPassword", u"Не показывать пароль при вводе",
          DoNotShowPassword, u"1"),
    Field(Locked, u"Подсказка:", "txtTip", u"Подсказка о пароле:", Kind::Text, Tip),
    Check(Sounds, u"События кнопок и меню:", "chkButtonMouseMove", u"Подведение", ButtonMouseMove),
    Path(Sounds, u"События кнопок и меню:", "txtButtonMouseMove", kBeside, ButtonMouseMovePath,
         "cmdBrowseButtonMouseMove", kSound),
    Check(Sounds, u"События кнопок и меню:", "chkButtonMouseClick", u"Нажатие", ButtonMouseClick),
    Path(Sounds, u"События кнопок и меню:", "txtButtonMouseClick", kBeside, ButtonMouseClickPath,
         "cmdBrowseButtonMouseClick", kSound),
    Check(Sounds, u"События диалоговых окон:", "chkFormLoad", u"Загрузка", FormLoad),
    Path(Sounds, u"События диалоговых окон:", "txtFormLoad", kBeside, FormLoadPath, "cmdBrowseFormLoad",
         kSound),
    Check(Sounds, u"События диалоговых окон:", "chkFormUnload", u"Выгрузка", FormUnload),
    Path(Sounds, u"События диалоговых окон:", "txtFormUnload", kBeside, FormUnloadPath, "cmdBrowseFormUnload",
         kSound),
    Check(Sounds, u"Дополнительные эффекты:", "chkKeyDown", u"Звук нажатия клавиш", KeyDown),
    Path(Sounds, u"Дополнительные эффекты:", "txtKeyDown", kBeside, KeyDownPath, "cmdBrowseKeyDown",
         kSound | kQuiet),
};

constexpr std::array kToolBarFields{
    Check(ToolBars, u"Параметры панелей инструментов:", "chkUseLargeIcons", u"Использовать крупные значки",
          UseLargeIcons),
    Check(ToolBars, u"Параметры панелей инструментов:", "chkShowToolTips",
          u"Отображать всплывающие подсказки", ShowToolTips),
    Check(ToolBars, u"Параметры меню:", "chkHideInfrequently", u"Всегда показывать полное меню",
          HideInfrequently),
};

} // namespace

std::span<const SettingField> SettingFields() {
    return kFields;
}

std::span<const SettingField> ToolBarFields() {
    return kToolBarFields;
}

} // namespace quillshift
