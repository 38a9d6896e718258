#include "document/Search.h"

#include "base/Utf8.h"
#include "document/Aside.h"
#include "document/GoToLine.h"
#include "support/RandomText.h"
#include "support/TestProgram.h"

namespace quillshift {
namespace {

// A run done by hand: letter by letter, each with a mark whether the run has put it in.
std::u16string ReplacedByHand(std::u16string text, std::u16string_view wanted, std::u16string_view by) {
    std::vector<bool> putIn(text.size());
    for (std::size_t at = 0; !wanted.empty() && at + wanted.size() <= text.size();) {
        const auto begin = putIn.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = begin + std::ssize(wanted);
        if (text.compare(at, wanted.size(), wanted) != 0 || std::find(begin, end, false) == end) {
            ++at;
            continue;
        }
        text.replace(at, wanted.size(), by);
        putIn.insert(putIn.erase(begin, end), by.size(), true);
        at += wanted.size();
    }
    return text;
}

TEST(Replacements, AreThoseOfARunByHand) {
    RandomText random(16);
    const auto some = [&](std::size_t most) {
        std::u16string text;
        for (std::size_t left = random.Below(most + 1); left > 0; --left)
            text += u"aab"[random.Below(3)];
        return text;
    };
    for (int run = 0; run < 20000; ++run) {
        const std::u16string text = some(14), wanted = some(3), by = some(6);
        FakeSurface document;
        document.SetText(text);
        const Replacements found = ReplacementsIn(document, wanted, by, FindOptions::MatchCase);
        auto next = found.each.begin();
        document.ReplaceEach([&] { return next == found.each.end() ? nullptr : &*next++; }, by);
        ASSERT_EQ(ToUtf8(document.Text()), ToUtf8(ReplacedByHand(text, wanted, by)))
            << ToUtf8(text) << ": " << ToUtf8(wanted) << " by " << ToUtf8(by);
    }
}

/// The commands and buttons, by letters: F find and R replace are the buttons, in lower case those of the
/// dialog for replacing; N is Find Next, A replaces all, O and o open the dialogs.
struct SearchTest : testing::Test, TestProgram {
    std::string After(char what) {
        messageBox.shown.clear();
        const std::map<char, std::function<void()>> doings{
            {'O', [this] { program.Run("MENU:FIND:FIND"); }},
            {'o', [this] { program.Run("TOOLBAR:REPLACE"); }},
            {'F', [this] { search.Find(search.FindState()); }},
            {'f', [this] { search.Find(search.ReplaceState()); }},
            {'N', [this] { program.Run("MENU:FIND:FINDNEXT"); }},
            {'r', [this] { search.Replace(); }},
            {'A', [this] { search.ReplaceAll(); }}};
        doings.at(what)();
        std::string told =
            std::to_string(document.SelStart()) + "+" + std::to_string(document.SelLength()) + " ";
        (told += search.FindState().goesOn ? 'G' : '-') += search.ReplaceState().goesOn ? 'g' : '-';
        for (const auto& box : messageBox.shown)
            told += (box.icon == BoxIcon::Information ? " i:"
                     : box.icon == BoxIcon::Question  ? " ?:"
                                                      : " !:") +
                    ToUtf8(box.text);
        return told;
    }
    using Step = std::pair<char, const char*>;
    void Expect(std::initializer_list<Step> steps) {
        int number = 0;
        for (const auto& [what, after] : steps)
            EXPECT_EQ(After(what), after) << what << ", step " << ++number;
    }

    FakeSurface& document = Start().document;
    Search& search = program.Parts().search;
};

TEST_F(SearchTest, EachButtonGoesItsWay) {
    Expect({Step{'O', "0+0 -- i:Документ не содержит текста!"}});
    document.SetText(u"Ель, ель и ели: ЕЛЬ");
    document.Select(5, 3);
    Expect({Step{'O', "5+3 --"}, Step{'F', "0+3 G-"}, Step{'F', "5+3 G-"}, Step{'F', "16+3 G-"},
            Step{'F', "16+3 -- i:Поиск завершен!"}, Step{'N', "16+3 -- i:Текст не найден!"},
            Step{'F', "0+3 G-"}, Step{'N', "5+3 G-"}, Step{'o', "5+3 G-"}, Step{'f', "0+3 Gg"},
            Step{'o', "0+3 Gg"}, Step{'O', "0+3 Gg"}});
    EXPECT_EQ(search.FindState().wanted, u"ель") << "what is open keeps its state";
    search.FindState().options = FindOptions::MatchCase;
    search.ReplaceState().replacement = u"Ёлка";
    Expect({Step{'F', "5+3 Gg"}, Step{'F', "5+3 -g i:Поиск завершен!"}, Step{'r', "17+3 -g"},
            Step{'r', "21+0 -- !:Поиск завершен!"}, Step{'f', "0+3 -g"}});
    EXPECT_EQ(document.Text(), u"Ель, Ёлка и ели: Ёлка");
    document.Select(9, 4);
    search.ReplaceState().replacement = u"";
    Expect({Step{'r', "9+0 -- !:Поиск завершен!"}});
    EXPECT_EQ(document.Text(), u"Ель, Ёлкали: Ёлка") << "what is no match is replaced, too";
}

TEST_F(SearchTest, FindNextWithoutTheDialogTakesWhatIsSelected) {
    document.SetText(u"два раз два, раз");
    Expect({Step{'N', "0+0 -- i:Текст не найден!"}});
    document.SetSelLength(3);
    Expect({Step{'N', "8+3 --"}, Step{'N', "8+3 -- i:Текст не найден!"}});
    document.SetSelStart(0);
    Expect({Step{'N', "0+3 --"}});
    document.Select(4, 3);
    Expect({Step{'N', "13+3 --"}});
    EXPECT_EQ(sound.played, std::vector<std::u16string>());
    EXPECT_GT(document.focused, 0);
}

TEST_F(SearchTest, ReplacingAllAsksCountsAndEnds) {
    document.SetText(u"aXbxc");
    document.Select(1, 1);
    const std::string question = " ?:Вы действительно хотите заменить ''X'' на ''"
                                 "yy'' во всем документе?";
    Expect({Step{'o', "1+1 --"}, Step{'f', "1+1 -g"}});
    search.ReplaceState().replacement = u"yy";
    EXPECT_EQ(After('A'), "1+1 -g" + question);
    messageBox.answers = {BoxAnswer::Yes, BoxAnswer::Yes};
    EXPECT_EQ(After('A'), "6+0 --" + question + " i:Поиск завершен! Было сделано 2 замен(ы).");
    EXPECT_EQ(document.Text(), u"ayybyyc");
    EXPECT_EQ(After('A'), "6+0 --" + question) << "nothing found is not told";
    program.Run("MENU:EDIT:UNDO");
    EXPECT_EQ(document.Text(), u"ayybxc") << "each is a step of its own";

    document.SetText(u"1\r\n2");
    search.ReplaceState() = {.wanted = u"1\n2", .replacement = u"\n", .options = {}, .goesOn = false};
    EXPECT_EQ(After('f'), "0+4 -g") << "a line break is one, however it was written";
    messageBox.answers = {BoxAnswer::Yes};
    After('A');
    EXPECT_EQ(document.Text(), u"\r\n");
}

TEST_F(SearchTest, ALongRunCanBeStoppedAndEndsWhereTheTextIsAnother) {
    search.ReplaceState() = {.wanted = u"x", .replacement = u"-", .options = {}, .goesOn = true};
    progress.dueEach = 2;
    for (const bool stops : {true, false}) {
        document.SetText(u"xxxxxxxx");
        messageBox.answers = {BoxAnswer::Yes};
        progress.steps.clear();
        progress.atStep = [&] {
            search.Replace(); // the window's events may bring what they like
            if (progress.steps.size() == 2 && !stops)
                document.SetText(u"another text x");
            return progress.steps.size() < 2 || !stops;
        };
        EXPECT_NE(After('A').find("Поиск остановлен! Было сделано 4 замен(ы)."), std::string::npos);
        EXPECT_EQ(document.Text(), stops ? u"----xxxx" : u"another text x");
        EXPECT_EQ(progress.steps.size(), 2U);
        EXPECT_GT(progress.steps[1], progress.steps[0]);
    }
}

TEST_F(SearchTest, LongTextsAreQuotedInPart) {
    document.SetText(u"x");
    search.ReplaceState().wanted = std::u16string(5000, u'ж');
    After('A');
    EXPECT_LT(messageBox.shown.back().text.size(), 250U);
    search.ReplaceState().wanted = u"1\n2\n3\n4\n5\n6\n7\n";
    After('A');
    EXPECT_EQ(messageBox.shown.back().text.find(u'6'), std::u16string::npos);
}

TEST(GoToLine, ReadsNumbersAsPeopleWriteThem) {
    FakeSurface document;
    FakeMessageBox box;
    GoToLine lines(document, box);
    document.SetText(u"a\r\nb\r\nc\r\nd\r\ne"); // each line begins at three times its number
    EXPECT_EQ(lines.Range(), u"1–5");
    enum { kOwn = 9, kNone = -1, kNoNumber = -2 };
    const auto expect = [&](std::initializer_list<std::u16string> texts, int place) {
        for (const std::u16string& text : texts) {
            document.Select(9, 1);
            box.shown.clear();
            document.focused = 0;
            EXPECT_EQ(lines.Go(text), place >= 0) << ToUtf8(text);
            EXPECT_EQ(document.focused > 0, place >= 0);
            EXPECT_EQ(document.SelStart(), place >= 0 ? static_cast<std::size_t>(place) : 9U) << ToUtf8(text);
            EXPECT_EQ(document.SelLength(), place >= 0 ? 0U : 1U) << ToUtf8(text);
            const std::u16string told = box.shown.empty() ? u"" : box.shown.back().text;
            EXPECT_EQ(told, place >= 0 ? u""
                            : place == kNone ? u"Неверный номер строки!\nСтрока №" + text + u" не существует."
                                             : u"Это не номер строки: " + text);
            EXPECT_TRUE(box.shown.empty() || box.shown.back().icon == BoxIcon::Exclamation);
        }
    };
    expect({u"1", u"0.5"}, 0);
    expect({u"5"}, 12);
    expect({u"2,5", u"3,5", u"\u00A03 ", u"3e0"}, 6);
    expect({u" +2\t"}, 3);
    expect({u"0.04E2", u"0", u"-0", u"0,4"}, kOwn);
    expect({u"6", u"-3", u"-0,4", u"1e3", u"100000000000000000000", u"1e999", u"4294967297"}, kNone);
    expect({u" ", u"2x", u"inf", u"+-2", u"1 2", u"0x2", u"2.5.1", u"\u0662", u","}, kNoNumber);
    document.SetSelStart(10);
    EXPECT_TRUE(lines.Go(u""));
    EXPECT_EQ(box.shown.back().text, u"Введите номер строки!");
    EXPECT_EQ(document.SelStart(), 9U);
}

TEST(Aside, AWindowGivesWayWhereThereIsRoom) {
    RandomText random(8);
    const Rect area = RectAt(10, 20, 300, 200);
    const auto meet = [](const Rect& a, const Rect& b) {
        return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
    };
    const auto some = [&](int from, std::size_t span) { return from + static_cast<int>(random.Below(span)); };
    int moved = 0;
    for (int run = 0; run < 5000; ++run) {
        const Rect window = RectAt(some(-40, 320), some(-40, 260), some(20, 100), some(20, 80));
        const Rect shown = RectAt(some(10, 280), some(20, 180), some(1, 30), some(1, 16));
        const Rect place = PlaceAside(window, shown, area);
        ASSERT_FALSE(meet(place, shown)) << run;
        ASSERT_EQ(place == window, !meet(window, shown));
        ASSERT_EQ(place.Width() + place.Height() * 1000, window.Width() + window.Height() * 1000);
        if (place == window)
            continue;
        ++moved;
        ASSERT_TRUE(place.left >= 10 && place.top >= 20 && place.right <= 310 && place.bottom <= 220);
    }
    EXPECT_GT(moved, 300);
    EXPECT_EQ(PlaceAside(area, area, area), area);
    EXPECT_EQ(PlaceAside(RectAt(50, 50, 90, 40), RectAt(40, 60, 20, 10), area), RectAt(50, 78, 90, 40))
        << "its line is seen, too, though the way beside it is shorter";
    EXPECT_EQ(PlaceAside(RectAt(50, 50, 20, 150), RectAt(40, 110, 20, 10), area), RectAt(68, 50, 20, 150));
    EXPECT_EQ(PlaceAside(RectAt(50, 50, 20, 20), RectAt(50, 65, 100, 10), area), RectAt(50, 37, 20, 20));
}

} // namespace
} // namespace quillshift
