#pragma once

#include "platform/FileDialog.h"

namespace quillshift {

/// The desktop's file dialog, or Qt's where there is none.
class QtFileDialog final : public FileDialog {
public:
    bool ShowOpen() override;
    bool ShowSave() override;
};

} // namespace quillshift
