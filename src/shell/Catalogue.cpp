#include "shell/Catalogue.h"

#include "commandbar/CommandBarHandles.h"
#include "commandbar/VirtualKeys.h"

#include <array>
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

// The kinds of entries. The icon's number is its place in the icon list of the bar.
constexpr CatalogueEntry Menu(std::string_view key, std::u16string_view caption, int icon = -1,
                              Shortcut shortcut = {}) {
    return {key, icon, caption, ButtonStyle::Normal, u"", shortcut.key, shortcut.modifiers};
}
constexpr CatalogueEntry Check(std::string_view key, std::u16string_view caption) {
    return {key, -1, caption, ButtonStyle::Check};
}
constexpr CatalogueEntry Separator(std::string_view key) {
    return {key, -1, u"", ButtonStyle::Separator};
}
constexpr CatalogueEntry Panel(std::string_view key) {
    return {key, -1, u"", ButtonStyle::Panel};
}
constexpr CatalogueEntry Tool(std::string_view key, int icon, std::u16string_view toolTip,
                              std::u16string_view caption = u"") {
    return {key, icon, caption, ButtonStyle::Normal, toolTip};
}

constexpr std::array kCatalogue{
    Menu("MENU:FILE", u"Файл"),
    Menu("MENU:EDIT", u"Правка"),
    Menu("MENU:FIND", u"Поиск"),
    Menu("MENU:VIEW", u"Вид"),
    Menu("MENU:INSERT", u"Вставка"),
    Menu("MENU:FORMAT", u"Формат"),
    Menu("MENU:SERVICE", u"Сервис"),
    Menu("MENU:DECODE", u"Перекодирование"),
    Menu("MENU:HELP", u"Справка"),

    Menu("MENU:FILE:NEW", u"Создать", 0, Ctrl('N')),
    Menu("MENU:FILE:OPEN", u"Открыть...", 1, Ctrl('O')),
    Menu("MENU:FILE:REOPEN", u"Открыть заново", 2),
    Menu("MENU:FILE:SAVE", u"Сохранить", 3, Ctrl('S')),
    Menu("MENU:FILE:SAVEAS", u"Сохранить как ...", -1, CtrlShift('S')),
    Separator("MENU:FILE:SEP1"),
    Menu("MENU:FILE:PRINT", u"Печать", 4, Ctrl('P')),
    Menu("MENU:FILE:PRINTSETTINGS", u"Параметры печати", 5),
    Separator("MENU:FILE:SEP2"),
    Menu("MENU:FILE:IMPORT", u"Импорт"),
    Menu("MENU:FILE:IMPORT:RTF", u"Импортировать текст из *.rtf файла"),
    Separator("MENU:FILE:SEP3"),
    Menu("MENU:FILE:PROPERTIES", u"Свойства документа", 6),
    Separator("MENU:FILE:SEP4"),
    Menu("MENU:FILE:EXIT", u"Выход"),

    Menu("MENU:EDIT:UNDO", u"Отменить", 7, Ctrl('Z')),
    Menu("MENU:EDIT:REDO", u"Повторить", 8, F(4)),
    Separator("MENU:EDIT:SEP1"),
    Menu("MENU:EDIT:CUT", u"Вырезать", 9, Ctrl('X')),
    Menu("MENU:EDIT:COPY", u"Копировать", 10, Ctrl('C')),
    Menu("MENU:EDIT:PASTE", u"Вставить", 11, Ctrl('V')),
    Menu("MENU:EDIT:DELETE", u"Удалить", 12, Ctrl('D')),
    Separator("MENU:EDIT:SEP2"),
    Menu("MENU:EDIT:SELECTALL", u"Выделить все", -1, Ctrl('A')),
    Menu("MENU:EDIT:CLEAR", u"Очистить", 13, Ctrl('K')),

    Menu("MENU:FIND:FIND", u"Найти", 14, Ctrl('F')),
    Menu("MENU:FIND:FINDNEXT", u"Найти далее", -1, F(3)),
    Menu("MENU:FIND:REPLACE", u"Найти и заменить", 15, Ctrl('H')),
    Separator("MENU:FIND:SEP1"),
    Menu("MENU:FIND:GOTO", u"Перейти", 16, Ctrl('G')),

    Check("MENU:VIEW:ONTOP", u"Поверх всех окон"),
    Menu("MENU:VIEW:TOOLBARS", u"Панели инструментов"),
    Check("MENU:VIEW:TOOLBARS:TBSTANDART", u"Стандартная"),
    Check("MENU:VIEW:TOOLBARS:TBDECODE", u"Перекодирование"),
    Separator("MENU:VIEW:TOOLBARS:SEP1"),
    Menu("MENU:VIEW:TOOLBARS:TBCUSTOMIZE", u"Настроить...", 17),
    Menu("MENU:VIEW:FULLSCREEN", u"Во весь экран", 18),
    Separator("MENU:VIEW:SEP1"),
    Menu("MENU:VIEW:CUSTOMIZE", u"Настройка вида"),

    Menu("MENU:INSERT:TIMEANDDATE", u"Время и дата", 19),
    Menu("MENU:INSERT:TEXTFILE", u"Текстовый файл", 20, Ctrl('T')),

    Menu("MENU:FORMAT:FONT", u"Шрифт документа", 21),
    Separator("MENU:FORMAT:SEP1"),
    Menu("MENU:FORMAT:ALLTEXTCASE", u"Регистр всего текста"),
    Menu("MENU:FORMAT:ALLTEXTCASE:CASEU", u"Все буквы заглавные"),
    Menu("MENU:FORMAT:ALLTEXTCASE:CASEL", u"Все буквы строчные"),
    Separator("MENU:FORMAT:SEP2"),
    Menu("MENU:FORMAT:SELTEXTCASE", u"Регистр выделенного текста"),
    Menu("MENU:FORMAT:SELTEXTCASE:CASEU", u"Все буквы заглавные"),
    Menu("MENU:FORMAT:SELTEXTCASE:CASEL", u"Все буквы строчные"),
    Separator("MENU:FORMAT:SEP3"),
    Menu("MENU:FORMAT:OUTDENT", u"Уменьшить отступ", 22, F(5)),
    Menu("MENU:FORMAT:INDENT", u"Увеличить отступ", 23, F(6)),

    Menu("MENU:SERVICE:SETTINGS", u"Параметры программы", 24, Ctrl('Q')),
    Separator("MENU:SERVICE:SEP1"),
    Menu("MENU:SERVICE:LOCKED", u"Блокировка программы", 25, Ctrl('L')),

    Menu("MENU:DECODE:DOS", u"DOS 866"),
    Menu("MENU:DECODE:DOS:DW", u"DOS 866 -> Windows 1251"),
    Menu("MENU:DECODE:DOS:DK", u"DOS 866 -> UNIX KOI-8"),
    Menu("MENU:DECODE:DOS:DI", u"DOS 866 -> ISO 8859-5"),
    Menu("MENU:DECODE:DOS:DM", u"DOS 866 -> MAC Apple"),
    Menu("MENU:DECODE:WIN", u"Windows 1251"),
    Menu("MENU:DECODE:WIN:WD", u"Windows 1251 -> DOS 866"),
    Menu("MENU:DECODE:WIN:WK", u"Windows 1251 -> UNIX KOI-8"),
    Menu("MENU:DECODE:WIN:WI", u"Windows 1251 -> ISO 8859-5"),
    Menu("MENU:DECODE:WIN:WM", u"Windows 1251 -> MAC Apple"),
    Menu("MENU:DECODE:KOI", u"UNIX KOI-8"),
    Menu("MENU:DECODE:KOI:KD", u"UNIX KOI-8 -> DOS 866"),
    Menu("MENU:DECODE:KOI:KW", u"UNIX KOI-8 -> Windows 1251"),
    Menu("MENU:DECODE:KOI:KI", u"UNIX KOI-8 -> ISO 8859-5"),
    Menu("MENU:DECODE:KOI:KM", u"UNIX KOI-8 -> MAC Apple"),
    Menu("MENU:DECODE:ISO", u"ISO 8859-5"),
    Menu("MENU:DECODE:ISO:ID", u"ISO 8859-5 -> DOS 866"),
    Menu("MENU:DECODE:ISO:IW", u"ISO 8859-5 -> Windows 1251"),
    Menu("MENU:DECODE:ISO:IK", u"ISO 8859-5 -> UNIX KOI-8"),
    Menu("MENU:DECODE:ISO:IM", u"ISO 8859-5 -> MAC Apple"),
    Menu("MENU:DECODE:MAC", u"MAC Apple"),
    Menu("MENU:DECODE:MAC:MD", u"MAC Apple -> DOS 866"),
    Menu("MENU:DECODE:MAC:MW", u"MAC Apple -> Windows 1251"),
    Menu("MENU:DECODE:MAC:MK", u"MAC Apple -> UNIX KOI-8"),
    Menu("MENU:DECODE:MAC:MI", u"MAC Apple -> ISO 8859-5"),
    Separator("MENU:DECODE:SEP1"),
    Menu("MENU:DECODE:UNDO", u"Отменить перекодирование", 26, CtrlF(9)),
    Separator("MENU:DECODE:SEP2"),
    Menu("MENU:DECODE:DECODE", u"Перекодирование", 27, F(9)),
    Separator("MENU:DECODE:SEP3"),
    Menu("MENU:DECODE:WIZARD", u"Мастер перекодирования", 28, Ctrl('W')),

    Menu("MENU:HELP:LICENSE", u"Лицензионное соглашение", 29),
    Separator("MENU:HELP:SEP1"),
    Menu("MENU:HELP:AUTHORMAIL", u"Написать письмо автору", 30),
    Menu("MENU:HELP:VISITHOMEPAGE", u"Посетить домашнюю страничку", 31),
    Separator("MENU:HELP:SEP2"),
    Menu("MENU:HELP:ABOUT", u"О программе", 32, CtrlF(1)),

    Separator("TOOLBAR:SEP1"),
    Tool("TOOLBAR:NEW", 0, u"Создать документ"),
    Tool("TOOLBAR:OPEN", 1, u"Открыть документ"),
    Tool("TOOLBAR:REOPEN", 2, u"Открыть документ заново"),
    Tool("TOOLBAR:SAVE", 3, u"Сохранить документ"),
    Separator("TOOLBAR:SEP2"),
    Tool("TOOLBAR:PRINT", 4, u"Печать документа"),
    Tool("TOOLBAR:PRINTSETTINGS", 5, u"Параметры печати"),
    Tool("TOOLBAR:FULLSCREEN", 6, u"Во весь экран"),
    Separator("TOOLBAR:SEP3"),
    Tool("TOOLBAR:CUT", 7, u"Вырезать"),
    Tool("TOOLBAR:COPY", 8, u"Копировать"),
    Tool("TOOLBAR:PASTE", 9, u"Вставить"),
    Tool("TOOLBAR:DELETE", 10, u"Удалить"),
    Tool("TOOLBAR:CLEAR", 11, u"Очистить"),
    Separator("TOOLBAR:SEP4"),
    Tool("TOOLBAR:UNDO", 12, u"Отменить действие"),
    Tool("TOOLBAR:REDO", 13, u"Повторить действие"),
    Separator("TOOLBAR:SEP5"),
    Tool("TOOLBAR:FIND", 14, u"Найти"),
    Tool("TOOLBAR:REPLACE", 15, u"Найти и заменить"),
    Tool("TOOLBAR:GOTO", 16, u"Перейти"),
    Separator("TOOLBAR:SEP6"),
    Tool("TOOLBAR:OUTDENT", 17, u"Уменьшить отступ"),
    Tool("TOOLBAR:INDENT", 18, u"Увеличить отступ"),
    Separator("TOOLBAR:SEP7"),
    Tool("TOOLBAR:FONT", 19, u"Шрифт документа"),
    Separator("TOOLBAR:SEP8"),
    Tool("TOOLBAR:TIMEANDDATE", 20, u"Вставить время и дату"),
    Tool("TOOLBAR:TEXTFILE", 21, u"Вставить текстовый файл"),
    Separator("TOOLBAR:SEP9"),
    Tool("TOOLBAR:WIZARD", 22, u"Мастер перекодирования"),
    Tool("TOOLBAR:SETTINGS", 23, u"Параметры программы"),
    Tool("TOOLBAR:LOCKED", 24, u"Блокировка программы"),
    Separator("TOOLBAR:SEP10"),
    Tool("TOOLBAR:PROPERTIES", 25, u"Свойства документа"),
    Separator("TOOLBAR:SEP11"),
    Tool("TOOLBAR:LICENSE", 26, u"Лицензионное соглашение"),
    Tool("TOOLBAR:ABOUT", 27, u"О программе"),
    Separator("TOOLBAR:SEP12"),

    Separator("TOOLBAR2:SEP1"),
    Panel("TOOLBAR2:DECODE"),
    Separator("TOOLBAR2:SEP2"),
    Tool("TOOLBAR2:START", 0, u"Перекодировать документ", u"Перекодировать"),
    Tool("TOOLBAR2:STOP", 1, u"Остановить перекодирование", u"Остановить"),
    Separator("TOOLBAR2:SEP3"),
    Tool("TOOLBAR2:UNDO", 2, u"Отменить перекодирование"),
    Separator("TOOLBAR2:SEP4"),
};
static_assert(kCatalogue.size() == 150);

constexpr int kDirectionsWidth = 168;

// A heading of the menu strip, or one of the two tools that are known by their words.
bool ShowsCaption(std::string_view key) {
    const bool isHeading = key.starts_with("MENU:") && SplitKey(key).size() == 2;
    return isHeading || key == "TOOLBAR2:START" || key == "TOOLBAR2:STOP";
}

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
    for (const CatalogueEntry& entry : kCatalogue) {
        const cButton button =
            buttons.Add(std::string(entry.Key), entry.IconIndex, std::u16string(entry.Caption), entry.Style,
                        std::u16string(entry.ToolTip), entry.ShortcutKey, entry.ShortcutModifiers);
        if (entry.Style == ButtonStyle::Panel) {
            button.SetPanelWidth(kDirectionsWidth);
            button.SetPanelControl(&cmbDecode);
        }
        if (ShowsCaption(entry.Key))
            button.SetShowCaptionInToolbar(true);
    }
}

void BuildBars(const cButtons& buttons, const cCommandBars& bars) {
    for (const std::string_view root : {"MENU", "TOOLBAR", "TOOLBAR2"})
        BuildBar(buttons, bars, root, std::nullopt);
}

} // namespace quillshift
