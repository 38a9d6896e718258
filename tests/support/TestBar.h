#pragma once

#include "commandbar/ItemMeasure.h"
#include "support/FakeBarControl.h"
#include "support/RecordingSurface.h"

#include <deque>

namespace quillshift {

/// A bar put together in a test. Its buttons stay where they are.
class TestBar {
public:
    ButtonRecord& Icon(int index = 0) {
        ButtonRecord& button = Add();
        button.IconIndex = index;
        return button;
    }
    ButtonRecord& Caption(std::u16string caption) {
        ButtonRecord& button = Add();
        button.Caption = std::move(caption);
        button.ShowCaptionInToolbar = true;
        return button;
    }
    ButtonRecord& Styled(ButtonStyle style) {
        ButtonRecord& button = Add();
        button.Style = style;
        return button;
    }
    ButtonRecord& Separator() { return Styled(ButtonStyle::Separator); }
    ButtonRecord& Add() {
        pointers_.push_back(&records_.emplace_back());
        return records_.back();
    }
    ButtonRecord& operator[](std::size_t index) { return records_[index]; }
    BarButtons Buttons() const { return pointers_; }

private:
    std::deque<ButtonRecord> records_;
    std::vector<const ButtonRecord*> pointers_;
};

/// Measures with text of a fixed pitch.
inline ItemMeasure FixedPitchMeasure(const cMeasureButtonParams& params) {
    return [&params](const ButtonRecord& button) { return MeasureItem(button, params, RecordingSurface()); };
}

/// Any bar, for a button that has to have one.
inline cCommandBarInt* SomeBar() {
    static int place = 0;
    return reinterpret_cast<cCommandBarInt*>(&place);
}
inline PanelControl* SomePanel(int least = 0) {
    static FakePanel panel;
    panel.least = least;
    return &panel;
}

} // namespace quillshift
