// What the rule of a class makes of shapes. Sheets have few classes and drawings many elements of
// each, most of which bring the same inherited style: then the result of the first is the result of
// all. A result is kept with the style that it was made from and stands only for an equal one, byte
// by byte.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "reader/shape_style.h"

namespace egfsvg {

class ClassMemo {
 public:
  /// Makes of the style what the rule of a class made of an equal one; false when that is not
  /// known.
  bool replay(std::string_view name, ShapeStyle& style) const;

  enum class Former { kStays, kGoes };
  /// Keeps a result; of one from another style `former` decides. Neither of the two styles owns
  /// anything. Without memory, and beyond the capacity, it is not kept.
  void keep(std::string_view name, const ShapeStyle& before, const ShapeStyle& after,
            Former former);
  void forget();

 private:
  static constexpr std::size_t kLongest = 56;  // bytes of a name that is kept
  static constexpr std::int32_t kMost = 512;   // results
  static constexpr std::size_t kSlots = 2 * kMost;

  struct Result {
    std::uint32_t hash;
    std::uint32_t length;
    char name[kLongest];
    ShapeStyle before;
    ShapeStyle after;

    bool isOf(std::uint32_t hashed, std::string_view other) const;
  };

  /// The slot of a class, or the free one where it would stand.
  std::size_t slotOf(std::uint32_t hash, std::string_view name) const;

  std::array<std::uint16_t, kSlots> slots_{};  // open-addressed: numbers of results from 1
  GrowingArray<Result> results_{RMM_SITE};
};

}  // namespace egfsvg
