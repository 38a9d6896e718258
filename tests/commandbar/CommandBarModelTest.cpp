#include "commandbar/VirtualKeys.h"
#include "support/FailureOf.h"
#include "support/FakeBarControl.h"

#include <gmock/gmock.h>

namespace quillshift {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Number of the error that an operation fails with; 0 when it does not fail.
template <typename Action>
int NumberOf(Action action) {
    return FailureOf(action).Number();
}
constexpr int kNoControl = static_cast<int>(0x800462AEU);
constexpr int kNoSuchItem = static_cast<int>(0x800462AFU);
constexpr int kKeyInUse = 457;

TEST(Keys, AreRefusedWhenTakenOrNumeric) {
    TestBars test;
    test.buttons.Add("Cut", 3, u"Cut");
    EXPECT_EQ(NumberOf([&] { test.buttons.Add("CUT", 4, u"Other"); }), kKeyInUse);
    EXPECT_EQ(test.buttons.Item("cut").Caption(), u"Cut");
    EXPECT_EQ(NumberOf([&] { test.bars.Add("Cut"); }), 0) << "bars and buttons have keys of their own";
    for (const char* numeric : {"12", "-1.5", " 7 ", "+3", ".5", "1e5", "5-", "1,000", "&HFF", "&17"})
        EXPECT_EQ(NumberOf([&] { test.buttons.Add(numeric); }), 13) << numeric;
    for (const char* text : {"B:12", "12:", "1-2", "e5", "-", ".", "1e", "&HG", "F1", "1 2"})
        EXPECT_EQ(NumberOf([&] { test.buttons.Add(text); }), 0) << text;
    EXPECT_EQ(NumberOf([&] { test.bars.Add(""); }), static_cast<int>(0x800462B3U));
}

TEST(Keys, ThatAreMissingFailByWhatWasAsked) {
    TestBars test;
    const cCommandBar bar = test.Bar("BAR", {"A", "B"});
    const cButton loose = test.buttons.Add("LOOSE");
    const cCommandBarButtons on = bar.Buttons();
    EXPECT_EQ(on.Item(1).Key() + on.Item(2).Key() + std::to_string(on.count()), "AB2");
    EXPECT_EQ(test.buttons.Item(test.buttons.count()).Key(), "LOOSE");
    EXPECT_EQ(test.bars.Item(test.bars.count()).Key(), "BAR");
    EXPECT_EQ(NumberOf([&] { on.Item("LOOSE"); }), 5);
    EXPECT_EQ(NumberOf([&] { on.Item(3); }), 9);
    EXPECT_EQ(NumberOf([&] { on.Item(0); }), 9);
    EXPECT_EQ(NumberOf([&] { on.Remove("LOOSE"); }), kNoSuchItem);
    EXPECT_EQ(NumberOf([&] { test.buttons.Remove("NONE"); }), kNoSuchItem);
    EXPECT_EQ(NumberOf([&] { test.bars.Remove("NONE"); }), kNoSuchItem);
    EXPECT_EQ(NumberOf([&] { on.InsertBefore(test.buttons.Item("A"), loose); }), kNoSuchItem);
    EXPECT_EQ(NumberOf([&] { on.Add(std::nullopt); }), 91);
    EXPECT_EQ(NumberOf([&] { on.InsertAfter(loose, std::nullopt); }), 91);
    EXPECT_EQ(NumberOf([&] { on.Add(test.buttons.Item("A")); }), kKeyInUse);
    test.buttons.Remove("LOOSE");
    EXPECT_EQ(NumberOf([&] { loose.SetCaption(u"x"); }), kNoSuchItem);
}

TEST(AHandle, OutlivesItsControlWithItsKeyAlone) {
    TestBars test;
    const cButton button = test.buttons.Add("A");
    const cCommandBar bar = test.Bar("BAR", {});
    const cCommandBarButtons on = bar.Buttons();
    test.directory.controls.clear();
    EXPECT_EQ(button.Key(), "A");
    EXPECT_EQ(bar.Key(), "BAR");
    const Error error = FailureOf([&] { button.SetEnabled(false); });
    EXPECT_EQ(error.Number(), kNoControl);
    EXPECT_EQ(error.Source(), u"quillshift.qsPicker");
    EXPECT_EQ(error.Description(), u"Owning qsCommandBar Control does not exist.");
    EXPECT_EQ(NumberOf([&] { on.count(); }), kNoControl);
    EXPECT_EQ(NumberOf([&] { bar.Buttons(); }), kNoControl);
    EXPECT_EQ(NumberOf([&] { test.bars.count(); }), kNoControl);
    EXPECT_EQ(cButtons(test.model, 0).count(), 0);
    EXPECT_EQ(NumberOf([&] { cButtons(test.model, 0).Item(1); }), kNoControl);
}

TEST(AButton, StaysOneRecordOnTwoBars) {
    TestBars test;
    FakeBarControl second(test.directory, 2, 100);
    const cButton cut = test.Bar("MENU", {"CUT", "COPY"}).Buttons().Item(1);
    const cCommandBarButtons tools = test.Bar("TOOLS", {"X"}).Buttons();
    tools.InsertBefore(cut, test.buttons.Item("X"));
    tools.InsertAfter(test.buttons.Item("COPY"), cut);
    EXPECT_EQ(test.Keys("TOOLS"), " CUT COPY X");
    test.Show("MENU");
    test.Show("TOOLS", second);

    tools.Item("cut").SetCaption(u"Cut");
    EXPECT_EQ(cut.Caption(), u"Cut");
    EXPECT_THAT(test.control.Notices(), ElementsAre("MENU 4 CUT"));
    EXPECT_THAT(second.Notices(), ElementsAre("TOOLS 4 CUT"));

    test.buttons.Remove("CUT");
    EXPECT_EQ(test.Keys("MENU"), " COPY");
    EXPECT_EQ(test.Keys("TOOLS"), " COPY X");
    EXPECT_THAT(test.control.Notices(), ElementsAre("MENU 1"));
    EXPECT_THAT(second.Notices(), ElementsAre("TOOLS 1"));

    test.bars.Remove("TOOLS");
    EXPECT_THAT(second.Notices(), ElementsAre("TOOLS 1"));
    EXPECT_EQ(test.buttons.Item("X").Key(), "X");
    test.buttons.Item("COPY").SetEnabled(false);
    EXPECT_THAT(second.Notices(), IsEmpty());
    EXPECT_THAT(test.control.Notices(), ElementsAre("MENU 5 COPY"));
}

TEST(AChange, IsAnnouncedByItsKindAndOnlyWhenItIsOne) {
    using Change = std::function<void(const cButton&)>;
    const std::tuple<const char*, Change, const char*> cases[] = {
        // null for no notice
        {"icon", [](const cButton& b) { b.SetIconIndex(2); }, "BAR 4 A"},
        {"swatch", [](const cButton& b) { b.SetColorBox(Rgb(1, 2, 3)); }, "BAR 4 A"},
        {"hidden", [](const cButton& b) { b.SetVisible(false); }, "BAR 4 A"},
        {"panel width", [](const cButton& b) { b.SetPanelWidth(168); }, "BAR 4 A"},
        {"no panel", [](const cButton& b) { b.SetPanelControl(nullptr); }, "BAR 4 A"},
        {"caption", [](const cButton& b) { b.SetShowCaptionInToolbar(true); }, "BAR 4 A"},
        {"arrow", [](const cButton& b) { b.SetShowDropDownInToolbar(true); }, "BAR 4 A"},
        {"disabled", [](const cButton& b) { b.SetEnabled(false); }, "BAR 5 A"},
        {"locked", [](const cButton& b) { b.SetLocked(true); }, "BAR 5 A"},
        {"checked", [](const cButton& b) { b.SetChecked(true); }, "BAR 6 A"},
        {"as before", [](const cButton& b) { b.SetEnabled(true); }, nullptr},
        {"tip", [](const cButton& b) { b.SetToolTip(u"tip"); }, nullptr},
        {"shortcut", [](const cButton& b) { b.SetShortcutKey(65); }, nullptr},
        {"sub-bar", [](const cButton& b) { b.SetBar(std::nullopt); }, nullptr},
    };
    const cMeasureButtonParams params;
    for (const auto& [what, change, notice] : cases) {
        TestBars test;
        const cButton button = test.Bar("BAR", {"A"}, ButtonStyle::Check).Buttons().Item(1);
        test.Show("BAR");
        MeasureCache& measured = test.model.FindButton("A")->Measured;
        measured.Add(params, {10, 20});
        change(button);
        EXPECT_EQ(test.control.Notices(), std::vector<std::string>(notice ? 1 : 0, notice ? notice : ""))
            << what;
        EXPECT_TRUE(!notice || notice[4] != '4' || !measured.Find(params)) << what;
    }
}

TEST(AChange, ReachesTheControlsThatCanOpenTheBar) {
    TestBars test;
    const cButton menu = test.Bar("MENU", {"FILE"}).Buttons().Item(1);
    const cCommandBar file = test.Bar("FILE", {"OPEN"});
    test.Show("MENU");
    menu.SetBar(file);
    file.SetTitle(u"File");
    EXPECT_THAT(test.control.Notices(), ElementsAre("FILE 3"));
    FakeBarControl popup(test.directory, 2, 100);
    test.Show("FILE", popup);
    file.Buttons().Item(1).SetEnabled(false);
    EXPECT_THAT(popup.Notices(), ElementsAre("FILE 5 OPEN"));
    EXPECT_THAT(test.control.Notices(), ElementsAre("FILE 5 OPEN"));
    test.model.Leave(popup.Window());
    menu.SetBar(std::nullopt);
    file.Buttons().Clear();
    EXPECT_THAT(popup.Notices(), IsEmpty());
    EXPECT_THAT(test.control.Notices(), IsEmpty());
}

TEST(ARadioGroup, EndsAtSeparatorsAndKeepsOneCheckedUnlessNullable) {
    for (const auto style : {ButtonStyle::Radio, ButtonStyle::RadioNullable}) {
        TestBars test;
        test.Bar("BAR", {"A", "B", "C", "-SEP", "D", "E"}, style);
        const auto click = [&](const char* key) { test.model.ApplyClick(*test.model.FindButton(key)); };
        click("A");
        click("E");
        click("B");
        EXPECT_EQ(test.Checked("BAR"), " B E");
        click("B");
        EXPECT_EQ(test.Checked("BAR"), style == ButtonStyle::Radio ? " B E" : " E");
        click("D");
        EXPECT_EQ(test.Checked("BAR"), style == ButtonStyle::Radio ? " B D" : " D");
        EXPECT_FALSE(test.model.FindBar("BAR")->InGroupUpdate);
    }
}

TEST(ARadioGroup, IsTakenOnEachBarByItself) {
    TestBars test;
    const cCommandBar first = test.Bar("FIRST", {"A", "B"}, ButtonStyle::RadioNullable);
    const cCommandBar second = test.Bar("SECOND", {"C", "D"}, ButtonStyle::RadioNullable);
    second.Buttons().InsertAfter(test.buttons.Item("A"), test.buttons.Item("C"));
    test.buttons.Item("B").SetChecked(true);
    test.buttons.Item("C").SetChecked(true);
    EXPECT_TRUE(test.buttons.Item("B").Checked());
    test.buttons.Item("A").SetChecked(true);
    EXPECT_EQ(test.Checked("FIRST"), " A");
    EXPECT_EQ(test.Checked("SECOND"), " A");
}

/// The key of the button that Ctrl with a letter reaches from a top-level window; empty for none.
std::string Reached(const TestBars& test, char letter, WindowId top = 100) {
    const auto match = test.model.FindShortcut(top, letter, modifier::kCtrl);
    return match ? match->button->Key + " " + std::to_string(match->control) : std::string();
}

TEST(AShortcut, IsFoundInTheOrderOfMakingWithSubBarsFirst) {
    TestBars test;
    const cCommandBarButtons menu = test.Bar("MENU", {"FILE"}).Buttons();
    const cButton other = test.buttons.Add("OTHER", -1, u"", ButtonStyle::Normal, u"", 'S', modifier::kCtrl);
    const cButton save = test.buttons.Add("SAVE", -1, u"", ButtonStyle::Normal, u"", 'S', modifier::kCtrl);
    const cCommandBar file = test.Bar("FILE", {});
    file.Buttons().Add(save);
    menu.Add(other);
    EXPECT_EQ(Reached(test, 'S'), "") << "no control shows the bars";
    test.Show("MENU");
    EXPECT_EQ(Reached(test, 'S'), "OTHER 1");
    menu.Item("FILE").SetBar(file);
    EXPECT_EQ(Reached(test, 'S'), "SAVE 1");
    save.SetEnabled(false);
    EXPECT_EQ(Reached(test, 'S'), "OTHER 1");
    save.SetEnabled(true);
    menu.Item("FILE").SetEnabled(false);
    EXPECT_EQ(Reached(test, 'S'), "OTHER 1");
    other.SetEnabled(false);
    EXPECT_EQ(Reached(test, 'S'), "SAVE 1") << "reached by itself, though its menu is disabled";
    EXPECT_EQ(Reached(test, 'T'), "");
    test.model.Leave(test.control.Window());
    EXPECT_EQ(Reached(test, 'S'), "");
    test.Show("MENU");
    EXPECT_EQ(Reached(test, 'S', 200), "") << "another window";
    EXPECT_FALSE(test.model.FindShortcut(100, 'S', modifier::kCtrl | modifier::kShift));
}

TEST(ABar, MayHangBelowItself) {
    TestBars test;
    const cCommandBar bar = test.Bar("RING", {"A"});
    bar.Buttons().Item("A").SetBar(bar);
    test.Show("RING");
    bar.Buttons().Item("A").SetEnabled(false);
    EXPECT_THAT(test.control.Notices(), ElementsAre("RING 5 A"));
    bar.Buttons().Item("A").SetEnabled(true);
    EXPECT_EQ(Reached(test, 'S'), "");
    test.bars.Remove("RING");
    EXPECT_FALSE(test.buttons.Item("A").Bar());
}

TEST(AShortcutsText, NamesModifiersInOneOrderAndThenTheKey) {
    using namespace modifier;
    using Case = std::tuple<int, int, std::u16string>;
    for (const auto& [key, modifiers, text] :
         {Case{46, kShift | kCtrl, u"Ctrl+Shift+Del"}, Case{'S', kAlt | kShift | kCtrl, u"Ctrl+Shift+Alt+S"},
          Case{'7', kAlt, u"Alt+7"}, Case{FunctionKey(4), 0, u"F4"},
          Case{FunctionKey(12), kCtrl, u"Ctrl+F12"}, Case{33, 0, u"Page up"},
          Case{0x61, kCtrl, u"Ctrl+Num 1"}, Case{0, kCtrl, u""}, Case{7, kCtrl, u""}}) {
        cButtonInt button("B");
        button.ToolTip = u"Tip";
        button.ShortcutKey = static_cast<std::int16_t>(key);
        button.ShortcutModifiers = modifiers;
        EXPECT_EQ(button.ShortcutText(), text);
        EXPECT_EQ(button.FullToolTip(), text.empty() ? u"Tip" : u"Tip (" + text + u")");
        button.ToolTip.clear();
        EXPECT_EQ(button.FullToolTip(), text.empty() ? u"" : u" (" + text + u")");
    }
}

TEST(AMnemonic, IsTheCharacterBehindTheFirstMark) {
    using Case = std::tuple<const char16_t*, char, bool>;
    for (const auto& [caption, key, matches] :
         {Case{u"&Open", 'O', true}, Case{u"Save &as", 'A', true}, Case{u"&1. file", '1', true},
          Case{u"Open", 'O', false}, Case{u"Open&", 'O', false}, Case{u"&Open &as", 'A', false},
          Case{u"A && B", 'B', false}, Case{u"A && B", '\0', false}}) {
        cButtonInt button("B");
        button.Caption = caption;
        EXPECT_EQ(button.HasMnemonic(key), matches) << key;
    }
}

} // namespace
} // namespace quillshift
