// A line that the document has in parts is one line to whoever calls or types.

#include "platform/qt/LongLines.h"

#include "platform/qt/PrintLayout.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextSurface.h"
#include "support/FakeSurface.h"
#include "support/RandomText.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <QTest>
#include <QTextBoundaryFinder>
#include <QTextDocument>

namespace quillshift {
namespace {

struct LongLinesTest : testing::Test {
    LongLinesTest() {
        real.OnChange = [this](const TextEdit& edit) {
            ASSERT_EQ(followed.substr(edit.place, edit.went.size()), edit.went);
            followed.replace(edit.place, edit.went.size(), edit.came);
        };
        real.resize(500, 300);
        real.show();
    }
    // Emoji, marks and words, with blanks or without.
    std::u16string Line(std::size_t length, bool hasBlanks) {
        std::u16string line;
        while (line.size() < length)
            line += std::array<std::u16string, 5>{u"слово", u"\xD83D\xDE00", u"e\u0301\u0301", u"a\u0308",
                                                  hasBlanks ? u" " : u"-"}[random.Below(5)];
        return line;
    }
    // Where a part begins, or the end if there is none.
    std::size_t Border(std::size_t which) const {
        for (QTextBlock block = real.document()->begin(); block.isValid(); block = block.next())
            if (ContinuesLine(block) && which-- == 0)
                return real.Text().find(FromQString(block.text().left(200)),
                                        static_cast<std::size_t>(block.position()) - 9);
        return real.Text().size();
    }
    void ExpectWhole() const {
        std::u16string text;
        for (QTextBlock block = real.document()->begin(); block.isValid(); block = block.next()) {
            ASSERT_LE(block.length(), static_cast<int>(LongLines::kMost) + 1);
            ASSERT_TRUE(block.length() > 1 || !ContinuesLine(block.next()));
            text += (block.blockNumber() > 0 && !ContinuesLine(block) ? u"\r\n" : u"") +
                    FromQString(block.text());
            if (ContinuesLine(block)) {
                const QString both = block.previous().text().right(99) + block.text().left(99);
                QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, both);
                finder.setPosition(std::min(block.previous().length() - 1, 99));
                ASSERT_TRUE(finder.isAtBoundary()) << both.toStdString();
            }
        }
        ASSERT_TRUE(text == real.Text());
        ASSERT_TRUE(followed == real.Text());
    }
    RandomText random{20260303};
    std::u16string followed;
    QtTextSurface real;
    FakeSurface fake;
};

TEST_F(LongLinesTest, AreOneLineInAllCalls) {
    for (int step = 0; step < 300; ++step) {
        const std::size_t at =
            Border(random.Below(4)) + random.Below(9) - std::min<std::size_t>(4, real.Text().size());
        const std::size_t far = random.Below(9) == 0 ? random.Below(30'000) : random.Below(5);
        const bool isLong = random.Below(12) == 0;
        const std::u16string piece = isLong ? Line(random.Below(70'000), step % 2 == 0) : random.Piece();
        for (TextSurface* const surface :
             {static_cast<TextSurface*>(&real), static_cast<TextSurface*>(&fake)}) {
            if (step % 60 == 0)
                surface->LoadPlain((piece + std::u16string(90'000, u'x') + u"\r\n").append(piece));
            if (step % 10 == 9) {
                const std::u16string text(surface->Text());
                std::vector<Replacement> row;
                for (std::size_t place = text.size();
                     (place = text.rfind(u'-', place - 1)) != text.npos && place > 9000;)
                    row.push_back({place, u"-"});
                auto next = row.begin();
                surface->ReplaceEach([&] { return next == row.end() ? nullptr : &*next++; },
                                     step % 20 == 9 ? u"-я" : u"");
            }
            surface->SetSelStart(at);
            surface->SetSelLength(far);
            if (step % 3 == 0)
                surface->SetSelText(piece);
            else if (step % 3 == 1)
                surface->Clear();
        }
        ASSERT_TRUE(real.Text() == fake.Text()) << step;
        ASSERT_EQ(real.SelStart(), fake.SelStart()) << step;
        ASSERT_EQ(real.SelLength(), fake.SelLength()) << step;
        ASSERT_EQ(real.SelText(), fake.SelText()) << step;
        ExpectWhole();
        ASSERT_FALSE(HasFatalFailure()) << step;
    }
}

// As of one paragraph, which the model has: on the screen, in each call, and on paper.
TEST_F(LongLinesTest, GoOnWithTheirRowsOverTheBorders) {
    for (const auto& [name, line] : {std::pair("words", Line(50'000, true)),
                                     {"one word", Line(50'000, false)},
                                     {"to the left", Line(20, true) + std::u16string(50'000, u'ש')},
                                     {"from the right", u"ש" + std::u16string(50'000, u'-')}}) {
        SCOPED_TRACE(name);
        QtTextSurface model(nullptr, EditingKeys::OfSurface);
        model.resize(500, 300);
        model.show();
        const auto load = [text = u"before\r\n" + line + u"\r\nbehind"](QtTextSurface& surface) {
            surface.LoadPlain(text);
            surface.SetSelStart(text.size());
            QTextCursor bold(surface.document());
            bold.setPosition(surface.DocumentPosition(0));
            bold.setPosition(surface.DocumentPosition(text.size()), QTextCursor::KeepAnchor);
            QTextCharFormat format;
            format.setFontWeight(QFont::Bold);
            bold.mergeCharFormat(format);
            surface.SetSelStart(0);
        };
        std::vector<std::size_t> pages[2];
        for (QtTextSurface* const surface : {&model, &real}) {
            load(*surface);
            ASSERT_TRUE(surface->LineIndex(300));
            QImage paper(500, 900, QImage::Format_RGB32);
            QPainter painter(&paper);
            PrintLayout layout(*surface->document(), paper, false);
            for (int at = 0; at < surface->document()->characterCount() - 1;
                 pages[surface == &real].push_back(surface->SurfacePosition(at)))
                at = layout.Paint(painter, {0, 0, 400, 800}, at);
        }
        EXPECT_EQ(pages[0], pages[1]);
        for (int row = 0; row < model.LineCount(); row += 60)
            ASSERT_EQ(real.LineIndex(row), model.LineIndex(row)) << row;
        EXPECT_EQ(real.LineCount(), model.LineCount());
        load(real); // its borders are where they were
        for (std::size_t border = 0; border < 2; ++border) {
            const std::size_t place = Border(border) - 200;
            for (QtTextSurface* const surface : {&model, &real}) {
                surface->SetTopPosition(place);
                QTest::qWait(1);
            }
            for (std::size_t at = place; at < std::min(place + 400, real.Length()); ++at) {
                QPoint seen[2];
                for (QtTextSurface* const surface : {&model, &real}) {
                    QTextCursor cursor(surface->document());
                    cursor.setPosition(surface->DocumentPosition(at));
                    seen[surface == &real] = surface->cursorRect(cursor).topLeft();
                }
                ASSERT_EQ(seen[0], seen[1]) << border << ": " << at;
            }
        }
    }
}

// The model has an undo of its own, and so its line in one paragraph.
TEST_F(LongLinesTest, AreOneLineToKeysAndClicks) {
    QtTextSurface model(nullptr, EditingKeys::OfSurface);
    const std::u16string line = Line(54'000, true) + Line(1'000, false);
    for (QtTextSurface* const surface : {&real, &model})
        surface->LoadPlain(u"before\r\n" + line + u"\r\nbehind");
    ASSERT_LT(real.document()->blockCount(), 5) << "it comes bit by bit";
    for (int step = 0; step < 80; ++step) {
        const std::size_t at = Border(0) + random.Below(5) - 2;
        constexpr Qt::Key kKeys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Backspace, Qt::Key_Delete,
                                     Qt::Key_X,    Qt::Key_Left,  Qt::Key_Right};
        const Qt::Key key = kKeys[random.Below(std::size(kKeys))];
        const Qt::KeyboardModifiers modifiers =
            (random.Below(3) == 0 && key != Qt::Key_Delete ? Qt::ShiftModifier : Qt::NoModifier) |
            (random.Below(3) == 0 && key != Qt::Key_X ? Qt::ControlModifier : Qt::NoModifier);
        for (QtTextSurface* const surface : {&real, &model}) {
            if (step % 2 == 0)
                surface->SetSelStart(at);
            QTest::keyClick(surface, key, modifiers);
            if (step % 7 == 6) {
                surface->SetSelLength(3);
                const std::size_t rest = surface->Length() - surface->SelLength();
                QTest::keyClick(surface, step % 2 == 0 ? Qt::Key_Delete : Qt::Key_Backspace,
                                Qt::ControlModifier);
                ASSERT_EQ(surface->Length(), rest) << "not a word beyond what is selected";
            }
            if (step == 40)
                QTest::keyClick(surface, Qt::Key_Return);
        }
        ASSERT_TRUE(real.Text() == model.Text()) << step << ": " << key << modifiers;
        ASSERT_EQ(real.SelStart(), model.SelStart()) << step << ": " << key << modifiers;
        ASSERT_EQ(real.SelLength(), model.SelLength()) << step << ": " << key << modifiers;
        ExpectWhole();
        ASSERT_FALSE(HasFatalFailure()) << step;
    }
    real.LoadPlain(u"before\r\n" + line + u"\r\nbehind");
    real.SetSelStart(real.Length());
    real.SetSelStart(0);
    real.SetSelStart(Border(1));
    real.grab(); // its row is seen
    const std::size_t border = Border(1);
    real.SetSelStart(border);
    for (const auto& [key, isBehind] :
         {std::pair(Qt::Key_Up, false), {Qt::Key_Down, true}, {Qt::Key_Up, false}, {Qt::Key_End, false}}) {
        QTest::keyClick(&real, key);
        EXPECT_EQ(real.SelStart() >= border, isBehind) << "a row up or down, or along";
    }
    const QPoint point(90, real.cursorRect().center().y());
    QTest::mouseClick(real.viewport(), Qt::LeftButton, {}, {499, point.y()});
    EXPECT_EQ(real.cursorRect().center().y(), point.y()) << "behind the row's end";
    QTest::mouseDClick(real.viewport(), Qt::LeftButton, {}, point);
    QTest::mouseClick(real.viewport(), Qt::LeftButton, {}, point);
    EXPECT_EQ(real.SelStart(), real.Text().rfind(u"\r\n", border) + 2) << "the third click takes the line";
    EXPECT_EQ(real.SelStart() + real.SelLength(), real.Text().find(u"\r\n", border) + 2);
    real.SetSelStart(border);
    real.SetSelIndent(600_twips);
    for (QTextBlock block = real.document()->begin(); block.isValid(); block = block.next())
        EXPECT_EQ(block.blockFormat().leftMargin() > 0, ContinuesLine(block) || ContinuesLine(block.next()));
    const int rows = real.LineCount();
    for (int row = 1; row < rows; ++row)
        ASSERT_GT(*real.LineIndex(row), *real.LineIndex(row - 1));
}

} // namespace
} // namespace quillshift
