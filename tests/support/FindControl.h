#pragma once

#include <QWidget>
#include <stdexcept>

namespace quillshift {

/// The control of a window by its name; throws where there is none of that type.
template <typename Control>
Control& Find(const QWidget& window, const char* name) {
    auto* const control = window.findChild<Control*>(QLatin1String(name));
    if (control == nullptr)
        throw std::runtime_error(name);
    return *control;
}

} // namespace quillshift
