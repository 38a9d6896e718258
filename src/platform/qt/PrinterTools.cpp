#include "platform/qt/PrinterTools.h"

#include <QProcess>
#include <QStringList>

#include <algorithm>
#include <array>

namespace quillshift {
namespace {

struct PrinterTool {
    const char* desktop; ///< the only one that it runs on, as the session names it; empty: any
    const char* program;
    const char* argument; ///< or null
    bool addsPrinter;     ///< and does nothing else
};
constexpr std::array kTools{
    PrinterTool{"KDE", "kde-add-printer", "--add-printer", true},
    PrinterTool{"KDE", "kcmshell6", "kcm_printer_manager", false},
    PrinterTool{"KDE", "kcmshell5", "kcm_printer_manager", false},
    PrinterTool{"GNOME", "gnome-control-center", "printers", false},
    PrinterTool{"", "system-config-printer", nullptr, false},
};

} // namespace

bool StartPrinterTool(bool toAdd) {
    const QString desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    return std::any_of(kTools.begin(), kTools.end(), [&](const PrinterTool& tool) {
        QStringList arguments;
        if (tool.argument != nullptr)
            arguments << QLatin1String(tool.argument);
        return (toAdd || !tool.addsPrinter) && desktop.contains(QLatin1String(tool.desktop)) &&
               QProcess::startDetached(QLatin1String(tool.program), arguments);
    });
}

} // namespace quillshift
