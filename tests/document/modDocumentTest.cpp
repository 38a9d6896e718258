#include "support/TestProgram.h"

namespace quillshift {
namespace {

struct modDocumentTest : testing::Test {
    TestProgram test;
    FakeMainView& window = test.Start();

    // With these answers to the questions that come; else the user presses Escape.
    using Answers = std::deque<BoxAnswer>;
    void Dispatch(std::string_view key, const Answers& answers = {}) {
        test.messageBox.answers = answers;
        test.program.Run(key);
    }
    void SaveAs(std::u16string_view path, const Answers& answers = {}) {
        test.fileDialog.chosen.emplace_back(path);
        Dispatch("MENU:FILE:SAVEAS", answers);
    }
    std::string File(std::u16string_view path) { return test.files.files[std::u16string(path)]; }
};

TEST_F(modDocumentTest, ShowsTheNameAsTheSettingSays) {
    test.Set(Setting::ShowInCaption, u"1");
    test.OpenFile(u"/d/a.txt", "x");
    EXPECT_EQ(window.title, u"Morvane Quillshift 3.0 Preview - [a.txt]");
    test.Set(Setting::ShowInCaption, u"2");
    Dispatch("MENU:FILE:REOPEN");
    EXPECT_EQ(window.title, u"Morvane Quillshift 3.0 Preview - [/d/a.txt]");
}

TEST_F(modDocumentTest, AMissingFileIsReportedAndTouchesNothing) {
    test.OpenFile(u"/d/a.txt", "text");
    test.fileDialog.chosen.emplace_back(u"/d/none.txt");
    Dispatch("MENU:FILE:OPEN");
    EXPECT_EQ(test.LastBox(), u"Произошла ошибка № 53\r\n«/d/none.txt»\r\nФайл не найден");
    EXPECT_EQ(test.messageBox.shown.back().icon, BoxIcon::Critical);
    EXPECT_EQ(window.document.Text(), u"text");
    EXPECT_EQ(window.backup.loads, 1);
    window.document.OnFileDrop(u"/d/none.txt");
    EXPECT_EQ(test.messageBox.shown.size(), 2U);
}

TEST_F(modDocumentTest, AsksBeforeAChangedTextIsDropped) {
    test.Set(Setting::SaveChange, u"1");
    window.document.SetText(u"x");
    Dispatch("MENU:FILE:NEW"); // Escape
    EXPECT_EQ(window.document.Text(), u"x");

    Dispatch("MENU:FILE:NEW", {BoxAnswer::No});
    EXPECT_EQ(window.document.Text(), u"");

    window.document.SetText(u"x");
    test.fileDialog.chosen = {u"/d/x.txt"};
    Dispatch("MENU:FILE:NEW", {BoxAnswer::Yes});
    EXPECT_EQ(File(u"/d/x.txt"), "x\r\n");
    EXPECT_EQ(window.document.Text(), u"x") << "Yes saves and stops";
    EXPECT_FALSE(test.program.Parts().document.DocumentModified);
    Dispatch("MENU:FILE:NEW");
    EXPECT_EQ(window.document.Text(), u"");
    EXPECT_EQ(test.messageBox.shown.size(), 3U);
    EXPECT_FALSE(test.program.Parts().document.DocumentModified)
        << "an empty new document is not a changed one";
}

TEST_F(modDocumentTest, ADroppedFileIsOpenedAsByTheCommand) {
    test.Set(Setting::SaveChange, u"1").Set(Setting::ShowInCaption, u"1");
    test.Set(Setting::FormLoad, u"1").Set(Setting::FormLoadPath, u"/open.wav");
    test.files.files[u"/d/a.txt"] = "a";
    window.document.SetText(u"x");
    window.document.OnFileDrop(u"/d/a.txt"); // Escape
    EXPECT_EQ(window.document.Text(), u"x");
    test.messageBox.answers = {BoxAnswer::No};
    window.document.OnFileDrop(u"/d/a.txt");
    EXPECT_EQ(window.document.Text(), u"a");
    EXPECT_EQ(window.backup.Text(), u"a");
    EXPECT_EQ(window.title, u"Morvane Quillshift 3.0 Preview - [a.txt]");
    EXPECT_TRUE(test.program.Parts().document.ReopenAvailable);
    EXPECT_EQ(test.sound.played, std::vector(2, std::u16string(u"/open.wav")));
}

TEST_F(modDocumentTest, PlainSaveIsOfferedOnlyAfterSaveAs) {
    window.document.SetText(u"one");
    test.fileDialog.chosen = {u"/d/one.txt"};
    Dispatch("TOOLBAR:SAVE");
    EXPECT_FALSE(test.program.Parts().document.SaveAvailable) << "the button does not open the menu's way";
    SaveAs(u"/d/two.txt");
    EXPECT_TRUE(test.program.Parts().document.SaveAvailable);
    window.document.SetText(u"three");
    Dispatch("MENU:FILE:SAVE");
    EXPECT_EQ(File(u"/d/two.txt"), "three\r\n");
    EXPECT_EQ(File(u"/d/one.txt"), "one\r\n");
    EXPECT_FALSE(test.program.Parts().document.DocumentModified);
}

TEST_F(modDocumentTest, PlainSaveHitsItsOwnFileWhateverTheStoreOrADialogNames) {
    SaveAs(u"/d/first.txt");
    test.OpenFile(u"/d/second.txt", "second");
    Dispatch("MENU:FILE:SAVE");
    EXPECT_EQ(File(u"/d/first.txt"), "\r\n");
    EXPECT_EQ(File(u"/d/second.txt"), "second\r\n");

    test.Set(Setting::ShowInCaption, u"1");
    test.Set(Setting::CreateBackup, u"1")
        .Set(Setting::CreateBackupIn, u"2")
        .Set(Setting::BackupFolder, u"/b/");
    for (const auto* own :
         {u"/d/second.txt", u"/d/\u65E5.txt"}) { // the second is one that the store can't hold
        SaveAs(own);
        test.Set(Setting::SaveFileName, u"/d/of-another-copy.txt");
        test.fileDialog.FileName = u"/d/sound.wav";
        test.fileDialog.FileTitle = u"sound.wav";
        const std::u16string title = std::u16string(own).substr(3);
        window.document.SetText(u"later");
        Dispatch("MENU:FILE:SAVE");
        EXPECT_EQ(File(own), "later\r\n");
        EXPECT_TRUE(test.files.files.contains(u"/b/" + title + u".bak"));
        EXPECT_EQ(window.title, u"Morvane Quillshift 3.0 Preview - [" + title + u"]");
    }
    EXPECT_EQ(test.files.files.size(), 5U);
    EXPECT_TRUE(test.messageBox.shown.empty());
}

// What becomes of plain Save and its target when a file is loaded after "Save as" has written /d/first.txt.
TEST_F(modDocumentTest, ReopenKeepsPlainSaveForItsOwnFileAlone) {
    test.files.files[u"/d/other.txt"] = "other";
    const std::tuple<std::u16string, const char*, bool> cases[] = {
        {u"/d/first.txt", "first", true},
        {u"/d/first.txt", "{\\rtf1 x}", false}, // by another program meanwhile
        {u"/d/other.txt", "other", false}};
    for (const auto& [named, holds, offered] : cases) {
        SaveAs(u"/d/first.txt");
        test.files.files[named] = holds;
        test.fileDialog.FileName = named; // as after the choice of a file to import
        Dispatch("MENU:FILE:REOPEN");
        EXPECT_EQ(test.program.Parts().document.SaveAvailable, offered) << holds;
        EXPECT_EQ(test.settings.Text(Setting::SaveFileName), u"/d/first.txt");
    }
}

TEST_F(modDocumentTest, AnRtfFileWithdrawsPlainSaveAndNeedsText) {
    SaveAs(u"/d/first.txt");
    for (const auto* bytes : {"{\\rtf1 {\\pict 00}\\par}", "{\\rtf"}) {
        test.OpenFile(u"/d/empty.rtf", bytes);
        EXPECT_EQ(test.LastBox(), u"Произошла ошибка № 321\r\n«/d/empty.rtf»\r\nВ файле RTF нет текста");
        EXPECT_EQ(window.document.loads + window.backup.loads, 0);
    }
    test.OpenFile(u"/d/letter.rtf", "{\\rtf1 x}");
    EXPECT_FALSE(test.program.Parts().document.SaveAvailable);
}

TEST_F(modDocumentTest, TheCommandsWithAFileDialogPlayTheLoadSoundFirst) {
    test.Set(Setting::FormLoadPath, u"/load.wav").Set(Setting::FolderDocuments, u"/folder");
    for (const auto& [on, plays] : {std::pair{u"0", false}, {u"2", false}, {u"1", true}})
        for (const char* key : {"MENU:FILE:OPEN", "TOOLBAR:OPEN", "MENU:FILE:SAVEAS", "MENU:FILE:IMPORT:RTF",
                                "MENU:FILE:REOPEN", "TOOLBAR:SAVE", "MENU:FILE:NEW"}) {
            test.Set(Setting::FormLoad, on);
            test.sound.played.clear();
            Dispatch(key); // the dialog is cancelled
            const std::string_view name(key);
            const bool hasDialog = name.ends_with("OPEN") && !name.ends_with("REOPEN");
            EXPECT_EQ(!test.sound.played.empty(),
                      plays && (hasDialog || name.ends_with("SAVEAS") || name.ends_with("RTF")))
                << key;
            EXPECT_EQ(test.fileDialog.InitDir, u"/folder");
        }
}

TEST_F(modDocumentTest, TheBackupHoldsTheVersionBefore) {
    test.Set(Setting::CreateBackup, u"1").Set(Setting::CreateBackupIn, u"1");
    window.document.SetText(u"1");
    SaveAs(u"/d/a.txt");
    EXPECT_EQ(File(u"/d/a.txt.bak"), "\r\n");
    window.document.SetText(u"2");
    Dispatch("MENU:FILE:SAVE");
    EXPECT_EQ(File(u"/d/a.txt.bak"), "1\r\n\r\n");

    test.Set(Setting::CreateBackupIn, u"2").Set(Setting::BackupFolder, u"/backups/");
    Dispatch("MENU:FILE:SAVE");
    EXPECT_EQ(File(u"/backups/a.txt.bak"), "2\r\n\r\n");
}

TEST_F(modDocumentTest, AFailedSaveOrBackupLeavesTheDocumentModified) {
    test.Set(Setting::CreateBackup, u"1").Set(Setting::CreateBackupIn, u"1");
    window.document.SetText(u"x");
    test.files.unwritable = {u"/d/a.txt"};
    SaveAs(u"/d/a.txt");
    EXPECT_EQ(test.LastBox(), u"Произошла ошибка № 61\r\n«/d/a.txt»\r\nНа диске нет места");
    EXPECT_TRUE(test.files.files.empty());
    EXPECT_EQ(test.settings.Text(Setting::SaveFileName), u"");

    test.files.unwritable = {u"/d/a.txt.bak"};
    SaveAs(u"/d/a.txt");
    EXPECT_EQ(test.LastBox(),
              u"Произошла ошибка № 61\r\n«/d/a.txt.bak»\r\nДокумент сохранен, но его резервную "
              u"копию записать не удалось. На диске нет места");
    EXPECT_EQ(File(u"/d/a.txt"), "x\r\n");
    EXPECT_EQ(test.settings.Text(Setting::SaveFileName), u"");
    EXPECT_TRUE(test.program.Parts().document.DocumentModified);
    EXPECT_FALSE(test.program.Parts().document.SaveAvailable);
}

TEST_F(modDocumentTest, WhatASaveCannotBeSureOfStaysWhereItCan) {
    test.Set(Setting::CreateBackup, u"1").Set(Setting::CreateBackupIn, u"1");
    const std::map<std::u16string, std::string> before{{u"/d/a.txt", "old"}, {u"/d/a.txt.bak", "older"}};
    for (const auto* unreachable : {u"/d/a.txt", u"/d/a.txt.bak"}) {
        test.files.files = before;
        test.files.unreachable = {unreachable};
        window.document.SetText(u"new");
        SaveAs(u"/d/a.txt"); // Escape, where it asks
        EXPECT_NE(test.LastBox().find(u"Ошибка диска"), std::u16string::npos);
        EXPECT_EQ(test.files.files, before);
    }
    test.files.unreachable.clear();
    test.OpenFile(u"/d/a.txt", "old");
    test.files.swapsNames = true;
    SaveAs(u"/d/a.txt");
    EXPECT_EQ(File(u"/d/a.txt.bak"), "old\r\n") << "nobody else has it any more";
    EXPECT_TRUE(test.program.Parts().document.DocumentModified);
}

TEST_F(modDocumentTest, ABackupReplacesALinkButNeverTheDocument) {
    test.Set(Setting::CreateBackup, u"1").Set(Setting::CreateBackupIn, u"1");
    test.OpenFile(u"/d/a.txt", "old");
    test.files.files[u"/d/precious"] = "precious";
    test.files.links[u"/d/a.txt.bak"] = u"/d/precious";
    SaveAs(u"/d/a.txt");
    EXPECT_EQ(File(u"/d/precious"), "precious");
    EXPECT_EQ(File(u"/d/a.txt.bak"), "old\r\n");
    EXPECT_EQ(test.files.done, (std::vector<std::u16string>{u"prepare /d/a.txt.bak", u"write /d/a.txt",
                                                            u"back up /d/a.txt.bak"}));

    test.files.links[u"/d/b.txt"] = u"/d/b.txt.bak";
    for (int save = 0; save < 2; ++save)
        SaveAs(u"/d/b.txt");
    EXPECT_EQ(File(u"/d/b.txt.bak"), "old\r\n");
    EXPECT_EQ(test.messageBox.shown.size(), 1U) << "said once";
    EXPECT_FALSE(test.program.Parts().document.DocumentModified);
}

TEST_F(modDocumentTest, WhatAnotherWroteIsReplacedOnlyAfterAQuestion) {
    SaveAs(u"/d/a.txt");
    window.document.SetText(u"mine");
    test.files.files[u"/d/a.txt"] = "theirs";
    Dispatch("MENU:FILE:SAVE"); // Escape
    EXPECT_EQ(test.LastBox(), u"Файл «/d/a.txt» изменила другая программа. Заменить его этим документом?");
    EXPECT_EQ(test.messageBox.shown.back().icon, BoxIcon::Question);
    EXPECT_EQ(File(u"/d/a.txt"), "theirs");
    EXPECT_TRUE(test.files.trash.empty());
    EXPECT_TRUE(test.program.Parts().document.DocumentModified);

    test.files.beforeReplace = [&] { test.files.files[u"/d/a.txt"] = "theirs again"; };
    Dispatch("MENU:FILE:SAVE", {BoxAnswer::Yes, BoxAnswer::Yes});
    EXPECT_EQ(File(u"/d/a.txt"), "mine\r\n");
    ASSERT_FALSE(test.files.trash.empty());
    EXPECT_EQ(test.files.trash.back(), (std::pair<std::u16string, std::string>(u"/d/a.txt", "theirs again")));
    EXPECT_EQ(test.messageBox.shown.size(), 3U);
    EXPECT_FALSE(test.program.Parts().document.DocumentModified);

    test.files.beforeReplace = [&] { test.files.files[u"/d/new.txt"] = "just made"; };
    SaveAs(u"/d/new.txt"); // Escape
    EXPECT_EQ(File(u"/d/new.txt"), "just made");
}

// What goes to the trash when a text is saved over a file that holds `there`, after it was opened from there
// or not, and with or without a backup, which replaces an older one.
TEST_F(modDocumentTest, WhatNoBackupHoldsGoesToTheTrash) {
    const std::tuple<const char*, bool, bool, std::vector<std::u16string>> cases[] = {
        {"one\ntwo", true, true, {u"/d/a.txt.bak"}},
        {"one", true, false, {u"/d/a.txt"}},
        {"one", false, true, {u"/d/a.txt", u"/d/a.txt.bak"}},
        {"{\\rtf1 one}", true, true, {u"/d/a.txt", u"/d/a.txt.bak"}},
        {"new\r\n", false, false, {}},
        {"", false, false, {}}};
    for (const auto& [there, opened, backup, trashed] : cases) {
        test.Set(Setting::CreateBackup, backup ? u"1" : u"0").Set(Setting::CreateBackupIn, u"1");
        Dispatch("MENU:FILE:NEW");
        test.OpenFile(opened ? u"/d/a.txt" : u"/d/other", there);
        test.files.files[u"/d/a.txt"] = there;
        test.files.files[u"/d/a.txt.bak"] = "older";
        window.backup.LoadPlain(opened ? window.backup.Text() : u"");
        window.document.SetText(u"new");
        test.files.trash.clear();
        SaveAs(u"/d/a.txt");
        window.document.SetText(u"newer");
        Dispatch("MENU:FILE:SAVE"); // an ordinary second save trashes nothing
        std::vector<std::u16string> names;
        for (const auto& [path, bytes] : test.files.trash) {
            names.push_back(path);
            EXPECT_EQ(bytes, path.ends_with(u"bak") ? "older" : there);
        }
        EXPECT_EQ(names, trashed) << there << opened << backup;
        EXPECT_EQ(File(u"/d/a.txt"), "newer\r\n");
    }
    EXPECT_TRUE(test.messageBox.shown.empty());

    Dispatch("MENU:FILE:NEW"); // another document: what was saved before is no earlier version of it
    Dispatch("MENU:FILE:SAVE");
    ASSERT_FALSE(test.files.trash.empty());
    EXPECT_EQ(test.files.trash.back(), (std::pair<std::u16string, std::string>(u"/d/a.txt", "newer\r\n")));
}

TEST_F(modDocumentTest, AFullTrashIsAskedAboutBeforeAnythingChanges) {
    test.Set(Setting::CreateBackup, u"1").Set(Setting::CreateBackupIn, u"1");
    test.files.trashIsFull = true;
    window.document.SetText(u"new");
    for (const auto* replaced : {u"/d/a.txt", u"/d/b.txt.bak"}) {
        test.files.files = {{replaced, "old"}};
        SaveAs(std::u16string(replaced).substr(0, 8)); // Escape
        EXPECT_EQ(test.LastBox(),
                  u"Прежнее содержимое файла «" + std::u16string(replaced) +
                      u"» не удалось положить в корзину: На диске нет места.\r\nЗаменить файл "
                      u"безвозвратно?");
        EXPECT_EQ(test.files.files, (std::map<std::u16string, std::string>{{replaced, "old"}}));
        EXPECT_TRUE(test.program.Parts().document.DocumentModified);
    }
    test.files.unreadable = {u"/d/b.txt"};
    test.files.files = {{u"/d/b.txt", "old"}};
    SaveAs(u"/d/b.txt", {BoxAnswer::Yes});
    EXPECT_EQ(File(u"/d/b.txt"), "new\r\n");
    EXPECT_EQ(test.messageBox.shown.size(), 3U);
}

// Whether the file is offered anew after another program changed it and something more was done.
TEST_F(modDocumentTest, AFileThatAnotherChangedIsOfferedAnewAsLongAsTheTextIsTheFilesOwn) {
    const auto type = [&](std::u16string_view typed) {
        window.document.SetSelStart(0);
        window.document.SetSelText(typed);
    };
    bool& walking = test.program.Parts().recoding.walking;
    const std::map<std::string, std::function<void()>> steps{
        {"another program", [&] { test.files.times[u"/d/a.txt"] += 1; }},
        {"longer", [&] { test.files.files[u"/d/a.txt"] = "longer"; }},
        {"gone", [&] { test.files.files.erase(u"/d/a.txt"); }},
        {"caret", [&] { window.document.SetSelStart(2); }},
        {"type", [&] { type(u"x"); }},
        {"type what is lost", [&] { type(u"\u65E5"); }},
        {"take back", [&] { Dispatch("MENU:EDIT:UNDO"); }},
        {"save", [&] { Dispatch("MENU:FILE:SAVE", {BoxAnswer::Yes}); }},
        {"not free", [&] { window.isFree = false; }},
        {"free, but walking", [&] { window.isFree = walking = true; }},
        {"walked", [&] { walking = false; }},
        {"new document", [&] { Dispatch("MENU:FILE:NEW"); }}};
    using Steps = std::vector<const char*>;
    const std::tuple<Steps, Steps, bool> cases[] = {
        // before the look, before it is told, and whether it is
        {{}, {}, false},
        {{"another program"}, {}, true},
        {{}, {}, false}, // the same change
        {{}, {"another program"}, true},
        {{"gone"}, {}, false},
        {{"longer", "caret"}, {}, true},
        {{"another program", "type"}, {}, false},
        {{}, {"take back"}, true},
        {{"another program", "not free"}, {}, false},
        {{"free, but walking"}, {}, false},
        {{"walked"}, {}, true},
        {{}, {"type", "save", "another program"}, false},
        {{}, {}, true}, // of what has changed since
        {{"type what is lost", "save", "another program"}, {}, false},
        {{"new document"}, {}, false}};
    SaveAs(u"/d/a.txt");
    test.OpenFile(u"/d/a.txt", "text");
    for (const auto& row : cases) {
        const auto& [before, meanwhile, offered] = row;
        for (const char* step : before)
            steps.at(step)();
        window.OnActivate();
        for (const char* step : meanwhile)
            steps.at(step)();
        test.messageBox.shown.clear();
        test.background.DoAll(); // Escape
        EXPECT_EQ(test.messageBox.shown.size(), offered ? 1U : 0U) << "row " << &row - cases;
    }
}

TEST_F(modDocumentTest, TheFileOfTheDocumentIsOpenedAnewAndNoOther) {
    test.OpenFile(u"/d/a.txt", "text");
    test.fileDialog.FileName = u"/d/imported.rtf";
    const auto change = [&](const char* bytes) {
        test.files.files[u"/d/a.txt"] = bytes;
        window.OnActivate();
        window.OnActivate();
        EXPECT_EQ(test.background.works.size(), 1U) << "one look at a time";
        test.messageBox.answers = {BoxAnswer::Yes};
        test.background.DoAll();
    };
    change("their text");
    EXPECT_EQ(test.LastBox(), u"Файл «/d/a.txt» изменила другая программа. Открыть его заново?");
    EXPECT_EQ(window.document.Text(), u"their text");
    EXPECT_EQ(window.backup.Text(), u"their text");
    EXPECT_EQ(test.fileDialog.FileTitle, u"a.txt");
    change("their second text");
    EXPECT_EQ(window.document.Text(), u"their second text");
}

TEST_F(modDocumentTest, AsksBeforeCharactersAreLost) {
    window.document.SetText(u"a\u4E2D\u4E2D");
    SaveAs(u"/d/a.txt");
    EXPECT_TRUE(test.files.files.empty());
    EXPECT_NE(test.LastBox().find(u"всего: 2, например «\u4E2D»"), std::u16string::npos);
    SaveAs(u"/d/a.txt", {BoxAnswer::Yes});
    EXPECT_EQ(File(u"/d/a.txt"), "a??\r\n");
}

TEST_F(modDocumentTest, ImportInsertsAtTheCaretAndKeepsTheSelection) {
    window.document.SetText(u"onetwo");
    window.document.Select(3, 3);
    test.fileDialog.FileName = u"/d/before.txt";
    test.OpenFile(u"/d/i.rtf", "middle", "MENU:FILE:IMPORT:RTF");
    EXPECT_EQ(window.document.Text(), u"onemiddletwo");
    EXPECT_EQ(window.document.SelStart(), 0U);
    EXPECT_EQ(test.clipboard.text, u"middle");
    EXPECT_EQ(test.fileDialog.namesAtOpening.back(), u"") << "the dialog opens without a name";
    EXPECT_TRUE(test.program.Parts().document.ReopenAvailable);
}

TEST_F(modDocumentTest, AnImportRecodesTheDocumentBeforeItsOwnTextComes) {
    test.Set(Setting::StartAtImport, u"1").Set(Setting::DefaultCode, u"0");
    window.document.SetText(u"\u040F");
    test.OpenFile(u"/d/i.rtf", "\x8F", "MENU:FILE:IMPORT:RTF");
    EXPECT_EQ(window.document.Text(), u"\u040FП");
}

TEST_F(modDocumentTest, RecodesWhatIsOpenedWhereThatIsAskedForButNotOnReopen) {
    test.Set(Setting::StartAtOpen, u"1").Set(Setting::DefaultCode, u"0");
    test.OpenFile(u"/d/dos.txt", "\x8F\xE0\xA8\xA2\xA5\xE2");
    EXPECT_EQ(window.document.Text(), u"Привет");
    Dispatch("MENU:FILE:REOPEN");
    EXPECT_NE(window.document.Text(), u"Привет");

    test.OpenFile(u"/d/long.txt", std::string(40000, '\x8F'));
    EXPECT_EQ(test.LastBox().substr(0, 20), u"Произошла ошибка № 6");
    EXPECT_EQ(window.document.Text().size(), 40000U);
}

} // namespace
} // namespace quillshift
