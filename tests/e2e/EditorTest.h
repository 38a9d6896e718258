#pragma once

#include "harness/Editor.h"
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
};

inline std::filesystem::path Sample(const std::string& name) {
    return TestsFolder() / "samples" / name;
}

} // namespace quillshift::e2e
