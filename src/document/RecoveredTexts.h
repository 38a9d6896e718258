#pragma once

#include "document/Recovery.h"
#include "document/modDocument.h"
#include "platform/MessageBox.h"
#include "platform/RecoveryStore.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quillshift {

/// The unsaved texts of copies of the program that did not end in order. One can be restored; the others
/// wait for the next start unless they are thrown away.
class RecoveredTexts {
public:
    struct Services {
        RecoveryStore& store;
        MessageBox& messageBox;
        Recovery& recovery;
        modDocument& documents;
    };
    struct Entry {
        std::u16string name; ///< of the document, or that nobody is to see it
        std::u16string path; ///< empty for one without a file
        std::int64_t time = 0;
        std::u16string firstLine; ///< the first that isn't blank
    };

    explicit RecoveredTexts(const Services& services) : services_(services) {}

    /// Whether there is anything to tell or to show.
    bool Find();
    /// Tells of each file that is damaged. None of them is found again.
    void TellOfDamaged();
    /// The newest first.
    std::size_t Count() const { return left_.size(); }
    Entry At(std::size_t index) const;

    /// Both answer whether it was done.
    bool Restore(std::size_t index);
    bool ThrowAway(std::size_t index);
    /// Leaves what is still there to the next start.
    void Release();
    bool HasRestored() const { return hasRestored_; }

    /// Asks who wants to see a text that was hidden behind the lock; without it nobody may.
    std::function<bool()> MaySeeLocked;

private:
    struct Left {
        LeftFile file;
        RecoveredText text;
    };

    Services services_;
    std::vector<Left> left_;
    std::vector<std::string> damaged_; // names
    bool hasRestored_ = false;
};

} // namespace quillshift
