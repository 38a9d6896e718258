// A long text comes into the document bit by bit: nobody who reads or edits it meanwhile may notice.

#include "base/Texts.h"
#include "base/Windows1251.h"
#include "document/rtf/RtfReader.h"
#include "platform/qt/LongLines.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextSurface.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

namespace quillshift {
namespace {

std::u16string Lines(int count) {
    std::u16string text;
    for (int i = 0; i < count; ++i)
        text += u"line " + WholeNumberText(i) + (i % 5 == 0 ? u"\n\u2028" : u" of many\r\n");
    return text + u"end";
}

std::u16string InDocument(const QtTextSurface& surface) {
    std::u16string text;
    for (QTextBlock block = surface.document()->begin(); block.isValid(); block = block.next())
        text +=
            (block.blockNumber() > 0 && !ContinuesLine(block) ? u"\r\n" : u"") + FromQString(block.text());
    return text;
}

void Wait(const QtTextSurface& surface) {
    while (InDocument(surface).size() < surface.Text().size())
        QApplication::processEvents();
}

TEST(TextFillTest, AnswersReadersAsIfAllWereThere) {
    QtTextSurface surface;
    surface.resize(400, 300);
    surface.show();
    surface.LoadPlain(Lines(8000));
    const QString whole = ToQString(surface.Text());
    const auto& text = *QAccessible::queryAccessibleInterface(&surface)->textInterface();
    const auto at = static_cast<int>(whole.indexOf(u"line 7001 of many"));
    EXPECT_EQ(text.characterCount(), whole.size());
    EXPECT_EQ(text.text(at, -1), whole.mid(at));
    using enum QAccessible::TextBoundaryType;
    struct Case {
        QAccessible::TextBoundaryType kind;
        int place;
        QString before, there, behind;
    };
    const QString lines[] = {u"line 7000\r\n"_qs, u"\r\n"_qs, u"line 7001 of many\r\n"_qs};
    for (const Case& each : {Case{CharBoundary, at, u"\r\n"_qs, u"l"_qs, u"i"_qs},
                             {WordBoundary, at + 7, u" "_qs, u"7001"_qs, u" "_qs},
                             {ParagraphBoundary, at + 18, lines[1], lines[2], u"line 7002 of many\r\n"_qs},
                             {ParagraphBoundary, at - 2, lines[0], lines[1], lines[2]},
                             {ParagraphBoundary, at - 4, u"line 6999 of many\r\n"_qs, lines[0], lines[1]},
                             {CharBoundary, 0, {}, u"l"_qs, u"i"_qs},
                             {WordBoundary, text.characterCount(), u"end"_qs, {}, {}},
                             {LineBoundary, at, lines[1], lines[2], u"line 7002 of many\r\n"_qs}}) {
        EXPECT_EQ(InDocument(surface).size() < surface.Length(), true) << "none of it asks for the layout";
        int begin = 0;
        int end = 0;
        EXPECT_EQ(text.textBeforeOffset(each.place, each.kind, &begin, &end), each.before) << each.kind;
        EXPECT_EQ(text.textAfterOffset(each.place, each.kind, &begin, &end), each.behind) << each.kind;
        EXPECT_EQ(text.textAtOffset(each.place, each.kind, &begin, &end), each.there) << each.kind;
        EXPECT_EQ(whole.mid(begin, end - begin), each.there) << each.kind;
    }
}

TEST(TextFillTest, LosesNothingOfWhatIsDoneMeanwhile) {
    const std::u16string text = Lines(8000);
    const std::u16string whole = WithWholeBreaks(text);
    struct Case {
        const char* what;
        std::function<void(QtTextSurface&)> act;
        std::u16string leaves;
    };
    const auto press = [](int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        return [=](QtTextSurface& surface) { QTest::keyClick(&surface, Qt::Key(key), modifiers); };
    };
    for (const EditingKeys keys : {EditingKeys::OfCommands, EditingKeys::OfSurface})
        for (const Case& each : {
                 Case{"nothing", [](QtTextSurface&) {}, whole},
                 {"a letter", press(Qt::Key_X), u"x" + whole},
                 {"a letter after the next slice",
                  [](QtTextSurface& surface) {
                      QApplication::processEvents();
                      QTest::keyClick(&surface, Qt::Key_Delete);
                  },
                  whole.substr(1)},
                 {"at the end",
                  [](QtTextSurface& surface) {
                      QTest::keyClick(&surface, Qt::Key_End, Qt::ControlModifier);
                      QTest::keyClick(&surface, Qt::Key_X);
                  },
                  whole + u"x"},
                 {"at the end of what is there",
                  [](QtTextSurface& surface) {
                      surface.moveCursor(QTextCursor::End);
                      QTest::keyClick(&surface, Qt::Key_Backspace);
                      surface.moveCursor(QTextCursor::End);
                      QTest::keyClick(&surface, Qt::Key_X);
                  },
                  u""},
                 {"a call for the end",
                  [](QtTextSurface& surface) {
                      surface.SetSelStart(surface.Text().size() - 3);
                      surface.SetSelLength(3);
                      surface.Clear();
                  },
                  whole.substr(0, whole.size() - 3)},
                 {"taking in", [](QtTextSurface& surface) { surface.SetSelText(u"a\nb"); },
                  u"a\r\nb" + whole},
                 {"another text", [](QtTextSurface& surface) { surface.SetText(u"short"); }, u"short"},
                 {"the same", [&](QtTextSurface& surface) { surface.LoadPlain(text); }, whole},
             }) {
            QtTextSurface surface(nullptr, keys);
            std::u16string followed;
            surface.OnChange = [&](const TextEdit& edit) {
                ASSERT_EQ(followed.substr(edit.place, edit.went.size()), edit.went) << each.what;
                followed.replace(edit.place, edit.went.size(), edit.came);
            };
            surface.resize(400, 300);
            surface.show();
            surface.LoadPlain(text);
            ASSERT_EQ(surface.Text(), whole);
            ASSERT_LT(InDocument(surface).size(), whole.size()) << "it comes bit by bit";
            each.act(surface);
            Wait(surface);
            EXPECT_TRUE(InDocument(surface) == surface.Text()) << each.what;
            EXPECT_TRUE(followed == surface.Text()) << each.what;
            EXPECT_TRUE(each.leaves.empty() || surface.Text() == each.leaves) << each.what;
            EXPECT_EQ(surface.document()->isUndoRedoEnabled(), keys == EditingKeys::OfSurface);
            if (keys == EditingKeys::OfSurface && surface.document()->isUndoAvailable()) {
                surface.undo();
                EXPECT_LT(InDocument(surface).size() + 9, whole.size() + 18) << "the text itself stays";
                EXPECT_GT(InDocument(surface).size() + 9, whole.size()) << each.what;
            }
        }
}

TEST(TextFillTest, AnswersAsIfAllWereThere) {
    const std::u16string text = Lines(8000);
    QtTextSurface surface;
    surface.resize(400, 300);
    for (const bool isShown : {false, true}) {
        surface.setVisible(isShown);
        surface.LoadPlain(text);
        EXPECT_EQ(surface.LineCount(), 9601);
        surface.LoadPlain(text);
        EXPECT_EQ(surface.LineIndex(9600), surface.Text().size() - 3);
        surface.LoadPlain(text);
        EXPECT_EQ(surface.Find(u"end", 0, FindOptions::None), surface.Text().size() - 3);
        EXPECT_EQ(surface.SelText(), u"end");
        surface.LoadPlain(text);
        surface.SetTopPosition(surface.Text().size() / 2);
        EXPECT_GT(surface.TopPosition(), surface.Text().size() / 2 - 40);
    }
    surface.LoadPlain(text);
    surface.moveCursor(QTextCursor::End);
    const std::size_t caret = surface.SelStart();
    Wait(surface);
    EXPECT_EQ(surface.SelStart(), caret) << "it does not go along with what comes in behind it";
    surface.LoadPlain(text);
    surface.verticalScrollBar()->setValue(surface.verticalScrollBar()->maximum());
    EXPECT_EQ(InDocument(surface), surface.Text()) << "what is scrolled to comes at once";
}

TEST(TextFillTest, ReadsBytesWhetherSeenOrNot) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    for (const std::string& bytes :
         {std::string(), std::string("a\r\n\xC6"), std::string("\r\n\n"), std::string("a\rb"),
          std::string("\n"), std::string("b\r"), std::string(130, 'x') + "\n" + std::string(99, 'y'),
          std::string(63, 'x') + "\r" + std::string(64, 'y') + "\r\n", std::string(64, 'x') + "\nz",
          std::string("a\n\r\r\nb\rc\r\r"), all})
        for (const bool isShown : {false, true}) {
            const std::u16string whole = WithWholeBreaks(windows1251::Decode(bytes));
            QtTextSurface surface;
            surface.setVisible(isShown);
            surface.LoadBytes(PlainBytes(bytes));
            EXPECT_EQ(surface.Length(), whole.size());
            surface.show();
            EXPECT_EQ(InDocument(surface), whole) << bytes;
            QTest::keyClick(&surface, Qt::Key_X);
            EXPECT_EQ(surface.Text(), u"x" + whole) << bytes;
        }
}

// In many paragraphs, and in one that is too long for the toolkit.
TEST(TextFillTest, KeepsFormatsWhereverTheTextIsParted) {
    for (const std::string end : {"\\par", ""}) {
        std::string rtf = "{\\rtf1 ";
        for (int i = 0; i < 9000; ++i)
            rtf += "{\\b bold}" + std::string(i % 3 == 0 && !end.empty() ? "\\u8232 ?" : " ") +
                   "plain {\\i slanted" + end + "}" +
                   (end.empty() ? " " : "\\pard\\li" + std::to_string(i % 7 * 15) + " ");
        const RichText rich = ReadRtf(rtf + "}");
        QtTextSurface surface;
        surface.resize(400, 300);
        surface.show();
        surface.LoadRich(rich);
        ASSERT_LT(InDocument(surface).size(), rich.text.size() / 4);
        QTest::keyClick(&surface, Qt::Key_X);
        Wait(surface);
        ASSERT_TRUE(surface.Text() == u"x" + rich.text);
        EXPECT_TRUE(InDocument(surface) == surface.Text());
        std::size_t paragraph = 0;
        for (QTextBlock block = surface.document()->begin(); block.isValid(); block = block.next()) {
            paragraph += block.blockNumber() > 0 && !ContinuesLine(block) ? 1 : 0;
            EXPECT_LE(block.length(), static_cast<int>(LongLines::kMost) + 1);
            EXPECT_EQ(block.blockFormat().leftMargin(), ToPixels(rich.paragraphs[paragraph].leftIndent));
            const QString text = block.text();
            for (const QTextLayout::FormatRange& range : block.textFormats()) {
                const QString part = text.mid(range.start, range.length);
                EXPECT_EQ(range.format.fontWeight() == QFont::Bold, part.contains("bold"));
                EXPECT_EQ(range.format.fontItalic(), part.contains("slanted")) << part.toStdString();
            }
        }
        EXPECT_EQ(paragraph + 1, rich.paragraphs.size());
    }
}

} // namespace
} // namespace quillshift
