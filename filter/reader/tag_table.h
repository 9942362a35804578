// What a walk over tags does at each: rows of a tag and a member function, looked up directly.
#pragma once

#include <array>
#include <cstddef>

#include "model/codes.h"

namespace egfsvg {

template <class Work>
struct TagRow {
  int tag;
  Work work;
};

template <class Work>
class TagTable {
 public:
  template <std::size_t N>
  constexpr explicit TagTable(const TagRow<Work> (&rows)[N]) {
    for (const auto& row : rows) works_[slotOf(row.tag)] = row.work;
  }

  /// Null for a tag without a row.
  constexpr Work find(int tag) const {
    const std::size_t slot = slotOf(tag);
    return slot < kSlots ? works_[slot] : nullptr;
  }

 private:
  static constexpr int kOpeners = 48;        // codes of opening tags and of references
  static constexpr int kFirstCloser = 1000;  // closing tags follow each other from here
  static constexpr std::size_t kSlots = kOpeners + 32;

  static constexpr std::size_t slotOf(int tag) {
    if (tag < 0) return kSlots;
    if (tag < kFirstCloser) return tag < kOpeners ? static_cast<std::size_t>(tag) : kSlots;
    return static_cast<std::size_t>(tag - kFirstCloser) + kOpeners;
  }

  std::array<Work, kSlots> works_{};
};

}  // namespace egfsvg
