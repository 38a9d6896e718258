#pragma once

#include "platform/BarWindow.h"
#include "support/RecordingSurface.h"

#include <string>
#include <vector>

namespace quillshift {

/// A window of a bar: a place on the screen, and what was asked of it.
class FakeBarWindow final : public BarWindow {
public:
    FakeBarWindow(WindowId id, WindowId top, Rect area) : place(area), id_(id), top_(top) {}

    void SetListener(BarWindowListener* value) override { listener = value; }
    WindowId Id() const override { return id_; }
    WindowId TopWindow() const override { return top_; }
    Size ClientSize() const override { return {place.Width(), place.Height()}; }
    Rect ParentClient() const override { return {0, 0, place.Width(), 400}; }
    Point ToScreen(Point at) const override { return {at.x + place.left, at.y + place.top}; }
    Point FromScreen(Point at) const override { return {at.x - place.left, at.y - place.top}; }
    const TextMeasurer& Texts() const override { return texts_; }
    bool RightToLeft() const override { return false; }
    void SetDepth(int px, bool upright) override {
        (upright ? place.right : place.bottom) = (upright ? place.left : place.top) + px;
    }
    void Repaint(const Rect& part) override { repainted.push_back(part); }
    void SetToolTip(std::u16string_view text) override { toolTip = text; }
    void ShowPopup(const Rect& screen) override {
        place = screen;
        visible = true;
    }
    void HidePopup() override { visible = false; }
    void ShowShadows(const std::array<ShadowStrip, 2>&) override {}

    Rect place; ///< on the screen
    BarWindowListener* listener = nullptr;
    bool visible = false;
    std::vector<Rect> repainted;
    std::u16string toolTip;

private:
    WindowId id_;
    WindowId top_;
    RecordingSurface texts_;
};

/// A desktop of one monitor whose input comes from a test.
class FakeBarSystem final : public BarSystem {
public:
    void SetInputFilter(InputFilter* filter) override { input = filter; }
    Point PointerPosition() const override { return pointer; }
    WindowId WindowUnderPointer() const override { return underPointer; }
    WindowId ForegroundWindow() const override { return foreground; }
    std::vector<MonitorInfo> Monitors() const override {
        return {{.handle = 1, .name = {}, .bounds = screen, .workArea = screen, .primary = true}};
    }
    bool Layered() const override { return true; }
    ScreenCopy CopyOfScreen(const Rect&) const override { return {}; }

    InputFilter* input = nullptr;
    Point pointer;
    WindowId underPointer = 0;
    WindowId foreground = 0;
    Rect screen{0, 0, 1280, 800};
};

} // namespace quillshift
