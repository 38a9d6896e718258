#pragma once

#include "document/UndoHistory.h"
#include "platform/Dialogs.h"
#include "platform/TextSurface.h"

#include <cstddef>
#include <functional>

namespace quillshift {

/// Edits the document's text on the whole screen, in a surface of its own. The text goes over as plain text
/// and comes back at the end, whether it was changed or not; caret and scroll come with it. Until then the
/// other surface has the only copy of what is being written, so whoever reads or changes the document ends
/// the mode first.
class FullScreen {
public:
    struct Services {
        TextSurface& document;
        Dialogs& dialogs;
        std::function<void(const TextSurface&)> follow; ///< from now on the text is what this one holds
        std::function<void(const TextSurface&, const TextEdit&)> edited;
    };

    explicit FullScreen(Services services) : services_(std::move(services)) {}

    /// Goes over to the whole screen, or back to its window if that is where the text is.
    void Begin();
    /// The one road out; nothing happens outside the mode.
    void End();
    bool IsOn() const { return screen_ != nullptr; }

    /// The window of the mode tells of its surface for as long as it lives.
    void Attach(TextSurface& screen);
    void Detach(const TextSurface& screen);

private:
    struct Place {
        std::size_t start = 0;
        std::size_t length = 0;
        std::size_t top = 0;
        bool operator==(const Place&) const = default;
    };
    static Place PlaceIn(const TextSurface& surface);
    static void Return(TextSurface& surface, const Place& place);

    Services services_;
    TextSurface* screen_ = nullptr;
    Place before_;            ///< where the document stood
    UndoHistory history_;     ///< of what is edited in the mode
    bool hasWritten_ = false; ///< something was
};

} // namespace quillshift
