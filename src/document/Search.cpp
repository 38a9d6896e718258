#include "document/Search.h"

#include "base/Texts.h"

namespace quillshift {
namespace {

constexpr std::u16string_view kFinished = u"Поиск завершен!";

std::u16string Question(const SearchState& state) {
    return u"Вы действительно хотите заменить ''" + Quotable(state.wanted) + u"'' на ''" +
           Quotable(state.replacement) + u"'' во всем документе?";
}

std::u16string Result(std::size_t count, const Replacements& found) {
    const bool stopped = count < found.each.size();
    std::u16string text(stopped ? u"Поиск остановлен!" : kFinished);
    text += u" Было сделано " + WholeNumberText(static_cast<int>(count)) + u" замен(ы).";
    if (found.isCut && !stopped)
        text += u"\r\nБольше за один раз не заменяется: остальные совпадения остались как были.";
    return text;
}

} // namespace

void Search::ShowFind() {
    if (services_.document.Length() == 0) {
        services_.messageBox.Inform(u"Документ не содержит текста!");
        return;
    }
    if (!services_.dialogs.IsLoaded(DialogKind::Find))
        Begin(find_);
    services_.dialogs.Show(DialogKind::Find);
}

void Search::ShowReplace() {
    if (!services_.dialogs.IsLoaded(DialogKind::Replace))
        Begin(replace_);
    services_.dialogs.Show(DialogKind::Replace);
}

void Search::Begin(SearchState& state) {
    Forget(state);
    state.wanted = services_.document.SelText();
}

// What was searched for without the dialog stays in reach where nothing is selected.
void Search::FindNext() {
    if (running_)
        return;
    const bool isLoaded = services_.dialogs.IsLoaded(DialogKind::Find);
    if (!isLoaded && (services_.document.SelLength() > 0 || find_.wanted.empty()))
        Begin(find_);
    const bool found = FindFrom(From::Selection, find_);
    EndSearch(find_, found && find_.goesOn);
    if (!found)
        services_.messageBox.Inform(u"Текст не найден!");
}

void Search::Find(SearchState& state) {
    if (running_)
        return;
    const bool found = FindFrom(state.goesOn ? From::Selection : From::Top, state);
    EndSearch(state, found);
    if (!found)
        services_.messageBox.Inform(kFinished);
}

void Search::Replace() {
    if (running_)
        return;
    services_.document.SetSelText(replace_.replacement);
    const bool found = FindFrom(From::Selection, replace_);
    EndSearch(replace_, found);
    if (!found)
        services_.messageBox.Warn(kFinished);
}

void Search::ReplaceAll() {
    if (running_ || services_.messageBox.Ask(Question(replace_)) != BoxAnswer::Yes)
        return;
    const std::u16string by = WithWholeBreaks(replace_.replacement);
    const Replacements found =
        ReplacementsIn(services_.document, WithWholeBreaks(replace_.wanted), by, replace_.options);
    const std::size_t count = Run(found, by);
    if (count > 0)
        services_.messageBox.Inform(Result(count, found));
    EndSearch(replace_, false);
}

bool Search::FindFrom(From from, SearchState& state) {
    TextSurface& document = services_.document;
    const std::size_t start = from == From::Top ? 0 : document.SelStart() + document.SelLength();
    if (!document.Find(WithWholeBreaks(state.wanted), start, state.options))
        return false;
    document.SetFocus();
    return true;
}

void Search::EndSearch(SearchState& state, bool goesOn) {
    state.goesOn = goesOn;
    for (SearchView* const view : views_)
        view->OnSearched();
}

// In stretches between which the progress window runs events. Whatever else has changed the text there ends
// the run: the places found no longer hold.
std::size_t Search::Run(const Replacements& found, std::u16string_view by) {
    TextSurface& document = services_.document;
    const auto window = services_.progress.Begin(u"Замена...");
    running_ = true;
    std::size_t count = 0;
    for (bool goesOn = !found.each.empty(); goesOn;) {
        const std::size_t before = count;
        document.ReplaceEach(
            [&]() -> const Replacement* {
                const bool pauses = count > before && window->IsDue();
                return count == found.each.size() || pauses ? nullptr : &found.each[count++];
            },
            by);
        goesOn = count < found.each.size();
        if (!goesOn)
            break;
        const std::u16string left(document.Text());
        goesOn = window->Step(static_cast<double>(count) / static_cast<double>(found.each.size())) &&
                 document.Text() == left;
    }
    running_ = false;
    return count;
}

} // namespace quillshift
