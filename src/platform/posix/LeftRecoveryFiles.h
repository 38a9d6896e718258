#pragma once

#include "platform/RecoveryStore.h"
#include "platform/posix/FileBytes.h"

#include <map>
#include <string>
#include <vector>

namespace quillshift {

/// The recovery files of copies of the program that are dead: nobody holds their locks. They are held here
/// from when they are found until they are released.
class LeftRecoveryFiles {
public:
    explicit LeftRecoveryFiles(std::string folder) : folder_(std::move(folder)) {}

    std::vector<LeftFile> Find();
    std::optional<FileFailure> PutIntoTrash(const LeftFile& file) const;
    std::u16string PutAway(const std::string& name) const;
    void Release();

private:
    using Names = std::map<std::string, std::vector<std::string>>; // of files, by the number of their copy

    Names List() const;
    bool Hold(const std::string& number);
    std::optional<LeftFile> Read(const std::string& name) const;

    std::string folder_;
    std::map<std::string, OpenFile> held_; // locks, by number
};

} // namespace quillshift
