#pragma once

namespace quillshift {

/// Makes screen readers meet each `HyperLink` as a link that can be pressed. Once is enough.
void AnnounceLinks();

} // namespace quillshift
