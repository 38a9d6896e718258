#pragma once

#include "platform/BarWindow.h"
#include "platform/qt/QtSurface.h"
#include "platform/qt/QtWindowMessages.h"

#include <QWidget>

#include <array>
#include <memory>

namespace quillshift {

/// The widget that hosts a command bar: forwards events and copies out what is painted.
class QtBarWindow final : public QWidget, public BarWindow {
    Q_OBJECT

public:
    /// `ids` and `texts` outlive it. A popup is given the main window as its parent, too, above which it then
    /// stays.
    QtBarWindow(QtWindowMessages& ids, const QtTextMeasurer& texts, QWidget* parent);
    ~QtBarWindow() override;

    void SetListener(BarWindowListener* listener) override { listener_ = listener; }
    BarWindowListener* Listener() const { return listener_; }
    WindowId Id() const override { return id_; }
    WindowId TopWindow() const override { return ids_.Add(*window()); }
    Size ClientSize() const override { return {width(), height()}; }
    Rect ParentClient() const override;
    Point ToScreen(Point client) const override;
    Point FromScreen(Point screen) const override;
    const TextMeasurer& Texts() const override { return texts_; }
    bool RightToLeft() const override { return isRightToLeft(); }
    void SetDepth(int px, bool upright) override;
    void Repaint(const Rect& part) override;
    void SetPainted(bool on) override { setUpdatesEnabled(on); }
    void SetToolTip(std::u16string_view text) override;
    void AnnounceItem(const BarPath& path) override;
    void ShowPopup(const Rect& screen) override;
    void HidePopup() override;
    void ShowShadows(const std::array<ShadowStrip, 2>& strips) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    class Shadow;

    QtWindowMessages& ids_;
    const QtTextMeasurer& texts_;
    WindowId id_;
    QtMemorySurface memory_;
    BarWindowListener* listener_ = nullptr;
    std::array<std::unique_ptr<Shadow>, 2> shadows_;
};

} // namespace quillshift
