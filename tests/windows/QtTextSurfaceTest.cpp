#include "platform/qt/QtTextSurface.h"

#include "document/rtf/RtfReader.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>

namespace quillshift {
namespace {

struct QtTextSurfaceTest : testing::Test {
    QtTextSurfaceTest() { surface.resize(400, 300); }
    QtTextSurface surface;
};

TEST_F(QtTextSurfaceTest, ShowsFormattingUntilThePlainTextIsSet) {
    surface.show();
    surface.LoadRich(
        ReadRtf("{\\rtf1{\\colortbl;\\red255\\green255\\blue0;}{\\b bold}{\\highlight1 marked}\\par"
                "\\pard\\li900\\fi-500{\\listtext 1.\\tab}item " +
                std::string(100, 'w') + " that wraps\\par\\pard\\qr right}"));
    QTextCursor cursor(surface.document());
    const auto formatAt = [&](int position) {
        cursor.setPosition(position);
        return cursor.charFormat();
    };
    const auto leftOf = [&](std::size_t position) {
        surface.SetSelStart(position);
        return surface.cursorRect().left();
    };
    EXPECT_EQ(formatAt(2).fontWeight(), QFont::Bold);
    EXPECT_EQ(formatAt(7).background().color(), QColor(255, 255, 0));
    EXPECT_EQ(leftOf(surface.Text().find(u"item")), leftOf(*surface.LineIndex(2))) << "below each other";
    EXPECT_GT(leftOf(surface.Text().find(u"item")), leftOf(surface.Text().find(u"1.")) + 20);
    EXPECT_EQ(surface.LineIndex(-1), surface.LineIndex(1)) << "the line of the caret, which stands at 1.";
    EXPECT_EQ(surface.document()->lastBlock().blockFormat().alignment(), Qt::AlignRight);
    surface.SetText(std::u16string(surface.Text()));
    EXPECT_NE(formatAt(2).fontWeight(), QFont::Bold);
    EXPECT_EQ(formatAt(7).background().style(), Qt::NoBrush);
    EXPECT_NE(surface.document()->lastBlock().blockFormat().alignment(), Qt::AlignRight);
}

// Qt's own layout is the model, which shows a copy of the document.
TEST_F(QtTextSurfaceTest, ALongWordIsLaidOutAsAnyOther) {
    const std::string word(5000, 'w');
    surface.LoadRich(ReadRtf("{\\rtf1 one two\\par\\li300\\fi200\\sb150 before " + word + " behind three " +
                             word + " " + word + "\\par\\pard\\qr\\ri900\\sa300{\\ul\\fs30 four-" + word +
                             "}\\par\\pard\\par five}"));
    surface.SetSelText(u"in"); // a changed paragraph is laid out anew
    QTextEdit model;
    model.setFrameShape(QFrame::NoFrame);
    model.setDocument(surface.document()->clone(&model));
    for (const QSize size : {QSize(400, 300), QSize(231, 90)}) {
        for (QTextEdit* edit : {static_cast<QTextEdit*>(&surface), &model}) {
            edit->resize(size);
            edit->show();
            edit->ensureCursorVisible();
        }
        for (const int at : {0, 3, 9, 30, 4000, 5020, 5040, 15060, 15080, 19990}) {
            for (QTextEdit* edit : {static_cast<QTextEdit*>(&surface), &model}) {
                QTextCursor cursor(edit->document());
                cursor.setPosition(at + 40);
                cursor.setPosition(at, QTextCursor::KeepAnchor);
                edit->setTextCursor(cursor);
                edit->ensureCursorVisible();
            }
            EXPECT_EQ(surface.cursorRect(), model.cursorRect()) << at;
            EXPECT_EQ(surface.viewport()->grab().toImage(), model.viewport()->grab().toImage()) << at;
            for (int x = -5; x < size.width() + 20; x += 37)
                for (int y = -5; y < size.height() + 20; y += 12)
                    EXPECT_EQ(surface.cursorForPosition({x, y}).position(),
                              model.cursorForPosition({x, y}).position())
                        << at << ": " << x << ", " << y;
        }
    }
}

TEST_F(QtTextSurfaceTest, HandsDroppedFilesOnAndTakesDroppedText) {
    QWidget window;
    surface.setParent(&window);
    surface.TakeFilesDroppedOn(window);
    std::u16string opened;
    surface.OnFileDrop = [&](std::u16string_view path) { opened += path; };
    const QString file = QStringLiteral("file:///d/%D1%8F%201.txt");
    struct Drop {
        QWidget& target;
        QStringList urls;
        QString text;
        std::u16string_view opens, leaves;
        bool taken;
    };
    for (const Drop& drop :
         {Drop{*surface.viewport(), {file, "file:///d/2.txt"}, file, u"/d/я 1.txt", u"x", true},
          Drop{window, {file}, file, u"/d/я 1.txt", u"x", true},
          Drop{*surface.viewport(), {"https://a.example/"}, "link", u"", u"linkx", true},
          Drop{*surface.viewport(), {}, "two\nlines", u"", u"two\r\nlinesx", true},
          Drop{window, {}, "text", u"", u"x", false}}) {
        surface.SetText(u"x");
        opened.clear();
        QMimeData data;
        if (drop.opens.empty())
            data.setText(drop.text);
        if (!drop.urls.empty())
            data.setUrls(QUrl::fromStringList(drop.urls));
        QDragEnterEvent enter({1, 1}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&drop.target, &enter);
        EXPECT_EQ(enter.isAccepted(), drop.taken) << drop.text.toStdString();
        QDropEvent event({1, 1}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(&drop.target, &event);
        EXPECT_EQ(event.isAccepted(), drop.taken);
        EXPECT_TRUE(drop.opens.empty() || event.dropAction() == Qt::CopyAction) << "the giver keeps its file";
        EXPECT_EQ(opened, u"") << "nobody waits for the program to answer";
        QApplication::processEvents();
        EXPECT_EQ(opened, drop.opens);
        EXPECT_EQ(surface.Text(), drop.leaves);
    }
    surface.setParent(nullptr);
}

TEST_F(QtTextSurfaceTest, LeavesClipboardAndUndoKeysToTheProgramOrServesThem) {
    QtTextSurface serving(nullptr, EditingKeys::OfSurface);
    struct Step {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        std::u16string_view left, served;
    };
    for (QtTextSurface* const shown : {&surface, &serving}) {
        shown->SetText(u"text");
        shown->SetSelStart(0);
        shown->SetSelLength(4);
        for (const Step& step : {Step{Qt::Key_X, Qt::ControlModifier, u"text", u""},
                                 {Qt::Key_Z, Qt::ControlModifier, u"text", u"text"},
                                 {Qt::Key_Z, Qt::ControlModifier, u"text", u"text"},
                                 {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, u"text", u""},
                                 {Qt::Key_V, Qt::ControlModifier, u"text", u"text"},
                                 {Qt::Key_Insert, Qt::ShiftModifier, u"text", u"texttext"},
                                 {Qt::Key_A, Qt::ControlModifier, u"text", u"texttext"},
                                 {Qt::Key_Delete, Qt::ShiftModifier, u"text", u""},
                                 {Qt::Key_Return, Qt::ShiftModifier, u"\r\n", u"\r\n"}}) {
            QTest::keyClick(shown, step.key, step.modifiers);
            EXPECT_EQ(shown->Text(), shown == &surface ? step.left : step.served) << step.key;
        }
    }
}

} // namespace
} // namespace quillshift
