#include "base/BlockHeights.h"

#include <algorithm>
#include <numeric>

namespace quillshift {
namespace {

constexpr std::size_t kLeaf = 512; // blocks in a new leaf; twice as many are parted

std::int64_t Sum(std::vector<BlockHeights::Block>::const_iterator begin,
                 std::vector<BlockHeights::Block>::const_iterator end) {
    return std::accumulate(
        begin, end, std::int64_t(0),
        [](std::int64_t sum, const BlockHeights::Block& block) { return sum + block.height; });
}

} // namespace

// The place behind the last block is in a leaf behind the last.
BlockHeights::Place BlockHeights::Find(std::size_t index) const {
    std::size_t leaf = 0;
    for (; leaf < leaves_.size() && index >= leaves_[leaf].blocks.size(); ++leaf)
        index -= leaves_[leaf].blocks.size();
    return {leaf, index};
}

BlockHeights::Block BlockHeights::At(std::size_t index) const {
    const Place place = Find(index);
    return leaves_[place.leaf].blocks[place.inside];
}

void BlockHeights::Set(std::size_t index, Block block) {
    const Place place = Find(index);
    Block& old = leaves_[place.leaf].blocks[place.inside];
    leaves_[place.leaf].height += block.height - old.height;
    height_ += block.height - old.height;
    old = block;
}

void BlockHeights::Replace(std::size_t first, std::size_t count, const std::vector<Block>& by) {
    Erase(first, count);
    Insert(first, by);
}

void BlockHeights::Erase(std::size_t first, std::size_t count) {
    count_ -= count;
    auto [leaf, inside] = Find(first);
    const std::size_t firstLeaf = leaf;
    for (; count > 0; ++leaf, inside = 0) {
        std::vector<Block>& blocks = leaves_[leaf].blocks;
        const auto begin = blocks.begin() + static_cast<std::ptrdiff_t>(inside);
        const auto end = begin + static_cast<std::ptrdiff_t>(std::min(count, blocks.size() - inside));
        const std::int64_t gone = Sum(begin, end);
        count -= static_cast<std::size_t>(end - begin);
        blocks.erase(begin, end);
        leaves_[leaf].height -= gone;
        height_ -= gone;
    }
    const auto from = leaves_.begin() + static_cast<std::ptrdiff_t>(firstLeaf);
    const auto to = leaves_.begin() + static_cast<std::ptrdiff_t>(leaf);
    leaves_.erase(std::remove_if(from, to, [](const Leaf& each) { return each.blocks.empty(); }), to);
}

void BlockHeights::Insert(std::size_t first, const std::vector<Block>& blocks) {
    if (blocks.empty())
        return;
    auto [leaf, inside] = Find(first);
    if (leaf == leaves_.size()) { // at the end
        if (leaves_.empty())
            leaves_.emplace_back();
        leaf = leaves_.size() - 1;
        inside = leaves_[leaf].blocks.size();
    }
    std::vector<Block>& into = leaves_[leaf].blocks;
    into.insert(into.begin() + static_cast<std::ptrdiff_t>(inside), blocks.begin(), blocks.end());
    const std::int64_t came = Sum(blocks.begin(), blocks.end());
    leaves_[leaf].height += came;
    height_ += came;
    count_ += blocks.size();
    if (into.size() <= 2 * kLeaf)
        return;
    const std::vector<Block> all = std::move(into);
    std::vector<Leaf> parts;
    for (auto begin = all.begin(); begin != all.end();) {
        const auto end = begin + std::min<std::ptrdiff_t>(kLeaf, all.end() - begin);
        parts.push_back({{begin, end}, Sum(begin, end)});
        begin = end;
    }
    const auto at = leaves_.erase(leaves_.begin() + static_cast<std::ptrdiff_t>(leaf));
    leaves_.insert(at, std::make_move_iterator(parts.begin()), std::make_move_iterator(parts.end()));
}

std::int64_t BlockHeights::Above(std::size_t index) const {
    const Place place = Find(index);
    std::int64_t sum = 0;
    for (std::size_t leaf = 0; leaf < place.leaf; ++leaf)
        sum += leaves_[leaf].height;
    if (place.inside > 0) {
        const auto begin = leaves_[place.leaf].blocks.begin();
        sum += Sum(begin, begin + static_cast<std::ptrdiff_t>(place.inside));
    }
    return sum;
}

std::size_t BlockHeights::BlockAt(std::int64_t place) const {
    if (place >= height_)
        return count_ - 1;
    std::size_t index = 0;
    std::size_t leaf = 0;
    for (; place >= leaves_[leaf].height; ++leaf) {
        place -= leaves_[leaf].height;
        index += leaves_[leaf].blocks.size();
    }
    for (const Block& block : leaves_[leaf].blocks) {
        if (place < block.height)
            break;
        place -= block.height;
        ++index;
    }
    return index;
}

} // namespace quillshift
