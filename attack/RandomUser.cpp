#include "RandomUser.h"

#include "base/Utf8.h"

#include <array>
#include <utility>

namespace quillshift::attack {
namespace {

constexpr std::array kKeys{"Return", "Escape", "Tab",  "space",     "Left",   "Right",  "Up",  "Down", "Home",
                           "End",    "Prior",  "Next", "BackSpace", "Delete", "Insert", "Alt", "F1",   "F3",
                           "F4",     "F5",     "F10",  "F11",       "Menu",   "a",      "c",   "f",    "g",
                           "h",      "n",      "o",    "p",         "s",      "v",      "x",   "y",    "z"};
constexpr std::array kModifiers{"", "", "", "Ctrl+", "Shift+", "Alt+", "Ctrl+Shift+"};
constexpr std::size_t kRemembered = 20;
constexpr std::array kTexts{u"text", u"Привет, мир", u"1", u"-", u"Ёё Ъ", u"a.txt", u"0123456789"};

} // namespace

void RandomUser::Act(e2e::XWindow window) {
    const std::size_t kind = Below(20);
    if (kind < 8)
        PressAnyKey();
    else if (kind < 11)
        TypeAnyText();
    else if (kind < 18)
        UseMouse(window);
    else
        ChangeWindow(window);
}

void RandomUser::Note(std::string doing) {
    last_.push_back(std::move(doing));
    if (last_.size() > kRemembered)
        last_.pop_front();
}

void RandomUser::Note(std::string doing, Point place) {
    Note(std::move(doing) + " at " + std::to_string(place.x) + ", " + std::to_string(place.y));
}

void RandomUser::PressAnyKey() {
    const std::string key = std::string(kModifiers[Below(kModifiers.size())]) + kKeys[Below(kKeys.size())];
    Note("press " + key);
    desktop_.Press(key);
}

void RandomUser::TypeAnyText() {
    const std::u16string_view text = kTexts[Below(kTexts.size())];
    Note("type " + ToUtf8(text));
    desktop_.Type(text);
}

// The menus and toolbars at the top are where most happens.
Point RandomUser::AnyPlace(e2e::XWindow window) {
    constexpr int kBars = 75;
    const Rect area = desktop_.Place(window);
    const bool onBars = Below(3) == 0;
    const auto width = static_cast<std::size_t>(std::max(area.Width(), 1));
    const auto height = static_cast<std::size_t>(std::max(onBars ? kBars : area.Height(), 1));
    return {area.left + static_cast<int>(Below(width)), area.top + static_cast<int>(Below(height))};
}

void RandomUser::UseMouse(e2e::XWindow window) {
    const Point place = AnyPlace(window);
    switch (Below(6)) {
    case 0:
        Note("move", place);
        desktop_.MoveTo(place);
        break;
    case 1: {
        const int button = static_cast<int>(1 + Below(5)); // 4 and 5 are the wheel's
        Note("button " + std::to_string(button), place);
        desktop_.Click(place, button);
        break;
    }
    case 2: {
        const Point end = AnyPlace(window);
        Note("drag", place);
        desktop_.HoldButton(place);
        Note("drop", end);
        desktop_.MoveTo(end);
        desktop_.ReleaseButton();
        break;
    }
    default:
        Note("click", place);
        desktop_.Click(place);
    }
}

void RandomUser::ChangeWindow(e2e::XWindow window) {
    switch (Below(5)) {
    case 0:
        Note("resize");
        desktop_.Resize(window, {static_cast<int>(1 + Below(1600)), static_cast<int>(1 + Below(1000))});
        break;
    case 1:
        Note("move the window");
        desktop_.Move(window, {static_cast<int>(Below(1200)), static_cast<int>(Below(700))});
        break;
    case 2:
        Note("minimise");
        desktop_.Minimise(window);
        break;
    case 3:
        Note("maximise");
        desktop_.Maximise(window);
        break;
    default:
        Note("close");
        if (const e2e::XWindow active = desktop_.Active(); active != 0)
            desktop_.AskToClose(active);
    }
    desktop_.Activate(window);
}

} // namespace quillshift::attack
