#pragma once

#include "platform/Progress.h"

namespace quillshift {

/// The windows of running jobs, each with the segmented bar.
class JobProgress final : public Progress {
public:
    std::unique_ptr<ProgressWindow> Begin(std::u16string_view what) override;
};

} // namespace quillshift
