#pragma once

#include "platform/posix/PosixFiles.h"
#include "platform/qt/QtBarSystem.h"
#include "platform/qt/QtBarWindow.h"
#include "platform/qt/QtTimers.h"
#include "shell/MainBars.h"
#include "shell/frmMain.h"

#include <string>
#include <vector>

namespace quillshift {

/// The bars of the main window in real widgets, with the whole catalogue. `programFolder`: where the icon
/// files lie; without them the pictures stay blank. Shown when the test shows `window`.
struct WidgetBars {
    explicit WidgetBars(std::u16string programFolder)
        : bars(toolkit, window, files, std::move(programFolder)) {
        bars.OnClick = [this](std::string_view) { ++commands; };
        bars.Build();
        toolkit.SetStyle(BarStyle::OfficeXP);
        bars.AttachMenu();
        bars.AttachToolBar(1, ToolBarIcons::Small);
        bars.AttachToolBar(2, ToolBarIcons::Small);
    }
    /// The windows of the three bars, then those of the popups so far.
    std::vector<QtBarWindow*> Windows() {
        const auto all = window.findChildren<QtBarWindow*>();
        return {all.begin(), all.end()};
    }

    QtWindowMessages ids;
    MSubclass subclass{ids, u"test"};
    QtTextMeasurer texts;
    QtBarSystem system{ids};
    QtSystemColours colours;
    QtTheme theme;
    QtTimers timers;
    PosixFiles files;
    mCommandBars toolkit{{system, ids, subclass, colours, theme, timers}};
    frmMain window{ids, texts};
    int commands = 0; ///< how many were run
    MainBars bars;
};

} // namespace quillshift
