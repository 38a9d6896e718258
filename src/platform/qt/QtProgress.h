#pragma once

#include "platform/Progress.h"

namespace quillshift {

class QtProgress final : public Progress {
public:
    std::unique_ptr<ProgressWindow> Begin(std::u16string_view what) override;
};

} // namespace quillshift
