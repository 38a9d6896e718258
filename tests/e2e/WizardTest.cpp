#include "e2e/EditorTest.h"

#include "base/Utf8.h"
#include "harness/Iconv.h"

namespace quillshift::e2e {
namespace {

constexpr const char* kText = "Старая мельница стоит у самой воды, ещё и мелет.";

// The editor watches the clipboard and re-codes what comes there.
struct WizardBesideTheEditor : EditorTest {
    WizardBesideTheEditor() {
        editor.Set(Setting::SaveChange, u"0")
            .Set(Setting::ClipboardDetect, u"1")
            .Set(Setting::DecodeClipboard, u"1")
            .Start();
    }
    void Copy(const std::string& text) {
        Put(Path("copied.txt"), text);
        Process("xclip",
                {"-silent", "-selection", "clipboard", "-t", "UTF8_STRING", "-i", Path("copied.txt")},
                desktop.ProgramEnvironment(editor.home.Path()))
            .WaitForEnd();
        WaitUntilSeen(text);
    }
    void WaitUntilSeen(const std::string& text) {
        desktop.WaitUntil("the text has been seen",
                          [&] { return editor.Store().Is(Setting::ClipboardText, FromUtf8(text)); });
        desktop.WaitUntilQuiet(editor.Program());
    }
};

TEST_F(WizardBesideTheEditor, ARepairedTextIsNotReCodedOnceMore) {
    constexpr const char16_t* kWizard = u"Мастер перекодирования";
    const std::string text = Iconv(kText, "UTF-8", "CP1251") + "\r\n";
    Copy(Iconv(Iconv(kText, "UTF-8", "KOI8-R"), "CP866", "UTF-8"));
    desktop.Press("Ctrl+w");
    desktop.WaitForWindow(kWizard);
    desktop.Press("Ctrl+v");
    desktop.Press("Return");
    WaitUntilSeen(kText);
    desktop.Press("Escape");
    desktop.WaitUntilGone(kWizard);
    editor.Settle();
    EXPECT_EQ(Saved(), text);
    Copy(kText + std::string("!"));
    EXPECT_NE(Saved(), text);
    EXPECT_NE(Saved(), Iconv(kText, "UTF-8", "CP1251") + "!\r\n");
}

} // namespace
} // namespace quillshift::e2e
