#pragma once

#include "platform/FileSystem.h"
#include "wizard/detect/Detector.h"
#include "wizard/files/Output.h"

#include <functional>
#include <string_view>

namespace quillshift::wizard {

/// What was found out about a file.
struct Finding {
    std::string path;
    Verdict verdict;
    FileMark mark{};         ///< of the contents that were looked at
    std::string beginning{}; ///< bytes of what was looked at, where there is something to read
    bool isReadable = true;
    bool isBinary = false;
    bool hasOtherNames = false;   ///< hard links: they change with it
    bool isBorrowed = false;      ///< short and unsure by itself; the chain is its sure neighbours'
    std::optional<Chain> chain{}; ///< what would be undone; none where the file is left as it is

    Answer How() const { return isBorrowed ? Answer::Sure : verdict.answer; }
};

/// Told after each file, from any thread but one at a time: how many are done. False stops the work.
using OnDone = std::function<bool(std::size_t done)>;

/// The folder of its path, with the slash.
std::string_view FolderOf(const Finding& finding);

/// So much of a text that no word is cut, if there are blanks.
std::string BeginningOf(const std::string& text, std::size_t most);

/// Looks at one file by itself.
Finding Look(const std::string& path, const DetectOptions& options);
/// Each short file that is unsure borrows as in `LookAt`.
void BorrowFromNeighbours(const std::vector<Finding*>& findings);

/// Looks at the files, two at a time, and gives a finding for each of them, in their order. A short file that
/// is unsure borrows the chain of the sure ones in its folder, where these agree and it could have gone the
/// same way.
std::vector<Finding> LookAt(const std::vector<std::string>& files, const DetectOptions& options,
                            const OnDone& onDone);

/// Does `work` for the numbers below `count`, in two threads; stops where it or `onDone` says so.
void InTwoThreads(std::size_t count, const std::function<void(std::size_t)>& work, const OnDone& onDone);

} // namespace quillshift::wizard
