#pragma once

#include "platform/posix/PosixFiles.h"
#include "platform/qt/QtBarSystem.h"
#include "platform/qt/QtBarWindow.h"
#include "platform/qt/QtTimers.h"
#include "shell/MainBars.h"
#include "support/FakeBarControl.h"

#include <QVBoxLayout>

#include <string>
#include <vector>

namespace quillshift {

/// The bars of the main window in real widgets, with the whole catalogue. `programFolder`: where the icon
/// files lie; without them the pictures stay blank. Shown when the test shows `window`.
struct WidgetBars {
    explicit WidgetBars(std::u16string folder) : programFolder(std::move(folder)) {
        bars.Build();
        toolkit.SetStyle(BarStyle::OfficeXP);
        bars.AttachMenu();
        bars.AttachToolBar(1, ToolBarIcons::Small);
        bars.AttachToolBar(2, ToolBarIcons::Small);
        auto* stack = new QVBoxLayout(&window);
        stack->setContentsMargins(0, 0, 0, 0);
        for (QtBarWindow* bar : barWindows)
            stack->addWidget(bar);
    }

    std::u16string programFolder;
    QtWindowMessages ids;
    MSubclass subclass{ids, u"test"};
    QtTextMeasurer texts;
    QtBarSystem system{ids};
    QtSystemColours colours;
    QtTheme theme;
    QtTimers timers;
    PosixFiles files;
    mCommandBars toolkit{{system, ids, subclass, colours, theme, timers}};
    QWidget window;
    std::array<QtBarWindow*, 3> barWindows{new QtBarWindow(ids, texts, &window),
                                           new QtBarWindow(ids, texts, &window),
                                           new QtBarWindow(ids, texts, &window)};
    std::vector<QtBarWindow*> popups;
    FakePanel panel;
    int commands = 0; ///< how many were run
    MainBars bars{toolkit,
                  {.windows = {barWindows[0], barWindows[1], barWindows[2]},
                   .popupWindow = [this]() -> BarWindow& {
                       popups.push_back(new QtBarWindow(ids, texts, &window));
                       return *popups.back();
                   },
                   .cmbDecode = panel,
                   .dispatch = [this](std::string_view) { ++commands; },
                   .beforeShortcut = {},
                   .menuResized = {},
                   .files = files,
                   .programFolder = programFolder,
                   .density = 1}};
};

} // namespace quillshift
