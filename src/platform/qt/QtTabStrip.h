#pragma once

#include "platform/TabStrip.h"

#include <QFont>
#include <QIcon>
#include <QWidget>

#include <vector>

namespace quillshift {

class QtTabRow;

/// The toolkit's bars of tabs at an edge of a page area, one for each row of tabs; the row with the selected
/// tab stands beside the page area. A layout on this widget fills the page area. The bars, which select by
/// themselves and always have a selection, only show what is selected here.
class QtTabStrip final : public QWidget, public TabStrip {
    Q_OBJECT

public:
    explicit QtTabStrip(QWidget* parent = nullptr);
    ~QtTabStrip() override;

    void Create(const TabStyles& styles) override;
    void SetFlatSeparators(bool on) override;
    void SetFont(const FontSpec& font) override;
    void SetPadding(int x, int y) override;
    void SetImages(const TabImages& images) override;
    void Repaint() override;
    int Insert(int position, const TabItem& item) override;
    bool Remove(int position) override;
    void RemoveAll() override;
    int Count() const override { return static_cast<int>(items_.size()); }
    std::optional<TabItem> Item(int position) const override;
    bool SetItem(int position, const TabItem& item) override;
    Rect ItemPlace(int position) const override;
    int Selection() const override { return selection_; }
    int Select(int position) override;
    Rect PageArea() const override;
    Colour ColourOf(SystemColour name) const override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    // What the rows ask and tell.
    const TabStyles& Styles() const { return styles_; }
    bool FlatSeparators() const { return flatSeparators_; }
    QSize Padding() const { return padding_; }
    void SelectByHand(int position);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QtTabRow& RowOf(int position) const;
    QIcon IconOf(const TabItem& item) const;
    int Lay(const QtTabRow& row) const;
    void Refill();
    void Fill(const std::vector<int>& firsts);
    void FillRow(QtTabRow& row, int first, int end);
    std::vector<int> Firsts() const;
    void Arrange();
    void PlaceRows();

    std::vector<QtTabRow*> rows_; ///< in the order of the tabs
    TabStyles styles_;
    TabImages images_;
    QFont font_;
    std::vector<TabItem> items_;
    int selection_ = -1;
    QSize padding_{0, 0};
    bool flatSeparators_ = false;
};

} // namespace quillshift
