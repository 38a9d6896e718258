#pragma once

#include "platform/Dialogs.h"
#include "platform/Platform.h"
#include "platform/TextSurface.h"
#include "settings/Settings.h"

#include <functional>
#include <string>
#include <string_view>

namespace quillshift {

/// What stands in the boxes for margins, in millimetres, and for copies.
struct PrintBoxTexts {
    std::u16string left, top, right, bottom, copies;
};

/// The information that is shown before a document is printed; empty where the store holds nothing usable.
struct PrintInformation {
    std::u16string printer, quality, colours, orientation, copies, paper;
};

struct PrintMargins {
    Twips left, top, right, bottom;
};

/// The boxes as the store has them, and the stored printer made current.
PrintBoxTexts StoredPrintBoxes(Settings& settings, Printers& printers);

/// Makes the printer current that the store names; where the list has none of that name, the one at the
/// stored position, and else the last. Answers its place in the list.
std::size_t MakeStoredPrinterCurrent(Settings& settings, Printers& printers);

/// The way of the document to a printer.
class modPrint {
public:
    struct Services {
        Settings& settings;
        Platform& platform;
        TextSurface& document;
        /// The boxes as they are filled in. Asking makes the stored printer current.
        std::function<PrintBoxTexts()> boxes;
        std::function<void()> showPrinting;           ///< the dialog `Printing`, modal
        std::function<std::u16string()> documentName; ///< without its folder; empty for one that has no file
        bool& isPrinting;                             ///< the text must stay as it is
    };

    explicit modPrint(Services services) : services_(std::move(services)) {}

    /// The command: sets the printer up, and prints or asks first, as `Printing` says.
    void Print();
    /// The dialog's answer, for when it has closed.
    void Confirm() { confirmed_ = true; }
    PrintInformation Information() const;
    void ShowDialogBefore(bool show) { services_.settings.Switch(Setting::Printing, show); }

    /// Prints a surface page by page. What fails is reported; nothing is printed then, nor when it is
    /// cancelled.
    void PrintDocument(TextSurface& surface, const PrintMargins& margins);

private:
    bool SetUp(Printer& printer, int copies);
    std::u16string AskForFile();
    bool DrawPages(TextSurface& surface, const PrintMargins& margins, Printer& printer);

    Services services_;
    bool confirmed_ = false;
};

} // namespace quillshift
