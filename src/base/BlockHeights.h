#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillshift {

/// The heights of a row of blocks that stand below each other, in any unit: where each of them is, and which
/// one is at a place. A tree of two levels: changes and questions take a microsecond or two with a million
/// blocks.
class BlockHeights {
public:
    struct Block {
        std::int32_t height = 0; ///< more than 0
        std::int32_t lines = 0;  ///< 0 while they are not counted, and the height is an estimate

        bool operator==(const Block&) const = default;
    };

    std::size_t Count() const { return count_; }
    /// Of all blocks.
    std::int64_t Height() const { return height_; }

    Block At(std::size_t index) const;
    void Set(std::size_t index, Block block);
    /// Puts others in the place of so many blocks from `first` on.
    void Replace(std::size_t first, std::size_t count, const std::vector<Block>& by);

    /// Height of all blocks before this one, which may be the one behind the last.
    std::int64_t Above(std::size_t index) const;
    /// The block that covers a place; the first one above all, the last one below. There is at least one.
    std::size_t BlockAt(std::int64_t place) const;

private:
    struct Leaf {
        std::vector<Block> blocks;
        std::int64_t height = 0;
    };
    struct Place {
        std::size_t leaf;
        std::size_t inside;
    };

    Place Find(std::size_t index) const;
    void Erase(std::size_t first, std::size_t count);
    void Insert(std::size_t first, const std::vector<Block>& blocks);

    std::vector<Leaf> leaves_; // none is empty
    std::size_t count_ = 0;
    std::int64_t height_ = 0;
};

} // namespace quillshift
