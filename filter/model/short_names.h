// Constant tables of names that fit into one block of bytes: a look-up is one multiplication and
// one comparison, whatever the length. Longer names, and other spellings, stand in a NameIndex
// alone.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "model/byte_block.h"
#include "model/name_index.h"

namespace egfsvg {

/// The codes of `Count` names in `Slots` slots, a power of two. No two names share a slot: whoever
/// makes the table finds a multiplier for which that holds.
template <std::size_t Count, std::size_t Slots>
class ShortNameIndex {
  static_assert(std::has_single_bit(Slots) && Count < 255);

 public:
  /// Names that hold `excluded` are left out.
  constexpr ShortNameIndex(const NamedCode (&rows)[Count], std::uint64_t multiplier,
                           char excluded = '\0')
      : multiplier_(multiplier) {
    names_[0].fill('\xFF');  // no name: an empty slot leads here
    std::size_t place = 0;
    for (const NamedCode& row : rows) {
      const std::string_view name(row.name);
      if (name.size() > kByteBlockSize || name.find(excluded) != name.npos) continue;
      Text text{};
      for (std::size_t i = 0; i < name.size(); ++i) text[i] = name[i];
      std::uint8_t& slot = slots_[slotOf(halfOf(text, 0) + halfOf(text, kHalf))];
      if (slot != 0) isPerfect_ = false;
      slot = static_cast<std::uint8_t>(++place);
      names_[place] = text;
      codes_[place] = static_cast<std::int16_t>(row.code);
    }
  }

  constexpr bool isPerfect() const { return isPerfect_; }

  /// Looks for the name that is the block's first `length` bytes, as the table spells it. Zero
  /// bytes at its end do not count.
  bool find(const ByteBlock& block, std::size_t length, int& code) const {
    const ByteBlock name = block.first(length);
    const std::size_t place = slots_[slotOf(name.sum())];
    code = codes_[place];
    return name == ByteBlock::load(names_[place].data());
  }

 private:
  static constexpr std::size_t kHalf = kByteBlockSize / 2;
  static constexpr int kShift = 64 - std::countr_zero(Slots);
  using Text = std::array<char, kByteBlockSize>;

  constexpr std::size_t slotOf(std::uint64_t sum) const {
    return static_cast<std::size_t>(sum * multiplier_ >> kShift);
  }

  /// Eight bytes as they stand in memory.
  static constexpr std::uint64_t halfOf(const Text& text, std::size_t at) {
    std::array<char, kHalf> bytes{};
    for (std::size_t i = 0; i < kHalf; ++i) bytes[i] = text[at + i];
    return std::bit_cast<std::uint64_t>(bytes);
  }

  std::uint64_t multiplier_;
  bool isPerfect_ = true;
  std::array<Text, Count + 1> names_{};
  std::array<std::int16_t, Count + 1> codes_{};
  std::array<std::uint8_t, Slots> slots_{};
};

}  // namespace egfsvg
