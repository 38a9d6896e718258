#pragma once

#include "document/DocumentState.h"
#include "document/RecoveryFormat.h"
#include "document/TextCopy.h"
#include "platform/RecoveryStore.h"
#include "platform/TextSurface.h"
#include "platform/Timer.h"
#include "settings/Settings.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quillshift {

/// Keeps the unsaved text in a file, so that it outlives a crash, a kill or a power cut. What is new is
/// written within a second, of a very long text a little later, or at once when the user turns away; with
/// nothing new nothing runs.
class Recovery {
public:
    struct Services {
        RecoveryStore& store;
        Settings& settings;
        Timers& timers;
        const DocumentState& state;
        TextSurface& document;
    };

    explicit Recovery(const Services& services);

    /// To be told of every edit. Those of a surface that isn't followed count nothing.
    void Edited(const TextSurface& surface, const TextEdit& edit);
    /// From now on the document is what this surface holds. Another one is to be followed before it goes.
    void Follow(const TextSurface& surface);
    /// Whether the text is hidden behind the lock: it is then also at the start after a crash.
    void SetLocked(bool isLocked);

    /// Writes what is not written yet.
    void Flush();
    /// The same, and waits until the disk has it, two seconds at most.
    void FlushAndWait();

    /// The text is about to be replaced, and nobody has been asked: one that isn't saved is kept as a text of
    /// its own until the next one, or until the program ends in order.
    void KeepReplaced();
    /// Nothing of the present text is to be kept: it is saved, or it is new.
    void Settled();
    /// The present text comes from a dead copy's file, which becomes that of this one.
    void Restored(const std::string& file);
    /// The program ends by the user's will.
    void End();

private:
    struct Edit {
        std::size_t place = 0;
        std::size_t went = 0;
        std::u16string came;
    };

    bool IsOn() const { return services_.settings.Text(Setting::Recovery) != u"0"; }
    void NoteChange();
    bool LacksText() const { return hasWritten_ && isUnsaved_ && services_.store.HasFailed(); }
    void Gather(const TextEdit& edit);
    void ForgetEdits();
    bool NeedsText() const;
    void FlushBitByBit();
    void CopyPiece();
    void WriteWhole();
    void WriteEdits();
    void RemoveAll();
    RecoveryPlace Place() const;

    Services services_;
    const TextSurface* text_;
    bool isLocked_ = false;
    bool isUnsaved_ = false;   ///< the text is nowhere else
    bool isUnwritten_ = false; ///< the file doesn't have all of it
    bool needsWhole_ = true;   ///< it can't be written as edits
    bool hasWritten_ = false;  ///< there may be a file
    bool leavesTrace_ = false; ///< there may be something of this copy
    std::vector<Edit> edits_;  ///< not written yet, if the whole isn't needed
    TextCopy copy_;            ///< of the text, if the whole is needed; follows the edits
    std::size_t gathered_ = 0; ///< characters in them
    std::size_t appended_ = 0; ///< edits behind the whole text in the file ...
    std::size_t grown_ = 0;    ///< ... and their bytes
    std::unique_ptr<Timer> timer_;
};

} // namespace quillshift
