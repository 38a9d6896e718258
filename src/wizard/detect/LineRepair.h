#pragma once

#include "wizard/detect/Detector.h"
#include "wizard/detect/TableUndo.h"

namespace quillshift::wizard {

/// What a chain makes of the bytes, if that proves lossless.
std::optional<std::string> Lossless(const Chain& chain, std::string_view bytes);

/// Repairs a text line by line, which may come in pieces. Each line is held against the verdict on the text;
/// one that speaks against it goes its own way if that is sure, and stays as it is if not.
class LineRepair {
public:
    /// `beginning`: what the verdict is on.
    LineRepair(std::string_view beginning, const Verdict& verdict, const DetectOptions& options);

    /// Appends to `text` what becomes of these whole lines.
    void Add(std::string_view lines, std::string& text);

    bool Changed() const { return changed_; }
    std::size_t Unsure() const { return unsure_; } ///< lines that stayed as they were
    std::size_t Apart() const;                     ///< lines that went another way than most

private:
    struct Way {
        std::size_t number;
        std::string text;
        double bits;
        bool plausible;
    };

    /// What a line is, undone that way.
    struct Undoing {
        std::size_t way;
        std::string_view text;
    };

    /// Lines from all over the text name the ways that they went.
    void AskLines(std::string_view bytes);
    /// The way that a line is sure of by itself; it joins those that are known.
    std::optional<std::size_t> OwnWay(std::string_view line);
    /// The likeliest of the known ways that a line can have gone.
    std::optional<Way> KnownWay(std::string_view line);
    /// Adds lines that were undone the one known way and looked over, and those that are unclear by
    /// themselves, until there is another way. Gives how many bytes are done.
    std::size_t AddTogether(std::string_view lines, std::string_view undone, std::string& text);
    void AddOne(std::string_view line, std::string& text);
    /// The quick way to what `AddLine` would say: where a line clearly went one of the known ways and no
    /// other.
    bool AddByTables(std::string_view line, std::string& text);
    /// The one of `undone_` that is clearly Russian; none where it is not one alone.
    const Undoing* ClearOne();
    void Know(const Chain& way);
    void AddLine(std::string_view line, std::string& text);
    void Accept(std::size_t way, std::string_view undone, std::string_view line, std::string& text);
    void Went(std::size_t way, std::size_t lines);
    void Leave(std::string_view line, std::string& text);

    DetectOptions options_;
    std::vector<Chain> ways_;       ///< that of the verdict first, if there is one
    std::vector<TableUndo> tables_; ///< of each way
    std::vector<Undoing> undone_;   ///< of the line at hand, each text once
    LookedLines looked_;
    bool byVerdict_ = false;
    bool changed_ = false;
    std::size_t previous_ = 0, fruitless_ = 0, unsure_ = 0;
    std::vector<std::size_t> wentSo_; ///< how many lines went each of the ways
};

} // namespace quillshift::wizard
