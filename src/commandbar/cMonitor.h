#pragma once

#include "platform/Monitor.h"

#include <span>
#include <string>

namespace quillshift {

/// A monitor found by what lies on it. All fields are empty when nothing does.
class cMonitor {
public:
    /// The monitor that contains a point.
    static cMonitor CreateFromPoint(std::span<const MonitorInfo> monitors, Point point);
    /// The monitor that shows the largest part of a window with these bounds.
    static cMonitor CreateFromWindow(std::span<const MonitorInfo> monitors, const Rect& window);
    /// The monitor with a handle.
    static cMonitor CreateFromHandle(std::span<const MonitorInfo> monitors, int handle);

    bool Exists() const { return hMonitor != 0; }
    Rect WorkArea() const { return RectAt(WorkLeft, WorkTop, WorkWidth, WorkHeight); }

    bool IsPrimary = false;
    int hMonitor = 0;
    std::u16string Name;
    int left = 0;
    int tOp = 0;
    int Width = 0;
    int Height = 0;
    int WorkLeft = 0;
    int WorkTop = 0;
    int WorkWidth = 0;
    int WorkHeight = 0;

private:
    static cMonitor From(const MonitorInfo& monitor);
};

} // namespace quillshift
