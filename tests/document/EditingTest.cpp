#include "document/modEdit.h"

#include "base/Windows1251.h"
#include "document/TextChange.h"
#include "support/FakePlatform.h"
#include "support/FakeSurface.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>

namespace quillshift {
namespace {

// Where the one insertion or removal that leads from a text to another ended, found by trying all places: at
// the caret if that can be, else at the first that can. None for any other edit.
std::optional<std::size_t> EndOfOneSpan(std::u16string_view from, std::u16string_view to, std::size_t caret) {
    const bool added = to.size() > from.size();
    const std::u16string_view longer = added ? to : from;
    const std::u16string_view shorter = added ? from : to;
    const std::size_t length = longer.size() - shorter.size();
    const std::size_t first = added && caret >= length ? caret - length : caret;
    const auto fits = [&](std::size_t start) {
        return start <= shorter.size() && longer.starts_with(shorter.substr(0, start)) &&
               longer.ends_with(shorter.substr(start));
    };
    std::size_t start = fits(first) ? first : 0;
    while (start <= shorter.size() && !fits(start))
        ++start;
    if (length == 0 || start > shorter.size())
        return std::nullopt;
    return added ? start + length : start;
}

/// The undo as it is meant: whole copies of every state, spliced by the letter of the rule. What was one
/// insertion or removal comes back as it was, wherever a command has left the caret.
class WholeCopies {
public:
    struct State {
        std::size_t start;
        std::u16string text;
    };
    void Record(const FakeSurface& surface) {
        redo.clear();
        const std::u16string_view before = undo.empty() ? std::u16string_view() : undo.back().text;
        const auto end = EndOfOneSpan(before, surface.Text(), surface.SelStart());
        undo.push_back({end.value_or(surface.SelStart()), std::u16string(surface.Text())});
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

TEST(ChangedSpan, IsCutFromTheLongerTextAndReadsNothingOutsideIt) {
    struct Case {
        std::u16string_view first, second;
        std::size_t place;
        std::u16string_view span;
    };
    for (const Case& c :
         {Case{u"abcd", u"ad", 4, u"bc"}, Case{u"ad", u"abcd", 4, u"bc"}, Case{u"", u"abc", 4, u"abc"},
          Case{u"same", u"text", 3, u""}, Case{u"abcd", u"ad", 6, u"d"}, Case{u"abcd", u"ad", 7, u""},
          Case{u"abcd", u"ad", 2, u""}, Case{u"", u"", 0, u""}})
        EXPECT_EQ(ChangedSpan(c.first, c.second, c.place), c.span) << c.place;
}

TEST(ChangeBetween, EndsAtTheCaretWhereTheTextsLeaveAChoice) {
    EXPECT_EQ(ChangeBetween(u"aaa", u"aaaa", 2), (TextChange{1, 0, 1}));
    EXPECT_EQ(ChangeBetween(u"aaaa", u"aaa", 2), (TextChange{2, 1, 0}));
    EXPECT_EQ(ChangeBetween(u"one two", u"one 2", 0), (TextChange{4, 3, 1}));
    EXPECT_EQ(ChangeBetween(u"one two", u"1 two", 5), (TextChange{0, 3, 1})) << "before the caret";
    EXPECT_EQ(ChangeBetween(u"same", u"same", 4), (TextChange{4, 0, 0}));
    for (const std::size_t place : {0U, 1U, 511U, 512U, 1500U, 2999U}) { // about the compared blocks
        std::u16string text(3000, u'x');
        text[place] = u'y';
        EXPECT_EQ(ChangeBetween(std::u16string(3000, u'x'), text, 0), (TextChange{place, 1, 1}));
    }
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

TEST(ToCase, ConvertsTheLettersOfThePageAndKeepsTheRest) {
    constexpr std::u16string_view kCapitals =
        u"ABCDEFGHIJKLMNOPQRSTUVWXYZАБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯЁҐЂЃЄЅІЇЈЉЊЋЌЎЏ";
    constexpr std::u16string_view kSmall =
        u"abcdefghijklmnopqrstuvwxyzабвгдежзийклмнопрстуфхцчшщъыьэюяёґђѓєѕіїјљњћќўџ";
    for (int byte = 0; byte < 256; ++byte) {
        const char16_t letter = windows1251::FromByte(static_cast<std::uint8_t>(byte));
        const std::u16string_view text(&letter, 1);
        const std::size_t capital = kCapitals.find(letter);
        const std::size_t small = kSmall.find(letter);
        EXPECT_EQ(ToCase(text, LetterCase::Lower), capital < kSmall.size() ? kSmall.substr(capital, 1) : text)
            << byte;
        EXPECT_EQ(ToCase(text, LetterCase::Upper),
                  small < kCapitals.size() ? kCapitals.substr(small, 1) : text)
            << byte;
    }
    constexpr std::u16string_view kOutside = u"\u4E2D\u00DF\u045D\u0450\u00D7\u00E9";
    EXPECT_EQ(ToCase(kOutside, LetterCase::Upper), kOutside);
}

} // namespace
} // namespace quillshift
