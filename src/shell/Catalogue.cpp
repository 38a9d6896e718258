#include "shell/Catalogue.h"

#include "commandbar/CommandBarHandles.h"
#include "commandbar/PanelControl.h"
#include "commandbar/VirtualKeys.h"
#include "document/modEdit.h"

#include <array>
#include <map>
#include <string>

namespace quillshift {
namespace {

struct Shortcut {
    std::int16_t key = 0;
    int modifiers = modifier::kCtrl; ///< also where there is no key, and then without a meaning
};
constexpr Shortcut Ctrl(char letter) {
    return {letter, modifier::kCtrl};
}
constexpr Shortcut CtrlShift(char letter) {
    return {letter, modifier::kCtrl | modifier::kShift};
}
constexpr Shortcut F(int number) {
    return {FunctionKey(number), 0};
}
constexpr Shortcut CtrlF(int number) {
    return {FunctionKey(number), modifier::kCtrl};
}

constexpr int kUpper = static_cast<int>(LetterCase::Upper);
constexpr int kLower = static_cast<int>(LetterCase::Lower);

// The kinds of entries.
constexpr CatalogueEntry Heading(std::string_view key, std::u16string_view caption) {
    return {.Key = key, .Caption = caption, .showsCaption = true};
}
constexpr CatalogueEntry Submenu(std::string_view key, std::u16string_view caption) {
    return {.Key = key, .Caption = caption};
}
constexpr CatalogueEntry Entry(std::string_view key, std::u16string_view caption, Action action,
                               Shortcut shortcut = {}, Picture picture = {}) {
    return {.Key = key,
            .Caption = caption,
            .picture = picture,
            .ShortcutKey = shortcut.key,
            .ShortcutModifiers = shortcut.modifiers,
            .action = action};
}
constexpr CatalogueEntry Entry(std::string_view key, std::u16string_view caption, Action action,
                               Picture picture) {
    return Entry(key, caption, action, {}, picture);
}
constexpr CatalogueEntry Check(std::string_view key, std::u16string_view caption, Action action) {
    return {.Key = key, .Caption = caption, .Style = ButtonStyle::Check, .action = action};
}
constexpr CatalogueEntry Separator(std::string_view key) {
    return {.Key = key, .Style = ButtonStyle::Separator};
}
constexpr CatalogueEntry Panel(std::string_view key, Action action) {
    return {.Key = key, .Style = ButtonStyle::Panel, .action = action};
}
constexpr CatalogueEntry Tool(std::string_view key, Action action, Picture picture,
                              std::u16string_view toolTip, std::u16string_view caption = u"") {
    return {.Key = key,
            .Caption = caption,
            .showsCaption = !caption.empty(),
            .picture = picture,
            .ToolTip = toolTip,
            .action = action};
}

using enum Command;
constexpr std::array kCatalogue{
    Heading("MENU:FILE", u"Файл"),
    Heading("MENU:EDIT", u"Правка"),
    Heading("MENU:FIND", u"Поиск"),
    Heading("MENU:VIEW", u"Вид"),
    Heading("MENU:INSERT", u"Вставка"),
    Heading("MENU:FORMAT", u"Формат"),
    Heading("MENU:SERVICE", u"Сервис"),
    Heading("MENU:DECODE", u"Перекодирование"),
    Heading("MENU:HELP", u"Справка"),

    Entry("MENU:FILE:NEW", u"Создать", New, Ctrl('N'), Picture{"NEW", u"New.ico"}),
    Entry("MENU:FILE:OPEN", u"Открыть...", Open, Ctrl('O'), Picture{"OPEN", u"Open.ico"}),
    Entry("MENU:FILE:REOPEN", u"Открыть заново", Reopen, Picture{"REOPEN", u"Reopen.ico"}),
    Entry("MENU:FILE:SAVE", u"Сохранить", Save, Ctrl('S'), Picture{"SAVE", u"Save.ico"}),
    Entry("MENU:FILE:SAVEAS", u"Сохранить как ...", SaveAs, CtrlShift('S')),
    Separator("MENU:FILE:SEP1"),
    Entry("MENU:FILE:PRINT", u"Печать", Print, Ctrl('P'), Picture{"PRINT", u"Print.ico"}),
    Entry("MENU:FILE:PRINTSETTINGS", u"Параметры печати", {ShowSettings, kPrintTab},
          Picture{"PRINTSETTINGS", u"Print settings.ico"}),
    Separator("MENU:FILE:SEP2"),
    Submenu("MENU:FILE:IMPORT", u"Импорт"),
    Entry("MENU:FILE:IMPORT:RTF", u"Импортировать текст из *.rtf файла", ImportRtf),
    Separator("MENU:FILE:SEP3"),
    Entry("MENU:FILE:PROPERTIES", u"Свойства документа", ShowProperties,
          Picture{"PROPERTIES", u"Properties.ico"}),
    Separator("MENU:FILE:SEP4"),
    Entry("MENU:FILE:EXIT", u"Выход", Exit),

    Entry("MENU:EDIT:UNDO", u"Отменить", Undo, Ctrl('Z'), Picture{"UNDO", u"Undo.ico"}),
    Entry("MENU:EDIT:REDO", u"Повторить", Redo, F(4), Picture{"REDO", u"Redo.ico"}),
    Separator("MENU:EDIT:SEP1"),
    Entry("MENU:EDIT:CUT", u"Вырезать", Cut, Ctrl('X'), Picture{"CUT", u"Cut.ico"}),
    Entry("MENU:EDIT:COPY", u"Копировать", Copy, Ctrl('C'), Picture{"COPY", u"Copy.ico"}),
    Entry("MENU:EDIT:PASTE", u"Вставить", Paste, Ctrl('V'), Picture{"PASTE", u"Paste.ico"}),
    Entry("MENU:EDIT:DELETE", u"Удалить", Delete, Ctrl('D'), Picture{"DELETE", u"Delete.ico"}),
    Separator("MENU:EDIT:SEP2"),
    Entry("MENU:EDIT:SELECTALL", u"Выделить все", SelectAll, Ctrl('A')),
    Entry("MENU:EDIT:CLEAR", u"Очистить", Clear, Ctrl('K'), Picture{"CLEAR", u"Clear.ico"}),

    Entry("MENU:FIND:FIND", u"Найти", Find, Ctrl('F'), Picture{"FIND", u"Find.ico"}),
    Entry("MENU:FIND:FINDNEXT", u"Найти далее", FindNext, F(3)),
    Entry("MENU:FIND:REPLACE", u"Найти и заменить", Replace, Ctrl('H'), Picture{"REPLACE", u"Replace.ico"}),
    Separator("MENU:FIND:SEP1"),
    Entry("MENU:FIND:GOTO", u"Перейти", GoTo, Ctrl('G'), Picture{"GOTO", u"Goto.ico"}),

    Check("MENU:VIEW:ONTOP", u"Поверх всех окон", KeepOnTop),
    Submenu("MENU:VIEW:TOOLBARS", u"Панели инструментов"),
    Check("MENU:VIEW:TOOLBARS:TBSTANDART", u"Стандартная", {ShowBar, 1}),
    Check("MENU:VIEW:TOOLBARS:TBDECODE", u"Перекодирование", {ShowBar, 2}),
    Separator("MENU:VIEW:TOOLBARS:SEP1"),
    Entry("MENU:VIEW:TOOLBARS:TBCUSTOMIZE", u"Настроить...", CustomizeToolbars,
          Picture{"TOOLBARCUSTOMIZE", u"ToolbarCustomize.ico"}),
    Entry("MENU:VIEW:FULLSCREEN", u"Во весь экран", FullScreen, Picture{"FULLSCREEN", u"Fullscreen.ico"}),
    Separator("MENU:VIEW:SEP1"),
    Entry("MENU:VIEW:CUSTOMIZE", u"Настройка вида", {ShowSettings, kViewTab}),

    Entry("MENU:INSERT:TIMEANDDATE", u"Время и дата", InsertTimeAndDate,
          Picture{"TIMEANDDATE", u"Time and date.ico"}),
    Entry("MENU:INSERT:TEXTFILE", u"Текстовый файл", InsertTextFile, Ctrl('T'),
          Picture{"TEXTFILE", u"Text file.ico"}),

    Entry("MENU:FORMAT:FONT", u"Шрифт документа", {ShowSettings, kFontTab}, Picture{"FONT", u"Font.ico"}),
    Separator("MENU:FORMAT:SEP1"),
    Submenu("MENU:FORMAT:ALLTEXTCASE", u"Регистр всего текста"),
    Entry("MENU:FORMAT:ALLTEXTCASE:CASEU", u"Все буквы заглавные", {TextToCase, kUpper}),
    Entry("MENU:FORMAT:ALLTEXTCASE:CASEL", u"Все буквы строчные", {TextToCase, kLower}),
    Separator("MENU:FORMAT:SEP2"),
    Submenu("MENU:FORMAT:SELTEXTCASE", u"Регистр выделенного текста"),
    Entry("MENU:FORMAT:SELTEXTCASE:CASEU", u"Все буквы заглавные", {SelectionToCase, kUpper}),
    Entry("MENU:FORMAT:SELTEXTCASE:CASEL", u"Все буквы строчные", {SelectionToCase, kLower}),
    Separator("MENU:FORMAT:SEP3"),
    Entry("MENU:FORMAT:OUTDENT", u"Уменьшить отступ", Outdent, F(5), Picture{"OUTDENT", u"Outdent.ico"}),
    Entry("MENU:FORMAT:INDENT", u"Увеличить отступ", Indent, F(6), Picture{"INDENT", u"Indent.ico"}),

    Entry("MENU:SERVICE:SETTINGS", u"Параметры программы", ShowSettings, Ctrl('Q'),
          Picture{"SETTINGS", u"Settings.ico"}),
    Separator("MENU:SERVICE:SEP1"),
    Entry("MENU:SERVICE:LOCKED", u"Блокировка программы", Lock, Ctrl('L'), Picture{"LOCKED", u"Locked.ico"}),

    Submenu("MENU:DECODE:DOS", u"DOS 866"),
    Entry("MENU:DECODE:DOS:DW", u"DOS 866 -> Windows 1251", {Recode, 0}),
    Entry("MENU:DECODE:DOS:DK", u"DOS 866 -> UNIX KOI-8", {Recode, 1}),
    Entry("MENU:DECODE:DOS:DI", u"DOS 866 -> ISO 8859-5", {Recode, 2}),
    Entry("MENU:DECODE:DOS:DM", u"DOS 866 -> MAC Apple", {Recode, 3}),
    Submenu("MENU:DECODE:WIN", u"Windows 1251"),
    Entry("MENU:DECODE:WIN:WD", u"Windows 1251 -> DOS 866", {Recode, 4}),
    Entry("MENU:DECODE:WIN:WK", u"Windows 1251 -> UNIX KOI-8", {Recode, 5}),
    Entry("MENU:DECODE:WIN:WI", u"Windows 1251 -> ISO 8859-5", {Recode, 6}),
    Entry("MENU:DECODE:WIN:WM", u"Windows 1251 -> MAC Apple", {Recode, 7}),
    Submenu("MENU:DECODE:KOI", u"UNIX KOI-8"),
    Entry("MENU:DECODE:KOI:KD", u"UNIX KOI-8 -> DOS 866", {Recode, 8}),
    Entry("MENU:DECODE:KOI:KW", u"UNIX KOI-8 -> Windows 1251", {Recode, 9}),
    Entry("MENU:DECODE:KOI:KI", u"UNIX KOI-8 -> ISO 8859-5", {Recode, 10}),
    Entry("MENU:DECODE:KOI:KM", u"UNIX KOI-8 -> MAC Apple", {Recode, 11}),
    Submenu("MENU:DECODE:ISO", u"ISO 8859-5"),
    Entry("MENU:DECODE:ISO:ID", u"ISO 8859-5 -> DOS 866", {Recode, 12}),
    Entry("MENU:DECODE:ISO:IW", u"ISO 8859-5 -> Windows 1251", {Recode, 13}),
    Entry("MENU:DECODE:ISO:IK", u"ISO 8859-5 -> UNIX KOI-8", {Recode, 14}),
    Entry("MENU:DECODE:ISO:IM", u"ISO 8859-5 -> MAC Apple", {Recode, 15}),
    Submenu("MENU:DECODE:MAC", u"MAC Apple"),
    Entry("MENU:DECODE:MAC:MD", u"MAC Apple -> DOS 866", {Recode, 16}),
    Entry("MENU:DECODE:MAC:MW", u"MAC Apple -> Windows 1251", {Recode, 17}),
    Entry("MENU:DECODE:MAC:MK", u"MAC Apple -> UNIX KOI-8", {Recode, 18}),
    Entry("MENU:DECODE:MAC:MI", u"MAC Apple -> ISO 8859-5", {Recode, 19}),
    Separator("MENU:DECODE:SEP1"),
    Entry("MENU:DECODE:UNDO", u"Отменить перекодирование", UndoRecoding, CtrlF(9),
          Picture{"UNDODECODING", u"Undo decoding.ico"}),
    Separator("MENU:DECODE:SEP2"),
    Entry("MENU:DECODE:DECODE", u"Перекодирование", ChoosePair, F(9), Picture{"DECODING", u"Decoding.ico"}),
    Separator("MENU:DECODE:SEP3"),
    Entry("MENU:DECODE:WIZARD", u"Мастер перекодирования", RunWizard, Ctrl('W'),
          Picture{"WIZARD", u"Wizard.ico"}),

    Entry("MENU:HELP:LICENSE", u"Лицензионное соглашение", ShowLicense, Picture{"LICENSE", u"License.ico"}),
    Separator("MENU:HELP:SEP1"),
    Entry("MENU:HELP:AUTHORMAIL", u"Написать письмо автору", WriteToAuthor,
          Picture{"AUTHORMAIL", u"Send Author EMail.ico"}),
    Entry("MENU:HELP:VISITHOMEPAGE", u"Посетить домашнюю страничку", VisitHomePage,
          Picture{"VISITHOMEPAGE", u"Visit Home Page.ico"}),
    Separator("MENU:HELP:SEP2"),
    Entry("MENU:HELP:ABOUT", u"О программе", ShowAbout, CtrlF(1), Picture{"ABOUT", u"About.ico"}),

    Separator("TOOLBAR:SEP1"),
    Tool("TOOLBAR:NEW", New, Picture{"NEW", u"New.ico"}, u"Создать документ"),
    Tool("TOOLBAR:OPEN", Open, Picture{"OPEN", u"Open.ico"}, u"Открыть документ"),
    Tool("TOOLBAR:REOPEN", Reopen, Picture{"REOPEN", u"Reopen.ico"}, u"Открыть документ заново"),
    Tool("TOOLBAR:SAVE", SaveOrSaveAs, Picture{"SAVE", u"Save.ico"}, u"Сохранить документ"),
    Separator("TOOLBAR:SEP2"),
    Tool("TOOLBAR:PRINT", Print, Picture{"PRINT", u"Print.ico"}, u"Печать документа"),
    Tool("TOOLBAR:PRINTSETTINGS", {ShowSettings, kPrintTab}, Picture{"PRINTSETTINGS", u"Print settings.ico"},
         u"Параметры печати"),
    Tool("TOOLBAR:FULLSCREEN", FullScreen, Picture{"FULLSCREEN", u"Fullscreen.ico"}, u"Во весь экран"),
    Separator("TOOLBAR:SEP3"),
    Tool("TOOLBAR:CUT", Cut, Picture{"CUT", u"Cut.ico"}, u"Вырезать"),
    Tool("TOOLBAR:COPY", Copy, Picture{"COPY", u"Copy.ico"}, u"Копировать"),
    Tool("TOOLBAR:PASTE", Paste, Picture{"PASTE", u"Paste.ico"}, u"Вставить"),
    Tool("TOOLBAR:DELETE", Delete, Picture{"DELETE", u"Delete.ico"}, u"Удалить"),
    Tool("TOOLBAR:CLEAR", Clear, Picture{"CLEAR", u"Clear.ico"}, u"Очистить"),
    Separator("TOOLBAR:SEP4"),
    Tool("TOOLBAR:UNDO", Undo, Picture{"UNDO", u"Undo.ico"}, u"Отменить действие"),
    Tool("TOOLBAR:REDO", Redo, Picture{"REDO", u"Redo.ico"}, u"Повторить действие"),
    Separator("TOOLBAR:SEP5"),
    Tool("TOOLBAR:FIND", Find, Picture{"FIND", u"Find.ico"}, u"Найти"),
    Tool("TOOLBAR:REPLACE", Replace, Picture{"REPLACE", u"Replace.ico"}, u"Найти и заменить"),
    Tool("TOOLBAR:GOTO", GoTo, Picture{"GOTO", u"Goto.ico"}, u"Перейти"),
    Separator("TOOLBAR:SEP6"),
    Tool("TOOLBAR:OUTDENT", Outdent, Picture{"OUTDENT", u"Outdent.ico"}, u"Уменьшить отступ"),
    Tool("TOOLBAR:INDENT", Indent, Picture{"INDENT", u"Indent.ico"}, u"Увеличить отступ"),
    Separator("TOOLBAR:SEP7"),
    Tool("TOOLBAR:FONT", {ShowSettings, kFontTab}, Picture{"FONT", u"Font.ico"}, u"Шрифт документа"),
    Separator("TOOLBAR:SEP8"),
    Tool("TOOLBAR:TIMEANDDATE", InsertTimeAndDate, Picture{"TIMEANDDATE", u"Time and date.ico"},
         u"Вставить время и дату"),
    Tool("TOOLBAR:TEXTFILE", InsertTextFile, Picture{"TEXTFILE", u"Text file.ico"},
         u"Вставить текстовый файл"),
    Separator("TOOLBAR:SEP9"),
    Tool("TOOLBAR:WIZARD", RunWizard, Picture{"WIZARD", u"Wizard.ico"}, u"Мастер перекодирования"),
    Tool("TOOLBAR:SETTINGS", ShowSettings, Picture{"SETTINGS", u"Settings.ico"}, u"Параметры программы"),
    Tool("TOOLBAR:LOCKED", Lock, Picture{"LOCKED", u"Locked.ico"}, u"Блокировка программы"),
    Separator("TOOLBAR:SEP10"),
    Tool("TOOLBAR:PROPERTIES", ShowProperties, Picture{"PROPERTIES", u"Properties.ico"},
         u"Свойства документа"),
    Separator("TOOLBAR:SEP11"),
    Tool("TOOLBAR:LICENSE", ShowLicense, Picture{"LICENSE", u"License.ico"}, u"Лицензионное соглашение"),
    Tool("TOOLBAR:ABOUT", ShowAbout, Picture{"ABOUT", u"About.ico"}, u"О программе"),
    Separator("TOOLBAR:SEP12"),

    Separator("TOOLBAR2:SEP1"),
    Panel("TOOLBAR2:DECODE", ChooseDirection),
    Separator("TOOLBAR2:SEP2"),
    Tool("TOOLBAR2:START", StartDecode, Picture{"STARTDECODE", u"Start.ico"}, u"Перекодировать документ",
         u"Перекодировать"),
    Tool("TOOLBAR2:STOP", StopDecode, Picture{"STOPDECODE", u"Stop.ico"}, u"Остановить перекодирование",
         u"Остановить"),
    Separator("TOOLBAR2:SEP3"),
    Tool("TOOLBAR2:UNDO", UndoRecoding, Picture{"UNDODECODE", u"Undo decoding.ico"},
         u"Отменить перекодирование"),
    Separator("TOOLBAR2:SEP4"),
};
static_assert(kCatalogue.size() == 150);

constexpr int kDirectionsWidth = 168;
constexpr int kNoIcon = -1;

bool IsChildOf(std::string_view key, std::string_view parent) {
    return key.starts_with(std::string(parent) + ":") && SplitKey(key).size() == SplitKey(parent).size() + 1;
}

void BuildBar(const cButtons& buttons, const cCommandBars& bars, std::string_view key,
              const std::optional<cButton>& parent) {
    std::optional<cCommandBar> bar;
    for (const CatalogueEntry& entry : kCatalogue) {
        if (!IsChildOf(entry.Key, key))
            continue;
        if (!bar) {
            bar = bars.Add(std::string(key), std::u16string(key.begin(), key.end()));
            if (parent)
                parent->SetBar(bar);
        }
        const cButton button = buttons.Item(entry.Key);
        bar->Buttons().Add(button);
        BuildBar(buttons, bars, entry.Key, button);
    }
}

} // namespace

std::span<const CatalogueEntry> Catalogue() {
    return kCatalogue;
}

const CatalogueEntry* FindEntry(std::string_view key) {
    const auto found = std::find_if(kCatalogue.begin(), kCatalogue.end(),
                                    [&](const auto& entry) { return entry.Key == key; });
    return found == kCatalogue.end() ? nullptr : &*found;
}

std::vector<std::string_view> SplitKey(std::string_view key) {
    std::vector<std::string_view> segments;
    for (std::size_t colon = key.find(':'); colon != std::string_view::npos; colon = key.find(':')) {
        segments.push_back(key.substr(0, colon));
        key.remove_prefix(colon + 1);
    }
    segments.push_back(key);
    return segments;
}

void AddCatalogue(const cButtons& buttons, PanelControl& cmbDecode) {
    std::map<std::string_view, int> pictures; // so far, by bar
    for (const CatalogueEntry& entry : kCatalogue) {
        const int icon = entry.picture.file.empty() ? kNoIcon : pictures[RootOf(entry.Key)]++;
        const cButton button =
            buttons.Add(std::string(entry.Key), icon, std::u16string(entry.Caption), entry.Style,
                        std::u16string(entry.ToolTip), entry.ShortcutKey, entry.ShortcutModifiers);
        button.SetTag(std::u16string(entry.ToolTip)); // which stays when the tips are switched off
        if (entry.Style == ButtonStyle::Panel) {
            button.SetPanelWidth(kDirectionsWidth);
            button.SetPanelControl(&cmbDecode);
        }
        if (entry.showsCaption)
            button.SetShowCaptionInToolbar(true);
    }
}

void BuildBars(const cButtons& buttons, const cCommandBars& bars) {
    for (const std::string_view root : {"MENU", "TOOLBAR", "TOOLBAR2"})
        BuildBar(buttons, bars, root, std::nullopt);
}

} // namespace quillshift
