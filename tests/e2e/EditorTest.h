#pragma once

#include "base/Utf8.h"
#include "harness/Editor.h"
#include "harness/Iconv.h"
#include "support/TestsFolder.h"

#include <gtest/gtest.h>

namespace quillshift::e2e {

/// A test in the real program: `editor` is prepared, `Start` shows it.
class EditorTest : public testing::Test {
protected:
    Desktop desktop;
    Editor editor{desktop};

    std::filesystem::path Path(const std::string& name) const { return editor.home / name; }
    /// What the document holds, as a save writes it.
    std::string Saved() {
        editor.SaveAs(Path("saved.txt"));
        return Contents(Path("saved.txt"));
    }
    /// What it is to hold then.
    static std::string Bytes(const std::string& text) { return Iconv(text + "\r\n", "UTF-8", "CP1251"); }
    /// What other programs need to know to come here.
    Environment Elsewhere() const { return desktop.ProgramEnvironment(editor.home.Path()); }
    /// Another program puts a text on the clipboard, or another selection, and gives it out as `how` tells.
    Process StartCopying(const std::string& text, std::vector<std::string> how,
                         const std::string& selection = "clipboard") {
        Put(Path("clipboard.txt"), text);
        how.insert(how.end(), {"-selection", selection, "-i", Path("clipboard.txt")});
        return {"xclip", how, Elsewhere()};
    }
    void WaitUntilSeen(const std::string& text) {
        desktop.WaitUntil("the text has been seen",
                          [&] { return editor.Store().Is(Setting::ClipboardText, FromUtf8(text)); });
        desktop.WaitUntilQuiet(editor.Program());
    }
};

inline std::filesystem::path Sample(const std::string& name) {
    return TestsFolder() / "samples" / name;
}

} // namespace quillshift::e2e
