#pragma once

namespace quillshift {

// Places and sizes in logical pixels; y grows downwards.

struct Point {
    int x = 0;
    int y = 0;

    bool operator==(const Point&) const = default;
};

struct Size {
    int width = 0;
    int height = 0;

    bool operator==(const Size&) const = default;
};

/// A rectangle by its edges; `right` and `bottom` are the first pixels outside.
struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const Rect&) const = default;
    constexpr int Width() const { return right - left; }
    constexpr int Height() const { return bottom - top; }
    constexpr bool IsEmpty() const { return right <= left || bottom <= top; }
    constexpr Rect MovedBy(int dx, int dy) const { return {left + dx, top + dy, right + dx, bottom + dy}; }
    /// The rectangle with each edge moved inwards by `px`.
    constexpr Rect Inset(int px) const { return {left + px, top + px, right - px, bottom - px}; }
};

constexpr Rect RectAt(int left, int top, int width, int height) {
    return {left, top, left + width, top + height};
}

} // namespace quillshift
