#include "shell/CommandTable.h"

#include <array>

namespace quillshift {
namespace {

constexpr auto kSeparator = CommandStyle::Separator;
constexpr auto kCheck = CommandStyle::Check;
constexpr auto kPlain = CommandStyle::Normal;

constexpr auto kTable = std::to_array<CommandEntry>({
    {"MENU:FILE", u"Файл"},
    {"MENU:FILE:NEW", u"Создать", kPlain, "N", kCtrl},
    {"MENU:FILE:OPEN", u"Открыть...", kPlain, "O", kCtrl},
    {"MENU:FILE:REOPEN", u"Открыть заново"},
    {"MENU:FILE:SAVE", u"Сохранить", kPlain, "S", kCtrl},
    {"MENU:FILE:SAVEAS", u"Сохранить как ...", kPlain, "S", kCtrl | kShift},
    {"MENU:FILE:SEP1", u"", kSeparator},
    {"MENU:FILE:IMPORT", u"Импорт"},
    {"MENU:FILE:IMPORT:RTF", u"Импортировать текст из *.rtf файла"},
    {"MENU:FILE:SEP3", u"", kSeparator},
    {"MENU:FILE:EXIT", u"Выход"},
    {"MENU:VIEW", u"Вид"},
    {"MENU:VIEW:ONTOP", u"Поверх всех окон", kCheck},
    {"MENU:VIEW:TOOLBARS", u"Панели инструментов"},
    {"MENU:VIEW:TOOLBARS:TBSTANDART", u"Стандартная", kCheck},
    {"MENU:VIEW:TOOLBARS:TBDECODE", u"Перекодирование", kCheck},
    {"MENU:DECODE", u"Перекодирование"},
    {"MENU:DECODE:DOS", u"DOS 866"},
    {"MENU:DECODE:DOS:DW", u"DOS 866 -> Windows 1251"},
    {"MENU:DECODE:DOS:DK", u"DOS 866 -> UNIX KOI-8"},
    {"MENU:DECODE:DOS:DI", u"DOS 866 -> ISO 8859-5"},
    {"MENU:DECODE:DOS:DM", u"DOS 866 -> MAC Apple"},
    {"MENU:DECODE:WIN", u"Windows 1251"},
    {"MENU:DECODE:WIN:WD", u"Windows 1251 -> DOS 866"},
    {"MENU:DECODE:WIN:WK", u"Windows 1251 -> UNIX KOI-8"},
    {"MENU:DECODE:WIN:WI", u"Windows 1251 -> ISO 8859-5"},
    {"MENU:DECODE:WIN:WM", u"Windows 1251 -> MAC Apple"},
    {"MENU:DECODE:KOI", u"UNIX KOI-8"},
    {"MENU:DECODE:KOI:KD", u"UNIX KOI-8 -> DOS 866"},
    {"MENU:DECODE:KOI:KW", u"UNIX KOI-8 -> Windows 1251"},
    {"MENU:DECODE:KOI:KI", u"UNIX KOI-8 -> ISO 8859-5"},
    {"MENU:DECODE:KOI:KM", u"UNIX KOI-8 -> MAC Apple"},
    {"MENU:DECODE:ISO", u"ISO 8859-5"},
    {"MENU:DECODE:ISO:ID", u"ISO 8859-5 -> DOS 866"},
    {"MENU:DECODE:ISO:IW", u"ISO 8859-5 -> Windows 1251"},
    {"MENU:DECODE:ISO:IK", u"ISO 8859-5 -> UNIX KOI-8"},
    {"MENU:DECODE:ISO:IM", u"ISO 8859-5 -> MAC Apple"},
    {"MENU:DECODE:MAC", u"MAC Apple"},
    {"MENU:DECODE:MAC:MD", u"MAC Apple -> DOS 866"},
    {"MENU:DECODE:MAC:MW", u"MAC Apple -> Windows 1251"},
    {"MENU:DECODE:MAC:MK", u"MAC Apple -> UNIX KOI-8"},
    {"MENU:DECODE:MAC:MI", u"MAC Apple -> ISO 8859-5"},
    {"MENU:DECODE:SEP1", u"", kSeparator},
    {"MENU:DECODE:UNDO", u"Отменить перекодирование", kPlain, "F9", kCtrl},
    {"MENU:DECODE:SEP2", u"", kSeparator},
    {"MENU:DECODE:DECODE", u"Перекодирование", kPlain, "F9"},
    {"MENU:DECODE:SEP3", u"", kSeparator},
    {"MENU:DECODE:WIZARD", u"Мастер перекодирования", kPlain, "W", kCtrl},
    {"MENU:HELP", u"Справка"},
    {"MENU:HELP:AUTHORMAIL", u"Написать письмо автору"},
    {"MENU:HELP:VISITHOMEPAGE", u"Посетить домашнюю страничку"},
});

} // namespace

std::span<const CommandEntry> CommandTable() {
    return kTable;
}

} // namespace quillshift
