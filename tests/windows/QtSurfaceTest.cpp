#include "platform/qt/QtSurface.h"

#include <gtest/gtest.h>

#include <array>

namespace quillshift {
namespace {

constexpr Colour kRed = Rgb(255, 0, 0);
constexpr Colour kBlue = Rgb(0, 0, 255);

/// A white sheet of 60 by 40 logical pixels in a density of its own.
class Sheet {
public:
    explicit Sheet(double density = 1)
        : image_(qRound(60 * density), qRound(40 * density), QImage::Format_ARGB32_Premultiplied) {
        image_.setDevicePixelRatio(density);
        image_.fill(Qt::white);
    }
    template <class Paint>
    Sheet& Painted(Paint paint) {
        QPainter painter(&image_);
        QtSurface surface(painter, texts_);
        paint(static_cast<Surface&>(surface));
        return *this;
    }
    QRgb At(int x, int y) const { return image_.pixel(x, y); }
    /// The device's pixels that are no longer white, as the least rectangle around them.
    QRect Inked() const {
        QRect inked;
        for (int y = 0; y < image_.height(); ++y)
            for (int x = 0; x < image_.width(); ++x)
                if (At(x, y) != qRgb(255, 255, 255))
                    inked |= QRect(x, y, 1, 1);
        return inked;
    }
    int Count(QRgb colour) const {
        int count = 0;
        for (int y = 0; y < image_.height(); ++y)
            for (int x = 0; x < image_.width(); ++x)
                count += At(x, y) == colour;
        return count;
    }

private:
    QtTextMeasurer texts_;
    QImage image_;
};

QRgb ToRgb(Colour colour) {
    return qRgb(colour.Red(), colour.Green(), colour.Blue());
}

TEST(QtSurface, FillsAndFramesWholePixelsInEveryDensity) {
    for (const double density : {1.0, 1.25, 1.5, 2.0}) {
        Sheet sheet(density);
        sheet.Painted([density](Surface& surface) {
            EXPECT_EQ(surface.Density(), density);
            surface.FillRect(RectAt(3, 5, 9, 7), kRed);
            surface.FrameRect(RectAt(3, 5, 9, 7), kBlue);
            surface.FillRect({12, 5, 3, 12}, kBlue); // turned over: nothing
        });
        const auto device = [density](int edge) { return qRound(edge * density); };
        const QRect expected(QPoint(device(3), device(5)), QPoint(device(12) - 1, device(12) - 1));
        EXPECT_EQ(sheet.Inked(), expected) << density;
        const int inside = (device(11) - device(4)) * (device(11) - device(6));
        EXPECT_EQ(sheet.Count(ToRgb(kRed)), inside) << density;
        EXPECT_EQ(sheet.Count(ToRgb(kBlue)), expected.width() * expected.height() - inside) << "no blends";
    }
}

TEST(QtSurface, PlacesTextInItsAreaCentredAtItsEndOrTurned) {
    const Rect area = RectAt(10, 4, 40, 30);
    const auto inked = [&](const TextLayout& layout) {
        return Sheet().Painted([&](Surface& to) { to.DrawText(area, u"&HH", {}, kRed, layout); }).Inked();
    };
    const QRect left = inked({.mnemonics = true});
    EXPECT_NEAR(left.left(), 10, 2);
    EXPECT_NEAR(left.center().y(), 19, 2);
    EXPECT_NEAR(inked({.align = TextLayout::Align::Right}).right(), 49, 2);
    EXPECT_NEAR(inked({.align = TextLayout::Align::Centre}).center().x(), 30, 2);
    const QRect turned = inked({.rotated = true});
    EXPECT_NEAR(turned.top(), 4, 2);
    EXPECT_NEAR(turned.center().x(), 30, 2);
    EXPECT_NEAR(turned.height(), left.width(), 2);
    EXPECT_GT(inked({.mnemonics = false}).width(), left.width() + 2) << "with the &";
}

// Blue over green on the left, red over half black on the right; memory runs bottom up.
constexpr std::array<std::uint8_t, 16> kSquare{0, 255, 0, 255, 0, 0, 0, 128, 255, 0, 0, 255, 0, 0, 255, 255};
const PixelView kSquareView{kSquare.data(), 2, 2};

TEST(QtSurface, CompositesTheRightWayUp) {
    for (const int density : {1, 2}) {
        Sheet sheet(density);
        sheet.Painted([](Surface& surface) {
            surface.Composite(RectAt(10, 5, 2, 2), kSquareView, RectAt(0, 0, 2, 2));
            surface.Composite(RectAt(30, 20, 8, 4), kSquareView, RectAt(0, 0, 2, 2)); // sharp blocks
            surface.Composite(RectAt(20, 5, 3, 3), kSquareView, RectAt(0, 1, 1, 1));  // one pixel of it
        });
        const auto block = [&](const QRect& place, QRgb colour) {
            for (int y = place.top() * density; y < (place.bottom() + 1) * density; ++y)
                for (int x = place.left() * density; x < (place.right() + 1) * density; ++x)
                    EXPECT_EQ(sheet.At(x, y), colour) << x << ' ' << y;
        };
        const QRgb half = qRgb(127, 127, 127); // 255 * (255 - 128) / 255
        block({10, 5, 1, 1}, qRgb(0, 0, 255));
        block({11, 5, 1, 1}, qRgb(255, 0, 0));
        block({10, 6, 1, 1}, qRgb(0, 255, 0));
        block({11, 6, 1, 1}, half);
        block({30, 20, 4, 2}, qRgb(0, 0, 255));
        block({34, 20, 4, 2}, qRgb(255, 0, 0));
        block({30, 22, 4, 2}, qRgb(0, 255, 0));
        block({34, 22, 4, 2}, half);
        block({20, 5, 3, 3}, qRgb(0, 255, 0));
        const int inked = (4 + 32 + 9) * density * density;
        EXPECT_EQ(sheet.Count(qRgb(255, 255, 255)), 60 * 40 * density * density - inked);
    }
}

} // namespace
} // namespace quillshift
