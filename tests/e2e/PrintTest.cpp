#include "base/Texts.h"
#include "e2e/EditorTest.h"
#include "harness/PrintSystem.h"

#include <algorithm>
#include <sstream>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillshift::e2e {
namespace {

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
    void AskToPrint(std::u16string_view answeredBy) {
        editor.Choose("MENU:FILE:PRINT");
        editor.SettleIn(answeredBy);
    }
};

TEST_F(Printing, ReachesAQueueWithItsNameCopiesAndQuality) {
    editor.Set(Setting::Copies, u"3").Set(Setting::PrintQuality, u"vbPRPQDraft");
    editor.Set(Setting::ColorMode, u"vbPRCMMonochrome").Set(Setting::PositionLeft, u"0");
    AskToPrint(kDialog);
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
    AskToPrint(kProgramTitle);
    editor.AnswerBox(BoxAnswer::No);
    editor.Settle();
    editor.Set(Setting::PaperSize, u"A5 148 x 210 мм");
    AskToPrint(kDialog);
    system->DeleteQueue();
    desktop.Press("Return");
    editor.SettleIn(kProgramTitle);
    editor.AnswerBox(BoxAnswer::Ok);
    editor.Settle();
    AskToPrint(kProgramTitle); // whether into a file instead
    editor.AnswerBox(BoxAnswer::No);
    editor.Settle();
    system->StopServer();
    const SilentServer silent(system->Server());
    AskToPrint(kProgramTitle);
    editor.AnswerBox(BoxAnswer::No);
    editor.Settle();
    EXPECT_TRUE(editor.Runs());
}

} // namespace
} // namespace quillshift::e2e
