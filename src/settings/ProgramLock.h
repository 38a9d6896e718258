#pragma once

#include "platform/Dialogs.h"
#include "platform/MessageBox.h"
#include "platform/Shell.h"
#include "platform/Window.h"
#include "settings/Settings.h"

#include <functional>
#include <string>
#include <string_view>

namespace quillshift {

/// Hides the program behind a password while it runs on. A screen against looks, not a wall: the password
/// lies in the store as it was typed.
class ProgramLock {
public:
    struct Services {
        Settings& settings;
        MessageBox& messageBox;
        Dialogs& dialogs;
        Window& mainWindow;
        Shell& shell;
        std::function<void(bool isLocked)> changes; ///< told before a window goes, and once they are back
    };

    explicit ProgramLock(Services services) : services_(std::move(services)) {}

    /// Takes all windows off the screen and shows the lock's dialog in their stead; returns when it was
    /// opened, with all as it was. Without a name and a password it only says so.
    void Lock();
    bool IsLocked() const { return isLocked_; }
    /// For a text that an earlier run has left locked: the password is asked first, if there is one.
    bool MaySeeLocked();

    // For the dialog.

    /// Opens the lock if that is the password as it stood when the lock came; else says that it is not.
    bool Enter(std::u16string_view typed);
    void ShowTip();

private:
    bool IsSetUp() const;

    Services services_;
    std::string password_; ///< as it is stored
    bool isLocked_ = false;
    bool isOpened_ = false;
};

} // namespace quillshift
