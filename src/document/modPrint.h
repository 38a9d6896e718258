#pragma once

#include "platform/Dialogs.h"
#include "platform/Platform.h"
#include "platform/TextSurface.h"
#include "settings/Settings.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

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

/// Where a person fills in margins and copies.
class PrintBoxes {
public:
    virtual ~PrintBoxes() = default;
    /// As they are now, applied or not. The printer chosen beside them is current then.
    virtual PrintBoxTexts Boxes() const = 0;
};

/// The place of the stored printer among these: by its name, else by its stored position, and else the last;
/// -1 where there is none.
int StoredPrinter(Settings& settings, const std::vector<std::u16string>& names);

/// The way of the document to a printer.
class modPrint {
public:
    struct Services {
        Settings& settings;
        Platform& platform;
        TextSurface& document;
        /// Loads what attaches its boxes, and makes the stored printer current.
        std::function<void()> loadBoxes;
        std::function<void()> showPrinting;           ///< the dialog `Printing`, modal
        std::function<std::u16string()> documentName; ///< without its folder; empty for one that has no file
        bool& isPrinting;                             ///< the text must stay as it is
    };

    explicit modPrint(Services services) : services_(std::move(services)) {}

    /// The boxes that count from now on.
    void Attach(const PrintBoxes& boxes) { boxes_ = &boxes; }
    /// Must be called before the boxes go.
    void Detach(const PrintBoxes& boxes) {
        if (boxes_ == &boxes)
            boxes_ = nullptr;
    }

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
    struct Job {
        Printer& printer;
        std::unique_ptr<ProgressWindow> window;
        bool isStopped = false; ///< by the user

        bool GoesOn(double done);
    };
    bool IsStillThere();
    bool SetUp(Printer& printer, int copies);
    std::u16string AskForFile();
    static void DrawPages(TextSurface& surface, const PrintMargins& margins, Job& job);

    Services services_;
    const PrintBoxes* boxes_ = nullptr;
    bool confirmed_ = false;
};

} // namespace quillshift
