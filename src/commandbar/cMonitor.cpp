#include "commandbar/cMonitor.h"

#include <algorithm>
#include <cstdint>

namespace quillshift {
namespace {

bool Contains(const Rect& area, Point point) {
    return point.x >= area.left && point.x < area.right && point.y >= area.top && point.y < area.bottom;
}

std::int64_t SharedArea(const Rect& a, const Rect& b) {
    const std::int64_t width = std::min(a.right, b.right) - std::max(a.left, b.left);
    const std::int64_t height = std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
    return width > 0 && height > 0 ? width * height : 0;
}

} // namespace

cMonitor cMonitor::CreateFromPoint(std::span<const MonitorInfo> monitors, Point point) {
    for (const MonitorInfo& monitor : monitors)
        if (Contains(monitor.bounds, point))
            return From(monitor);
    return {};
}

cMonitor cMonitor::CreateFromWindow(std::span<const MonitorInfo> monitors, const Rect& window) {
    const MonitorInfo* best = nullptr;
    std::int64_t bestArea = 0;
    for (const MonitorInfo& monitor : monitors)
        if (const std::int64_t area = SharedArea(monitor.bounds, window); area > bestArea) {
            best = &monitor;
            bestArea = area;
        }
    return best ? From(*best) : cMonitor{};
}

cMonitor cMonitor::CreateFromHandle(std::span<const MonitorInfo> monitors, int handle) {
    for (const MonitorInfo& monitor : monitors)
        if (monitor.handle == handle)
            return From(monitor);
    return {};
}

cMonitor cMonitor::From(const MonitorInfo& monitor) {
    cMonitor found;
    found.IsPrimary = monitor.primary;
    found.hMonitor = monitor.handle;
    found.Name = monitor.name.substr(0, monitor.name.find(u'\0'));
    found.left = monitor.bounds.left;
    found.tOp = monitor.bounds.top;
    found.Width = monitor.bounds.Width();
    found.Height = monitor.bounds.Height();
    found.WorkLeft = monitor.workArea.left;
    found.WorkTop = monitor.workArea.top;
    found.WorkWidth = monitor.workArea.Width();
    found.WorkHeight = monitor.workArea.Height();
    return found;
}

} // namespace quillshift
