#include "document/Recovery.h"
#include "document/UndoHistory.h"
#include "document/modEdit.h"
#include "document/rtf/RtfReader.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextSurface.h"
#include "support/FakePlatform.h"
#include "support/RandomText.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace quillshift {
namespace {

/// The real surface with the real commands.
struct UndoTest : testing::Test, FakePlatform {
    UndoTest() {
        surface.resize(300, 200);
        surface.OnChange = [this](const TextEdit& change) {
            history.Record(change);
            unsaved.Edited(surface, change);
        };
        surface.OnFileDrop = [](std::u16string_view) {};
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&surface, key, modifiers);
    }
    void Drop(std::u16string_view text) {
        QMimeData data;
        data.setText(ToQString(text));
        const QPointF place(surface.cursorRect().center());
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(surface.viewport(), &drop);
    }
    void Compose(std::u16string_view text) {
        QInputMethodEvent event;
        event.setCommitString(ToQString(text));
        QApplication::sendEvent(&surface, &event);
    }

    QtTextSurface surface;
    DocumentState state;
    UndoHistory history;
    Settings settings{store};
    Recovery unsaved{{recovery, settings, timers, state, surface}};
    modEdit edit{{surface, clipboard, messageBox, state, history}};
    RandomText random{7};

    // One of these is one edit, or none where it changes nothing.
    std::vector<std::function<void()>> edits{
        [this] { Press(Qt::Key_A); },
        [this] { Press(random.Below(2) ? Qt::Key_Tab : Qt::Key_Z); },
        [this] { Press(Qt::Key_Return, random.Below(2) ? Qt::NoModifier : Qt::ShiftModifier); },
        [this] { Press(Qt::Key_Backspace, random.Below(2) ? Qt::NoModifier : Qt::ControlModifier); },
        [this] { Press(Qt::Key_Delete, random.Below(2) ? Qt::NoModifier : Qt::ControlModifier); },
        [this] { Compose(random.Piece()); },
        [this] { Drop(random.Piece()); },
        [this] { surface.SetSelText(random.Piece()); },
        [this] { surface.SetSelText(random.Piece() + u"\r\n" + random.Piece()); },
        [this] { edit.Cut(); },
        [this] { edit.Paste(); },
        [this] { edit.Delete(); },
        [this] { edit.SelectionTo(random.Below(2) ? LetterCase::Upper : LetterCase::Lower); },
        [this] { edit.AllTextTo(random.Below(2) ? LetterCase::Upper : LetterCase::Lower); },
        [this] { edit.Indent(); },
        [this] { // a replacement
            if (surface.Find(random.Piece(), random.Below(30), FindOptions::None))
                surface.SetSelText(random.Piece());
        },
        [this] { surface.SetText(std::u16string(surface.Text()) + u'\r' + random.Piece()); },
        [this] { // a re-coding
            std::u16string text(surface.Text());
            std::replace(text.begin(), text.end(), u'a', u'b');
            surface.SetText(text);
        },
        [this] { // the rare ones, which make the text short again
            if (random.Below(8) == 0)
                surface.LoadPlain(u"from\na \xD83D\xDE00 file");
            else if (random.Below(8) == 0)
                surface.LoadRich(ReadRtf("{\\rtf1 {\\b rich}\\par\\qc text}"));
            else if (random.Below(8) == 0)
                edit.Clear();
        },
    };
};

// QUILLSHIFT_EDITS asks for more edits than the suite has time for.
TEST_F(UndoTest, GivesEveryTextBackAsItWas) {
    const char* const wanted = std::getenv("QUILLSHIFT_EDITS");
    const int count = wanted ? std::atoi(wanted) : 4000;
    surface.LoadPlain(u"");
    std::vector<std::u16string> texts{u""};
    std::size_t now = 0;
    const auto undo = [&] {
        edit.Undo();
        now -= now > 0 ? 1 : 0;
    };
    const auto redo = [&] {
        edit.Redo();
        now += now + 1 < texts.size() ? 1 : 0;
    };
    for (int step = 0; step < count; ++step) {
        surface.SetSelStart(random.Below(surface.Text().size() + 1));
        surface.SetSelLength(random.Below(6));
        const std::size_t what = random.Below(edits.size() * 3 / 2);
        if (what < edits.size()) {
            edits[what]();
            if (surface.Text() != texts[now]) {
                texts.resize(++now);
                texts.emplace_back(surface.Text());
            }
        } else if (random.Below(2) == 0) {
            undo();
        } else {
            redo();
        }
        ASSERT_EQ(surface.Text(), texts[now]) << step << ": " << what;
        ASSERT_EQ(history.UndoSteps(), now + 1) << step << ": " << what;
        ASSERT_EQ(history.RedoSteps(), texts.size() - 1 - now) << step << ": " << what;
        if (random.Below(4) == 0)
            unsaved.Flush();
        if (random.Below(4) == 0) {
            unsaved.Flush();
            const auto left = ReadRecoveryFile(recovery.file.value_or(""));
            ASSERT_EQ(left ? left->text : u"", surface.Text()) << step << ": " << what;
        }
    }
    EXPECT_GT(texts.size(), 50U);
    while (now > 0) {
        undo();
        ASSERT_EQ(surface.Text(), texts[now]);
    }
    while (now + 1 < texts.size()) {
        redo();
        ASSERT_EQ(surface.Text(), texts[now]);
    }
}

TEST_F(UndoTest, KnowsWhichOfEqualLettersCame) {
    for (const auto& type :
         {std::function([this] { Press(Qt::Key_A); }), std::function([this] { Compose(u"a"); })}) {
        surface.SetText(u"aaaa");
        surface.SetSelStart(2);
        type();
        edit.Undo();
        EXPECT_EQ(surface.SelStart(), 2U);
        edit.Redo();
        EXPECT_EQ(surface.SelStart(), 3U);
    }
}

TEST_F(UndoTest, PartsAPairThatAnEditMade) {
    for (const auto& [first, caret, second] :
         {std::tuple(u"\xD83D", 1U, u"\xDE00"), std::tuple(u"\xDE00", 0U, u"\xD83D")}) {
        surface.SetText(first);
        surface.SetSelStart(caret);
        surface.SetSelText(second);
        edit.Undo();
        EXPECT_EQ(surface.Text(), first);
        edit.Redo();
        EXPECT_EQ(surface.Text(), u"\xD83D\xDE00");
    }
}

TEST_F(UndoTest, LeavesTheFormattingAroundItsSpan) {
    surface.LoadRich(ReadRtf("{\\rtf1 {\\b bold} plain\\par\\pard\\qr right\\par}"));
    surface.SetSelStart(surface.Text().find(u"ain"));
    surface.SetSelLength(3);
    Press(Qt::Key_X);
    edit.Undo();
    EXPECT_EQ(surface.Text(), u"bold plain\r\nright\r\n");
    EXPECT_EQ(surface.SelText(), u"ain");
    QTextCursor cursor(surface.document());
    cursor.setPosition(2);
    EXPECT_EQ(cursor.charFormat().fontWeight(), QFont::Bold);
    EXPECT_EQ(surface.document()->findBlockByNumber(1).blockFormat().alignment(), Qt::AlignRight);
}

} // namespace
} // namespace quillshift
