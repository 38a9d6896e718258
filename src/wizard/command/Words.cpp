#include "wizard/command/Words.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace quillshift::wizard {

namespace {

constexpr std::string_view englishHelp =
    R"(Usage: quillshift-wizard [OPTION]... [FILE]...
Finds out what happened to garbled Russian text, and repairs it.

Without a FILE it is a filter: bytes in, repaired UTF-8 out. What is clean or unsure passes as it is.
With files and folders it tells what each of them is; with --write it repairs those that are sure, each beside
a backup (.bak) of its own. In folders it passes over links, hidden files and version control.

  --detect            tell what the input is, one line a file
  --list N            the N likeliest readings, with their scores in bits and the beginning of each
  --write             repair the files in their places, and keep a report of it
  --undo REPORT       bring back what was repaired by that report; what has changed since stays
  --report FILE       where to keep the report
  --from CHAIN        undo this chain (of files: of the unsure ones), such as koi8-r, utf-8>1251 or koi8-r>866,utf-8>1251
  --to utf-8|1251|keep  write so; keep: in the set the text was stored in
  --depth N           at most N wrong readings, 0 to 3
  --exclude SET,...   sets that have no part in it
  --files-from FILE   read the names of the files from FILE, - for standard input
  -0                  these names end with a zero byte
  --json              tell it as JSON, one object a line
  --help, --version

Sets: 866 1251 koi8-r koi8-u iso-8859-5 mac utf-8 utf-16le utf-16be 1252 437 1253
Exit status: 0 all is clean or repaired, 1 something was left as unsure, 2 trouble.
)";

constexpr std::string_view russianHelp =
    R"(Вызов: quillshift-wizard [КЛЮЧ]... [ФАЙЛ]...
Узнаёт, что случилось с испорченным русским текстом, и исправляет его.

Без ФАЙЛА это фильтр: на входе байты, на выходе исправленный UTF-8. Чистое и сомнительное проходит как есть.
Если названы файлы и папки, программа сообщает, что в каждом из них; с --write исправляет надёжные, оставляя рядом
с каждым копию (.bak). В папках пропускаются ссылки, скрытые файлы и служебные папки систем управления версиями.

  --detect            сообщить, что на входе, по строке на файл
  --list N            N вероятнейших прочтений с оценкой в битах и началом каждого
  --write             исправить файлы на месте и вести об этом отчёт
  --undo ОТЧЁТ        вернуть исправленное по этому отчёту; изменённое с тех пор остаётся
  --report ФАЙЛ       где вести отчёт
  --from ЦЕПЬ         отменить эту цепь (у файлов: у сомнительных): koi8-r, utf-8>1251 или koi8-r>866,utf-8>1251
  --to utf-8|1251|keep  как записать; keep: в наборе, в котором текст хранился
  --depth N           не больше N неверных прочтений, от 0 до 3
  --exclude НАБОР,... эти наборы ни при чём
  --files-from ФАЙЛ   взять имена файлов из ФАЙЛА, - означает стандартный ввод
  -0                  эти имена оканчиваются нулевым байтом
  --json              сообщить в виде JSON, по объекту на строку
  --help, --version

Наборы: 866 1251 koi8-r koi8-u iso-8859-5 mac utf-8 utf-16le utf-16be 1252 437 1253
Код возврата: 0 всё чисто или исправлено, 1 что-то оставлено как сомнительное, 2 неполадка.
)";

constexpr struct {
    Word word;
    std::string_view english, russian;
} words[] = {
    {Word::Help, englishHelp, russianHelp},
    {Word::BadArgument, "not understood", "непонятный ключ"},
    {Word::CannotRead, "cannot be read", "не читается"},
    {Word::NotRepresentable, "the text does not fit into the set; left as it is",
     "текст не помещается в набор; оставлен как есть"},
    {Word::LinesApart, "some lines went another way than the rest",
     "некоторые строки испорчены иначе, чем остальные"},
    {Word::LeftUnsure, "left as unsure", "оставлено как сомнительное"},
    {Word::Clean, "clean", "чисто"},
    {Word::Sure, "sure", "надёжно"},
    {Word::Unsure, "unsure", "сомнительно"},
    {Word::Binary, "binary", "двоичный"},
    {Word::Lost, "characters lost", "знаков потеряно"},
    {Word::Borrowed, "as its neighbours", "как соседние файлы"},
    {Word::OtherNames, "has other names, which change with it",
     "есть и под другими именами, они изменятся вместе с ним"},
    {Word::ReportIs, "to undo this:", "чтобы отменить:"},
    {Word::NoReport, "is no report of repairs", "не отчёт об исправлениях"},
    {Word::CannotWrite, "cannot be written", "не записывается"},
    {Word::Repaired, "repaired", "исправлен"},
    {Word::LeftAlone, "nothing to do", "исправлять нечего"},
    {Word::DoesNotFit, "does not fit into the set; left as it is",
     "не помещается в набор; оставлен как есть"},
    {Word::ChangedMeanwhile, "has changed meanwhile; left as it is",
     "изменился тем временем; оставлен как есть"},
    {Word::Restored, "brought back", "возвращён"},
    {Word::AsBefore, "is as it was", "и так прежний"},
    {Word::Gone, "was removed; not made anew", "удалён; заново не создан"},
    {Word::NoBackup, "its backup has gone or changed", "его копии нет, или она изменилась"},
};

} // namespace

std::string_view Say(Word word, Language language) {
    for (const auto& row : words)
        if (row.word == word)
            return language == Language::Russian ? row.russian : row.english;
    return "";
}

std::string Shown(std::string_view name) {
    std::string shown;
    int controls = 0; // bytes of one that are still to come
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto byte = static_cast<std::uint8_t>(name[i]);
        if (byte < 0x20 || byte == 0x7F || byte == '\\')
            controls = 1;
        else if (byte == 0xC2 && i + 1 < name.size() && static_cast<std::uint8_t>(name[i + 1]) < 0xA0)
            controls = 2; // U+0080 to U+009F: controls to a terminal, too
        if (controls == 0) {
            shown += name[i];
            continue;
        }
        --controls;
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\x%02x", byte);
        shown += byte == '\n' ? "\\n" : byte == '\\' ? "\\\\" : escape;
    }
    return shown;
}

Language LanguageOfLocale() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0')
            return std::string_view(value).starts_with("ru") ? Language::Russian : Language::English;
    }
    return Language::English;
}

} // namespace quillshift::wizard
