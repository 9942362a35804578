// The colours that a palette was lately given, so that most colours of a page are not offered
// again.
#pragma once

#include <cstddef>
#include <cstdint>

namespace egfsvg {

class SeenColours {
 public:
  bool has(std::uint32_t word) const { return slots_[slotOf(word)] == keyOf(word); }
  void note(std::uint32_t word) { slots_[slotOf(word)] = keyOf(word); }
  void clear() {
    for (std::uint64_t& slot : slots_) slot = 0;
  }

 private:
  static constexpr int kSlotBits = 9;

  static std::uint64_t keyOf(std::uint32_t word) { return std::uint64_t{1} << 32 | word; }
  static std::size_t slotOf(std::uint32_t word) { return (word * 0x9E3779B1U) >> (32 - kSlotBits); }

  std::uint64_t slots_[std::size_t{1} << kSlotBits] = {};  // 0 is free
};

}  // namespace egfsvg
