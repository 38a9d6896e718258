#pragma once

#include "base/Utf8.h"
#include "platform/Surface.h"
#include "platform/SystemColours.h"
#include "support/Pixels.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quillshift {

/// Text of a fixed pitch: each character 6 pixels wide and 13 high.
inline Size FixedPitchExtent(std::u16string_view text, bool mnemonics) {
    int width = 0;
    for (const char16_t character : text)
        width += mnemonics && character == u'&' ? 0 : 6;
    return {width, 13};
}

/// Writes down what is drawn, one line each, such as "fill 1,1-23,23 d4d0c8" (red, green, blue).
class RecordingSurface : public Surface {
public:
    Size TextExtent(std::u16string_view text, const FontSpec&, bool mnemonics) const override {
        return FixedPitchExtent(text, mnemonics);
    }
    void FillRect(const Rect& area, Colour colour) override { Note("fill " + Text(area) + Text(colour)); }
    void FillGradient(const Rect& area, Colour start, Colour end, bool horizontal) override {
        Note((horizontal ? "across " : "down ") + Text(area) + Text(start) + Text(end));
    }
    void FrameRect(const Rect& area, Colour colour) override { Note("frame " + Text(area) + Text(colour)); }
    void DrawLine(Point from, Point to, Colour colour) override {
        Note("line " + Text(Rect{from.x, from.y, to.x, to.y}) + Text(colour));
    }
    void DrawText(const Rect& area, std::u16string_view text, const FontSpec&, Colour colour,
                  const TextLayout& layout) override {
        constexpr const char* kAligns[] = {" left", " centre", " right"};
        Note("text " + Text(area) + Text(colour) + kAligns[static_cast<int>(layout.align)] +
             (layout.rotated ? " rotated" : "") + (layout.mnemonics ? " " : " literally ") + ToUtf8(text));
    }
    /// With the pixels, if they are few; of equal ones in a row only the first.
    void Composite(const Rect& target, const PixelView& source, const Rect& part, std::uint8_t) override {
        std::string line = "composite " + Text(target) + " of " + Text(part);
        const int count = part.Width() * part.Height();
        std::string before;
        for (int i = 0; i < count && count <= 64; ++i) {
            const std::string pixel =
                " " + TextOf(PixelOf(source, part.left + i % part.Width(), part.top + i / part.Width()));
            line += pixel == before ? "" : pixel;
            before = pixel;
        }
        Note(line);
    }
    void SetClip(const Rect& area) override { Note("clip " + Text(area)); }
    void ClearClip() override { Note("unclip"); }
    double Density() const override { return density; }

    void Note(std::string line) { drawn.push_back(std::move(line)); }
    static std::string Text(const Rect& area) {
        const auto number = [](int value) { return std::to_string(value); };
        return number(area.left) + "," + number(area.top) + "-" + number(area.right) + "," +
               number(area.bottom);
    }
    static std::string Text(Colour colour) {
        constexpr const char* kDigits = "0123456789abcdef";
        std::string text = " ";
        for (const int channel : {colour.Red(), colour.Green(), colour.Blue()})
            for (const int digit : {channel / 16, channel % 16})
                text += kDigits[digit];
        return text;
    }

    double density = 1;
    std::vector<std::string> drawn;
};

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

/// A desktop with or without a theme; its parts are written down on a recording surface.
class FakeTheme final : public ThemeService {
public:
    std::optional<std::u16string> ColourName() const override { return name; }
    bool DrawToolbarPart(Surface& surface, int part, int state, const Rect& area) const override {
        if (!name)
            return false;
        dynamic_cast<RecordingSurface&>(surface).Note("part " + std::to_string(part) + " state " +
                                                      std::to_string(state) + " " +
                                                      RecordingSurface::Text(area));
        return true;
    }

    std::optional<ProgressSizes> ProgressBarSizes() const override {
        return name ? std::optional(ProgressSizes{.chunk = 6, .space = 3}) : std::nullopt;
    }
    bool DrawProgressPart(Surface& surface, int part, const Rect& area) const override {
        if (!name || part == missingPart)
            return false;
        dynamic_cast<RecordingSurface&>(surface).Note("part " + std::to_string(part) + " " +
                                                      RecordingSurface::Text(area));
        return true;
    }
    bool DrawProgressText(Surface& surface, const Rect& area, std::u16string_view text,
                          const FontSpec&) const override {
        if (!name)
            return false;
        dynamic_cast<RecordingSurface&>(surface).Note("theme's text " + RecordingSurface::Text(area) + " " +
                                                      ToUtf8(text));
        return true;
    }

    std::optional<std::u16string> name;
    int missingPart = 0; ///< of the class "Progress"
};

} // namespace quillshift
