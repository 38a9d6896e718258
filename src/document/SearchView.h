#pragma once

namespace quillshift {

/// A dialog of a search, as the search sees it. It tells the search of itself.
class SearchView {
public:
    virtual ~SearchView() = default;

    /// A search has ended: the state may be another, and a match is not to be hidden.
    virtual void OnSearched() = 0;
};

} // namespace quillshift
