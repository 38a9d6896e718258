#pragma once

class QApplication;

namespace quillshift {

/// Windows that are open keep their size when the desktop draws everything larger or smaller, as far as the
/// screen has the room.
void FollowScaleOfScreens(QApplication& application);

} // namespace quillshift
