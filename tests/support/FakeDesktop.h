#pragma once

#include "platform/SystemColours.h"

#include <map>

namespace quillshift {

/// The classic grey desktop.
class FakeSystemColours final : public SystemColours {
public:
    Colour Of(SystemColour name) const override { return colours.at(name); }
    int BitsPerPixel() const override { return bitsPerPixel; }
    bool HighContrast() const override { return false; }

    std::map<SystemColour, Colour> colours{
        {SystemColour::ButtonFace, Rgb(212, 208, 200)},    {SystemColour::ButtonShadow, Rgb(128, 128, 128)},
        {SystemColour::Highlight3D, Rgb(255, 255, 255)},   {SystemColour::DarkShadow3D, Rgb(64, 64, 64)},
        {SystemColour::Light3D, Rgb(212, 208, 200)},       {SystemColour::Highlight, Rgb(10, 36, 106)},
        {SystemColour::HighlightText, Rgb(255, 255, 255)}, {SystemColour::Window, Rgb(255, 255, 255)},
        {SystemColour::WindowText, Rgb(0, 0, 0)},          {SystemColour::Menu, Rgb(212, 208, 200)},
        {SystemColour::GrayText, Rgb(128, 128, 128)}};
    int bitsPerPixel = 24;
};

} // namespace quillshift
