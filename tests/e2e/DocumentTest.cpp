#include "e2e/EditorTest.h"

#include <sys/resource.h>
#include <sys/stat.h>

namespace quillshift::e2e {
namespace {

using Document = EditorTest;

TEST_F(Document, EveryByteSurvivesOpeningAndSaving) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        if (byte != '\r' && byte != '\n')
            bytes += static_cast<char>(byte);
    Put(Path("bytes.txt"), bytes);
    editor.Start().Open(Path("bytes.txt"));
    EXPECT_EQ(Saved(), bytes + "\r\n");
}

TEST_F(Document, NamesAreCompletedUnlessThereIsSuchAFileAndOnlyFilesAreRead) {
    Put(Path("letter"), "letter");
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
    editor.Start();
    desktop.Type(u"x");
    desktop.Press("Ctrl+Shift+s");
    editor.AnswerFileDialog(u"Сохранение документа", Path("new"));
    editor.Settle();
    EXPECT_EQ(Contents(Path("new.txt")), "x\r\n");
    editor.Open(Path("letter"));
    EXPECT_EQ(Saved(), "letter\r\n");
    editor.Open(Path("new"));
    for (const std::filesystem::path& special : {Path("pipe"), {"/dev/zero"}, {"/proc/kmsg"}}) {
        desktop.Press("Ctrl+o");
        editor.AnswerFileDialog(u"Открытие документа", special);
        editor.AnswerBox(BoxAnswer::Ok);
        editor.Settle();
    }
    EXPECT_EQ(Saved(), "x\r\n\r\n");
}

TEST_F(Document, AFullDiskAndALimitAreReportedAndTheTextCanBeSavedElsewhere) {
    std::filesystem::create_symlink("/dev/full", Path("full.txt"));
    editor.Start();
    desktop.Type(u"kept");
    const auto failToSave = [&](const std::string& name) {
        desktop.Press("Ctrl+Shift+s");
        editor.AnswerFileDialog(u"Сохранение документа", Path(name));
        editor.AnswerBox(BoxAnswer::Ok);
        editor.Settle();
    };
    failToSave("full.txt");
    rlimit limit{0, RLIM_INFINITY};
    prlimit(editor.Program().Pid(), RLIMIT_FSIZE, &limit, nullptr);
    failToSave("limited.txt");
    limit.rlim_cur = RLIM_INFINITY;
    prlimit(editor.Program().Pid(), RLIMIT_FSIZE, &limit, nullptr);
    desktop.AskToClose(editor.Window());
    editor.AnswerBox(BoxAnswer::Cancel); // still counts as changed
    editor.Settle();
    EXPECT_EQ(Saved(), "kept\r\n");
}

TEST_F(Document, OffersAnewWhatAnotherProgramChangedWhenTheUserComesBack) {
    Put(Path("a.txt"), "one");
    editor.Start().Open(Path("a.txt"));
    const auto changeAway = [&](const char* name, const std::string& bytes) {
        const XWindow window = editor.Window();
        desktop.Minimise(window);
        Put(Path(name), bytes);
        desktop.Activate(window);
    };
    changeAway("a.txt", "two");
    editor.AnswerBox(BoxAnswer::Yes);
    editor.Settle();
    EXPECT_EQ(Saved(), "two\r\n");
    changeAway("saved.txt", "three");
    editor.AnswerBox(BoxAnswer::No);
    editor.Settle();
    EXPECT_EQ(Saved(), "two\r\n");
}

TEST_F(Document, ASaveOverAFileGivesTheKeyboardBack) {
    editor.Start();
    for (int i = 0; i < 6; ++i) {
        Put(Path("there.txt"), "old");
        desktop.Type(u"x");
        desktop.Press("Ctrl+Shift+s");
        editor.AnswerFileDialog(u"Сохранение документа", Path("there.txt"));
        editor.Settle();
    }
    EXPECT_EQ(Contents(Path("there.txt")), "xxxxxx\r\n");
}

} // namespace
} // namespace quillshift::e2e
