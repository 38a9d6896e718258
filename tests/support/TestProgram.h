#pragma once

#include "shell/Program.h"
#include "support/FakeMainView.h"
#include "support/FakePlatform.h"

namespace quillshift {

/// A whole program over fakes: set what the store holds, then `Start`.
struct TestProgram : FakePlatform {
    Settings settings{store};
    FakeMainView* window = nullptr; ///< from the first show on
    Program program{platform, [this] {
                        auto view = std::make_unique<FakeMainView>();
                        window = view.get();
                        return view;
                    }};

    TestProgram& Set(Setting setting, std::u16string_view text) {
        settings.Set(setting, text);
        return *this;
    }
    FakeMainView& Start() {
        program.Main();
        return *window;
    }
    /// Opens a document that holds `bytes` by the menu.
    void OpenFile(std::u16string_view path, std::string_view bytes) {
        files.files[std::u16string(path)] = bytes;
        fileDialog.chosen.emplace_back(path);
        program.Dispatch("MENU:FILE:OPEN");
    }
    std::u16string LastBox() const { return messageBox.shown.empty() ? u"" : messageBox.shown.back().text; }
};

} // namespace quillshift
