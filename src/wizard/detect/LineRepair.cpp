#include "wizard/detect/LineRepair.h"

#include "wizard/detect/Hypotheses.h"
#include "wizard/detect/Pieces.h"

#include <algorithm>
#include <numeric>

namespace quillshift::wizard {

namespace {

constexpr std::size_t linesAsked = 48;      ///< how many lines of an unsure text say which ways there are
constexpr std::size_t fruitlessLines = 500; ///< so many that say nothing of their own, and no more is asked
constexpr std::size_t mostWays = 6;
constexpr std::size_t togetherBytes = 16 << 10; ///< lines are undone at once
constexpr double sameWayBits = 4;               ///< that a line goes the way of the line before it
constexpr double aheadBits = 8;                 ///< of another way, at a glance

std::string_view TakeLine(std::string_view& bytes) {
    const std::string_view line = bytes.substr(0, std::min(bytes.find('\n'), bytes.size() - 1) + 1);
    bytes.remove_prefix(line.size());
    return line;
}

std::string_view TakeLines(std::string_view& bytes, std::size_t count) {
    const std::string_view lines = bytes.substr(0, BytesOfLines(bytes, count));
    bytes.remove_prefix(lines.size());
    return lines;
}

/// As many of them as are undone at once.
std::string_view Together(std::string_view lines) {
    return lines.substr(0, lines.rfind('\n', togetherBytes) + 1);
}

} // namespace

std::optional<std::string> Lossless(const Chain& chain, std::string_view bytes) {
    Undone undone = Undo(chain, bytes);
    if (undone.lost > 0 || !Proves(chain, undone.text, bytes))
        return std::nullopt;
    return std::move(undone.text);
}

LineRepair::LineRepair(std::string_view beginning, const Verdict& verdict, const DetectOptions& options)
    : options_(options) {
    if (verdict.answer == Answer::Sure)
        Know(verdict.candidates.front().chain);
    else if (verdict.answer == Answer::Clean && IsUtf8(beginning))
        Know({});
    else
        AskLines(beginning);
    byVerdict_ = verdict.answer != Answer::Unsure && !ways_.empty();
}

void LineRepair::Know(const Chain& way) {
    ways_.push_back(way);
    tables_.emplace_back(way);
}

std::size_t LineRepair::Apart() const {
    if (wentSo_.empty())
        return 0;
    return std::accumulate(wentSo_.begin(), wentSo_.end(), std::size_t{0}) -
           *std::max_element(wentSo_.begin(), wentSo_.end());
}

void LineRepair::Add(std::string_view lines, std::string& text) {
    while (!lines.empty()) {
        std::string_view undone, together = ways_.size() == 1 ? Together(lines) : std::string_view();
        if (!together.empty() && tables_[0].UndoLines(together, undone, looked_)) {
            lines.remove_prefix(AddTogether(together, undone, text));
            continue;
        }
        if (together.empty())
            together = lines;
        lines.remove_prefix(together.size());
        while (!together.empty())
            AddOne(TakeLine(together), text);
    }
}

std::size_t LineRepair::AddTogether(std::string_view lines, std::string_view undone, std::string& text) {
    const std::size_t all = lines.size();
    for (std::size_t line = 0; line < looked_.Count() && ways_.size() == 1;) {
        const std::size_t start = line;
        for (; line < looked_.Count() && looked_[line] != LineLook::Unclear; ++line)
            Went(0, looked_[line] == LineLook::Clear ? 1 : 0);
        const std::string_view clear = TakeLines(lines, line - start), of = TakeLines(undone, line - start);
        text += of;
        changed_ = changed_ || clear != of;
        if (line < looked_.Count()) {
            const std::string_view unclear = TakeLine(lines), its = TakeLine(undone);
            if (tables_[0].IsPlausible(unclear, its))
                Accept(0, its, unclear, text);
            else
                AddOne(unclear, text);
            ++line;
        }
    }
    return all - lines.size();
}

void LineRepair::AddOne(std::string_view line, std::string& text) {
    if (IsAscii(line))
        text += line;
    else if (!AddByTables(line, text))
        AddLine(line, text);
}

bool LineRepair::AddByTables(std::string_view line, std::string& text) {
    undone_.clear();
    for (std::size_t i = 0; i < ways_.size(); ++i) {
        std::string_view undone;
        if (!tables_[i].Undo(line, undone))
            continue;
        const auto same = std::find_if(undone_.begin(), undone_.end(),
                                       [&](const Undoing& other) { return other.text == undone; });
        if (same == undone_.end())
            undone_.push_back({i, undone});
        else if (i == previous_)
            same->way = i;
    }
    const Undoing* clear = ClearOne();
    if (clear == nullptr)
        return false;
    Accept(clear->way, clear->text, line, text);
    return true;
}

const LineRepair::Undoing* LineRepair::ClearOne() {
    if (undone_.empty() || (undone_.size() == 1 && tables_[undone_[0].way].IsClear()))
        return undone_.empty() ? nullptr : &undone_[0];
    const Undoing* best = nullptr;
    double most = 0, next = -aheadBits;
    for (const Undoing& undone : undone_) {
        const double glance = tables_[undone.way].Glance();
        if (glance >= most) {
            next = best != nullptr ? std::max(next, most) : next;
            most = glance;
            best = &undone;
        } else {
            next = std::max(next, glance);
        }
    }
    return most < next + aheadBits ? nullptr : best;
}

void LineRepair::AskLines(std::string_view bytes) {
    std::vector<std::string_view> lines;
    for (std::string_view rest = bytes; !rest.empty();)
        if (const std::string_view line = TakeLine(rest); !IsAscii(line))
            lines.push_back(line);
    const std::size_t step = std::max<std::size_t>(1, lines.size() / linesAsked);
    for (std::size_t i = 0; i < lines.size() && ways_.size() < mostWays; i += step)
        OwnWay(lines[i]);
}

std::optional<std::size_t> LineRepair::OwnWay(std::string_view line) {
    const Verdict own = Detect(line, options_);
    if (own.answer == Answer::Unsure || own.candidates.empty() || own.candidates.front().letters < 3 ||
        (own.answer == Answer::Clean && (!IsUtf8(line) || own.candidates.front().language != "ru")))
        return std::nullopt;
    const Chain& chain = own.candidates.front().chain;
    const auto known = std::find(ways_.begin(), ways_.end(), chain);
    if (known == ways_.end()) {
        if (ways_.size() == mostWays) {
            ways_.pop_back();
            tables_.pop_back();
        }
        Know(chain);
        return ways_.size() - 1;
    }
    return static_cast<std::size_t>(known - ways_.begin());
}

std::optional<LineRepair::Way> LineRepair::KnownWay(std::string_view line) {
    std::optional<Way> best;
    for (std::size_t i = 0; i < ways_.size(); ++i) {
        std::string_view undone;
        auto text =
            tables_[i].Undo(line, undone) ? std::optional<std::string>(undone) : Lossless(ways_[i], line);
        if (!text)
            continue;
        const Fit fit = RussianFit(*text);
        const double bits = fit.bits - (i == previous_ ? sameWayBits : 0);
        if (!best || bits < best->bits)
            best = Way{i, std::move(*text), bits, fit.plausible};
    }
    return best;
}

void LineRepair::AddLine(std::string_view line, std::string& text) {
    std::optional<Way> way = KnownWay(line);
    if ((!way || !way->plausible) && fruitless_ < fruitlessLines) {
        const auto own = OwnWay(line);
        auto ownText = own ? Lossless(ways_[*own], line) : std::nullopt;
        fruitless_ += ownText ? 0 : 1;
        if (ownText)
            way = Way{*own, std::move(*ownText), 0, true};
    }
    // What says nothing for itself goes the way of the whole, unless it is well as it is.
    if (way && !way->plausible &&
        (!byVerdict_ || (way->number != 0 || (ways_[0] != Chain{} && IsUtf8(line)))))
        way.reset();
    if (way)
        Accept(way->number, way->text, line, text);
    else
        Leave(line, text);
}

void LineRepair::Accept(std::size_t way, std::string_view undone, std::string_view line, std::string& text) {
    previous_ = way;
    text += undone;
    Went(way, 1);
    changed_ = changed_ || undone != line;
}

void LineRepair::Went(std::size_t way, std::size_t lines) {
    wentSo_.resize(std::max(wentSo_.size(), way + 1));
    wentSo_[way] += lines;
}

void LineRepair::Leave(std::string_view line, std::string& text) {
    text += line;
    ++unsure_;
}

} // namespace quillshift::wizard
