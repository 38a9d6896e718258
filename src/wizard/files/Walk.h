#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quillshift::wizard {

struct Walked {
    std::vector<std::string> files; ///< in the order of their names; of several names of one file the first
    std::vector<std::string> unreadable; ///< what is not there, and folders that can't be gone into
};

/// The files that are named, and those in the folders that are named. In a folder it passes over what is
/// hidden, links, what is no regular file, the folders of version control, and the `.bak` beside its file.
/// `goesOn` is asked at each folder, and ends it early.
Walked Walk(
    const std::vector<std::string>& names, const std::function<bool()>& goesOn = [] { return true; });

} // namespace quillshift::wizard
