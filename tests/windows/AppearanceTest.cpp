#include "platform/qt/Appearance.h"
#include "platform/qt/Looks.h"

#include <QtWidgets/QtWidgets>
#include <gtest/gtest.h>

namespace quillshift {
namespace {

TEST(Appearance, FindsWhatEachDesktopCallsItsWishes) {
    const QString appearance = QStringLiteral("org.freedesktop.appearance");
    const QString gnome = QStringLiteral("org.gnome.desktop.interface");
    const std::pair<PortalSettings, DesktopWishes> cases[] = {
        {{}, {}},
        {{{appearance, {{"contrast", 0U}, {"color-scheme", 2U}, {"reduced-motion", "1x"}}}}, {}},
        {{{appearance, {{"contrast", 1U}, {"color-scheme", 1U}}}}, {.highContrast = true, .dark = true}},
        {{{"org.gnome.desktop.a11y.interface", {{"high-contrast", true}}}}, {.highContrast = true}},
        {{{gnome, {{"gtk-theme", "HighContrastInverse"}}}}, {.highContrast = true, .dark = true}},
        {{{gnome, {{"enable-animations", true}}}}, {}},
        {{{gnome, {{"enable-animations", false}}}}, {.calm = true}},
        {{{appearance, {{"reduced-motion", 1U}}}}, {.calm = true}},
        {{{"org.kde.kdeglobals.KDE", {{"AnimationDurationFactor", "0"}}}}, {.calm = true}},
        {{{gnome, {{"text-scaling-factor", 1.25}}}}, {.textFactor = 1.25}},
        {{{gnome, {{"text-scaling-factor", 0.0}}}}, {}},
        {{{"org.kde.kdeglobals.General", {{"font", "Noto Sans,14,-1,5,50,0,0,0,0,0"}}}}, {.points = 14}}};
    for (const auto& [settings, wishes] : cases)
        EXPECT_EQ(WishesIn(settings), wishes) << &settings - &cases[0].first;
}

TEST(Appearance, FollowsWishesAndGoesBack) {
    const auto motion = [] { return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration); };
    const QPalette usual = QApplication::palette();
    ASSERT_FALSE(IsHighContrast(usual));
    for (const Qt::UIEffect effect : {Qt::UI_General, Qt::UI_FadeTooltip})
        QApplication::setEffectEnabled(effect, true);
    Looks looks;
    for (const bool dark : {true, false}) {
        looks.Follow({.highContrast = true, .dark = dark, .calm = true});
        EXPECT_TRUE(IsHighContrast(QApplication::palette()));
        EXPECT_EQ(QApplication::palette().color(QPalette::Base), dark ? Qt::black : Qt::white);
        EXPECT_FALSE(QApplication::isEffectEnabled(Qt::UI_FadeTooltip));
        EXPECT_EQ(motion(), 0);
    }
    looks.Follow({});
    EXPECT_EQ(QApplication::palette(), usual);
    EXPECT_TRUE(QApplication::isEffectEnabled(Qt::UI_FadeTooltip));
    EXPECT_GT(motion(), 0);
    for (const Qt::UIEffect effect : {Qt::UI_General, Qt::UI_FadeTooltip})
        QApplication::setEffectEnabled(effect, false);
}

TEST(Appearance, TextFollowsTheDesktopAndGoesBack) {
    const QFont usual = QApplication::font();
    const double scale = TextScale();
    Looks looks;
    looks.Follow({.points = 18});
    EXPECT_NEAR(TextScale(), 2, 0.1);
    looks.Follow({.points = 18, .textFactor = 1.5});
    EXPECT_NEAR(TextScale(), 3, 0.1);
    looks.Follow({});
    EXPECT_EQ(TextScale(), scale);
    QApplication::setFont(usual);
}

TEST(Appearance, BoxesToTickAreSeenInTheDark) {
    Looks looks;
    looks.Follow({.dark = true});
    QApplication::setPalette(QPalette(QColor(45, 45, 48), QColor(45, 45, 48)));
    QCheckBox box;
    box.resize(box.sizeHint());
    const QImage image = box.grab().toImage();
    int lightest = 0;
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            lightest = std::max(lightest, image.pixelColor(x, y).lightness());
    EXPECT_GT(lightest, 120) << "its edge";
    looks.Follow({});
}

// Of black the toolkit makes black shades.
TEST(Appearance, BlackAndWhiteHasEdgesThatAreSeen) {
    for (const auto ground : {Qt::black, Qt::white}) {
        const QPalette palette = Readable(QPalette(ground, ground));
        EXPECT_NE(palette.color(QPalette::Dark), palette.color(QPalette::Window));
        EXPECT_NE(palette.color(QPalette::Light), palette.color(QPalette::Window));
    }
    const QPalette usual(QColor(239, 239, 239));
    EXPECT_EQ(Readable(usual).color(QPalette::Dark), usual.color(QPalette::Dark));
}

TEST(Appearance, TextGrowsWithTheDesktopsFontAndNeverShrinks) {
    const QFont usual = QApplication::font();
    for (const auto& [points, dialogs] : {std::pair(6, 8.0), {9, 8.0}, {18, 16.0}}) {
        QApplication::setFont(QFont(usual.family(), points));
        EXPECT_NEAR(DialogFont().pointSizeF(), dialogs, 0.3) << points;
    }
    QApplication::setFont(usual);
}

} // namespace
} // namespace quillshift
