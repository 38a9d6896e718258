// A demonstration that needs no display: opens a letter written under DOS, re-codes it by the menu, and
// leaves pictures of what is seen then.

#include "harness/Editor.h"

#include <exception>
#include <iostream>

namespace quillshift::e2e {
namespace {

namespace fs = std::filesystem;

// As a desktop with dark colours tells them.
constexpr std::string_view kDark = R"([Colors:Window]
BackgroundNormal=45,45,48
ForegroundNormal=230,230,230
[Colors:View]
BackgroundNormal=30,30,32
ForegroundNormal=230,230,230
[Colors:Button]
BackgroundNormal=60,60,64
ForegroundNormal=230,230,230
[Colors:Selection]
BackgroundNormal=60,110,180
ForegroundNormal=255,255,255
[Colors:Tooltip]
BackgroundNormal=60,60,64
ForegroundNormal=230,230,230
)";

/// The letter in the main window, re-coded, with the caret behind its heading.
struct Demonstration {
    Desktop desktop{{900, 700}};
    Editor editor{desktop};

    explicit Demonstration(const fs::path& letter, bool isDark = false) {
        if (isDark) {
            fs::create_directories(editor.home / "config");
            Put(editor.home / "config/kdeglobals", std::string(kDark));
            editor.environment = {{"XDG_CURRENT_DESKTOP", "KDE"}, {"KDE_SESSION_VERSION", "5"}};
        }
        editor.Set(Setting::FontSize, u"10")
            .Set(Setting::ShowInCaption, u"1")
            .Start()
            .Open(fs::absolute(letter));
        editor.Choose("MENU:DECODE:DOS:DW");
        editor.Settle();
        const Rect place = desktop.Place(editor.Window());
        desktop.Click({place.left + 400, place.top + 400});
        editor.Settle();
    }
    void Picture(const fs::path& file, std::u16string_view title = {}) {
        const XWindow window = title.empty() ? editor.Window() : desktop.WaitForWindow(title);
        desktop.WaitUntilQuiet(editor.Program());
        desktop.TakePicture(file, window);
    }
};

void LeaveAll(const fs::path& letter, const fs::path& folder) {
    Demonstration plain(letter);
    plain.Picture(folder / "main.png");
    plain.editor.Choose("MENU:FIND:FIND");
    plain.desktop.WaitForWindow(u"Найти");
    plain.desktop.Type(u"чудное");
    plain.desktop.Press("Return");
    plain.Picture(folder / "find.png", u"Найти");
    plain.desktop.AskToClose(plain.desktop.Find(u"Найти"));
    plain.editor.Settle();
    plain.editor.Choose("MENU:SERVICE:SETTINGS");
    plain.Picture(folder / "settings.png", u"Параметры программы");
    plain.desktop.AskToClose(plain.desktop.Find(u"Параметры программы"));
    plain.editor.Settle();
    plain.editor.Choose("MENU:VIEW:FULLSCREEN");
    plain.desktop.WaitUntilQuiet(plain.editor.Program());
    plain.desktop.TakePicture(folder / "full-screen.png");
    Demonstration(letter, true).Picture(folder / "dark.png");
}

} // namespace
} // namespace quillshift::e2e

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: demo LETTER PICTURE, or LETTER and a folder for all pictures\n";
        return 2;
    }
    try {
        if (std::filesystem::is_directory(argv[2]))
            quillshift::e2e::LeaveAll(argv[1], argv[2]);
        else
            quillshift::e2e::Demonstration(argv[1]).Picture(argv[2]);
    } catch (const std::exception& error) {
        std::cerr << "the demonstration failed: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
