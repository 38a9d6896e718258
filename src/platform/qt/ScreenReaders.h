#pragma once

namespace quillshift {

/// From now on assistive programs are told only of windows that are on the screen: what is hidden is nobody's
/// to read. To be called once, before any of them asks.
void ShowScreenReadersTheScreenAlone();

/// What they were given of windows that are hidden now leads nowhere any more.
void ForgetHiddenFromScreenReaders();

} // namespace quillshift
