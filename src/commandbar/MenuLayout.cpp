#include "commandbar/MenuLayout.h"

#include <algorithm>

namespace quillshift {
namespace {

constexpr int kColumns = 8;
constexpr int kGridLeft = 26;
constexpr int kGridBorders = 28;
constexpr std::size_t kShortestGrid = 3;

// One button on its way to its place.
struct Row {
    std::size_t index = 0;
    Size size;
    bool separator = false;
    bool cell = false; // in a grid
};

bool IsShown(const ButtonRecord& button, DisplayMode mode, Infrequent infrequent) {
    return mode == DisplayMode::AddOrRemoveList ||
           (button.Visible && !(button.Infrequent && infrequent == Infrequent::LeftOut));
}

std::vector<Row> RowsOf(BarButtons buttons, const cMeasureButtonParams& params, Infrequent infrequent,
                        const ItemMeasure& measure) {
    std::vector<Row> rows;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const ButtonRecord& button = *buttons[i];
        if (!IsShown(button, params.Mode, infrequent))
            continue;
        Row row{.index = i, .size = measure(button), .separator = button.Style == ButtonStyle::Separator};
        if (row.separator && !rows.empty() && rows.back().separator)
            row.size = {};
        row.cell = params.Mode == DisplayMode::PopupMenu && !row.separator && button.Caption.empty();
        rows.push_back(row);
    }
    return rows;
}

// The end of the run of cells that begins at `from`.
std::size_t RunEnd(const std::vector<Row>& rows, std::size_t from) {
    while (from < rows.size() && rows[from].cell)
        ++from;
    return from;
}

class Placing {
public:
    Placing(std::vector<Row> rows, std::size_t buttons) : rows_(std::move(rows)) {
        layout_.items.assign(buttons, kUnplacedItem);
    }

    MenuLayout Run(bool rightToLeft) {
        for (std::size_t at = 0; at < rows_.size();) {
            const std::size_t end = RunEnd(rows_, at);
            if (end - at >= kShortestGrid) {
                PlaceGrid(at, end);
                at = end;
            } else {
                rows_[at].cell = false;
                Place(rows_[at], 0, rows_[at].size);
                top_ += rows_[at].size.height;
                ++at;
            }
        }
        // Rows are as wide as the menu. Cells keep their width, beside the icon strip on either side.
        for (const Row& row : rows_) {
            cDisplayButtonInfo& item = layout_.items[row.index];
            if (!row.cell) {
                item.Right = width_;
            } else if (rightToLeft) {
                item.Left = width_ - item.Left - row.size.width;
                item.Right = item.Left + row.size.width;
            }
        }
        layout_.size = {width_, top_ - kTop + 2};
        return std::move(layout_);
    }

private:
    static constexpr int kTop = 1;

    void Place(const Row& row, int left, Size size) {
        layout_.items[row.index] = {
            .Left = left, .Top = top_, .Right = left + size.width, .Bottom = top_ + size.height};
        width_ = std::max(width_, row.cell ? 0 : size.width);
    }

    void PlaceGrid(std::size_t begin, std::size_t end) {
        Size cell;
        for (std::size_t i = begin; i < end; ++i)
            cell = {std::max(cell.width, rows_[i].size.width), std::max(cell.height, rows_[i].size.height)};
        int column = 0;
        for (std::size_t i = begin; i < end; ++i) {
            rows_[i].size = cell;
            Place(rows_[i], kGridLeft + column * cell.width, cell);
            if (++column == kColumns || i + 1 == end) {
                column = 0;
                top_ += cell.height;
            }
        }
        width_ = std::max(width_, kColumns * cell.width + kGridBorders);
    }

    std::vector<Row> rows_;
    MenuLayout layout_;
    int top_ = kTop;
    int width_ = 0;
};

} // namespace

MenuLayout LayOutMenu(BarButtons buttons, const cMeasureButtonParams& params, Infrequent infrequent,
                      const ItemMeasure& measure) {
    return Placing(RowsOf(buttons, params, infrequent, measure), buttons.size()).Run(params.RightToLeft);
}

} // namespace quillshift
