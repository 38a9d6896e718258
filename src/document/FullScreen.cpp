#include "document/FullScreen.h"

#include <utility>

namespace quillshift {

FullScreen::Place FullScreen::PlaceIn(const TextSurface& surface) {
    return {surface.SelStart(), surface.SelLength(), surface.TopPosition()};
}

void FullScreen::Return(TextSurface& surface, const Place& place) {
    surface.SetSelStart(place.start);
    surface.SetSelLength(place.length);
    surface.SetTopPosition(place.top);
}

void FullScreen::Begin() {
    if (!IsOn()) {
        before_ = PlaceIn(services_.document);
        services_.document.SetReadOnly(true);
        services_.dialogs.HideAll();
    }
    services_.dialogs.Show(DialogKind::FullScreen);
}

void FullScreen::Attach(TextSurface& screen) {
    history_ = {};
    history_.Record({}); // what is there at first can be gone back to
    screen.OnUndoKey = [this, &screen](bool isRedo) {
        isRedo ? history_.RedoEdit(screen) : history_.UndoEdit(screen);
    };
    screen.LoadPlain(services_.document.Text());
    screen_ = &screen;
    hasWritten_ = false;
    screen.OnChange = [this](const TextEdit& edit) {
        hasWritten_ = true;
        history_.Record(edit);
        services_.edited(*screen_, edit);
    };
    services_.follow(screen);
}

void FullScreen::Detach(const TextSurface& screen) {
    if (screen_ != &screen)
        return;
    screen_ = nullptr;
    services_.follow(services_.document);
}

// Who has only had a look comes back to where the document stood.
void FullScreen::End() {
    if (!IsOn())
        return;
    TextSurface& screen = *std::exchange(screen_, nullptr);
    const Place place = PlaceIn(screen);
    screen.OnChange = nullptr;
    services_.document.SetReadOnly(false);
    services_.document.SetText(screen.Text());
    Return(services_.document, hasWritten_ || place != Place{} ? place : before_);
    services_.follow(services_.document);
    services_.dialogs.Close(DialogKind::FullScreen);
    services_.dialogs.BringBack();
}

} // namespace quillshift
