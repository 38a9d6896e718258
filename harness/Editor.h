#pragma once

#include "harness/Desktop.h"
#include "platform/MessageBox.h"
#include "platform/posix/SqliteSettings.h"
#include "settings/Settings.h"

#include <memory>
#include <string>
#include <string_view>

namespace quillshift::e2e {

/// The real program on a desktop, with a home folder and a settings store of its own, and what a user does
/// with it. The store holds the first values, with the notice and the dialogs of the first start and the
/// question on leaving switched off.
class Editor {
public:
    explicit Editor(Desktop& desktop, std::filesystem::path program = QUILLSHIFT_PROGRAM);

    TemporaryFolder home;
    Environment environment; ///< what the program is to find there besides the usual
    Settings& Store() { return settings_; }
    Editor& Set(Setting setting, std::u16string_view text) {
        settings_.Set(setting, text);
        return *this;
    }
    void DeleteStore();

    /// Starts the program, and returns when its main window has the keyboard.
    Editor& Start();
    /// Starts the program and returns at once.
    void Launch();
    XWindow Window() const { return window_; }
    const Process& Program() const { return *program_; }
    bool Runs() { return !program_->ExitCode(); }
    /// Waits until the main window has the keyboard and all that was done so far is handled.
    void Settle();
    /// As `Settle`, with a dialog.
    void SettleIn(std::u16string_view title);
    /// Presses keys, and settles in the main window or in a dialog.
    void Press(std::string_view chords, std::u16string_view title = {});
    /// Waits for the program's end and gives its exit code.
    int WaitForEnd();
    /// Asks its window to close, and waits.
    int Close();

    /// Opens the menus down to a command and chooses it, by the keyboard.
    Editor& Choose(std::string_view commandKey);
    void Open(const std::filesystem::path& file);
    /// Saves under a name, whatever comes of it.
    Editor& SaveUnder(const std::filesystem::path& file);
    /// The same, and waits until the file is there, as a new one or anew.
    void SaveAs(const std::filesystem::path& file);
    /// Waits for a dialog by its title, types a path and confirms it; also that an existing file is replaced.
    void AnswerFileDialog(std::u16string_view title, const std::filesystem::path& file);
    /// Waits for a message box and answers it by the keyboard.
    Editor& AnswerBox(BoxAnswer answer);

private:
    Desktop& desktop_;
    std::filesystem::path file_; ///< the program's
    std::filesystem::path storeFile_;
    SqliteSettings store_;
    Settings settings_;
    void SettleWhere(const std::string& what, const std::function<bool(XWindow)>& isWanted);

    std::unique_ptr<Process> program_;
    XWindow window_ = 0;
};

/// The places from the top menu entry down to a command, each counted among its neighbours without the
/// separators; empty for a key that is no command.
std::vector<int> MenuPlaces(std::string_view commandKey);

} // namespace quillshift::e2e
