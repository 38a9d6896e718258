#include "document/modEdit.h"

#include "base/Windows1251.h"
#include "support/FakePlatform.h"
#include "support/FakeSurface.h"
#include "support/Iconv.h"

#include <gtest/gtest.h>

#include <random>

namespace quillshift {
namespace {

/// The undo as it is meant: whole copies of every state, spliced by the letter of the rule.
class WholeCopies {
public:
    struct State {
        std::size_t start;
        std::u16string text;
    };
    void Record(const FakeSurface& surface) {
        redo.clear();
        undo.push_back({surface.SelStart(), std::u16string(surface.Text())});
    }
    // Each gives the text that the surface must hold afterwards.
    std::u16string Undo(std::u16string text) {
        if (undo.size() < 2)
            return text;
        const State& now = undo.back();
        const State& before = undo[undo.size() - 2];
        if (before.text.size() < now.text.size())
            Remove(text, now.start, now.text.size() - before.text.size());
        else
            Insert(text, now.start, Part(before.text, now.start, before.text.size() - now.text.size()));
        redo.push_back(now);
        undo.pop_back();
        return text;
    }
    std::u16string Redo(std::u16string text) {
        if (redo.empty())
            return text;
        const State next = redo.back();
        if (next.text.size() < text.size()) {
            const std::size_t start = std::min(next.start, text.size());
            text.erase(start, text.size() - next.text.size());
        } else if (const std::size_t more = next.text.size() - text.size(); next.start >= more) {
            const std::u16string span = Part(next.text, next.start - more, more);
            Insert(text, next.start - span.size(), span);
        }
        undo.push_back(next);
        redo.pop_back();
        return text;
    }

    std::vector<State> undo, redo;

private:
    static std::u16string Part(const std::u16string& text, std::size_t start, std::size_t length) {
        return start < text.size() ? text.substr(start, length) : std::u16string();
    }
    static void Insert(std::u16string& text, std::size_t place, const std::u16string& span) {
        text.insert(std::min(place, text.size()), span);
    }
    static void Remove(std::u16string& text, std::size_t caret, std::size_t length) {
        const std::size_t start = std::min(caret > length ? caret - length : 0, text.size());
        text.erase(start, length);
    }
};

struct Editing : testing::Test, FakePlatform {
    Editing() {
        document.OnChange = [this] { history.Record(document); };
    }
    void Type(std::u16string_view text) { document.SetSelText(text); }

    FakeSurface document;
    DocumentState state;
    UndoHistory history;
    modEdit edit{{document, clipboard, messageBox, state, history}};
};

TEST_F(Editing, UndoPutsBackWithTheCaretWhereTheRuleSays) {
    Type(u"a");
    edit.Undo();
    EXPECT_EQ(document.Text(), u"a") << "the first edit of all stays";
    Type(u"b");
    edit.Undo();
    EXPECT_EQ(document.Text(), u"a");
    edit.Redo();
    EXPECT_EQ(document.Text(), u"ab");
    EXPECT_EQ(document.SelStart(), 2U);

    Type(u" word");
    document.SetSelStart(3);
    document.SetSelLength(4);
    edit.Delete();
    edit.Undo();
    EXPECT_EQ(document.Text(), u"ab word");
    EXPECT_EQ(document.SelText(), u"word") << "more than a character comes back selected";
    Type(u"\r\n");
    document.SetSelStart(3);
    document.SetSelLength(2);
    edit.Delete();
    edit.Undo();
    EXPECT_EQ(document.SelStart(), 5U) << "the caret stands behind a line break";
    Type(u"x");
    EXPECT_EQ(history.RedoSteps(), 0U);
}

TEST_F(Editing, AnEditThatKeepsTheLengthIsTakenBackInNameOnly) {
    Type(u"a");
    Type(u"b");
    edit.AllTextTo(LetterCase::Upper);
    const std::size_t steps = history.UndoSteps();
    edit.Undo();
    EXPECT_EQ(document.Text(), u"AB");
    EXPECT_EQ(history.UndoSteps(), steps - 1);
}

TEST_F(Editing, HundredThousandRandomStepsAgreeWithWholeCopies) {
    std::mt19937 random(3);
    const auto below = [&](std::size_t limit) {
        return limit == 0 ? 0 : std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    WholeCopies model;
    document.OnChange = [&] {
        if (history.UndoCapture)
            model.Record(document);
        history.Record(document);
    };
    const std::u16string_view words[] = {u"a", u"é", u"word", u"\r\n", u"", u"Ёж"};
    for (int step = 0; step < 100000; ++step) {
        document.SetSelStart(below(document.Text().size() + 1));
        document.SetSelLength(below(6));
        const std::u16string before(document.Text());
        switch (below(12)) {
        case 0:
        case 1:
        case 2: {
            const std::u16string expected = model.Undo(before);
            edit.Undo();
            ASSERT_EQ(document.Text(), expected) << step;
            break;
        }
        case 3:
        case 4: {
            const std::u16string expected = model.Redo(before);
            edit.Redo();
            ASSERT_EQ(document.Text(), expected) << step;
            break;
        }
        case 5:
            edit.Cut();
            break;
        case 6:
            edit.Paste();
            break;
        case 7:
            edit.SelectionTo(LetterCase::Upper);
            break;
        case 8:
            document.SetText(before.substr(0, 40)); // as a re-coding or a take-in does
            break;
        default:
            Type(words[below(std::size(words))]);
        }
        ASSERT_EQ(history.UndoSteps(), model.undo.size());
        ASSERT_EQ(history.RedoSteps(), model.redo.size());
        if (model.undo.size() > 200) { // so that the model stays quick
            model = {};
            history = {};
        }
    }
}

TEST_F(Editing, PasteInsertsBeforeTheSelectionAndGoesToTheStart) {
    clipboard.text = u"new ";
    document.SetText(u"some text");
    document.SetSelStart(5);
    document.SetSelLength(4);
    edit.Paste();
    EXPECT_EQ(document.Text(), u"some new text");
    EXPECT_EQ(document.SelStart(), 0U);
    EXPECT_EQ(document.SelLength(), 0U);
    EXPECT_TRUE(state.DocumentModified);
}

TEST_F(Editing, CopyTellsWhenThereIsNothingAndCutTakesItOut) {
    document.SetText(u"some text");
    edit.Copy();
    ASSERT_EQ(messageBox.shown.size(), 1U);
    EXPECT_EQ(messageBox.shown[0].text, u"Нет выделенного фрагмента текста!");
    document.SetSelStart(4);
    document.SetSelLength(5);
    edit.Cut();
    EXPECT_EQ(clipboard.text, u" text");
    EXPECT_EQ(document.Text(), u"some");
    EXPECT_EQ(document.SelStart(), 4U);
}

TEST_F(Editing, OutdentStopsAtTheEdge) {
    edit.Indent();
    EXPECT_NEAR(static_cast<double>(document.SelIndent().value), 737, 1);
    edit.Outdent();
    edit.Outdent();
    EXPECT_EQ(document.SelIndent().value, 0);
}

TEST(ToCase, ConvertsTheLettersOfThePageAndKeepsTheRest) {
    EXPECT_EQ(ToCase(u"Привет, ёж і ґанок! abc 1", LetterCase::Upper), u"ПРИВЕТ, ЁЖ І ҐАНОК! ABC 1");
    EXPECT_EQ(ToCase(u"ЂЃЄЅІЇЈЉЊЋЌЎЏ", LetterCase::Lower), u"ђѓєѕіїјљњћќўџ");
    EXPECT_EQ(ToCase(u"\u4E2D\u00DF\u045D\u00D7", LetterCase::Upper), u"\u4E2D\u00DF\u045D\u00D7");
    for (int byte = 0; byte < 256; ++byte) {
        const std::u16string letter(1, windows1251::FromByte(static_cast<std::uint8_t>(byte)));
        const std::u16string upper = ToCase(letter, LetterCase::Upper);
        EXPECT_EQ(windows1251::FindUnencodable(upper).count, 0U) << byte << ": stays within the page";
        if (upper != letter) {
            EXPECT_EQ(ToCase(upper, LetterCase::Lower), letter) << byte;
        }
    }
}

} // namespace
} // namespace quillshift
