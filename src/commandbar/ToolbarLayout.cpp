#include "commandbar/ToolbarLayout.h"

#include <algorithm>
#include <numeric>

namespace quillshift {
namespace {

// One button on its way to its place.
struct Piece {
    bool visible = false;
    bool hidden = false; // for lack of room
    bool separator = false;
    bool offered = false; // in the menu of what is hidden
    int along = 0;
    int across = 0;

    bool IsShown() const { return visible && !hidden; }
};

std::vector<Piece> PiecesOf(BarButtons buttons, const cMeasureButtonParams& params,
                            const ToolbarLayout& before, const ItemMeasure& measure) {
    const bool upright = IsUpright(params.Orientation);
    const bool remembers = params.Mode == DisplayMode::Toolbar && before.items.size() == buttons.size();
    std::vector<Piece> pieces(buttons.size());
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (!buttons[i]->Visible)
            continue;
        const Size size = measure(*buttons[i]);
        pieces[i] = {.visible = true,
                     .hidden = remembers && before.items[i].Hidden,
                     .separator = buttons[i]->Style == ButtonStyle::Separator,
                     .offered = buttons[i]->Style != ButtonStyle::Separator &&
                                buttons[i]->Style != ButtonStyle::Panel,
                     .along = upright ? size.height : size.width,
                     .across = upright ? size.width : size.height};
    }
    return pieces;
}

// The room that each piece takes along the bar. Of two separators side by side the second takes none.
std::vector<int> Lengths(const std::vector<Piece>& pieces) {
    std::vector<int> lengths(pieces.size());
    bool afterSeparator = false;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (!pieces[i].IsShown())
            continue;
        lengths[i] = pieces[i].separator && afterSeparator ? 0 : pieces[i].along;
        afterSeparator = pieces[i].separator;
    }
    return lengths;
}

int Used(const std::vector<Piece>& pieces) {
    const std::vector<int> lengths = Lengths(pieces);
    return std::accumulate(lengths.begin(), lengths.end(), 0);
}

bool HasOffers(const std::vector<Piece>& pieces) {
    return std::ranges::any_of(pieces, [](const Piece& piece) { return piece.hidden && piece.offered; });
}

// Hides pieces from the end until the rest has room; a bar with separators loses whole groups.
void HideFromEnd(std::vector<Piece>& pieces, int room) {
    const bool grouped = std::ranges::any_of(pieces, &Piece::separator);
    bool groupGone = !grouped;
    for (std::size_t i = pieces.size(); i-- > 0;) {
        if (Used(pieces) <= room && groupGone)
            return;
        if (!pieces[i].IsShown())
            continue;
        pieces[i].hidden = true;
        groupGone = !grouped || pieces[i].separator;
    }
}

// Brings pieces back, at most one group of them; answers whether any came.
bool TakeBack(std::vector<Piece>& pieces, int spare) {
    bool any = false;
    for (Piece& piece : pieces) {
        if (!piece.hidden)
            continue;
        if (piece.along > spare || (piece.separator && any))
            break;
        piece.hidden = false;
        spare -= piece.along;
        any = true;
    }
    return any;
}

// Answers whether any came back.
bool Fit(std::vector<Piece>& pieces, int length, bool narrower) {
    std::vector<Piece> all = pieces;
    for (Piece& piece : all)
        piece.hidden = false;
    // Separators at the end are no loss.
    for (std::size_t i = all.size(); i-- > 0 && Used(all) > length && (all[i].separator || !all[i].visible);)
        all[i].hidden = all[i].visible;
    if (Used(all) <= length) {
        pieces = std::move(all);
        return false;
    }
    const int room = length - (HasOffers(pieces) ? kMoreLength : 0);
    if (Used(pieces) <= room)
        // A group that has just gone leaves room behind. It would return in part at each step on the way
        // down.
        return !narrower && TakeBack(pieces, room - Used(pieces));
    HideFromEnd(pieces, room);
    if (HasOffers(pieces) && Used(pieces) > length - kMoreLength)
        HideFromEnd(pieces, length - kMoreLength);
    return false;
}

// 0: as deep as the deepest item of the row. With items hidden a bar stays as deep as it was.
int DepthOfRow(const std::vector<Piece>& pieces, DisplayMode mode, int told) {
    if (mode != DisplayMode::Toolbar || told != 0 || !HasOffers(pieces))
        return mode == DisplayMode::Toolbar ? told : 0;
    return std::ranges::max(pieces, {}, &Piece::across).across;
}

Rect PlaceOfMore(const cMeasureButtonParams& params, int depth) {
    if (IsUpright(params.Orientation))
        return {0, params.Height - kMoreLength, depth, params.Height};
    const int left = params.RightToLeft ? 0 : params.Width - kMoreLength;
    return {left, 0, left + kMoreLength, depth};
}

void PlaceRows(ToolbarLayout& layout, const std::vector<Piece>& pieces, const cMeasureButtonParams& params,
               int toldDepth) {
    const std::vector<int> lengths = Lengths(pieces);
    const int start = params.RightToLeft ? params.Width : 0;
    int position = start;
    int depth = 0;
    std::vector<std::size_t> row;
    const auto closeRow = [&] {
        depth = toldDepth != 0 ? toldDepth : depth;
        for (const std::size_t i : row) {
            layout.items[i].Top = layout.depth;
            layout.items[i].Bottom = layout.depth + depth;
        }
        layout.depth += depth;
        row.clear();
        position = start;
        depth = 0;
    };
    const auto fits = [&](int length) {
        return params.RightToLeft ? position - length >= 0 : position + length < params.Width;
    };
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (!pieces[i].IsShown())
            continue;
        if (params.Mode == DisplayMode::MainMenu && !row.empty() && !fits(lengths[i]))
            closeRow();
        const int next = position + (params.RightToLeft ? -lengths[i] : lengths[i]);
        layout.items[i].Left = std::min(position, next);
        layout.items[i].Right = std::max(position, next);
        position = next;
        depth = std::max(depth, pieces[i].across);
        row.push_back(i);
    }
    closeRow();
}

void PlaceColumn(ToolbarLayout& layout, const std::vector<Piece>& pieces) {
    const std::vector<int> lengths = Lengths(pieces);
    int position = 0;
    for (const Piece& piece : pieces)
        layout.depth = std::max(layout.depth, piece.IsShown() ? piece.across : 0);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (!pieces[i].IsShown())
            continue;
        const int across = pieces[i].separator ? layout.depth : pieces[i].across;
        const int left = (layout.depth - across + 1) / 2;
        layout.items[i] = {
            .Left = left, .Top = position, .Right = left + across, .Bottom = position + lengths[i]};
        position += lengths[i];
    }
}

} // namespace

ToolbarLayout LayOutToolbar(BarButtons buttons, const cMeasureButtonParams& params,
                            const ToolbarLayout& before, const ItemMeasure& measure, int depth) {
    const bool upright = IsUpright(params.Orientation);
    std::vector<Piece> pieces = PiecesOf(buttons, params, before, measure);
    ToolbarLayout layout;
    layout.length = upright ? params.Height : params.Width;
    if (params.Mode == DisplayMode::Toolbar)
        layout.cameBack = Fit(pieces, layout.length, layout.length < before.length);

    layout.items.assign(buttons.size(), kUnplacedItem);
    if (upright)
        PlaceColumn(layout, pieces);
    else
        PlaceRows(layout, pieces, params, DepthOfRow(pieces, params.Mode, depth));
    if (HasOffers(pieces))
        layout.more = PlaceOfMore(params, layout.depth);
    for (std::size_t i = 0; i < pieces.size(); ++i)
        layout.items[i].Hidden = pieces[i].hidden;
    return layout;
}

Rect PanelControlArea(const cDisplayButtonInfo& item, int controlHeight) {
    return RectAt(item.Left + 1, item.Top + (item.Bottom - item.Top - controlHeight) / 2,
                  item.Right - item.Left - 2, controlHeight);
}

} // namespace quillshift
