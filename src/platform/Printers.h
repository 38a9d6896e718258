#pragma once

#include "base/Twips.h"
#include "platform/FileSystem.h"
#include "platform/TextSurface.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillshift {

enum class PrintQuality { Draft = -1, Low = -2, Medium = -3, High = -4 };
enum class PrintColour { Monochrome = 1, Colour = 2 };
enum class PrintOrientation { Portrait = 1, Landscape = 2 };
/// B5 is the Japanese one; B4, of 250 by 354 mm, is a size of its own.
enum class PrintPaper { A3 = 8, A4 = 9, A5 = 11, B4 = 12, B5 = 13 };

/// What went wrong with a printer: number 482, and a description in Russian.
using PrintFailure = FileFailure;

/// The sheet that is printed on. `left` and `top` are the edges that the printer can't reach.
struct PrintSheet {
    Twips width, height;           ///< of the paper
    Twips left, top;               ///< from the paper's edge to the printable area
    Twips scaleWidth, scaleHeight; ///< of the printable area
};

/// The printer that is current, whichever that is. What is set stays until it is set again.
///
/// A document is printed between `Start` and `End`, which stands for a whole one: until then nothing of it
/// has reached a queue or a file.
class Printer {
public:
    virtual ~Printer() = default;

    // Each answers whether the printer takes it; one that refuses stays as it was.
    virtual bool SetPrintQuality(PrintQuality quality) = 0;
    virtual bool SetColorMode(PrintColour colours) = 0;
    virtual bool SetOrientation(PrintOrientation orientation) = 0;
    virtual bool SetPaperSize(PrintPaper paper) = 0;
    /// From 1 up.
    virtual bool SetCopies(int copies) = 0;
    virtual bool SetFont(const SurfaceFont& font) = 0;

    /// Whether it prints into a file, the name of which has to be given.
    virtual bool IsFile() const = 0;
    virtual void SetFile(std::u16string_view path) = 0;

    /// Begins a document, which goes by that name in a queue, with its first page.
    virtual std::optional<PrintFailure> Start(std::u16string_view name) = 0;
    virtual PrintSheet Sheet() const = 0;
    /// How often all pages are to be drawn: once where the printer makes the copies itself.
    virtual int Passes() const = 0;
    virtual void NewPage() = 0;
    /// Hands the document over. While a queue is slow to take it `goesOn` is asked; once it answers false the
    /// document is dropped, and nothing failed.
    virtual std::optional<PrintFailure> End(const std::function<bool()>& goesOn) = 0;
    /// Drops the document. Nothing happens where none was begun.
    virtual void Cancel() = 0;
};

/// The printers of the machine.
class Printers {
public:
    virtual ~Printers() = default;

    /// The last of the list, which is always there.
    static constexpr std::u16string_view kIntoFile = u"Печать в файл (PDF)";

    /// Asks the print system, and waits a second at most for its answer; one that comes later is told by
    /// `OnNames`, and until then the list is what was last known.
    virtual std::vector<std::u16string> Names() = 0;
    /// Whether the print system has answered what `Names` asked last.
    virtual bool AreKnown() const = 0;
    /// False for a name that is not in the list; the current printer stays.
    virtual bool MakeCurrent(std::u16string_view name) = 0;
    virtual Printer& Current() = 0;
    virtual std::u16string CurrentName() const = 0;

    std::function<void(const std::vector<std::u16string>& names)> OnNames;
};

} // namespace quillshift
