#include "wizard/detect/Hypotheses.h"

#include "wizard/detect/Model.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <unordered_set>

namespace quillshift::wizard {

namespace {

constexpr std::size_t fullyScored = 40;

/// What an explanation costs before a byte is seen, in bits.
constexpr double nameBits[setCount] = {3, 2, 3, 5, 5, 5, 4, 5, 4, 0, 2, 2};
constexpr double layerBits = 6; ///< the first wrong reading
constexpr double nextLayerBits = 9;
constexpr double storedAgainBits = 6; ///< that a text read wrongly was not saved as UTF-8
constexpr double lossBits = 4;
/// What it costs that a text is not Russian, as most of what is garbled here is.
constexpr double otherLanguageBits[setCount] = {14, 9, 14, 10, 14, 14, 4, 8, 4, 6, 3, 3};
/// Under so many letters of the language there is next to nothing to be repaired.
constexpr std::size_t fewestLetters = 3;
constexpr double fewLettersBits = 20;
constexpr double leaveAloneGain = 2;
constexpr double cleanGain = 2; ///< the same once more for Russian in UTF-8, which is most of what comes

/// The order of the symbols, shared by all readings that differ in the alphabet only.
struct Order {
    std::vector<std::uint8_t> symbols;
    std::vector<std::uint32_t> counts;
};

struct Node {
    std::shared_ptr<const Order> order;
    std::vector<char16_t> alphabet;
    Chain chain;
    double prior = 0; ///< of the chain, and of what was lost
    double rough = 0;
};

/// Collects characters into symbols. A character beyond the basic plane counts as an ideograph.
class Collector {
public:
    bool Add(std::int32_t character) {
        const auto unit = static_cast<char16_t>(character < 0        ? lostMark
                                                : character > 0xFFFF ? 0x4E00
                                                                     : character);
        std::int16_t& number = numbers_[unit];
        if (number == 0) {
            if (alphabet_.size() == 256)
                return false;
            alphabet_.push_back(unit);
            order_->counts.push_back(0);
            number = static_cast<std::int16_t>(alphabet_.size());
        }
        order_->symbols.push_back(static_cast<std::uint8_t>(number - 1));
        ++order_->counts[static_cast<std::size_t>(number) - 1];
        return true;
    }
    ~Collector() {
        for (const char16_t unit : alphabet_)
            numbers_[unit] = 0;
    }
    Collector() = default;
    Collector(const Collector&) = delete;
    Collector& operator=(const Collector&) = delete;

    Node Take(Chain chain, double prior) { return {order_, alphabet_, std::move(chain), prior, 0}; }

private:
    static thread_local std::array<std::int16_t, 0x10000> numbers_;
    std::shared_ptr<Order> order_ = std::make_shared<Order>();
    std::vector<char16_t> alphabet_;
};

thread_local std::array<std::int16_t, 0x10000> Collector::numbers_{};

/// Reads UTF-8 with a few faults forgiven, each at a price; none where it is no UTF-8, or nothing but ASCII.
std::optional<Node> ReadUtf8(std::string_view bytes, const Chain& chain, double prior) {
    Collector collector;
    std::size_t faults = 0, good = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::int32_t character = chain.layers.empty() ? NextUtf8(bytes, at) : NextLossyUtf8(bytes, at);
        faults += character < 0;
        good += character >= 0x80;
        if (!collector.Add(character))
            return std::nullopt;
    }
    if (good == 0 || faults * 4 > good)
        return std::nullopt;
    return collector.Take(chain, prior + lossBits * static_cast<double>(faults));
}

std::optional<Node> ReadStored(Set set, std::string_view sample) {
    const Chain chain{set, {}};
    const double prior = nameBits[static_cast<std::size_t>(set)];
    if (set == Set::Utf8)
        return ReadUtf8(sample, chain, prior);
    Collector collector;
    for (const char byte : sample)
        collector.Add(CharacterOf(set, static_cast<std::uint8_t>(byte)));
    return collector.Take(chain, prior);
}

/// The bytes that the symbols were read from; a lost mark is 0x1FF. None where the set does not hold one of
/// them.
std::optional<std::vector<std::uint16_t>> BytesOf(const Node& node, Set readAs) {
    std::vector<std::uint16_t> bytes(node.alphabet.size());
    bool high = false;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const int byte = node.alphabet[i] == lostMark ? 0x1FF : ByteOf(readAs, node.alphabet[i]);
        if (byte < 0)
            return std::nullopt;
        high = high || byte >= 0x80;
        bytes[i] = static_cast<std::uint16_t>(byte);
    }
    return high ? std::optional(std::move(bytes)) : std::nullopt;
}

std::optional<Node> UndoLayer(const Node& node, Layer layer, const std::vector<std::uint16_t>& bytes) {
    Chain chain = node.chain;
    chain.layers.insert(chain.layers.begin(), layer);
    const double storedBits = node.chain.stored == Set::Utf8 ? 0 : storedAgainBits;
    const double prior = node.prior + (node.chain.layers.empty() ? layerBits + storedBits : nextLayerBits);
    if (layer.writtenIn == Set::Utf8) {
        std::string text;
        text.reserve(node.order->symbols.size());
        for (const std::uint8_t symbol : node.order->symbols)
            text += static_cast<char>(bytes[symbol]);
        return ReadUtf8(text, chain, prior);
    }
    std::vector<char16_t> alphabet(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i)
        alphabet[i] =
            bytes[i] == 0x1FF ? lostMark : CharacterOf(layer.writtenIn, static_cast<std::uint8_t>(bytes[i]));
    return Node{node.order, std::move(alphabet), std::move(chain), prior, 0};
}

/// The fewest bits so far: what costs more than all of them need not be counted to its end.
class Fewest {
public:
    double Least() const { return bits_.front(); }
    double Most() const { return bits_.back(); }
    void Add(double bits) {
        const auto place = std::upper_bound(bits_.begin(), bits_.end(), bits);
        if (place != bits_.end()) {
            std::copy_backward(place, bits_.end() - 1, bits_.end());
            *place = bits;
        }
    }

private:
    static constexpr std::size_t kept = 8; ///< more than are shown, as some of them say the same
    std::vector<double> bits_ = std::vector<double>(kept, std::numeric_limits<double>::infinity());
};

class Search {
public:
    Search(std::string_view sample, std::size_t depth, const std::vector<Set>& exclude)
        : depth_(depth), exclude_(exclude) {
        for (int set = 0; set <= static_cast<int>(Set::Utf8); ++set) {
            if (Excluded(static_cast<Set>(set)))
                continue;
            if (auto node = ReadStored(static_cast<Set>(set), sample))
                Visit(std::move(*node));
        }
        AddBinary(sample);
    }

    std::vector<Hypothesis> Take() {
        std::sort(leaves_.begin(), leaves_.end(),
                  [](const Node& a, const Node& b) { return a.rough < b.rough; });
        leaves_.resize(std::min(leaves_.size(), fullyScored));
        for (const Node& node : leaves_)
            Add(node, 0, fewestRead_.Most());
        AddOtherLanguages();
        std::stable_sort(found_.begin(), found_.end(),
                         [](const auto& a, const auto& b) { return a.bits < b.bits; });
        return std::move(found_);
    }

private:
    bool Excluded(Set set) const {
        return std::find(exclude_.begin(), exclude_.end(), set) != exclude_.end();
    }

    /// Counts what a reading costs in one language, and takes it unless that is more than `most` or than
    /// enough others. Gives the bits.
    double Add(const Node& node, std::size_t model, double most) {
        const bool asItIs = node.chain.layers.empty() && (node.chain.stored == Set::Utf8 || model != 0);
        double bits = node.prior;
        if (asItIs)
            bits -= leaveAloneGain + (model == 0 ? cleanGain : 0);
        else if (Models()[model].Letters(node.order->counts, node.alphabet) < fewestLetters)
            bits += fewLettersBits;
        if (model != 0)
            bits += otherLanguageBits[static_cast<std::size_t>(node.chain.stored)];
        Fewest& fewest = asItIs ? fewestAlone_ : fewestRead_;
        most = std::min(most, fewest.Most());
        bits += Models()[model].Bits({node.order->symbols, node.alphabet}, most - bits);
        if (bits <= most) {
            fewest.Add(bits);
            found_.push_back({node.chain, asItIs, modelData[model].language, bits, node.prior});
        }
        return bits;
    }

    /// Other languages explain the same text, of which the likeliest is enough; and none is needed that costs
    /// so much more than the best that it could not make this unsure.
    void AddOtherLanguages() {
        constexpr double farBits = 100, farBitsASymbol = 1;
        const double least = std::min(fewestRead_.Least(), fewestAlone_.Least());
        for (const Node& root : roots_) {
            double most = least + farBits + farBitsASymbol * static_cast<double>(root.order->symbols.size());
            for (std::size_t model = 1; model < modelCount; ++model)
                most = std::min(most, Add(root, model, most));
        }
    }

    void AddBinary(std::string_view sample) {
        double bits = 30;
        for (const char byte : sample)
            bits += static_cast<std::uint8_t>(byte) < 0x80 ? 5 : 8;
        found_.push_back({{Set::Utf8, {}}, true, "binary", bits, 30});
    }

    bool Known(const Node& node) {
        std::string key;
        const auto address = reinterpret_cast<std::uintptr_t>(node.order.get());
        key.append(reinterpret_cast<const char*>(&address), sizeof address);
        key.append(reinterpret_cast<const char*>(node.alphabet.data()),
                   node.alphabet.size() * sizeof(char16_t));
        return !known_.insert(std::move(key)).second;
    }

    void Visit(Node root) {
        const Set stored = root.chain.stored;
        roots_.push_back(root);
        if (stored != Set::Greek && stored != Set::Latin && stored != Set::Dos437)
            Add(root, 0, std::numeric_limits<double>::infinity());
        // What is stored in one of the sets of other scripts was not garbled before.
        if (stored == Set::Greek || stored == Set::Koi8U)
            return;
        keep_.push_back(root.order);
        Known(root);
        std::vector<Node> level;
        level.push_back(std::move(root));
        const std::size_t depth = stored == Set::Utf8 ? depth_ : std::min<std::size_t>(depth_, 1);
        for (std::size_t step = 0; step < depth; ++step)
            level = Deeper(level);
    }

    /// All the readings with one layer more; each text once.
    std::vector<Node> Deeper(const std::vector<Node>& level) {
        std::vector<Node> next;
        for (const Node& node : level)
            for (int readAs = 0; readAs <= static_cast<int>(Set::Dos437); ++readAs) {
                const Set reader = static_cast<Set>(readAs);
                if (reader == Set::Koi8U || Excluded(reader) ||
                    (node.chain.layers.empty() && reader == node.chain.stored))
                    continue;
                if (!node.chain.layers.empty() && node.chain.layers.front().writtenIn == reader)
                    continue; // one reading from the first set to the last says the same
                if (const auto bytes = BytesOf(node, reader))
                    AddWriters(next, node, reader, *bytes);
            }
        return next;
    }

    void AddWriters(std::vector<Node>& next, const Node& node, Set reader,
                    const std::vector<std::uint16_t>& bytes) {
        for (const Set writer : {Set::Dos866, Set::Windows1251, Set::Koi8R, Set::Iso5, Set::Mac, Set::Utf8}) {
            if (writer == reader || Excluded(writer))
                continue;
            auto child = UndoLayer(node, {writer, reader}, bytes);
            if (!child || Known(*child))
                continue;
            if (writer == Set::Utf8)
                keep_.push_back(child->order);
            child->rough = Models()[0].RoughBits(child->order->counts, child->alphabet) + child->prior;
            leaves_.push_back(*child);
            next.push_back(std::move(*child));
        }
    }

    std::size_t depth_;
    const std::vector<Set>& exclude_;
    std::vector<std::shared_ptr<const Order>> keep_; ///< so that an address stands for one order
    std::unordered_set<std::string> known_;
    std::vector<Node> roots_, leaves_;
    std::vector<Hypothesis> found_;
    Fewest fewestAlone_, fewestRead_;
};

} // namespace

Fit RussianFit(std::string_view text) {
    constexpr double letterBits = 4.8, blankBits = 3, signBits = 6, startBits = 8, strangeBits = 1e9;
    const auto node = ReadUtf8(text, {}, 0);
    if (!node)
        return {strangeBits, false};
    const double bits = Models()[0].Bits({node->order->symbols, node->alphabet});
    const std::size_t letters = Models()[0].Letters(node->order->counts, node->alphabet);
    std::size_t others = 0;
    double expected = startBits + letterBits * static_cast<double>(letters);
    for (std::size_t i = 0; i < node->alphabet.size(); ++i) {
        const std::size_t count = node->order->counts[i];
        others += node->alphabet[i] >= 0x80 ? count : 0;
        if (node->alphabet[i] < 0x80)
            expected += static_cast<double>(count) * (node->alphabet[i] <= u' ' ? blankBits : signBits);
    }
    others -= letters;
    expected += signBits * static_cast<double>(others);
    // A letter of a related language or a low quotation mark is what the nearest wrong set shows.
    const bool strange = std::any_of(node->alphabet.begin(), node->alphabet.end(), [](char16_t c) {
        return (c >= 0x400 && c < 0x530 && (c < 0x410 || c > 0x44F) && c != u'Ё' && c != u'ё') || c == u'‚' ||
               c == u'€';
    });
    return {bits, bits <= expected && others * 4 <= letters && !strange};
}

std::vector<Hypothesis> Hypotheses(std::string_view sample, std::size_t depth,
                                   const std::vector<Set>& exclude) {
    return Search(sample, depth, exclude).Take();
}

} // namespace quillshift::wizard
