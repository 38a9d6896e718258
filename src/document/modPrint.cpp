#include "document/modPrint.h"

#include "base/Error.h"
#include "base/Texts.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillshift {
namespace {

constexpr std::u16string_view kNoName = u"Документ";
constexpr int kMostCopies = 999;

// One value that a setting can have: what the printer is told, and what a person.
template <class Value>
struct Choice {
    std::u16string_view stored;
    Value value;
    std::u16string_view shown;
};
template <class Value>
Choice(std::u16string_view, Value, std::u16string_view) -> Choice<Value>;

constexpr std::array kQualities{Choice{u"vbPRPQDraft", PrintQuality::Draft, u"Черновое"},
                                Choice{u"vbPRPQLow", PrintQuality::Low, u"Низкое"},
                                Choice{u"vbPRPQMedium", PrintQuality::Medium, u"Среднее"},
                                Choice{u"vbPRPQHigh", PrintQuality::High, u"Высокое"}};
constexpr std::array kColours{Choice{u"vbPRCMColor", PrintColour::Colour, u"Цветная"},
                              Choice{u"vbPRCMMonochrome", PrintColour::Monochrome, u"Монохромная"}};
constexpr std::array kOrientations{Choice{u"vbPRORPortrait", PrintOrientation::Portrait, u"Книжная"},
                                   Choice{u"vbPRORLandscape", PrintOrientation::Landscape, u"Альбомная"}};
constexpr std::array kPapers{Choice{u"A3 297 x 420 мм", PrintPaper::A3, u"A3 297 x 420 мм"},
                             Choice{u"A4 210 x 297 мм", PrintPaper::A4, u"A4 210 x 297 мм"},
                             Choice{u"A5 148 x 210 мм", PrintPaper::A5, u"A5 148 x 210 мм"},
                             Choice{u"B4 250 x 354 мм", PrintPaper::B4, u"B4 250 x 354 мм"},
                             Choice{u"B5 182 x 257 мм", PrintPaper::B5, u"B5 182 x 257 мм"}};

template <class Choices>
auto FindIn(const Choices& choices, std::u16string_view stored) {
    const auto* const found = std::find_if(choices.begin(), choices.end(),
                                           [&](const auto& choice) { return choice.stored == stored; });
    return found == choices.end() ? nullptr : found;
}

template <class Choices>
std::u16string Shown(const Choices& choices, std::u16string_view stored) {
    const auto* const choice = FindIn(choices, stored);
    return choice == nullptr ? std::u16string() : std::u16string(choice->shown);
}

// 567 twips to the centimetre.
Twips FromMillimetres(std::u16string_view text) {
    return {std::max(NumberIn(text), 0.0F) / 10 * 567};
}

int CopiesIn(std::u16string_view text) {
    return static_cast<int>(std::clamp(std::round(NumberIn(text)), 1.0F, float(kMostCopies)));
}

} // namespace

int StoredPrinter(Settings& settings, const std::vector<std::u16string>& names) {
    const auto count = static_cast<int>(names.size());
    const auto found = std::find(names.begin(), names.end(), settings.Text(Setting::PrinterName));
    if (found != names.end())
        return static_cast<int>(found - names.begin());
    const float place = settings.Number(Setting::Printers);
    return place >= 0 && place < static_cast<float>(count) ? static_cast<int>(place) : count - 1;
}

// --- The command

// The boxes come first: loading them makes a printer current.
void modPrint::Print() {
    if (services_.isPrinting)
        return;
    if (boxes_ == nullptr)
        services_.loadBoxes();
    const PrintBoxTexts boxes = boxes_->Boxes();
    if (!IsStillThere() || !SetUp(services_.platform.printers.Current(), CopiesIn(boxes.copies)))
        return;
    confirmed_ = services_.settings.Whole(Setting::Printing) == 0;
    if (!confirmed_)
        services_.showPrinting();
    if (std::exchange(confirmed_, false))
        PrintDocument(services_.document, {FromMillimetres(boxes.left), FromMillimetres(boxes.top),
                                           FromMillimetres(boxes.right), FromMillimetres(boxes.bottom)});
}

// Where the stored printer has gone another one is current, which may stand in another house.
bool modPrint::IsStillThere() {
    Printers& printers = services_.platform.printers;
    const std::u16string stored = services_.settings.Text(Setting::PrinterName);
    const auto names = printers.Names();
    return stored.empty() || std::find(names.begin(), names.end(), stored) != names.end() ||
           services_.platform.messageBox.Ask(u"Принтер «" + stored + u"» не найден.\r\nПечатать на «" +
                                             printers.CurrentName() + u"»?") == BoxAnswer::Yes;
}

// A value that the store has no word for leaves the printer as it was. What the printer refuses is told, and
// the user decides.
bool modPrint::SetUp(Printer& printer, int copies) {
    std::u16string refused;
    const auto note = [&](bool taken, std::u16string_view what) {
        if (!taken)
            (refused += refused.empty() ? u"" : u", ") += what;
    };
    const auto set = [&](const auto& choices, Setting setting, std::u16string_view what, auto give) {
        if (const auto* choice = FindIn(choices, services_.settings.Text(setting)))
            note(give(choice->value), what);
    };
    set(kQualities, Setting::PrintQuality, u"качество печати",
        [&](PrintQuality value) { return printer.SetPrintQuality(value); });
    set(kColours, Setting::ColorMode, u"тип печати",
        [&](PrintColour value) { return printer.SetColorMode(value); });
    set(kOrientations, Setting::Orientation, u"ориентация",
        [&](PrintOrientation value) { return printer.SetOrientation(value); });
    set(kPapers, Setting::PaperSize, u"размер бумаги",
        [&](PrintPaper value) { return printer.SetPaperSize(value); });
    note(printer.SetFont(services_.document.Font()), u"шрифт");
    note(printer.SetCopies(copies), u"количество копий");
    return refused.empty() ||
           services_.platform.messageBox.Ask(u"Принтер не принимает параметры: " + refused +
                                             u".\r\nПечатать с теми, что есть у принтера?") == BoxAnswer::Yes;
}

PrintInformation modPrint::Information() const {
    Settings& settings = services_.settings;
    return {.printer = settings.Text(Setting::PrinterName),
            .quality = Shown(kQualities, settings.Text(Setting::PrintQuality)),
            .colours = Shown(kColours, settings.Text(Setting::ColorMode)),
            .orientation = Shown(kOrientations, settings.Text(Setting::Orientation)),
            .copies = settings.Text(Setting::Copies),
            .paper = Shown(kPapers, settings.Text(Setting::PaperSize))};
}

// --- Printing

// The dialog is the document's own, whose file must go on being the one it names.
std::u16string modPrint::AskForFile() {
    FileDialog& dialog = services_.platform.fileDialog;
    const std::u16string name = dialog.FileName;
    const std::u16string title = dialog.FileTitle;
    const std::u16string folder = dialog.InitDir;
    const std::u16string documentName = services_.documentName();
    const std::size_t dot = documentName.rfind(u'.');
    dialog.DialogTitle = u"Печать в файл";
    dialog.Filter = u"Документы PDF (*.pdf)|*.pdf|Все файлы (*.*)|*.*|";
    dialog.DefaultExt = u"*.pdf|*.*";
    dialog.InitDir = services_.settings.Text(Setting::FolderDocuments);
    dialog.FileName =
        name.substr(0, name.rfind(u'/') + 1) +
        (dot == 0 || documentName.empty() ? std::u16string(kNoName) : documentName.substr(0, dot)) + u".pdf";
    const bool chosen = dialog.ShowSave();
    std::u16string file = chosen ? dialog.FileName : std::u16string();
    dialog.FileName = name;
    dialog.FileTitle = title;
    dialog.InitDir = folder;
    return file;
}

void modPrint::PrintDocument(TextSurface& surface, const PrintMargins& margins) {
    Printer& printer = services_.platform.printers.Current();
    std::u16string file;
    if (printer.IsFile()) {
        file = AskForFile();
        if (file.empty())
            return;
        printer.SetFile(file);
    }
    services_.platform.messageBox.Attempt([&] {
        const auto check = [](const std::optional<PrintFailure>& failure) {
            if (failure)
                throw Error(failure->number, u"quillshift", failure->description);
        };
        const std::u16string name = services_.documentName();
        check(printer.Start(name.empty() ? kNoName : name));
        services_.isPrinting = true;
        Job job{printer, services_.platform.progress.Begin(u"Печать документа...")};
        DrawPages(surface, margins, job);
        const auto failure = job.isStopped ? std::nullopt : printer.End([&job] { return job.GoesOn(1); });
        if (job.isStopped)
            printer.Cancel();
        job.window.reset();
        surface.ForgetPrintLayout();
        services_.isPrinting = false;
        check(failure);
        if (!job.isStopped && !file.empty())
            services_.platform.messageBox.Inform(u"Документ напечатан в файл\r\n" + file);
    });
}

bool modPrint::Job::GoesOn(double done) {
    isStopped = isStopped || (window->IsDue() && !window->Step(done));
    return !isStopped;
}

void modPrint::DrawPages(TextSurface& surface, const PrintMargins& margins, Job& job) {
    Printer& printer = job.printer;
    const PrintSheet sheet = printer.Sheet();
    const Twips left = margins.left - sheet.left;
    const Twips top = margins.top - sheet.top;
    const TwipsRect area{left, top, sheet.width - margins.right - sheet.left - left,
                         sheet.height - margins.bottom - sheet.top - top};
    const TwipsRect page{0_twips, 0_twips, sheet.scaleWidth, sheet.scaleHeight};
    const std::size_t length = surface.Length();
    const double all = std::max(1.0, static_cast<double>(length)) * printer.Passes();
    for (int pass = 0; pass < printer.Passes(); ++pass) {
        std::size_t from = 0;
        for (;;) {
            from = surface.PrintRange(printer, area, page, from);
            if (!job.GoesOn((static_cast<double>(length) * pass + static_cast<double>(from)) / all))
                return;
            if (from >= length)
                break;
            printer.NewPage();
        }
        if (pass + 1 < printer.Passes())
            printer.NewPage();
    }
}

} // namespace quillshift
