// On its own because the X library's header takes words such as "None" for itself.

#include "platform/qt/X11Compositing.h"

#include <X11/Xlib.h>

#include <string>

namespace quillshift {

// Who composites a screen owns a selection named after it.
bool IsComposited(_XDisplay* display) {
    const std::string name = "_NET_WM_CM_S" + std::to_string(DefaultScreen(display));
    return XGetSelectionOwner(display, XInternAtom(display, name.c_str(), False)) != 0L;
}

} // namespace quillshift
