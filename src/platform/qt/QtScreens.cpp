#include "platform/qt/QtScreens.h"

#include <QGuiApplication>
#include <QScreen>

namespace quillshift {
namespace {

TwipsRect ToTwips(const QRect& rect) {
    return {FromPixels(rect.x()), FromPixels(rect.y()), FromPixels(rect.width()), FromPixels(rect.height())};
}

} // namespace

TwipsRect QtScreens::Primary() const {
    return ToTwips(QGuiApplication::primaryScreen()->geometry());
}

std::vector<TwipsRect> QtScreens::WorkAreas() const {
    std::vector<TwipsRect> areas;
    for (const QScreen* screen : QGuiApplication::screens()) // the primary one comes first
        areas.push_back(ToTwips(screen->availableGeometry()));
    return areas;
}

} // namespace quillshift
