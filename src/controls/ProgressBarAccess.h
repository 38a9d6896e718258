#pragma once

namespace quillshift {

/// Makes screen readers meet each `ProgressBarWidget` as a progress bar with its value. Once is enough.
void AnnounceProgressBars();

} // namespace quillshift
