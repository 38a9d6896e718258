#pragma once

#include "platform/Shell.h"

#include <filesystem>

namespace quillshift {

class QtShell final : public Shell {
public:
    /// `lockFile`: a file of the user's by which running copies see each other.
    explicit QtShell(const std::filesystem::path& lockFile);

    std::u16string ProgramFolder() const override;
    bool AnotherCopyRuns() const override { return anotherCopyRuns_; }
    bool StartProcess(std::u16string_view program) override;
    bool OpenWithDefault(std::u16string_view link) override;
    void EndProcess() override;

private:
    bool anotherCopyRuns_ = false;
};

} // namespace quillshift
