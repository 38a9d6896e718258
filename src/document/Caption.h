#pragma once

#include "base/Texts.h"
#include "platform/Window.h"
#include "settings/Settings.h"

#include <string>
#include <string_view>

namespace quillshift {

/// Titles the main window as `ShowInCaption` says: with the document's bare name, with its full path, or with
/// neither. Any other value leaves the title.
inline void ShowCaption(Window& window, Settings& settings, std::u16string_view name,
                        std::u16string_view path) {
    const std::u16string shown = settings.Text(Setting::ShowInCaption);
    const std::u16string program(kProgramTitle);
    if (shown == u"1" || shown == u"2")
        window.SetTitle(program + u" - [" + std::u16string(shown == u"1" ? name : path) + u"]");
    else if (shown == u"3")
        window.SetTitle(program);
}

} // namespace quillshift
