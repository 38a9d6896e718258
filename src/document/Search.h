#pragma once

#include "document/Replacements.h"
#include "document/SearchView.h"
#include "platform/Dialogs.h"
#include "platform/MessageBox.h"
#include "platform/Progress.h"
#include "platform/TextSurface.h"

#include <string>
#include <vector>

namespace quillshift {

/// What a dialog searches for, and how far it is.
struct SearchState {
    std::u16string wanted;
    std::u16string replacement;
    FindOptions options = FindOptions::None;
    /// The last search has found something: the next one goes on behind the selection, and replacing is
    /// offered. Otherwise the next one starts from the top.
    bool goesOn = false;
};

/// Finds and replaces in the document: for two dialogs, each with a state of its own, and for Find Next.
/// Searches go forward to the end of the text.
class Search {
public:
    struct Services {
        TextSurface& document;
        MessageBox& messageBox;
        Progress& progress;
        Dialogs& dialogs;
    };

    explicit Search(const Services& services) : services_(services) {}

    // The commands. A dialog that is not loaded starts with what is selected.
    void ShowFind();
    void ShowReplace();
    /// Goes on with the text of the dialog for finding; without that dialog, with what is selected.
    void FindNext();

    // The buttons.
    void Find(SearchState& state);
    /// Replaces the selection, whatever it is, and goes on to the next match.
    void Replace();
    /// Replaces in the whole document after a question: see `ReplacementsIn`.
    void ReplaceAll();
    /// The user has closed a dialog: its state goes with it.
    static void Forget(SearchState& state) { state = {}; }

    SearchState& FindState() { return find_; }
    SearchState& ReplaceState() { return replace_; }
    Rect MatchOnScreen() const { return services_.document.SelectionOnScreen(); }

    // The dialogs tell of themselves for as long as they live.
    void Attach(SearchView& view) { views_.push_back(&view); }
    void Detach(const SearchView& view) { std::erase(views_, &view); }

private:
    enum class From { Top, Selection };

    void Begin(SearchState& state);
    bool FindFrom(From from, SearchState& state);
    void EndSearch(SearchState& state, bool goesOn);
    std::size_t Run(const Replacements& found, std::u16string_view by);

    Services services_;
    SearchState find_;
    SearchState replace_;
    std::vector<SearchView*> views_;
    bool running_ = false; ///< a run is replacing, and the events of its progress window may call for more
};

} // namespace quillshift
