#pragma once

#include "platform/SystemColours.h"

#include <map>

namespace quillshift {

/// The classic grey desktop.
class FakeSystemColours final : public SystemColours {
public:
    Colour Of(SystemColour name) const override { return colours.at(name); }
    int BitsPerPixel() const override { return bitsPerPixel; }
    bool HighContrast() const override { return highContrast; }

    /// The colours of a dark desktop of today.
    void MakeDark() {
        const auto grey = [](std::uint8_t level) { return Rgb(level, level, level); };
        for (const SystemColour name : {SystemColour::ButtonFace, SystemColour::Menu})
            colours[name] = grey(50);
        for (const SystemColour name : {SystemColour::Highlight3D, SystemColour::Light3D})
            colours[name] = grey(75);
        colours[SystemColour::ButtonShadow] = grey(33);
        colours[SystemColour::DarkShadow3D] = grey(20);
        colours[SystemColour::Highlight] = Rgb(48, 140, 198);
        colours[SystemColour::Window] = grey(36);
        colours[SystemColour::WindowText] = grey(255);
        colours[SystemColour::GrayText] = grey(120);
    }

    /// White on black, or the other way round.
    void MakeHighContrast(Colour ground, Colour text) {
        highContrast = true;
        for (auto& [name, colour] : colours)
            colour = text;
        for (const SystemColour name : {SystemColour::ButtonFace, SystemColour::Menu, SystemColour::Window,
                                        SystemColour::HighlightText})
            colours[name] = ground;
        colours[SystemColour::GrayText] = Rgb(128, 128, 128);
    }

    std::map<SystemColour, Colour> colours{
        {SystemColour::ButtonFace, Rgb(212, 208, 200)},    {SystemColour::ButtonShadow, Rgb(128, 128, 128)},
        {SystemColour::Highlight3D, Rgb(255, 255, 255)},   {SystemColour::DarkShadow3D, Rgb(64, 64, 64)},
        {SystemColour::Light3D, Rgb(212, 208, 200)},       {SystemColour::Highlight, Rgb(10, 36, 106)},
        {SystemColour::HighlightText, Rgb(255, 255, 255)}, {SystemColour::Window, Rgb(255, 255, 255)},
        {SystemColour::WindowText, Rgb(0, 0, 0)},          {SystemColour::Menu, Rgb(212, 208, 200)},
        {SystemColour::GrayText, Rgb(128, 128, 128)}};
    int bitsPerPixel = 24;
    bool highContrast = false;
};

} // namespace quillshift
