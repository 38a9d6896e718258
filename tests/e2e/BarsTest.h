#pragma once

#include "e2e/EditorTest.h"
#include "shell/Catalogue.h"

namespace quillshift::e2e {

/// A test of the main window's menus and toolbars in the real program.
class BarsTest : public EditorTest {
protected:
    // The open menus, the oldest first; what is as thin as a shadow is one.
    std::vector<Rect> Open() const {
        std::vector<Rect> menus = desktop.Popups();
        std::erase_if(menus, [](const Rect& place) { return place.Width() < 10 || place.Height() < 10; });
        return menus;
    }
    // The newest of so many menus.
    Rect WaitForMenu(std::size_t count) {
        std::vector<Rect> menus;
        do {
            desktop.WaitUntil(std::to_string(count) + " menus are open",
                              [&] { return Open().size() == count; });
            editor.Settle();
            menus = Open();
        } while (menus.size() != count);
        return menus.back();
    }
    void WaitUntilClosed() {
        desktop.WaitUntil("all menus are closed", [&] { return Open().empty(); });
        editor.Settle();
    }
    void OpenByKeyboard(int heading) {
        desktop.Press("Alt");
        for (int i = 0; i < heading; ++i)
            desktop.Press("Right");
        desktop.Press("Down");
    }
    // Where a heading is to be clicked: its menu opens at its left edge.
    Point Heading(int heading) {
        OpenByKeyboard(heading);
        const Rect menu = WaitForMenu(1);
        desktop.Press("Escape");
        desktop.Press("Escape");
        WaitUntilClosed();
        return {menu.left + 12, menu.top - 10};
    }
    // How high the menu below a key is, by its entries, or what of them stands above one of them.
    static int HeightOfMenu(std::string_view menu, std::string_view end = {}) {
        int height = 2;
        for (const CatalogueEntry& entry : Catalogue())
            if (entry.Key == end)
                return height;
            else if (ParentKey(entry.Key) == menu)
                height += entry.Style == ButtonStyle::Separator ? 3 : 24;
        return height;
    }
    // Where the row of a command stands in the menu that shows it.
    static Point Row(const Rect& menu, std::string_view key) {
        return {menu.left + 40, menu.top + HeightOfMenu(ParentKey(key), key) + 11};
    }
    void ExpectTypingGoesToTheText() {
        desktop.Type(u"q");
        const std::string saved = Saved();
        EXPECT_EQ(saved, "q\r\n");
        editor.Press("BackSpace");
    }
};

} // namespace quillshift::e2e
