// A demonstration that needs no display: opens a letter written under DOS, re-codes it by the menu, and
// leaves a picture of the main window.

#include "harness/Editor.h"

#include <exception>
#include <iostream>

namespace quillshift::e2e {
namespace {

void Demonstrate(const std::filesystem::path& letter, const std::filesystem::path& picture) {
    Desktop desktop({900, 700});
    Editor editor(desktop);
    editor.Set(Setting::FontSize, u"10")
        .Set(Setting::ShowInCaption, u"1")
        .Start()
        .Open(std::filesystem::absolute(letter));
    editor.Choose("MENU:DECODE:DOS:DW");
    editor.Settle();
    const Rect place = desktop.Place(editor.Window());
    desktop.Click({place.left + 400, place.top + 400});
    editor.Settle();
    desktop.TakePicture(picture, editor.Window());
}

} // namespace
} // namespace quillshift::e2e

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: demo LETTER PICTURE\n";
        return 2;
    }
    try {
        quillshift::e2e::Demonstrate(argv[1], argv[2]);
    } catch (const std::exception& error) {
        std::cerr << "the demonstration failed: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
