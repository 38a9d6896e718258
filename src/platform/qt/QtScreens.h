#pragma once

#include "platform/Screen.h"

namespace quillshift {

class QtScreens final : public Screen {
public:
    TwipsRect Primary() const override;
    std::vector<TwipsRect> WorkAreas() const override;
};

} // namespace quillshift
