#pragma once

#include "document/DocumentState.h"
#include "platform/Background.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/TextSurface.h"

#include <functional>
#include <optional>
#include <set>
#include <string>

namespace quillshift {

/// Offers to open the document's file anew once another program has changed it, as long as the text is the
/// one that was read or written there: once for each change.
class ReopenOffer {
public:
    struct Services {
        FileSystem& files;
        Background& background;
        MessageBox& messageBox;
        const DocumentState& state;
        const TextSurface& document;
        std::function<bool()> mayInterrupt; ///< nothing else has the user's attention
        std::function<void()> reopen;       ///< loads the document's file again
    };

    explicit ReopenOffer(Services services) : services_(std::move(services)) {}

    /// The user has come back to the document: looks, and asks as needed in a later event.
    void Look();

private:
    void Compare(const KnownFile& known, const std::optional<FileMark>& found);
    bool HasTextOf(const KnownFile& known) const;

    Services services_;
    std::set<std::u16string> underWay_; ///< files that are being looked at; a dead disk's for ever
    std::optional<FileMark> offered_;
};

} // namespace quillshift
