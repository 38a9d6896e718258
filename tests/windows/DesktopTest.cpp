#include "controls/hooks/MSubclass.h"
#include "platform/qt/QtSurface.h"
#include "platform/qt/QtWindowMessages.h"
#include "support/DrawnList.h"
#include "support/FakeWindowMessages.h"

#include <QtWidgets/QtWidgets>
#include <gmock/gmock.h>

namespace quillshift {
namespace {

using testing::ElementsAre;

class RecordingWidget final : public QWidget {
public:
    explicit RecordingWidget(std::vector<std::string>& log, QWidget* parent = nullptr)
        : QWidget(parent), log_(log) {}

private:
    void paintEvent(QPaintEvent*) override {
        log_.emplace_back("painted");
        QPainter(this).fillRect(rect(), Qt::white);
    }
    void resizeEvent(QResizeEvent*) override { log_.emplace_back("resized"); }
    std::vector<std::string>& log_;
};

struct QtWindowMessagesTest : testing::Test {
    QtWindowMessagesTest() {
        widget->resize(50, 40);
        widget->show();
        QCoreApplication::processEvents();
        log.clear();
    }
    std::vector<std::string> Log() {
        QCoreApplication::processEvents();
        return std::exchange(log, {});
    }

    std::vector<std::string> log;
    QtWindowMessages messages;
    MSubclass hooks{messages, u"program"};
    std::unique_ptr<RecordingWidget> widget = std::make_unique<RecordingWidget>(log);
    WindowId window = messages.Add(*widget);
    FakeSubclass client{"client", log};
    FakeSubclass other{"other", log};
};

TEST_F(QtWindowMessagesTest, SaysGoodbyeToAClientThatThenDetaches) {
    hooks.AttachMessage(client, window, message::kDestroy);
    hooks.AttachMessage(client, window, message::kSize);
    client.react = [&] {
        hooks.DetachMessage(client, window, message::kDestroy);
        hooks.DetachMessage(client, window, message::kSize);
    };
    messages.SetProperty(window, "qsCommandBar:Control", 7);
    widget.reset();
    EXPECT_THAT(Log(), ElementsAre("client"));
    EXPECT_FALSE(messages.IsWindow(window));
    EXPECT_EQ(messages.Property(window, "qsCommandBar:Control"), 0);
    EXPECT_FALSE(messages.SetProperty(window, "qsCommandBar:Control", 7));
}

TEST_F(QtWindowMessagesTest, AClientMayDestroyTheWidget) {
    hooks.AttachMessage(client, window, message::kSize);
    client.react = [&] { widget.reset(); };
    QResizeEvent event(QSize(10, 20), QSize());
    QCoreApplication::sendEvent(widget.get(), &event);
    EXPECT_THAT(Log(), ElementsAre("client")) << "and nobody is left to be resized";
}

TEST_F(QtWindowMessagesTest, TellsWindowsOfNewSettingsAndOfActivation) {
    RecordingWidget child(log, widget.get());
    hooks.AttachMessage(other, messages.Add(child), message::kSettingChange);
    hooks.AttachMessage(client, window, message::kSettingChange);
    const auto expectMessages = [&](const char* what, std::ptrdiff_t count = 1) {
        const auto received = Log();
        EXPECT_EQ(std::count(received.begin(), received.end(), "client"), count) << what;
        EXPECT_EQ(std::count(received.begin(), received.end(), "other"), 0) << "it is no window of its own";
    };
    const auto styleBefore = QApplication::style()->name();
    QApplication::setStyle(QStringLiteral("windows"));
    expectMessages("style");
    const QFont fontBefore = QApplication::font();
    QApplication::setFont(QFont(fontBefore.family(), fontBefore.pointSize() + 3));
    expectMessages("font");
    QApplication::setPalette(Qt::darkGreen);
    expectMessages("palette");
    QApplication::setPalette(QPalette());
    QApplication::setFont(fontBefore);
    QApplication::setStyle(styleBefore);
    Log();
    hooks.DetachMessage(client, window, message::kSettingChange);

    hooks.AttachMessage(client, window, message::kActivateApplication);
    // Said in the application's stead: on this platform it is never deactivated.
    emit qApp->applicationStateChanged(Qt::ApplicationActive);
    Log();
    for (const auto state : {Qt::ApplicationInactive, Qt::ApplicationHidden})
        emit qApp->applicationStateChanged(state);
    EXPECT_EQ(client.wParam, 0);
    expectMessages("deactivated once");
    emit qApp->applicationStateChanged(Qt::ApplicationActive);
    EXPECT_EQ(client.wParam, 1);
}

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
    /// The device's pixels that are no longer white, as the least rectangle around them.
    QRect Inked() const {
        QRect inked;
        for (int y = 0; y < image_.height(); ++y)
            for (int x = 0; x < image_.width(); ++x)
                if (image_.pixel(x, y) != qRgb(255, 255, 255))
                    inked |= QRect(x, y, 1, 1);
        return inked;
    }
    /// Each line that isn't like the one above, as lengths of one colour (hexadecimal).
    void List(std::vector<std::string>& list) const {
        std::string before;
        for (int y = 0; y < image_.height(); ++y) {
            QString line;
            for (int x = 0, start = 0; x < image_.width(); start = x) {
                while (x < image_.width() && image_.pixel(x, y) == image_.pixel(start, y))
                    ++x;
                line += QStringLiteral(" %1x%2").arg(x - start).arg(image_.pixel(start, y) & 0xFFFFFF, 0, 16);
            }
            if (line.toStdString() != before)
                list.push_back(std::to_string(y) + ":" + (before = line.toStdString()));
        }
    }

private:
    QtTextMeasurer texts_;
    QImage image_;
};

// Blue over green on the left, red over half black on the right; memory runs bottom up.
constexpr std::array<std::uint8_t, 16> kSquare{0, 255, 0, 255, 0, 0, 0, 128, 255, 0, 0, 255, 0, 0, 255, 255};

TEST(QtSurface, PaintsWholePixelsInEveryDensityAsStored) {
    std::vector<std::string> list;
    for (const double density : {1.0, 1.25, 1.5, 2.0}) {
        list.push_back("- density " + std::to_string(density));
        Sheet(density)
            .Painted([density](Surface& surface) {
                EXPECT_EQ(surface.Density(), density);
                surface.FillRect(RectAt(3, 5, 9, 7), kRed);
                surface.FrameRect(RectAt(3, 5, 9, 7), kBlue);
                surface.FillRect({12, 5, 3, 12}, kBlue); // turned over: nothing
                surface.DrawLine({3, 14}, {7, 14}, kBlue);
                surface.DrawLine({8, 17}, {12, 13}, kRed);
                surface.FillGradient(RectAt(3, 24, 20, 3), kRed, kBlue, true);
                surface.SetClip(RectAt(30, 0, 8, 40));
                surface.FillRect(RectAt(20, 5, 60, 7), kRed);
                surface.ClearClip();
            })
            .List(list);
    }
    for (const int density : {1, 2}) {
        list.push_back("- pictures in density " + std::to_string(density));
        Sheet(density)
            .Painted([](Surface& surface) {
                const PixelView square{kSquare.data(), 2, 2};
                surface.Composite(RectAt(10, 5, 2, 2), square, RectAt(0, 0, 2, 2));
                surface.Composite(RectAt(30, 20, 8, 4), square, RectAt(0, 0, 2, 2)); // sharp blocks
                surface.Composite(RectAt(20, 5, 3, 3), square, RectAt(0, 1, 1, 1));  // one pixel of it
                surface.Composite(RectAt(40, 30, 2, 2), square, RectAt(0, 0, 2, 2), 128);
            })
            .List(list);
    }
    ExpectAsStored("windows/drawn/QtSurface.txt", list);
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
    const QtTextMeasurer texts;
    EXPECT_LT(texts.TextExtent(u"H", {.name = u"", .points = 8}).height,
              texts.TextExtent(u"H", {.name = u"", .points = 16}).height);
}

} // namespace
} // namespace quillshift
