#include "base/Texts.h"
#include "e2e/EditorTest.h"
#include "harness/Iconv.h"
#include "harness/PrintSystem.h"

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

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
    editor.SaveUnder(Path("new")).Settle();
    EXPECT_EQ(Contents(Path("new.txt")), "x\r\n");
    editor.Open(Path("letter"));
    EXPECT_EQ(Saved(), "letter\r\n");
    editor.Open(Path("new"));
    for (const std::filesystem::path& special : {Path("pipe"), {"/dev/zero"}, {"/proc/kmsg"}}) {
        desktop.Press("Ctrl+o");
        editor.AnswerFileDialog(u"Открытие документа", special);
        editor.AnswerBox(BoxAnswer::Ok).Settle();
    }
    EXPECT_EQ(Saved(), "x\r\n\r\n");
}

TEST_F(Document, AFullDiskAndALimitAreReportedAndTheTextCanBeSavedElsewhere) {
    std::filesystem::create_symlink("/dev/full", Path("full.txt"));
    editor.Start();
    desktop.Type(u"kept");
    const auto failToSave = [&](const std::string& name) {
        editor.SaveUnder(Path(name));
        editor.AnswerBox(BoxAnswer::Ok).Settle();
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
    editor.AnswerBox(BoxAnswer::Yes).Settle();
    EXPECT_EQ(Saved(), "two\r\n");
    changeAway("saved.txt", "three");
    editor.AnswerBox(BoxAnswer::No).Settle();
    EXPECT_EQ(Saved(), "two\r\n");
}

TEST_F(Document, ASaveOverAFileGivesTheKeyboardBack) {
    editor.Start();
    for (int i = 0; i < 6; ++i) {
        Put(Path("there.txt"), "old");
        desktop.Type(u"x");
        editor.SaveUnder(Path("there.txt")).Settle();
    }
    EXPECT_EQ(Contents(Path("there.txt")), "xxxxxx\r\n");
}

const std::filesystem::path kLetter = Sample("text/pushkin-dos866.txt");

// What a saved recoding from DOS must hold: iconv's answer, but for ё, which no direction moves.
std::string Expected() {
    std::string expected;
    for (const char byte : Contents(kLetter))
        expected += byte == Iconv("ё", "UTF-8", "CP866")[0] ? std::string(1, byte)
                                                            : Iconv({&byte, 1}, "CP866", "CP1251");
    return expected + "\r\n";
}

using Recoding = EditorTest;

TEST_F(Recoding, ALetterFromDosIsReadTakenBackRecodedAgainAndSaved) {
    editor.Start().Open(kLetter);
    editor.Choose("MENU:DECODE:DOS:DW").Settle();
    EXPECT_TRUE(Saved() == Expected());
    desktop.Press("Ctrl+F9");
    EXPECT_TRUE(Saved() == Contents(kLetter) + "\r\n");
    editor.Choose("MENU:DECODE:DOS:DW").Settle();
    EXPECT_TRUE(Saved() == Expected());
    EXPECT_EQ(editor.Close(), 0);
}

TEST_F(Recoding, CancellingAStepLeavesTheTextAlone) {
    std::string letter; // which it walks through for many seconds
    while (letter.size() < 1000000)
        letter += Contents(kLetter);
    Put(Path("long.txt"), letter);
    editor.Set(Setting::SaveChange, u"0").Start().Open(Path("long.txt"));
    editor.Choose("MENU:DECODE:DOS:DW");
    desktop.WaitForWindow(u"Перекодирование...");
    desktop.Press("Escape");
    editor.AnswerBox(BoxAnswer::No);
    desktop.WaitForWindow(u"Перекодирование...");
    desktop.Press("Escape");
    editor.AnswerBox(BoxAnswer::Yes).Settle();
    EXPECT_TRUE(Saved() == letter + "\r\n");
}

constexpr std::u16string_view kDialog = u"Печать документа";

/// Takes whoever comes, and never says a word.
struct SilentServer {
    explicit SilentServer(const std::string& path) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        unlink(path.c_str());
        EXPECT_EQ(bind(door, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(door, 100), 0);
    }
    ~SilentServer() { close(door); }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    int door = socket(AF_UNIX, SOCK_STREAM, 0);
};

struct Printing : EditorTest {
    std::unique_ptr<PrintSystem> system = PrintSystem::Start(desktop);

    void SetUp() override {
        if (!system)
            GTEST_SKIP() << "there is no print server on this machine";
        editor.environment["CUPS_SERVER"] = system->Server();
        editor.Set(Setting::PrinterName, u"Laser").Set(Setting::PaperSize, u"A4 210 x 297 мм");
        editor.Start();
        editor.Open(Sample("text/pushkin-win1251.txt"));
    }
    std::string Output(const std::string& command) const {
        const std::string file = Path("output").string();
        Process("sh", {"-c", command + " >" + file}, HomeEnvironment(editor.home.Path())).WaitForEnd();
        return Contents(file);
    }
    static std::string WithoutBlanks(std::string text) {
        std::erase_if(text, [](unsigned char c) { return std::isspace(c) != 0; });
        return text;
    }
};

TEST_F(Printing, ReachesAQueueWithItsNameCopiesAndQuality) {
    editor.Set(Setting::Copies, u"3").Set(Setting::PrintQuality, u"vbPRPQDraft");
    editor.Set(Setting::ColorMode, u"vbPRCMMonochrome").Set(Setting::PositionLeft, u"0");
    editor.Choose("MENU:FILE:PRINT").SettleIn(kDialog);
    desktop.Press("Return");
    const PrintSystem::Job job = system->WaitForJob(1);
    editor.Settle();
    EXPECT_EQ(job.attributes.at("IPP_JOB_NAME"), "pushkin-win1251.txt");
    EXPECT_EQ(job.attributes.at("IPP_COPIES"), "3");
    EXPECT_EQ(job.attributes.at("IPP_PRINT_QUALITY"), "draft");
    EXPECT_EQ(job.attributes.at("IPP_PRINT_COLOR_MODE"), "monochrome");
    const std::string pdf = job.document.string();
    EXPECT_EQ(WithoutBlanks(Output("pdftotext " + pdf + " -")),
              WithoutBlanks(Contents(Sample("text/pushkin-utf8.txt"))));
    // Without a margin the text stands where the printer begins to reach: at 10 mm, which are 28.35 points.
    std::istringstream places(Output("pdftotext -bbox " + pdf + " - | grep -o 'xMin=\"[0-9.]*' | cut -c7-"));
    std::vector<double> begins;
    for (double place = 0; places >> place;)
        begins.push_back(place);
    ASSERT_FALSE(begins.empty());
    EXPECT_NEAR(*std::ranges::min_element(begins), 28.35, 1.5);
}

TEST_F(Printing, TellsWhatAPrinterRefusesAndThatItHasGone) {
    editor.Set(Setting::PaperSize, u"B5 182 x 257 мм");
    editor.Choose("MENU:FILE:PRINT").SettleIn(kProgramTitle);
    editor.AnswerBox(BoxAnswer::No).Settle();
    editor.Set(Setting::PaperSize, u"A5 148 x 210 мм");
    editor.Choose("MENU:FILE:PRINT").SettleIn(kDialog);
    system->DeleteQueue();
    editor.Press("Return", kProgramTitle);
    editor.AnswerBox(BoxAnswer::Ok).Settle();
    editor.Choose("MENU:FILE:PRINT").SettleIn(kProgramTitle); // whether into a file instead
    editor.AnswerBox(BoxAnswer::No).Settle();
    system->StopServer();
    const SilentServer silent(system->Server());
    editor.Choose("MENU:FILE:PRINT").SettleIn(kProgramTitle);
    editor.AnswerBox(BoxAnswer::No).Settle();
    EXPECT_TRUE(editor.Runs());
}

} // namespace
} // namespace quillshift::e2e
