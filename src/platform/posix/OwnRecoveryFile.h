#pragma once

#include "platform/posix/FileBytes.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

// The names in the folder: a number for each copy, and behind it one of these. The lock is held as long as
// the copy lives, and is never renamed.
inline constexpr std::string_view kTextEnding = ".text";
inline constexpr std::string_view kKeptEnding = ".kept";
inline constexpr std::string_view kLockEnding = ".lock";
inline constexpr std::size_t kCopyNumber = 16; ///< characters of the number

/// The recovery file of this copy of the program. What a call has done is on the disk when it returns; each
/// answers with an error number, 0 for success.
class OwnRecoveryFile {
public:
    /// The folder is made when it is needed.
    explicit OwnRecoveryFile(std::string folder) : folder_(std::move(folder)) {}

    int Replace(std::string_view bytes);
    /// Writes all of it anew where somebody has taken the file away.
    int Append(std::string_view bytes);
    int Rewrite(const std::function<std::optional<std::string>(std::string_view)>& shorten);
    int SetAside();
    int Remove();
    int RemoveAll();
    int Take(const std::string& name);

private:
    std::string PathOf(std::string_view ending) const {
        return folder_ + "/" + number_ + std::string(ending);
    }
    int TakePlace();
    bool IsInPlace(const OpenFile& file, std::string_view ending) const;
    int RemoveOne(std::string_view ending) const;

    std::string folder_;
    std::string number_;
    OpenFile lock_;
    OpenFile file_;
};

} // namespace quillshift
