#include "controls/JobProgress.h"
#include "controls/ProgressBarWidget.h"
#include "document/frmPrinting.h"
#include "support/DrawnList.h"
#include "support/FindControl.h"
#include "support/TestProgram.h"
#include "support/TestsFolder.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace quillshift {
namespace {

TEST(frmPrintingTest, TellsWhatIsStoredAndPrintsByItsButtonAlone) {
    TestProgram test;
    test.Start().document.SetText(u"text");
    test.Set(Setting::PrinterName, u"<b>Laser</b>").Set(Setting::PrintQuality, u"vbPRPQHigh");
    test.Set(Setting::ColorMode, u"vbPRCMMonochrome").Set(Setting::Orientation, u"vbOther");
    test.Set(Setting::Copies, u"3").Set(Setting::PaperSize, u"B4 250 x 354 мм");
    ProgramParts& parts = test.program.Parts();
    const DialogContext context{parts.platform, parts.settings, parts.sounds, nullptr};
    test.printers.names.insert(test.printers.names.begin(), u"<b>Laser</b>");
    for (const auto& [button, prints] : {std::pair("cmdClose", false), std::pair("cmdPrint", true)}) {
        test.settings.Switch(Setting::Printing, true);
        test.dialogs->whileModal = [&, name = button] {
            frmPrinting dialog(context, parts.print);
            dialog.show();
            QString shown;
            for (const auto* label : {"lblDefaultPrinter", "lblPrintQuality", "lblPrintColor",
                                      "lblOrientation", "lblCopies", "lblPaperSize"}) {
                shown += Find<QLabel>(dialog, label).text() + u'|';
                EXPECT_EQ(Find<QLabel>(dialog, label).textFormat(), Qt::PlainText);
            }
            EXPECT_EQ(shown, QStringLiteral("<b>Laser</b>|Высокое|Монохромная||3|B4 250 x 354 мм|"));
            for (const int stored : {0, 1}) {
                Find<QCheckBox>(dialog, "chkDonotShowThisDialog").click();
                EXPECT_EQ(test.settings.Whole(Setting::Printing), stored);
            }
            Find<QPushButton>(dialog, name).click();
            EXPECT_FALSE(dialog.isVisible());
            EXPECT_TRUE(test.window.document.printed.empty());
        };
        test.program.Run("MENU:FILE:PRINT");
        EXPECT_EQ(!test.window.document.printed.empty(), prints);
    }
}

/// With a name in GALLERY it leaves its picture there.
TEST(JobProgressTest, ShowsWhatIsDoneAndStopsByEachWayOut) {
    JobProgress progress;
    for (const bool byButton : {true, false}) {
        const auto job = progress.Begin(u"Печать документа...");
        EXPECT_TRUE(job->Step(0.42));
        QWidget* const window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        auto& bar = dynamic_cast<ProgressBarWidget&>(*window->findChildren<QWidget*>().at(1));
        QAccessibleInterface& access = *QAccessible::queryAccessibleInterface(&bar);
        EXPECT_EQ(access.role(), QAccessible::ProgressBar);
        EXPECT_EQ(access.text(QAccessible::Name), QStringLiteral("Печать документа..."));
        EXPECT_EQ(access.valueInterface()->currentValue().toInt(), 42);
        const QString folder = qEnvironmentVariable("GALLERY");
        EXPECT_TRUE(folder.isEmpty() || window->grab().save(folder + QStringLiteral("/JobProgress.png")));
        if (byButton)
            window->findChild<QPushButton*>()->click();
        else
            QTest::keyClick(window, Qt::Key_Escape);
        EXPECT_FALSE(job->Step(0.5));
    }
    const auto job = progress.Begin(u"");
    job->Step(0);
    QApplication::activeModalWidget()->hide();
    EXPECT_FALSE(job->Step(0));
}

/// The colours along a line, each with where it begins.
std::string Along(const QImage& image, QPoint from, QPoint step) {
    std::string list;
    QRgb last = 0;
    for (QPoint at = from; image.valid(at); at += step)
        if (const QRgb colour = image.pixel(at); std::exchange(last, colour) != colour)
            list += std::to_string(at.x() + at.y() - from.x() - from.y()) + ' ' +
                    QColor(colour).name().toStdString() + ' ';
    return list;
}

TEST(ProgressBarWidgetTest, ShowsEachStyleOnTheScreenAsStored) {
    ProgressBarWidget widget;
    std::vector<std::string> list;
    const auto show = [&](const char* heading, QSize size, auto change) {
        widget.resize(size);
        widget.Change(change);
        QImage image = widget.grab().toImage();
        const bool upright = size.height() > size.width();
        list.push_back(std::string("- ") + heading);
        list.push_back(upright ? Along(image, {3, 0}, {0, 1}) : Along(image, {0, 3}, {1, 0}));
        return image;
    };
    const Colour white{0xFFFFFF};
    show("plain", {104, 24}, [&](qsProgressBar& bar) {
        bar.Value = 50;
        bar.BackColor = white;
        bar.BarColor = Rgb(0, 0, 255);
    });
    show("segments and a full edge", {104, 24}, [](qsProgressBar& bar) {
        bar.Segments = true;
        bar.Appearance = BorderLook::Edge;
    });
    show("upright", {24, 104}, [](qsProgressBar&) {});
    show("one line around it", {104, 24}, [](qsProgressBar& bar) { bar.Appearance = BorderLook::Line; });
    const QImage text = show("text without a border", {104, 24}, [](qsProgressBar& bar) {
        bar.Segments = false;
        bar.BorderStyle = 0;
        bar.ShowText = true;
        bar.Text = u"MMMMMM";
        bar.BarForeColor = Rgb(255, 0, 0);
        bar.ForeColor = Rgb(0, 128, 0);
    });
    // The text has its own colour on each side of the bar's end, and none of the other's.
    int ink[2] = {};
    for (int y = 0; y < text.height(); ++y)
        for (int x = 0; x < text.width(); ++x) {
            const QColor colour = text.pixelColor(x, y);
            const bool onBar = x < 52;
            EXPECT_TRUE(onBar ? colour.green() == 0 : colour.red() == colour.blue()) << x << ' ' << y;
            ink[onBar] += onBar == (colour.red() > 128) ? 1 : 0;
        }
    EXPECT_GT(std::min(ink[0], ink[1]), 20);
    const QImage themed = show("themed", {104, 24}, [](qsProgressBar& bar) { bar.XpStyle = true; });
    list.pop_back(); // the style's own colours
    EXPECT_NE(themed.pixelColor(10, 3), QColor(Qt::blue));
    EXPECT_NE(themed.pixelColor(10, 3), themed.pixelColor(94, 3));
    ExpectAsStored(TestsFolder() / "windows/drawn/ProgressBarWidget.txt", list);
}

} // namespace
} // namespace quillshift
