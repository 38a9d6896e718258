#include "wizard/command/Filter.h"

#include "wizard/command/LineWriter.h"
#include "wizard/detect/Pieces.h"
#include "wizard/detect/Repair.h"

#include <algorithm>
#include <utility>

namespace quillshift::wizard {

namespace {

constexpr std::size_t beginningBytes = 1 << 20;
constexpr std::size_t blockBytes = 128 << 10;

std::size_t FirstHigh(std::string_view bytes, std::size_t from) {
    const auto isHigh = [](char c) { return static_cast<std::uint8_t>(c) >= 0x80; };
    return static_cast<std::size_t>(
        std::find_if(bytes.begin() + static_cast<std::ptrdiff_t>(from), bytes.end(), isHigh) - bytes.begin());
}

/// Adds what is there, and waits only where nothing is. False at the end.
bool ReadSome(std::istream& in, std::string& bytes) {
    if (in.peek() == std::istream::traits_type::eof())
        return false;
    const std::size_t size = bytes.size();
    const auto most = static_cast<std::streamsize>(blockBytes);
    const auto count = std::clamp<std::streamsize>(in.rdbuf()->in_avail(), 1, most);
    bytes.resize(size + static_cast<std::size_t>(count));
    bytes.resize(size + static_cast<std::size_t>(in.rdbuf()->sgetn(bytes.data() + size, count)));
    return true;
}

/// See `Beginning`. `high`: where the first byte is that is no ASCII. False at the end of what comes in.
bool ReadBeginning(std::istream& in, std::string& bytes, std::size_t& high) {
    high = FirstHigh(bytes, 0);
    while (bytes.size() < (high < bytes.size() ? high : 0) + beginningBytes) {
        if (!ReadSome(in, bytes))
            return false;
        high = FirstHigh(bytes, high);
    }
    return true;
}

/// The way of bytes to text where it is known: what was written down in ASCII is read back first.
class Stream {
public:
    Stream(const Options& options, const Talk& talk)
        : options_(options), talk_(talk), writer_(talk.out, options.target) {}

    int Run(std::istream& in) {
        bool more = true;
        while (more && talk_.out && !chain_ && !passes_)
            more = Begin(in);
        while (more && talk_.out) {
            more = ReadSome(in, bytes_);
            Advance(!more);
            talk_.out.flush();
        }
        if (in.bad())
            return talk_.Fail("-", Word::CannotRead);
        return Told();
    }

private:
    /// Reads on to a verdict. False where all is done by it.
    bool Begin(std::istream& in) {
        std::size_t high = 0;
        const bool more = ReadBeginning(in, bytes_, high);
        if (!more && in.bad())
            return false;
        if (options_.from) {
            chain_ = options_.from;
            debris_ = std::exchange(chain_->debris, std::nullopt);
            writer_.SetStored(chain_->stored);
        } else if (!more) {
            return Whole();
        } else {
            Decide(high);
        }
        Advance(!more);
        return more;
    }

    /// All of it is there: nothing is written before all of it has been held against the verdict.
    bool Whole() {
        const Verdict verdict = Detect(bytes_, options_.detect);
        const Repaired repaired = Repair(bytes_, verdict, options_.detect);
        unsure_ += repaired.unsure;
        apart_ += repaired.apart;
        if (repaired.changed) {
            writer_.SetStored(verdict.candidates.front().chain.stored);
            writer_.Write(repaired.text, bytes_);
        } else {
            writer_.Pass(bytes_);
        }
        return false;
    }

    void Decide(std::size_t high) {
        const Verdict verdict = Detect(bytes_, options_.detect);
        if (verdict.candidates.empty()) { // ASCII so far
            const std::size_t end = bytes_.rfind('\n', high);
            const std::size_t done = end == bytes_.npos ? high : end + 1;
            writer_.Pass(std::string_view(bytes_).substr(0, done));
            bytes_.erase(0, done);
            passes_ = done == 0;
            return;
        }
        Chain chain = verdict.candidates.front().chain;
        std::string plain;
        std::string_view beginning = bytes_;
        if (chain.debris)
            beginning = plain =
                UndoDebris(*chain.debris, beginning.substr(0, WholePieces(*chain.debris, beginning)));
        debris_ = chain.debris;
        chain.debris.reset();
        beginning = beginning.substr(0, WholeLines(chain, beginning));
        Verdict onLines = verdict;
        for (Candidate& candidate : onLines.candidates)
            candidate.chain.debris.reset();
        const bool isClean = verdict.answer == Answer::Clean;
        passes_ = isClean && (verdict.candidates.front().language == "binary" || !IsUtf8(beginning));
        if (isClean)
            writer_.LeaveAlone();
        writer_.SetStored(chain.stored);
        const bool isUtf16 = chain.stored == Set::Utf16Le || chain.stored == Set::Utf16Be;
        const bool hasLines = !isUtf16 && (!debris_ || verdict.answer == Answer::Sure);
        if (!hasLines && (verdict.answer != Answer::Sure || !Lossless(chain, beginning))) {
            passes_ = true;
            ++unsure_;
        }
        if (hasLines && !passes_)
            lines_.emplace(beginning, onLines, options_.detect);
        chain_ = std::move(chain);
    }

    /// Does what can be done with what is there, and at the end all of it.
    void Advance(bool isEnd) {
        if (!chain_ && !passes_)
            return;
        if (passes_) {
            writer_.Pass(bytes_);
            bytes_.clear();
        } else if (debris_) {
            const std::size_t done = isEnd ? bytes_.size() : WholePieces(*debris_, bytes_);
            plain_ += UndoDebris(*debris_, std::string_view(bytes_).substr(0, done));
            bytes_.erase(0, done);
            TakeLines(plain_, isEnd);
        } else {
            TakeLines(bytes_, isEnd);
        }
    }

    void TakeLines(std::string& bytes, bool isEnd) {
        std::string_view rest = bytes;
        while (!rest.empty() && talk_.out) {
            const bool isLast = isEnd && rest.size() <= blockBytes;
            const std::string_view block = rest.substr(0, blockBytes);
            const std::size_t done = isLast ? rest.size() : WholeLines(*chain_, block);
            if (done == 0)
                break;
            Take(block.substr(0, done));
            rest.remove_prefix(done);
        }
        bytes.erase(0, bytes.size() - rest.size());
    }

    void Take(std::string_view block) {
        if (lines_)
            return writer_.Repair(*lines_, block);
        const Undone undone = Undo(*chain_, block);
        lost_ += undone.lost;
        writer_.Write(undone.text, block);
    }

    void Tell(Word word) const { talk_.err << "quillshift-wizard: " << Say(word, talk_.language) << '\n'; }

    int Told() const {
        const std::size_t apart = apart_ + (lines_ ? lines_->Apart() : 0);
        const std::size_t unsureOnes = unsure_ + (lines_ ? lines_->Unsure() : 0);
        if (writer_.IsUnfit())
            return talk_.Fail("-", Word::NotRepresentable);
        if (lost_ > 0)
            talk_.err << "quillshift-wizard: " << lost_ << ' ' << Say(Word::Lost, talk_.language) << '\n';
        if (apart > 0)
            Tell(Word::LinesApart);
        if (unsureOnes > 0)
            Tell(Word::LeftUnsure);
        return apart + unsureOnes + lost_ > 0 ? unsure : fine;
    }

    const Options& options_;
    const Talk& talk_;
    LineWriter writer_;
    std::string bytes_, plain_;  ///< what came in; with the debris undone
    std::optional<Chain> chain_; ///< once it is known
    std::optional<Debris> debris_;
    std::optional<LineRepair> lines_;
    bool passes_ = false;
    std::size_t unsure_ = 0, apart_ = 0, lost_ = 0;
};

} // namespace

std::optional<std::string> Beginning(std::istream& in) {
    std::string bytes;
    std::size_t high = 0;
    ReadBeginning(in, bytes, high);
    return in.bad() ? std::nullopt : std::optional(std::move(bytes));
}

int Filter(const Options& options, std::istream& in, const Talk& talk) {
    return Stream(options, talk).Run(in);
}

} // namespace quillshift::wizard
