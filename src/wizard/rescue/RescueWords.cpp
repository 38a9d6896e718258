#include "wizard/rescue/RescueWords.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace quillshift::wizard {

namespace {

/// In the order of `Set`.
constexpr std::array<const char*, setCount> kSets{
    "DOS 866",      "Windows-1251", "KOI8-R",       "KOI8-U", "ISO 8859-5", "Mac",
    "Windows-1252", "DOS 437",      "Windows-1253", "UTF-8",  "UTF-16 LE",  "UTF-16 BE"};
/// In the order of `Debris`.
constexpr std::array<const char*, 6> kDebris{"quoted-printable",   "base64",    "слова заголовков почты",
                                             "коды символов &#…;", "коды \\u…", "коды %…"};
constexpr std::pair<std::string_view, const char*> kLanguages[] = {
    {"ru", "русский текст"},    {"uk", "украинский текст"}, {"be", "белорусский текст"},
    {"bg", "болгарский текст"}, {"sr", "сербский текст"},   {"latin", "текст латиницей"},
    {"el", "греческий текст"}};

std::string NameOfSet(Set set) {
    return kSets[static_cast<std::size_t>(set)];
}

const char* WordOf(Outcome outcome, bool byHand) {
    switch (outcome) {
    case Outcome::Repaired:
        return "исправлен";
    case Outcome::LeftAlone:
        return "исправлять нечего";
    case Outcome::LeftUnsure:
        return byHand ? "оставлен: что-то потерялось бы" : "оставлен: не все строки надёжны";
    case Outcome::DoesNotFit:
        return "оставлен: не помещается в набор";
    case Outcome::ChangedMeanwhile:
        return "оставлен: изменился тем временем";
    case Outcome::Unreadable:
        return "больше не читается";
    case Outcome::Failed:
        break;
    }
    return "не записывается";
}

const char* WordOf(Returned returned) {
    switch (returned) {
    case Returned::Restored:
        return "возвращён";
    case Returned::AsBefore:
        return "и так прежний";
    case Returned::Changed:
        return "не возвращён: изменился тем временем";
    case Returned::Gone:
        return "не возвращён: его удалили";
    case Returned::NoBackup:
        return "не возвращён: его копии нет";
    case Returned::Failed:
        break;
    }
    return "не возвращён: не записывается";
}

/// What was asked for meanwhile.
std::string WaitingIn(const Rescue& rescue) {
    return rescue.Waiting() == 0 ? "" : ". В очереди: " + std::to_string(rescue.Waiting());
}

} // namespace

std::string Describe(const Chain& chain) {
    std::string text;
    for (const Layer& layer : chain.layers)
        text += (text.empty() ? "" : ", ") + NameOfSet(layer.writtenIn) + " как " + NameOfSet(layer.readAs);
    if (text.empty())
        text = NameOfSet(chain.stored);
    else if (chain.stored != Set::Utf8)
        text += ", записан в " + NameOfSet(chain.stored);
    if (chain.debris)
        text += std::string(" (") + kDebris[static_cast<std::size_t>(*chain.debris)] + ')';
    return text;
}

std::string TitleOf(const Proposal& proposal) {
    if (!proposal.chain)
        return "Оставить как есть";
    std::string title = Describe(*proposal.chain);
    if (proposal.lost > 0)
        title += " — теряет " + Counted(proposal.lost, "знак", "знака", "знаков");
    return title;
}

std::string NameOf(const RescueRow& row) {
    return row.text ? "Вставленный текст" : row.finding.path;
}

std::string WhatItIs(const RescueRow& row) {
    const Finding& finding = row.finding;
    if (!finding.isReadable)
        return "";
    if (row.Way())
        return Describe(*row.Way());
    if (finding.isBinary)
        return "не текст";
    if (!row.text && finding.mark.size == 0)
        return "пустой файл";
    if (finding.verdict.candidates.empty())
        return "только латиница";
    const Candidate& best = finding.verdict.candidates.front();
    if (row.byHand || finding.verdict.answer != Answer::Clean)
        return best.leaveAlone || row.byHand ? "как есть" : "возможно, " + Describe(best.chain);
    for (const auto& [language, words] : kLanguages)
        if (best.language == language)
            return words;
    return "чистый текст";
}

std::string HowSure(const RescueRow& row, Target target) {
    if (row.returned)
        return WordOf(*row.returned);
    if (row.isCopied)
        return "в буфере обмена";
    if (row.outcome)
        return WordOf(*row.outcome, row.byHand);
    if (!row.finding.isReadable)
        return "не читается";
    if (row.byHand)
        return "выбрано вручную";
    if (row.finding.isBorrowed)
        return "надёжно: как соседние";
    if (row.IsUnsure())
        return "сомнительно";
    return WouldRepair(row, target) ? "надёжно" : "в порядке";
}

std::string NoteOn(const RescueRow& row, bool hasProposals) {
    if (!row.finding.isReadable)
        return "Прочитать его не удалось.";
    if (!hasProposals)
        return "Здесь нечего исправлять.";
    if (row.outcome == Outcome::Repaired)
        return "Уже исправлен; прежний вид вернёт «Вернуть как было».";
    return row.finding.hasOtherNames ? "У файла есть и другие имена: под ними он изменится тоже." : "";
}

std::string StateOf(const Rescue& rescue) {
    if (rescue.WhatIsDone() == Doing::Nothing && !rescue.Summary().empty())
        return rescue.Summary();
    if (rescue.WhatIsDone() == Doing::Listing && rescue.Total() == 0)
        return "Поиск файлов..." + WaitingIn(rescue);
    if (rescue.WhatIsDone() == Doing::Reading)
        return "Текст обрабатывается..." + WaitingIn(rescue);
    constexpr const char* kDone[] = {"", "Просмотрено: ", "Исправлено: ", "Возвращено: "};
    if (rescue.WhatIsDone() != Doing::Nothing)
        return kDone[static_cast<int>(rescue.WhatIsDone())] + std::to_string(rescue.Done()) + " из " +
               std::to_string(rescue.Total()) + WaitingIn(rescue);
    if (rescue.Rows().empty())
        return "";
    const auto count = [&rescue](auto is) {
        return std::to_string(std::ranges::count_if(rescue.Rows(), is));
    };
    return "В списке: " + std::to_string(rescue.Rows().size()) +
           ", можно исправить: " + std::to_string(rescue.Repairable()) + ", сомнительных: " +
           count([](const RescueRow& row) { return row.IsUnsure() && !row.byHand && !row.outcome; }) + ".";
}

std::string Counted(std::size_t number, const char* one, const char* few, const char* many) {
    const std::size_t tens = number % 100, units = number % 10;
    const bool isTeen = tens >= 11 && tens <= 14;
    const char* noun = !isTeen && units == 1 ? one : !isTeen && units >= 2 && units <= 4 ? few : many;
    return std::to_string(number) + ' ' + noun;
}

} // namespace quillshift::wizard
