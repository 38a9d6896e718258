// The search's dialogs over a program whose main window is a fake, and what is found in the real surface.

#include "document/frmFind.h"
#include "document/frmGoTo.h"
#include "document/frmReplace.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextSurface.h"
#include "support/FindControl.h"
#include "support/RandomText.h"
#include "support/TestProgram.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>

namespace quillshift {
namespace {

struct SearchDialogs : testing::Test, TestProgram {
    static void Press(QWidget& dialog, const char* name) {
        QTest::mouseClick(&Find<QPushButton>(dialog, name), Qt::LeftButton);
    }

    FakeSurface& document = Start().document;
    ProgramParts& parts = program.Parts();
    DialogContext context{platform, parts.settings, parts.sounds, nullptr};
};

TEST_F(SearchDialogs, AreNoWiderForALongSelection) {
    std::vector<int> widths;
    for (const std::size_t length : {3U, 3000U}) {
        parts.search.ReplaceState().wanted = std::u16string(length, u'ж');
        frmReplace dialog(context, parts.search);
        dialog.show();
        widths.push_back(dialog.width());
    }
    EXPECT_EQ(widths[0], widths[1]);
}

TEST_F(SearchDialogs, ReplacingIsDrivenByItsControls) {
    document.SetText(u"fir Fir ёлка");
    document.SetSelLength(3);
    parts.search.ShowReplace();
    frmReplace dialog(context, parts.search);
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Найти и заменить"));
    auto& cboFind = Find<QComboBox>(dialog, "cboFind");
    EXPECT_EQ(cboFind.currentText(), QStringLiteral("fir"));
    EXPECT_EQ(cboFind.count(), 1);
    auto& cmdFind = Find<QPushButton>(dialog, "cmdFind");
    QTest::keyClick(cboFind.lineEdit(), Qt::Key_Return);
    EXPECT_EQ(cmdFind.text().remove('&'), QStringLiteral("Найти далее"));
    EXPECT_EQ(document.SelStart(), 0U);
    EXPECT_TRUE(Find<QPushButton>(dialog, "cmdReplaceAll").isEnabled());
    Find<QComboBox>(dialog, "cboReplace").setEditText(QStringLiteral("дуб"));
    Find<QCheckBox>(dialog, "chkMatchCase").click();
    Press(dialog, "cmdReplace");
    EXPECT_EQ(document.Text(), u"дуб Fir ёлка");
    EXPECT_EQ(cmdFind.text().remove('&'), QStringLiteral("Найти"));
    for (const char* name : {"cmdReplace", "cmdReplaceAll"})
        EXPECT_FALSE(Find<QPushButton>(dialog, name).isEnabled());
    Find<QCheckBox>(dialog, "chkWholeWord").click();
    Find<QCheckBox>(dialog, "chkMatchCase").click();
    EXPECT_EQ(parts.search.ReplaceState().options, FindOptions::WholeWord);
    Press(dialog, "cmdFind");
    messageBox.answers = {BoxAnswer::Yes};
    Press(dialog, "cmdReplaceAll");
    EXPECT_EQ(document.Text(), u"дуб дуб ёлка");

    const std::u16string longText(100000, u'ж');
    cboFind.setEditText(ToQString(longText + u"\n"));
    EXPECT_EQ(parts.search.ReplaceState().wanted, longText + u"\n");
    cboFind.setEditText({});
    QTest::keyClicks(&cboFind, QStringLiteral("f"));
    EXPECT_EQ(cboFind.currentText(), QStringLiteral("f")) << "nothing is completed";
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(parts.search.ReplaceState().wanted.empty()) << "closing forgets";
}

TEST_F(SearchDialogs, FindingShowsItsStateAndGivesWay) {
    document.SetText(u"а б");
    parts.search.ShowFind();
    frmFind dialog(context, parts.search);
    dialog.show();
    auto& cboFind = Find<QComboBox>(dialog, "cboFind");
    cboFind.setEditText(QStringLiteral("Б"));
    const QRect at = dialog.geometry();
    document.onScreen = RectAt(at.x() + 30, at.y() + 30, 20, 10);
    Press(dialog, "cmdFind");
    EXPECT_EQ(document.SelStart(), 2U);
    EXPECT_FALSE(dialog.geometry().intersects({at.x() + 30, at.y() + 30, 20, 10}));
    EXPECT_EQ(Find<QPushButton>(dialog, "cmdFind").text().remove('&'), QStringLiteral("Найти далее"));
    parts.search.FindNext();
    EXPECT_EQ(Find<QPushButton>(dialog, "cmdFind").text().remove('&'), QStringLiteral("Найти"));
    EXPECT_EQ(LastBox(), u"Текст не найден!");
    dialog.BringUp();
    EXPECT_EQ(cboFind.lineEdit()->selectedText(), QStringLiteral("Б"));
}

TEST_F(SearchDialogs, GoingToALineClosesTheDialogWhereThereIsOne) {
    document.SetText(u"a\r\nb");
    document.SetSelStart(4);
    for (const auto& [typed, closes, place] :
         {std::tuple("", true, 3U), {"9", false, 4U}, {"x", false, 4U}, {"1", true, 0U}}) {
        document.SetSelStart(4);
        frmGoTo dialog(context, parts.lines);
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        auto& txtGo = Find<QLineEdit>(dialog, "txtGo");
        EXPECT_EQ(txtGo.placeholderText(), QStringLiteral("1–2"));
        EXPECT_TRUE(Find<QPushButton>(dialog, "cmdGo").isEnabled());
        QTest::keyClicks(&txtGo, QString::fromUtf8(typed));
        QTest::keyClick(&txtGo, Qt::Key_Return);
        EXPECT_EQ(dialog.isVisible(), !closes) << typed;
        EXPECT_EQ(document.SelStart(), place) << typed;
        txtGo.setText("1");
        txtGo.clear();
        EXPECT_FALSE(Find<QPushButton>(dialog, "cmdGo").isEnabled());
    }
}

// Against the toolkit's own search by patterns.
TEST(RealSurface, FindsAsAPatternDoes) {
    RandomText random(3);
    const QStringList letters =
        QStringLiteral(u"ё|Ё|е|и|\u0306|Ы|ы|a|A|µ|9|_| |-|\r\n|ß|\u1E9E|\u04C0|\u04CF|"
                       u"\U00010400|\U00010428|\U0001F600")
            .split(u'|');
    const auto some = [&](std::size_t most) {
        std::u16string text;
        for (std::size_t left = 1 + random.Below(most); left > 0; --left)
            text += FromQString(
                letters[static_cast<qsizetype>(random.Below(static_cast<std::size_t>(letters.size())))]);
        return text;
    };
    QtTextSurface surface;
    int found = 0;
    for (int run = 0; run < 20000; ++run) {
        if (run % 50 == 0)
            surface.SetText(some(400));
        const QString text = ToQString(surface.Text());
        const std::u16string wanted = some(random.Below(2) ? 1 : 4);
        const auto options = static_cast<FindOptions>(2 * random.Below(4));
        QString pattern = QRegularExpression::escape(ToQString(wanted));
        if (Has(options, FindOptions::WholeWord))
            pattern = QStringLiteral("(?<![\\p{L}\\p{N}\\p{M}_])%1(?![\\p{L}\\p{N}\\p{M}_])").arg(pattern);
        QRegularExpression expression(pattern, QRegularExpression::UseUnicodePropertiesOption);
        if (!Has(options, FindOptions::MatchCase))
            expression.setPatternOptions(expression.patternOptions() |
                                         QRegularExpression::CaseInsensitiveOption);
        std::size_t from = random.Below(surface.Text().size());
        while (from > 0 && text[static_cast<qsizetype>(from)].isLowSurrogate())
            --from;
        const auto place = surface.Find(wanted, from, options);
        const qsizetype expected = expression.match(text, static_cast<qsizetype>(from)).capturedStart();
        ASSERT_EQ(place ? static_cast<qsizetype>(*place) : -1, expected)
            << pattern.toStdString() << " from " << from << " in " << text.toStdString();
        if (place) {
            ++found;
            ASSERT_EQ(surface.SelStart(), *place);
            ASSERT_EQ(surface.SelLength(), wanted.size());
        }
    }
    EXPECT_GT(found, 3000);
    surface.SetText(u"\xD83D\xDE00");
    EXPECT_EQ(surface.Find(u"\xDE00", 0, FindOptions::None), std::nullopt) << "no half of a letter";
    EXPECT_EQ(surface.Find(u"", 0, FindOptions::None), std::nullopt);
}

TEST_F(SearchDialogs, ARunCountsTo32767AndPaintsOnce) {
    struct final : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int paints = 0;
    } eye;
    QtTextSurface surface;
    surface.viewport()->installEventFilter(&eye);
    surface.resize(400, 300);
    surface.show();
    UndoHistory history;
    surface.OnChange = [&](const TextEdit& edit) { history.Record(edit); };
    Search search({surface, messageBox, progress, *dialogs});
    for (const std::size_t extra : {0U, 5U}) {
        const std::u16string before(kMostReplacements + extra, u'x');
        surface.SetText(before);
        QApplication::processEvents();
        eye.paints = 0;
        search.ReplaceState() = {.wanted = u"x", .replacement = u"ab", .options = {}, .goesOn = true};
        messageBox.answers = {BoxAnswer::Yes};
        search.ReplaceAll();
        QApplication::processEvents();
        EXPECT_EQ(eye.paints, 1);
        EXPECT_EQ(surface.Text().size(), 2 * kMostReplacements + extra);
        EXPECT_NE(LastBox().find(u"Было сделано 32767 замен(ы)."), std::u16string::npos);
        EXPECT_EQ(LastBox().find(u"Больше") != std::u16string::npos, extra > 0);
        for (int step = 0; step < 3; ++step)
            history.UndoEdit(surface);
        EXPECT_EQ(surface.Text().size(), 2 * kMostReplacements + extra - 3);
    }
}

} // namespace
} // namespace quillshift
