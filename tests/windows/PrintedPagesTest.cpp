#include "document/modPrint.h"
#include "harness/TemporaryFolder.h"
#include "platform/posix/PosixFiles.h"
#include "platform/qt/QtPrinters.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextSurface.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QRegularExpression>

#include <csignal>
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

} // namespace
} // namespace quillshift
