#pragma once

#include "platform/MessageBox.h"

namespace quillshift {

class QtMessageBox final : public MessageBox {
    BoxAnswer Show(BoxIcon icon, BoxButtons buttons, std::u16string_view text) override;
};

} // namespace quillshift
