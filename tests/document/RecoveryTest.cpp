#include "document/Recovery.h"
#include "base/Utf8.h"
#include "document/RecoveryFormat.h"
#include "support/TestProgram.h"

namespace quillshift {
namespace {

using namespace std::string_literals;

struct RecoveryTest : testing::Test {
    TestProgram test;
    FakeMainView& window = test.Start();
    FakeSurface& document = window.document;
    FakeRecoveryStore& store = test.recovery;

    static std::u16string TextIn(const std::optional<std::string>& file) {
        const auto left = file ? ReadRecoveryFile(*file) : std::nullopt;
        return left ? left->text : u"none";
    }
    void Type(std::u16string_view text) { document.SetSelText(text); }
    std::u16string Written() {
        test.timers.Tick();
        return TextIn(store.file);
    }
};

TEST(RecoveryFormat, ACutOrZeroTailIsNoDamageAndAllElseIs) {
    const RecoveryPlace place{.caret = 3,
                              .isRich = false,
                              .reopenAvailable = true,
                              .saveAvailable = false,
                              .isLocked = true,
                              .knownDigest = ~std::uint64_t{0},
                              .path = u"/d/я.txt",
                              .saveTarget = u"/d/b.txt"};
    const std::u16string text{u'a', u'\xD83D', u'\0', u'\x0410', u'\r', u'\n', u'\xDE00'};
    const std::string whole = RecoveryFile(text, {});
    const std::string edited = whole + EditRecord(1, 4, u"bc");
    const std::string all = edited + PlaceRecord(place);
    const auto left = ReadRecoveryFile(all);
    ASSERT_TRUE(left);
    EXPECT_EQ(left->text, (std::u16string{u'a', u'b', u'c', u'\n', u'\xDE00'}));
    EXPECT_EQ(left->place, place);

    for (std::size_t cut = 0; cut < all.size(); ++cut)
        for (const std::size_t zeros : {0U, 1U, 600U}) {
            const auto read = ReadRecoveryFile(all.substr(0, cut) + std::string(zeros, '\0'));
            if (read) {
                EXPECT_EQ(read->text, cut >= edited.size() ? left->text : text) << cut;
                EXPECT_EQ(read->place, RecoveryPlace{}) << cut;
            }
            EXPECT_EQ(read.has_value(), cut >= whole.size() - PlaceRecord({}).size()) << cut;
        }
    for (std::size_t at = 0; at < all.size(); ++at)
        for (const int bit : {0, 3, 7}) {
            std::string damaged = all;
            damaged[at] = static_cast<char>(damaged[at] ^ 1 << bit);
            EXPECT_FALSE(ReadRecoveryFile(damaged)) << at;
        }
    EXPECT_FALSE(ReadRecoveryFile(whole + EditRecord(6, 2, u"")));
    EXPECT_FALSE(ReadRecoveryFile(whole + EditRecord(8, 0, u"x")));
    EXPECT_FALSE(ReadRecoveryFile(whole.substr(0, 22) + PlaceRecord(place)));
}

TEST_F(RecoveryTest, IsWrittenASecondAfterAChangeOrWhenTheUserTurnsAway) {
    document.SetSelStart(0);
    test.timers.Tick();
    EXPECT_FALSE(store.file) << "nothing has changed";
    Type(u"one");
    EXPECT_FALSE(store.file);
    EXPECT_EQ(Written(), u"one");
    Type(u" two");
    window.OnDeactivate();
    EXPECT_EQ(TextIn(store.file), u"one two");
    EXPECT_EQ(ReadRecoveryFile(*store.file)->place.caret, 7U);
    const std::string before = *store.file;
    window.OnDeactivate();
    test.timers.Tick();
    EXPECT_EQ(store.file, before) << "nothing is new";
    EXPECT_EQ(store.wholes, 1);
}

TEST_F(RecoveryTest, ManyEditsAreShortened) {
    std::size_t longest = 0;
    for (int i = 0; i < 520; ++i) {
        document.SetSelStart(i % 2 == 0 ? 0 : document.Text().size());
        Type(u"x");
        ASSERT_EQ(Written(), document.Text());
        longest = std::max(longest, store.file->size());
    }
    EXPECT_EQ(store.rewrites, 2);
    EXPECT_LT(store.file->size(), longest / 3);
}

TEST_F(RecoveryTest, ALongTextIsWrittenAsItIsAfterEditsWhileItIsCopied) {
    std::u16string text(3 << 20, u'.');
    for (std::size_t at = 0; at < text.size(); ++at)
        text[at] = static_cast<char16_t>(u' ' + at % 8191);
    Type(text);
    test.timers.Tick();
    EXPECT_FALSE(store.file) << "the window waits for all of it";
    const std::size_t piece = 1 << 20;
    for (const auto& [place, length] : std::vector<std::pair<std::size_t, std::size_t>>{
             {5, 1}, {2 * piece, 9}, {piece - 3, 7}, {7, 4}, {piece + 9, 0}}) {
        document.Select(place, length);
        Type(u"new");
        test.timers.Tick();
    }
    for (int ticks = 0; ticks < 4 && !store.file; ++ticks)
        test.timers.Tick();
    ASSERT_TRUE(store.file);
    EXPECT_TRUE(TextIn(store.file) == document.Text());
    Type(u"more");
    EXPECT_TRUE(Written() == document.Text());
    EXPECT_EQ(store.wholes, 1);
    document.LoadPlain(text);
    test.timers.Tick();
    Type(u"last");
    window.OnDeactivate();
    EXPECT_TRUE(TextIn(store.file) == document.Text()) << "at once, when the user turns away";
}

TEST_F(RecoveryTest, AFailedWriteIsMadeUpForByTheWholeText) {
    Type(u"one");
    test.timers.Tick();
    store.fails = true;
    Type(u" two");
    EXPECT_EQ(Written(), u"one");
    store.fails = false;
    window.OnDeactivate();
    EXPECT_EQ(TextIn(store.file), u"one two") << "nothing is new, but something is missing";
    store.fails = true;
    Type(u" three");
    test.timers.Tick();
    store.fails = false;
    Type(u" four");
    EXPECT_EQ(Written(), u"one two three four");
    EXPECT_EQ(store.wholes, 3);
    store.fails = true;
    Type(u" five");
    for (int failures = 0; failures < 3; ++failures) {
        EXPECT_EQ(Written(), u"one two three four");
        store.PassEvent();
    }
    store.fails = false;
    EXPECT_EQ(Written(), u"one two three four five") << "without another key";
    store.PassEvent();
    test.timers.Tick();
    EXPECT_EQ(store.wholes, 6) << "and then it rests";
}

// What becomes of the text that was typed, by what replaces or saves it.
TEST(RecoveryRules, ATextGoesOnceItIsSavedOrLetGoAndIsKeptWhenReplacedUnasked) {
    const std::u16string typed = u"typed old";
    const std::map<std::string, std::function<void(TestProgram&)>> others{
        {"ask", [](TestProgram& t) { t.Set(Setting::SaveChange, u"1"); }},
        {"No", [](TestProgram& t) { t.messageBox.answers.push_back(BoxAnswer::No); }},
        {"no file", [](TestProgram& t) { t.fileDialog.chosen.clear(); }},
        {"full disk", [](TestProgram& t) { t.files.unwritable = {u"/d/a.txt"}; }},
        {"accumulate", [](TestProgram& t) { t.Set(Setting::Accumulate, u"1"); }},
        {"copy", [](TestProgram& t) { t.clipboard.Hold(u"new"); }},
        {"wait", [](TestProgram& t) { t.timers.Tick(); }},
        {"close", [](TestProgram& t) { t.window.OnClose(); }},
        {"off", [](TestProgram& t) { t.Set(Setting::Recovery, u"0").window.document.SetText(u"x"); }},
        {"clear here", [](TestProgram& t) { t.window.document.SetText(u""); }},
        {"lock", [](TestProgram& t) { t.program.Parts().recovery.SetLocked(true); }},
        {"in a save",
         [](TestProgram& t) { t.files.beforeReplace = [&t] { t.window.document.SetText(u"taken in"); }; }},
        {"another text", [](TestProgram& t) { t.window.document.SetText(u"another"); }}};
    // Commands or what is named above, and what is in the file and in the one that is kept then.
    const std::tuple<std::vector<std::string>, std::u16string, std::u16string> cases[] = {
        {{"MENU:FILE:SAVEAS"}, u"none", u"none"},
        {{"full disk", "MENU:FILE:SAVEAS"}, typed, u"none"},
        {{"in a save", "MENU:FILE:SAVEAS", "wait"}, u"taken in", u"none"},
        {{"MENU:FILE:NEW"}, u"none", typed},
        {{"ask", "MENU:FILE:NEW"}, typed, u"none"},
        {{"ask", "No", "MENU:FILE:NEW"}, u"none", u"none"},
        {{"MENU:FILE:OPEN"}, u"none", typed},
        {{"no file", "MENU:FILE:OPEN"}, typed, u"none"},
        {{"ask", "No", "MENU:FILE:OPEN"}, u"none", u"none"},
        {{"MENU:FILE:REOPEN"}, u"none", typed},
        {{"ask", "No", "no file", "MENU:FILE:OPEN", "MENU:FILE:REOPEN"}, u"none", typed},
        {{"MENU:EDIT:CLEAR", "wait"}, u"none", typed},
        {{"MENU:EDIT:CLEAR", "MENU:FILE:SAVEAS"}, u"none", typed},
        {{"MENU:EDIT:CLEAR", "another text", "MENU:EDIT:CLEAR"}, u"none", u"another"},
        {{"MENU:EDIT:CLEAR", "close"}, u"none", u"none"},
        {{"MENU:EDIT:CLEAR", "MENU:EDIT:CLEAR", "wait"}, u"none", typed},
        {{"clear here", "wait"}, u"none", u"none"},
        {{"MENU:FILE:SAVEAS", "lock"}, u"none", u"none"},
        {{"copy", "wait", "wait"}, u"new", typed},
        {{"accumulate", "copy", "wait", "wait"}, typed + u"\r\nnew", u"none"},
        {{"MENU:FILE:SAVEAS", "MENU:FILE:NEW"}, u"none", u"none"},
        {{"close"}, u"none", u"none"},
        {{"ask", "close"}, typed, u"none"},
        {{"off", "wait"}, u"none", u"none"}};
    for (const auto& [run, file, kept] : cases) {
        TestProgram test;
        test.Set(Setting::ClipboardDetect, u"1").Start();
        test.OpenFile(u"/d/a.txt", " old");
        test.window.document.SetSelText(u"typed");
        test.timers.Tick();
        test.fileDialog.chosen = {u"/d/a.txt"};
        std::string all;
        for (const std::string& step : run) {
            all += step + ", ";
            if (const auto other = others.find(step); other != others.end())
                other->second(test);
            else
                test.program.Run(step);
        }
        EXPECT_EQ(RecoveryTest::TextIn(test.recovery.file), file) << all;
        EXPECT_EQ(RecoveryTest::TextIn(test.recovery.kept), kept) << all;
    }
}

TEST(RecoveredTexts, AreListedNewestFirstRestoredWithTheirFileAndToldWhereDamaged) {
    TestProgram test;
    const std::u16string longLine(99, u'x');
    test.files.files[u"/d/a.txt"] = "in the file";
    test.recovery.left = {
        {"old", RecoveryFile(u"old", {}), 1},
        {"new",
         RecoveryFile(u" \r\n" + longLine + u"\xD83D\xDE00\r\nnext",
                      {.isRich = true, .path = u"/d/a.txt", .saveTarget = {}}),
         3},
        {"hidden", RecoveryFile(u"secret", {.isLocked = true, .path = u"/d/secret.txt", .saveTarget = {}}),
         2},
        {"damaged", "quillshift recovery 1\nx", 4}};
    test.Start();
    RecoveredTexts& recovered = test.program.Parts().recovered;
    EXPECT_TRUE(test.LastBox().ends_with(u"/away")) << "of the damaged one";
    ASSERT_TRUE(recovered.Find()); // as the start's list is no window here
    ASSERT_EQ(recovered.Count(), 3U);
    EXPECT_EQ(recovered.At(0).name, u"a.txt");
    EXPECT_EQ(recovered.At(0).firstLine, longLine + u'…');
    EXPECT_EQ(recovered.At(1).firstLine.find(u"secret"), std::u16string::npos);
    EXPECT_EQ(recovered.At(2).name, u"Без имени");
    recovered.MaySeeLocked = [] { return false; };
    EXPECT_FALSE(recovered.Restore(1));
    test.recovery.fails = true;
    EXPECT_FALSE(recovered.ThrowAway(2));
    test.recovery.fails = false;
    EXPECT_TRUE(recovered.ThrowAway(2));

    const int finished = test.recovery.finishes;
    EXPECT_TRUE(recovered.Restore(0));
    EXPECT_NE(test.LastBox().find(u"без оформления"), std::u16string::npos);
    EXPECT_EQ(test.window.backup.Text(), u"in the file");
    EXPECT_TRUE(test.program.Parts().document.DocumentModified);
    recovered.Release();
    EXPECT_EQ(test.recovery.finishes, finished + 1) << "before another copy may look";
    ASSERT_EQ(test.recovery.left.size(), 1U) << "the restored one is this copy's";
    EXPECT_EQ(test.recovery.left.front().name, "hidden");
}

TEST_F(RecoveryTest, FollowsTheSurfaceThatIsEditedAndTellsThatItIsLocked) {
    Recovery& recovery = test.program.Parts().recovery;
    FakeSurface other;
    other.OnChange = [&](const TextEdit& edit) { recovery.Edited(other, edit); };
    Type(u"one");
    test.timers.Tick();
    other.SetText(document.Text());
    recovery.Follow(other);
    test.timers.Tick();
    EXPECT_EQ(store.wholes, 1) << "the same text";
    other.SetSelText(u"in front of ");
    document.SetText(u"not followed");
    EXPECT_EQ(Written(), u"in front of one");
    recovery.SetLocked(true);
    EXPECT_TRUE(ReadRecoveryFile(*store.file)->place.isLocked);
    recovery.Follow(document);
    EXPECT_EQ(Written(), u"not followed");
}

/// A program whose document stands somewhere, to be seen on the whole screen.
struct FullScreenTest : testing::Test, TestProgram {
    FullScreenTest() {
        Set(Setting::ClipboardDetect, u"1")
            .Set(Setting::DecodeClipboard, u"0")
            .Set(Setting::Accumulate, u"1");
        Start();
        timers.Tick();
    }
    void Begin() {
        window.document.SetText(kText);
        window.document.SetSelStart(5);
        window.document.SetTopPosition(5);
        program.Run("MENU:VIEW:FULLSCREEN");
    }
    std::u16string Recovered() {
        program.SaveWhatIsNew();
        return ReadRecoveryFile(recovery.file.value_or(""))->text;
    }
    static constexpr const char16_t* kText = u"one\r\ntwo\r\nthree";
    FullScreen& mode = program.Parts().fullScreen;
    FakeSurface& Screen() { return dialogs->fullScreen->surface; }
};

TEST_F(FullScreenTest, BringsTextCaretAndScrollBackAsOneStep) {
    using Place = std::array<std::size_t, 3>; // caret, length of the selection, scroll
    for (const auto& [written, left, after] : {std::tuple(u""s, Place{0, 0, 0}, Place{5, 0, 5}),
                                               {u""s, {0, 0, 10}, {0, 0, 10}},
                                               {u"x"s, {0, 0, 0}, {0, 0, 0}},
                                               {u"zero\r\nhalf "s, {6, 4, 6}, {6, 4, 6}}}) {
        Begin();
        EXPECT_EQ(Screen().SelStart(), 0U);
        EXPECT_TRUE(window.document.readOnly && !program.Parts().MayInterrupt());
        Screen().SetSelText(written);
        Screen().Select(left[0], left[1]);
        Screen().SetTopPosition(left[2]);
        program.Parts().document.DocumentModified = false;
        program.Run("TOOLBAR:FULLSCREEN"); // leads back to it
        EXPECT_EQ(dialogs->hidings, 1) << "no dialog stands over the text, or works on what is stale";
        EXPECT_EQ(Recovered(), written + kText);
        mode.End();
        const FakeSurface& document = window.document;
        EXPECT_EQ(document.Text(), written + kText);
        EXPECT_EQ((Place{document.SelStart(), document.SelLength(), document.TopPosition()}), after);
        EXPECT_TRUE(program.Parts().document.DocumentModified && !document.readOnly);
        EXPECT_TRUE(dialogs->hidings == 0 && !dialogs->fullScreen);
        if (!written.empty())
            program.Run("MENU:EDIT:UNDO");
        EXPECT_EQ(document.Text(), kText);
        EXPECT_EQ(Recovered(), kText);
    }
}

TEST_F(FullScreenTest, EndsBeforeAnybodyUsesTheDocument) {
    const std::pair<const char*, std::function<void()>> roads[] = {
        {"new", [this] { program.Run("MENU:EDIT:SELECTALL"); }},
        {"new\r\ncopied", [this] { clipboard.Hold(u"copied"), timers.Tick(); }},
        {"dropped", [this] { window.document.OnFileDrop(u"/d/file"); }},
        {"new", [this] { window.OnDirectionChange(); }},
        {"new", [this] { window.OnClose(); }}};
    files.files[u"/d/file"] = "dropped";
    for (const auto& [after, road] : roads) {
        Begin();
        Screen().SetText(u"new");
        messageBox.answers = {BoxAnswer::No};
        road();
        EXPECT_EQ(ToUtf8(window.document.Text()), after) << &road - &roads->second;
        EXPECT_TRUE(!mode.IsOn() && !dialogs->fullScreen);
    }
}

// A walk that was begun before lets commands through.
TEST_F(FullScreenTest, AJobRecodesWhatWasWrittenMeanwhile) {
    window.document.SetText(u"before");
    dialogs->atStep = [this] {
        if (!mode.IsOn()) {
            program.Run("MENU:VIEW:FULLSCREEN");
            Screen().SetText(u"\u040F");
        }
    };
    program.Run("MENU:DECODE:DOS:DW");
    EXPECT_EQ(window.document.Text(), u"П");
}

} // namespace
} // namespace quillshift
