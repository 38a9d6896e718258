#pragma once

#include "platform/FileDialog.h"

namespace quillshift {

class QtFolderDialog final : public FolderDialog {
public:
    bool ShowFolder(std::u16string_view start) override;
};

} // namespace quillshift
