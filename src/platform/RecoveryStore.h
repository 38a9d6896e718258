#pragma once

#include "platform/FileSystem.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillshift {

/// A file that a copy of the program left which has ended without removing it.
struct LeftFile {
    std::string name;
    std::string bytes;     ///< empty where it can't be read
    std::int64_t time = 0; ///< of its last change, in seconds of the system's clock
};

/// Where the unsaved text of each running copy is kept. What is said of this copy's file is done in order and
/// elsewhere: the calls return at once, whatever the disk does. Everything is on the disk before the next
/// thing is done.
class RecoveryStore {
public:
    virtual ~RecoveryStore() = default;

    // The file of this copy.

    /// Its new contents, which are asked for elsewhere, too. The old ones are there until they are.
    virtual void Replace(std::function<std::string()> contents) = 0;
    virtual void Append(std::string bytes) = 0;
    /// Replaces the contents by what `shorten` makes of them; nothing is a failure.
    virtual void Rewrite(std::function<std::optional<std::string>(std::string_view)> shorten) = 0;
    /// The file becomes the one that is kept beside it, in place of an earlier such one.
    virtual void SetAside() = 0;
    virtual void Remove() = 0;
    /// Also what was set aside: nothing remains of this copy.
    virtual void RemoveAll() = 0;
    /// The file of a dead copy becomes that of this one.
    virtual void Take(const std::string& name) = 0;
    /// Something could not be done since the contents were last replaced. `Append` and `Rewrite` do nothing
    /// then.
    virtual bool HasFailed() const = 0;
    /// Told in a later event each time that something could not be done.
    std::function<void()> OnFailure;
    /// Waits until all is done, two seconds at most.
    virtual void Finish() = 0;

    // What dead copies left.

    /// Other copies of the program leave these alone until they are released.
    virtual std::vector<LeftFile> FindLeft() = 0;
    virtual std::optional<FileFailure> PutIntoTrash(const LeftFile& file) = 0;
    /// Keeps a file where no later start finds it, and answers with its path.
    virtual std::u16string PutAway(const std::string& name) = 0;
    virtual void Release() = 0;
};

} // namespace quillshift
