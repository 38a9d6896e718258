// The lines that are made when they are seen, against the toolkit's own layout of a copy of the document.

#include "platform/qt/ViewLayout.h"

#include "document/rtf/RtfReader.h"
#include "platform/qt/QtTextSurface.h"
#include "support/RandomText.h"

#include <gtest/gtest.h>

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>

namespace quillshift {
namespace {

// A screen on which all measures are larger.
struct DenserScreen final : QPaintDevice {
    QPaintEngine* paintEngine() const override { return nullptr; }
    int metric(PaintDeviceMetric metric) const override {
        const bool isDensity = metric == PdmDpiX || metric == PdmDpiY;
        return isDensity ? screen.logicalDpiX() * percent / 100 : QPaintDevice::metric(metric);
    }
    QWidget screen;
    int percent = 100;
};

struct ViewLayoutTest : testing::Test {
    void Show(const std::string& rtf, QSize size) {
        surface.LoadRich(ReadRtf(rtf));
        surface.SetSelStart(0); // which waits for all of it
        model.setFrameShape(QFrame::NoFrame);
        model.setDocument(surface.document()->clone(&model));
        for (QTextEdit* edit : Both()) {
            edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the toolkit's appears without need
            edit->resize(size);
            edit->show();
            edit->setTextCursor(QTextCursor(edit->document()));
            edit->verticalScrollBar()->setValue(0);
        }
        model.document()->size(); // lays all of it out
    }
    std::string RandomRtf(int paragraphs) {
        const auto number = [&](std::size_t limit) { return std::to_string(random.Below(limit)); };
        const auto pick = [&](std::initializer_list<const char*> some) {
            return std::string(some.begin()[random.Below(some.size())]);
        };
        std::string rtf = "{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0 Arial;}{\\f1 Courier;}}";
        for (int i = 0; i < paragraphs; ++i) {
            rtf += "\\pard\\plain";
            if (random.Below(2) == 0)
                rtf += "\\li" + number(900) + "\\ri" + number(900) + "\\fi" + number(500) + "\\sb" +
                       number(300) + "\\sa" + number(300) + "\\tx" + number(3000) +
                       pick({"\\ql", "\\qr", "\\qc", "\\qj"});
            for (std::size_t words = random.Below(40); words > 0; --words)
                rtf += pick({"{\\b bold} ", "{\\fs40 large} ", "{\\f1\\i\\ul marked} ",
                             "\\'ef\\'f0\\'e8\\'e2\\'e5\\'f2 ", "\\u1513?\\u1500?\\u1493?\\u1501? ",
                             "a\\tab b ", "{\\super up}{\\sub down} ", "unbreakableunbreakableunbreakable",
                             "some plain words in a row "});
            rtf += i % 7 == 3 ? " " + std::string(5000, 'w') + "\\par\n" : "\\par\n";
        }
        return rtf + "}";
    }
    std::array<QTextEdit*, 2> Both() { return {&surface, &model}; }
    QRect Caret(QTextEdit& edit, int position) {
        QTextCursor cursor(edit.document());
        cursor.setPosition(position);
        return edit.cursorRect(cursor).translated(0, edit.verticalScrollBar()->value());
    }
    QImage Picture(QTextEdit& edit) {
        edit.document()->size(); // the toolkit leaves the rest of an edited text for later
        return edit.viewport()->grab().toImage();
    }
    int Some() {
        return static_cast<int>(random.Below(static_cast<std::size_t>(surface.document()->characterCount())));
    }

    QtTextSurface surface;
    QTextEdit model;
    DenserScreen screen;
    RandomText random{20260202};
};

TEST_F(ViewLayoutTest, HasTheToolkitsLinesAtItsPlaces) {
    for (const auto& [width, zoom] : {std::pair(400, 100), {390, 150}, {215, 100}, {620, 250}, {300, 75}}) {
        Show(RandomRtf(40), {width, 300});
        surface.SetZoom(zoom);
        screen.percent = zoom;
        model.document()->documentLayout()->setPaintDevice(&screen);
        // Which scales letters, tabs and what is above and below; and the document's margin, unlike ours.
        model.document()->setDocumentMargin(model.document()->documentMargin() * 100 / zoom);
        for (QTextBlock block = model.document()->begin(); block.isValid(); block = block.next()) {
            QTextBlockFormat format = block.blockFormat();
            format.setLeftMargin(format.leftMargin() * zoom / 100);
            format.setRightMargin(format.rightMargin() * zoom / 100);
            format.setTextIndent(format.textIndent() * zoom / 100);
            QTextCursor(block).setBlockFormat(format);
        }
        surface.resize(width, 200); // what is known of the places goes
        surface.resize(width, 300);
        int line = 0;
        const int lines = surface.LineCount();
        ASSERT_EQ(surface.layoutDirection(), model.layoutDirection());
        model.document()->documentLayout()->documentSize();
        int blocks = 0;
        for (QTextBlock block = model.document()->begin(); block.isValid(); block = block.next(), ++blocks)
            for (int i = 0; i < block.layout()->lineCount(); ++i, ++line)
                ASSERT_EQ(surface.LineIndex(line),
                          static_cast<std::size_t>(block.position() + blocks +
                                                   block.layout()->lineAt(i).textStart()))
                    << "width " << width << ", line " << line << ", paragraph " << blocks;
        EXPECT_EQ(line, lines);
        EXPECT_EQ(surface.document()->size().toSize(), model.document()->size().toSize());
        for (int i = 0; i < 200; ++i) {
            const int at = Some();
            ASSERT_EQ(Caret(surface, at), Caret(model, at)) << "width " << width << ", position " << at;
            const QPointF point(Some() % (width + 20) - 10, Caret(model, at).center().y());
            for (const auto accuracy : {Qt::FuzzyHit, Qt::ExactHit})
                ASSERT_EQ(surface.document()->documentLayout()->hitTest(point, accuracy),
                          model.document()->documentLayout()->hitTest(point, accuracy))
                    << width << ": " << point.x() << ", " << point.y();
        }
    }
}

// Jumps, steps and edits show to the pixel what they show where all is laid out.
TEST_F(ViewLayoutTest, ShowsWhatTheToolkitShowsWhereverTheViewGoes) {
    for (int round = 0; round < 6; ++round) {
        Show(RandomRtf(80), {300 + 40 * round, 250});
        surface.verticalScrollBar()->setValue(surface.verticalScrollBar()->maximum());
        QScrollBar& last = *model.verticalScrollBar(); // which the toolkit leaves as it was
        last.setMaximum(model.document()->size().toSize().height() - model.viewport()->height());
        last.setValue(last.maximum());
        ASSERT_EQ(Picture(surface), Picture(model)) << "the first look at the end of " << round;
        for (int step = 0; step < 40; ++step) {
            const int at = step == 7 ? surface.document()->characterCount() - 1 : Some();
            const int scroll = static_cast<int>(random.Below(500)) - 250;
            const std::size_t what = random.Below(7);
            for (QTextEdit* edit : Both()) {
                QTextCursor cursor = edit->textCursor();
                if (what < 2) {
                    cursor.setPosition(at);
                    edit->setTextCursor(cursor);
                    edit->ensureCursorVisible();
                } else if (what == 2) {
                    edit->ensureCursorVisible();
                    edit->insertPlainText(step % 3 == 0 ? "x\ny " : "typed ");
                } else if (what == 3) { // the gap below the second paragraph goes with it
                    cursor.setPosition(at);
                    cursor.movePosition(QTextCursor::EndOfBlock);
                    cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
                    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
                    edit->setTextCursor(cursor);
                    edit->ensureCursorVisible();
                    cursor.removeSelectedText();
                    edit->document()->size();
                    edit->ensureCursorVisible();
                } else {
                    QScrollBar& bar = *edit->verticalScrollBar();
                    bar.setValue(bar.value() + scroll);
                }
            }
            ASSERT_EQ(Picture(surface), Picture(model))
                << "round " << round << ", step " << step << ": " << what;
        }
        for (QTextEdit* edit : Both()) {
            edit->moveCursor(QTextCursor::End);
            edit->ensureCursorVisible();
        }
        ASSERT_EQ(Picture(surface), Picture(model)) << "the end of " << round;
    }
}

TEST_F(ViewLayoutTest, KeepsWhatIsReadInPlaceWhenAllIsLaidOutAnew) {
    Show(RandomRtf(120), {400, 300});
    surface.SetTopPosition(surface.Text().size() / 2);
    const std::size_t top = surface.TopPosition();
    const auto isThere = [&](const char* after) {
        const std::size_t now = surface.TopPosition();
        EXPECT_LE(now, top) << after;
        EXPECT_GT(now + 200, top) << after << ": " << now << ", " << top;
        (void)surface.viewport()->grab();
        EXPECT_EQ(surface.TopPosition(), now) << after << ": painting moves nothing";
    };
    surface.resize(300, 300);
    isThere("narrower");
    surface.SetFont({u"", 20});
    isThere("larger letters");
    surface.SetRightMargin(3000_twips);
    isThere("a margin");
    surface.SetRightMargin(0_twips);
    surface.SetFont({u"", 9});
    surface.resize(400, 300);
    isThere("as before");
    EXPECT_GT(surface.LineCount(), 100);
    isThere("all lines counted");
}

} // namespace
} // namespace quillshift
