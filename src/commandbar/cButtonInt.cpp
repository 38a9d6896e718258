#include "commandbar/cButtonInt.h"

#include "commandbar/VirtualKeys.h"

namespace quillshift {

bool ButtonRecord::IsSelectable(DisplayMode mode, Orientation orientation) const {
    if (Style == ButtonStyle::Separator)
        return false;
    // A row with a tick box stands for the button's visibility, whatever state the button itself is in.
    if (mode == DisplayMode::AddOrRemoveList && CustomiseState != CustomiseState::PlainCommand)
        return true;
    if (Locked || !Visible || !Enabled)
        return false;
    return Style != ButtonStyle::Panel || (IsUpright(orientation) && HasIcon());
}

bool ButtonRecord::HasMnemonic(int virtualKey) const {
    const std::size_t mark = Caption.find(u'&');
    if (mark == std::u16string::npos || mark + 1 == Caption.size())
        return false;
    const int wanted = VirtualKeyOf(Caption[mark + 1]);
    return wanted != 0 && wanted == virtualKey;
}

std::u16string ButtonRecord::ShortcutText() const {
    const std::u16string name = ShortcutKey == 0 ? u"" : KeyName(ShortcutKey);
    if (name.empty())
        return {};
    std::u16string text;
    if ((ShortcutModifiers & modifier::kCtrl) != 0)
        text += u"Ctrl+";
    if ((ShortcutModifiers & modifier::kShift) != 0)
        text += u"Shift+";
    if ((ShortcutModifiers & modifier::kAlt) != 0)
        text += u"Alt+";
    return text + name;
}

std::u16string ButtonRecord::FullToolTip() const {
    const std::u16string shortcut = ShortcutText();
    return shortcut.empty() ? ToolTip : ToolTip + u" (" + shortcut + u")";
}

} // namespace quillshift
