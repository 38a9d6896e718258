#pragma once

#include "platform/FileDialog.h"
#include "platform/MessageBox.h"
#include "platform/Screen.h"
#include "platform/Shell.h"
#include "platform/Timer.h"

#include <filesystem>

namespace quillshift {

/// The desktop's file dialog, or Qt's where there is none.
class QtFileDialog final : public FileDialog {
public:
    bool ShowOpen() override;
    bool ShowSave() override;
};

class QtFolderDialog final : public FolderDialog {
public:
    bool ShowFolder(std::u16string_view start) override;
};

class QtMessageBox final : public MessageBox {
public:
    BoxAnswer Show(BoxIcon icon, BoxButtons buttons, std::u16string_view title,
                   std::u16string_view text) override;
};

class QtTimers final : public Timers {
public:
    std::unique_ptr<Timer> Make(std::function<void()> tick) override;
};

class QtScreens final : public Screen {
public:
    TwipsRect Primary() const override;
    std::vector<TwipsRect> WorkAreas() const override;
};

class QtShell final : public Shell {
public:
    /// `lockFile`: a file of the user's by which running copies see each other.
    explicit QtShell(const std::filesystem::path& lockFile);

    std::u16string ProgramFolder() const override;
    bool AnotherCopyRuns() const override { return anotherCopyRuns_; }
    bool StartProcess(std::u16string_view program) override;
    bool OpenWithDefault(std::u16string_view link) override;
    void RunPendingEvents() override;
    void EndProcess() override;

private:
    bool anotherCopyRuns_ = false;
};

} // namespace quillshift
