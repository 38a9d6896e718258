#pragma once

#include "platform/BarWindow.h"
#include "support/RecordingSurface.h"

#include <string>
#include <vector>

namespace quillshift {

/// A window of a bar: a place on the screen, and what was asked of it. Tells its listener of each new size,
/// and takes no paint while it is not to be painted.
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
        Rect next = place;
        (upright ? next.right : next.bottom) = (upright ? next.left : next.top) + px;
        MoveTo(next);
    }
    void Repaint(const Rect& part) override {
        if (painted)
            repainted.push_back(part);
    }
    void SetPainted(bool on) override { painted = on; }
    void SetToolTip(std::u16string_view text) override { toolTip = text; }
    void AnnounceItem(const BarPath&) override {}
    void ShowPopup(const Rect& screen) override {
        visible = true;
        MoveTo(screen);
    }
    void HidePopup() override {
        visible = false;
        shadows = 0;
    }
    void ShowShadows(const std::array<ShadowStrip, 2>& strips) override {
        shadows = 0;
        for (const ShadowStrip& strip : strips)
            shadows += visible && !strip.place.IsEmpty() && strip.pixels.bits != nullptr ? 1 : 0;
    }
    /// Gives the window a place, as its host or its user does.
    void MoveTo(const Rect& screen) {
        const bool resized = screen.Width() != place.Width() || screen.Height() != place.Height();
        place = screen;
        if (resized && listener != nullptr)
            listener->OnSize();
    }

    Rect place; ///< on the screen
    BarWindowListener* listener = nullptr;
    bool visible = false;
    bool painted = true;
    int textScale = 1; ///< of the desktop's letters
    int shadows = 0;   ///< strips that are shown
    std::vector<Rect> repainted;
    std::u16string toolTip;

private:
    WindowId id_;
    WindowId top_;
    class Texts final : public RecordingSurface {
    public:
        explicit Texts(const int& scale) : scale_(scale) {}
        Size TextExtent(std::u16string_view text, const FontSpec& font, bool mnemonics) const override {
            const Size size = RecordingSurface::TextExtent(text, font, mnemonics);
            return {size.width * scale_, size.height * scale_};
        }

    private:
        const int& scale_;
    } texts_{textScale};
};

/// A desktop of one monitor whose input comes from a test.
class FakeBarSystem final : public BarSystem {
public:
    void SetInputFilter(InputFilter* filter) override { input = filter; }
    void WatchPresses(bool on) override { watched = on; }
    Point PointerPosition() const override { return pointer; }
    WindowId WindowUnderPointer() const override { return underPointer; }
    WindowId ForegroundWindow() const override { return foreground; }
    std::vector<MonitorInfo> Monitors() const override {
        constexpr Rect kScreen{0, 0, 1280, 800};
        return {{.handle = 1, .name = {}, .bounds = kScreen, .workArea = kScreen, .primary = true}};
    }
    bool Layered() const override { return true; }
    ScreenCopy CopyOfScreen(const Rect&) const override { return {}; }

    /// A button goes down over a window; over none of this process it is told of only where it is watched
    /// for.
    void Press(WindowId window) {
        underPointer = window;
        if (input != nullptr && (window != 0 || watched))
            input->MouseFilter(true);
    }

    InputFilter* input = nullptr;
    bool watched = false;
    Point pointer;
    WindowId underPointer = 0;
    WindowId foreground = 0;
};

} // namespace quillshift
