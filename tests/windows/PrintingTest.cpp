#include "controls/JobProgress.h"
#include "controls/ProgressBarWidget.h"
#include "document/frmPrinting.h"
#include "document/modPrint.h"
#include "harness/TemporaryFolder.h"
#include "platform/posix/PosixFiles.h"
#include "platform/qt/QtPrinters.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextSurface.h"
#include "support/DrawnList.h"
#include "support/FakePlatform.h"
#include "support/FindControl.h"
#include "support/TestProgram.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace quillshift {
namespace {

QString Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString WithoutBlanks(QString text) {
    return text.remove(QRegularExpression(QStringLiteral("[\\s\\f]")));
}

/// Prints the real surface into a real file, which is read back by programs for such files.
struct PrintedPages : testing::Test, PrintBoxes {
    TemporaryFolder folder;
    QString pdf = QString::fromStdString((folder.Path() / "out.pdf").string());
    FakePlatform fake;
    PosixFiles files;
    QtPrinters printers{files};
    Platform platform{fake.store,     fake.sound,    files,       fake.fileDialog, fake.messageBox,
                      fake.clipboard, fake.timers,   fake.screen, fake.shell,      fake.background,
                      fake.progress,  fake.recovery, fake.clock,  printers};
    Settings settings{fake.store};
    QtTextSurface surface;
    PrintBoxTexts boxes{u"20", u"15", u"10", u"25", u"1"};
    bool printing = false;
    modPrint print{
        {settings, platform, surface, [] {}, [] {}, [] { return std::u16string(u"letter.txt"); }, printing}};

    PrintBoxTexts Boxes() const override { return boxes; }

    PrintedPages() {
        print.Attach(*this);
        surface.SetFont({u"Liberation Sans", 12});
        settings.Set(Setting::PaperSize, u"A4 210 x 297 мм");
    }
    /// The number of pages; 0 where there is no file.
    int Print() {
        QFile::remove(pdf);
        fake.fileDialog.chosen = {FromQString(pdf)};
        print.Print();
        return Info(QStringLiteral("Pages")).toInt();
    }
    QString Info(const QString& what) const {
        for (const QString& line : Output(QStringLiteral("pdfinfo"), {pdf}).split(u'\n'))
            if (line.startsWith(what + u':'))
                return line.mid(what.size() + 1).trimmed();
        return {};
    }
    QString Text() const { return Output(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")}); }
    /// The first page, ten pixels to the millimetre.
    QImage Picture() const {
        Output(QStringLiteral("pdftoppm"), {QStringLiteral("-png"), QStringLiteral("-r"),
                                            QStringLiteral("254"), QStringLiteral("-singlefile"), pdf, pdf});
        return QImage(pdf + QStringLiteral(".png"));
    }
    static QRect Ink(const QImage& page) {
        QRect ink;
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x)
                if (qGray(page.pixel(x, y)) < 200)
                    ink |= QRect(x, y, 1, 1);
        return ink;
    }
};

TEST_F(PrintedPages, HoldTheWholeTextInOrderWhateverItsParagraphs) {
    std::u16string text;
    for (int i = 0; i < 120; ++i)
        text += u"Абзац " + FromQString(QString::number(i)) + u", съешь ещё этих мягких булок.\r\n";
    for (int i = 0; i < 1500; ++i)
        text += u"слово" + FromQString(QString::number(i)) + u' '; // goes on for pages
    text += u"\r\n\r\n";
    for (int i = 0; i < 1500; ++i)
        text += FromQString(QString::number(10000 + i)); // one word
    text += u"\r\nконец";
    surface.SetText(text);
    EXPECT_GE(Print(), 6);
    EXPECT_EQ(WithoutBlanks(Text()), WithoutBlanks(ToQString(text)));
    EXPECT_EQ(Info(QStringLiteral("Title")), QStringLiteral("letter.txt"));
    EXPECT_EQ(Text().count(u'\f'), Info(QStringLiteral("Pages")).toInt());
}

TEST_F(PrintedPages, AreAsLargeAsThePaperAndTurnedWithIt) {
    const std::tuple<const char16_t*, double, double> papers[] = {{u"A3 297 x 420 мм", 297, 420},
                                                                  {u"A4 210 x 297 мм", 210, 297},
                                                                  {u"A5 148 x 210 мм", 148, 210},
                                                                  {u"B4 250 x 354 мм", 250, 354},
                                                                  {u"B5 182 x 257 мм", 182, 257}};
    surface.SetText(u"x");
    for (const auto& [paper, width, height] : papers)
        for (const bool landscape : {false, true}) {
            settings.Set(Setting::PaperSize, paper);
            settings.Set(Setting::Orientation, landscape ? u"vbPRORLandscape" : u"vbPRORPortrait");
            ASSERT_EQ(Print(), 1);
            const QStringList size = Info(QStringLiteral("Page size")).split(u' ');
            constexpr double kMillimetre = 72 / 25.4;
            EXPECT_NEAR(size[0].toDouble(), (landscape ? height : width) * kMillimetre, 0.6);
            EXPECT_NEAR(size[2].toDouble(), (landscape ? width : height) * kMillimetre, 0.6);
        }
}

TEST_F(PrintedPages, KeepTheMarginsAndTheFormatting) {
    RichText rich;
    rich.text = std::u16string(12000, u'i');
    rich.paragraphs.resize(1);
    CharacterFormat format;
    format.background = Rgb(255, 0, 0);
    rich.runs = {{rich.text.size(), format}};
    for (const bool colour : {true, false}) {
        surface.LoadRich(rich);
        settings.Set(Setting::ColorMode, colour ? u"vbPRCMColor" : u"vbPRCMMonochrome");
        ASSERT_GT(Print(), 1);
        const QImage page = Picture();
        const QRect ink = Ink(page);
        EXPECT_NEAR(ink.left(), 200, 5);
        EXPECT_NEAR(ink.top(), 150, 5);
        EXPECT_LE(ink.right(), 2000 + 5);
        EXPECT_GE(ink.right(), 2000 - 15) << "an i is not a millimetre wide";
        EXPECT_LE(ink.bottom(), 2720 + 5);
        EXPECT_GE(ink.bottom(), 2720 - 55) << "a line is five millimetres high";
        EXPECT_EQ(page.allGray(), !colour);
    }
}

TEST_F(PrintedPages, AreRepeatedForEachCopyAndEndWithAbsurdMargins) {
    surface.SetText(u"one\r\ntwo\r\nthree");
    boxes.copies = u"3";
    EXPECT_EQ(Print(), 3);
    EXPECT_EQ(Text().count(QStringLiteral("three")), 3);
    boxes = {u"500", u"500", u"500", u"500", u"1"};
    surface.SetText(u"ab\r\nc");
    EXPECT_EQ(Print(), 3) << "a letter to the page";
}

TEST_F(PrintedPages, OfACancelledOrFailedDocumentDoNotComeToTheFile) {
    surface.SetText(u"one\r\ntwo");
    fake.progress.dueEach = 1;
    fake.progress.atStep = [] { return false; };
    EXPECT_EQ(Print(), 0);
    fake.progress.atStep = nullptr;
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit full{2000, limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    EXPECT_EQ(Print(), 0);
    setrlimit(RLIMIT_FSIZE, &limit);
    pdf = QStringLiteral("/none/out.pdf");
    Print();
    ASSERT_EQ(fake.messageBox.shown.size(), 2U);
    EXPECT_NE(fake.messageBox.shown[0].text.find(u"Не хватило места"), std::u16string::npos);
    EXPECT_NE(fake.messageBox.shown[1].text.find(u"«/none/out.pdf»"), std::u16string::npos);
    EXPECT_FALSE(printing);
}

// What the print system lists comes at once, late, or not at all.
TEST(QtPrintersTest, ListTheFileLastAndRefuseUnknownNames) {
    const TemporaryFolder folder;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", folder.Path().string().c_str() + (':' + path));
    for (const bool answers : {true, false}) {
        Put(folder / "lpstat", std::string("#!/bin/sh\n") + (answers ? "echo Laser" : "exec sleep 100"));
        std::filesystem::permissions(folder / "lpstat", std::filesystem::perms(0700));
        PosixFiles files;
        QtPrinters printers(files);
        const std::u16string file(Printers::kIntoFile);
        EXPECT_EQ(printers.Names(),
                  answers ? (std::vector<std::u16string>{u"Laser", file}) : std::vector{file});
        EXPECT_EQ(printers.AreKnown(), answers);
        EXPECT_FALSE(printers.MakeCurrent(u"none"));
        EXPECT_TRUE(printers.Current().IsFile());
        EXPECT_EQ(printers.MakeCurrent(u"Laser"), answers);
    }
    qputenv("PATH", path);
}

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

/// The colours along a line near the top, each with where it begins.
std::string Along(const QImage& image) {
    std::string list;
    QRgb last = 0;
    for (int x = 0; x < image.width(); ++x)
        if (const QRgb colour = image.pixel(x, 3); std::exchange(last, colour) != colour)
            list += std::to_string(x) + ' ' + QColor(colour).name().toStdString() + ' ';
    return list;
}

TEST(ProgressBarWidgetTest, ShowsEachStyleOnTheScreenAsStored) {
    ProgressBarWidget widget;
    std::vector<std::string> list;
    widget.resize(104, 24);
    const auto show = [&](const char* heading, auto change) {
        widget.Change(change);
        QImage image = widget.grab().toImage();
        list.push_back(std::string("- ") + heading);
        list.push_back(Along(image));
        return image;
    };
    const Colour white{0xFFFFFF};
    show("plain", [&](qsProgressBar& bar) {
        bar.Value = 50;
        bar.BackColor = white;
        bar.BarColor = Rgb(0, 0, 255);
    });
    const QImage text = show("text without a border", [](qsProgressBar& bar) {
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
    const QImage themed = show("themed", [](qsProgressBar& bar) { bar.XpStyle = true; });
    list.pop_back(); // the style's own colours
    EXPECT_NE(themed.pixelColor(10, 3), QColor(Qt::blue));
    EXPECT_NE(themed.pixelColor(10, 3), themed.pixelColor(94, 3));
    ExpectAsStored("windows/drawn/ProgressBarWidget.txt", list);
}

} // namespace
} // namespace quillshift
