#include "wizard/detect/Repair.h"

#include "wizard/detect/Hypotheses.h"

#include <algorithm>
#include <numeric>

namespace quillshift::wizard {

namespace {

constexpr std::size_t linesAsked = 48;      ///< how many lines of an unsure text say which ways there are
constexpr std::size_t fruitlessLines = 500; ///< so many that say nothing of their own, and no more is asked
constexpr std::size_t mostWays = 6;
constexpr double sameWayBits = 4; ///< that a line goes the way of the line before it

bool IsAscii(std::string_view bytes) {
    return std::none_of(bytes.begin(), bytes.end(),
                        [](char c) { return static_cast<std::uint8_t>(c) >= 0x80; });
}

std::string_view TakeLine(std::string_view& bytes) {
    const std::string_view line = bytes.substr(0, std::min(bytes.find('\n'), bytes.size() - 1) + 1);
    bytes.remove_prefix(line.size());
    return line;
}

/// What a chain makes of the bytes, if that proves lossless.
std::optional<std::string> Lossless(const Chain& chain, std::string_view bytes) {
    Undone undone = Undo(chain, bytes);
    if (undone.lost > 0 || !Proves(chain, undone.text, bytes))
        return std::nullopt;
    return std::move(undone.text);
}

class Lines {
public:
    Lines(std::string_view bytes, const Verdict& verdict, const DetectOptions& options)
        : bytes_(bytes), options_(options) {
        if (verdict.answer == Answer::Sure)
            ways_.push_back(verdict.candidates.front().chain);
        else if (verdict.answer == Answer::Clean && IsUtf8(bytes))
            ways_.emplace_back();
        else
            AskLines();
        byVerdict_ = verdict.answer != Answer::Unsure && !ways_.empty();
    }

    Repaired Take() {
        while (!bytes_.empty())
            RepairLine(TakeLine(bytes_));
        if (!wentSo_.empty())
            repaired_.apart = std::accumulate(wentSo_.begin(), wentSo_.end(), std::size_t{0}) -
                              *std::max_element(wentSo_.begin(), wentSo_.end());
        return std::move(repaired_);
    }

private:
    struct Way {
        std::size_t number;
        std::string text;
        double bits;
        bool plausible;
    };

    /// Lines from all over the text name the ways that they went.
    void AskLines() {
        std::vector<std::string_view> lines;
        for (std::string_view rest = bytes_; !rest.empty();)
            if (const std::string_view line = TakeLine(rest); !IsAscii(line))
                lines.push_back(line);
        const std::size_t step = std::max<std::size_t>(1, lines.size() / linesAsked);
        for (std::size_t i = 0; i < lines.size() && ways_.size() < mostWays; i += step)
            OwnWay(lines[i]);
    }

    /// The way that a line is sure of by itself; it joins those that are known.
    std::optional<std::size_t> OwnWay(std::string_view line) {
        const Verdict own = Detect(line, options_);
        if (own.answer == Answer::Unsure || own.candidates.empty() || own.candidates.front().letters < 3 ||
            (own.answer == Answer::Clean && (!IsUtf8(line) || own.candidates.front().language != "ru")))
            return std::nullopt;
        const Chain& chain = own.candidates.front().chain;
        const auto known = std::find(ways_.begin(), ways_.end(), chain);
        if (known == ways_.end()) {
            if (ways_.size() == mostWays)
                ways_.pop_back();
            ways_.push_back(chain);
            return ways_.size() - 1;
        }
        return static_cast<std::size_t>(known - ways_.begin());
    }

    /// The likeliest of the known ways that a line can have gone.
    std::optional<Way> KnownWay(std::string_view line) const {
        std::optional<Way> best;
        for (std::size_t i = 0; i < ways_.size(); ++i) {
            auto text = Lossless(ways_[i], line);
            if (!text)
                continue;
            const Fit fit = RussianFit(*text);
            const double bits = fit.bits - (i == previous_ ? sameWayBits : 0);
            if (!best || bits < best->bits)
                best = Way{i, std::move(*text), bits, fit.plausible};
        }
        return best;
    }

    void RepairLine(std::string_view line) {
        if (IsAscii(line)) {
            repaired_.text += line;
            return;
        }
        std::optional<Way> way = KnownWay(line);
        if ((!way || !way->plausible) && fruitless_ < fruitlessLines) {
            const auto own = OwnWay(line);
            auto text = own ? Lossless(ways_[*own], line) : std::nullopt;
            fruitless_ += text ? 0 : 1;
            if (text)
                way = Way{*own, std::move(*text), 0, true};
        }
        // What says nothing for itself goes the way of the whole, unless it is well as it is.
        if (way && !way->plausible &&
            (!byVerdict_ || (way->number != 0 || (!IsLeft(ways_[0]) && IsUtf8(line)))))
            way.reset();
        if (way)
            Accept(*way, line);
        else
            Leave(line);
    }

    static bool IsLeft(const Chain& chain) { return chain == Chain{}; }

    void Accept(const Way& way, std::string_view line) {
        previous_ = way.number;
        repaired_.text += way.text;
        wentSo_.resize(std::max(wentSo_.size(), way.number + 1));
        ++wentSo_[way.number];
        repaired_.changed = repaired_.changed || way.text != line;
    }

    void Leave(std::string_view line) {
        repaired_.text += line;
        ++repaired_.unsure;
    }

    std::string_view bytes_;
    const DetectOptions& options_;
    std::vector<Chain> ways_; ///< that of the verdict first, if there is one
    bool byVerdict_ = false;
    std::size_t previous_ = 0, fruitless_ = 0;
    std::vector<std::size_t> wentSo_; ///< how many lines went each of the ways
    Repaired repaired_;
};

/// All or nothing: what has no lines of its own.
Repaired RepairWhole(std::string_view bytes, const Verdict& verdict) {
    const Chain& chain = verdict.candidates.front().chain;
    auto text = verdict.answer == Answer::Sure ? Lossless(chain, bytes) : std::nullopt;
    return text ? Repaired{std::move(*text), true, 0, 0} : Repaired{std::string(bytes), false, 1, 0};
}

} // namespace

Repaired Repair(std::string_view bytes, const Verdict& verdict, const DetectOptions& options) {
    const bool known = !verdict.candidates.empty();
    const bool clean = verdict.answer == Answer::Clean;
    // What is in another language's set is left alone as a whole, like what is no text.
    if (clean && (!known || !IsUtf8(bytes)))
        return {std::string(bytes), false, 0, 0};
    const bool oneLine = bytes.find('\n') >= bytes.size() - 1;
    if (clean && oneLine)
        return {std::string(bytes), false, 0, 0};
    const Chain& chain = verdict.candidates.front().chain;
    if (oneLine || chain.debris || chain.stored == Set::Utf16Le || chain.stored == Set::Utf16Be)
        return RepairWhole(bytes, verdict);
    return Lines(bytes, verdict, options).Take();
}

} // namespace quillshift::wizard
