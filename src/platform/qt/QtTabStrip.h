#pragma once

#include "platform/TabStrip.h"

#include <QTabBar>
#include <QWidget>

#include <vector>

namespace quillshift {

/// The toolkit's bar of tabs at an edge of a page area. A layout on this widget fills the page area. The bar,
/// which selects by itself and always has a selection, only shows what is selected here.
class QtTabStrip final : public QWidget, public TabStrip {
    Q_OBJECT

public:
    explicit QtTabStrip(QWidget* parent = nullptr);
    ~QtTabStrip() override;

    void Create(const TabStyles& styles) override;
    void SetFlatSeparators(bool on) override;
    void SetFont(const FontSpec& font) override;
    void SetPadding(int x, int y) override;
    int Insert(int position, const TabItem& item) override;
    bool Remove(int position) override;
    void RemoveAll() override;
    int Count() const override { return static_cast<int>(items_.size()); }
    std::optional<TabItem> Item(int position) const override;
    bool SetItem(int position, const TabItem& item) override;
    int Selection() const override { return selection_; }
    int Select(int position) override;
    Rect Place() const override;
    Rect PageArea() const override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Bar;

    void SelectByHand(int position);
    void PlaceBar();

    Bar* bar_ = nullptr;
    TabStyles styles_;
    std::vector<TabItem> items_;
    int selection_ = -1;
    QSize padding_{0, 0};
};

} // namespace quillshift
