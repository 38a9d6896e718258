#pragma once

#include "platform/Platform.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace quillshift {

/// A printer that writes down what it is told, in a word each: sheets of A4 with an edge of 100 and 200 twips
/// that it can't reach.
class FakePrinter final : public Printer {
public:
    bool SetPrintQuality(PrintQuality quality) override { return Take("quality", static_cast<int>(quality)); }
    bool SetColorMode(PrintColour colours) override { return Take("colours", static_cast<int>(colours)); }
    bool SetOrientation(PrintOrientation orientation) override {
        return Take("orientation", static_cast<int>(orientation));
    }
    bool SetPaperSize(PrintPaper paper) override { return Take("paper", static_cast<int>(paper)); }
    bool SetCopies(int copies) override { return Take("copies", copies); }
    bool SetFont(const SurfaceFont& font) override { return Take("font", static_cast<int>(font.points)); }
    bool IsFile() const override { return isFile; }
    void SetFile(std::u16string_view path) override { file = path; }
    std::optional<PrintFailure> Start(std::u16string_view name) override {
        done.emplace_back("start");
        documentName = name;
        return atStart;
    }
    PrintSheet Sheet() const override {
        return {11907_twips, 16839_twips, 100_twips, 200_twips, 11707_twips, 16439_twips};
    }
    int Passes() const override { return passes; }
    void NewPage() override { done.emplace_back("page"); }
    std::optional<PrintFailure> End(const std::function<bool()>& goesOn) override {
        done.emplace_back("end");
        while (isSlow)
            if (!goesOn())
                return std::nullopt;
        return atEnd;
    }
    void Cancel() override { done.emplace_back("cancel"); }

    std::vector<std::string> done;
    std::string refused; ///< the properties that it does not take, with blanks between
    bool isFile = false;
    std::u16string file, documentName;
    int passes = 1;
    bool isSlow = false; ///< takes no document at its end
    std::optional<PrintFailure> atStart, atEnd;

private:
    bool Take(const std::string& what, int value) {
        done.push_back(what + " " + std::to_string(value));
        return (' ' + refused + ' ').find(' ' + what + ' ') == std::string::npos;
    }
};

class FakePrinters final : public Printers {
public:
    std::vector<std::u16string> Names() override { return names; }
    bool AreKnown() const override { return known; }
    bool MakeCurrent(std::u16string_view name) override {
        const bool isThere = std::ranges::find(names, name) != names.end();
        if (isThere) {
            current = name;
            printer.done.emplace_back("current");
        }
        return isThere;
    }
    Printer& Current() override { return printer; }
    std::u16string CurrentName() const override { return current; }

    std::vector<std::u16string> names{u"Laser", std::u16string(kIntoFile)};
    bool known = true;
    std::u16string current;
    FakePrinter printer;
};

} // namespace quillshift
