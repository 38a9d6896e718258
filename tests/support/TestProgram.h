#pragma once

#include "shell/Program.h"
#include "support/FakeDesktop.h"
#include "support/FakeDialogs.h"
#include "support/FakeMainView.h"
#include "support/FakePlatform.h"

namespace quillshift {

/// A whole program over fakes, its bars included: set what the store holds, then `Start`.
struct TestProgram : FakePlatform {
    explicit TestProgram(FileSystem* other = nullptr);
    ~TestProgram();
    TestProgram(const TestProgram&) = delete;
    TestProgram& operator=(const TestProgram&) = delete;

    Settings settings{store};
    FakeWindowMessages messages;
    FakeBarSystem system;
    FakeSystemColours colours;
    FakeTheme theme;
    MSubclass subclass{messages, u"test"};
    mCommandBars toolkit{{system, messages, subclass, colours, theme, timers}};
    FakeMainView window{messages};
    FakeDialogs* dialogs = nullptr;
    Program program;

    TestProgram& Set(Setting setting, std::u16string_view text) {
        settings.Set(setting, text);
        return *this;
    }
    FakeMainView& Start() {
        system.foreground = FakeMainView::kTop;
        program.Main();
        return window;
    }
    cButton Button(std::string_view key) { return program.Parts().bars.Button(key); }
    /// Opens a document that holds `bytes` by the menu.
    void OpenFile(std::u16string_view path, std::string_view bytes) {
        files.files[std::u16string(path)] = bytes;
        fileDialog.chosen.emplace_back(path);
        program.Run("MENU:FILE:OPEN");
    }
    std::u16string LastBox() const { return messageBox.shown.empty() ? u"" : messageBox.shown.back().text; }
};

} // namespace quillshift
