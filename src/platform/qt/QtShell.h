#pragma once

#include "platform/Shell.h"

#include <QString>

#include <filesystem>
#include <optional>

namespace quillshift {

class QtShell final : public Shell {
public:
    /// `lockFile`: a file of the user's by which running copies see each other.
    explicit QtShell(const std::filesystem::path& lockFile);

    std::u16string ProgramFolder() const override;
    bool AnotherCopyRuns() const override { return anotherCopyRuns_; }
    bool StartProcess(std::u16string_view program) override;
    bool OpenWithDefault(std::u16string_view link) override;
    void Conceal(bool concealed) override;
    void EndProcess() override;

private:
    bool anotherCopyRuns_ = false;
    std::optional<QString> selection_; ///< what was offered for the middle button
};

} // namespace quillshift
