// The sizes that the slots of small blocks come in: header, payload and red zone together.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace egfhost {

inline constexpr std::size_t kGrain = 16;  // slot sizes are multiples of it
inline constexpr std::size_t kSlotMin = 2 * kGrain;
inline constexpr std::size_t kSlotMax = 8192;  // larger places are runs of pages
// Up to here every multiple is a slot size, then sixteen sizes for each doubling.
inline constexpr std::size_t kLinearSlotMax = 1024;
inline constexpr std::size_t kStepsPerDoubling = 16;
inline constexpr std::size_t kClasses = 111;

struct SizeClasses {
  std::array<std::uint32_t, kClasses> slotSize{};
  std::array<std::uint8_t, kSlotMax / kGrain + 1> byGrains{};  // smallest class of so many grains

  constexpr std::size_t classFor(std::size_t slot) const {
    return byGrains[(slot + kGrain - 1) / kGrain];
  }
  // The largest class that fits into a gap of at least kSlotMin bytes.
  constexpr std::size_t classWithin(std::size_t gap) const {
    if (gap >= kSlotMax) return kClasses - 1;
    const std::size_t above = classFor(gap);
    return slotSize[above] <= gap ? above : above - 1;
  }
};

consteval SizeClasses makeSizeClasses() {
  SizeClasses made{};
  std::size_t count = 0;
  std::size_t step = kGrain;
  for (std::size_t size = kSlotMin; size <= kSlotMax; size += step) {
    made.slotSize[count++] = static_cast<std::uint32_t>(size);
    const bool doubled = (size & (size - 1)) == 0;
    if (size >= kLinearSlotMax && doubled) step = size / kStepsPerDoubling;
  }
  std::size_t fitting = 0;
  for (std::size_t grains = 0; grains < made.byGrains.size(); ++grains) {
    while (made.slotSize[fitting] < grains * kGrain) ++fitting;
    made.byGrains[grains] = static_cast<std::uint8_t>(fitting);
  }
  return made;
}

inline constexpr SizeClasses kSizeClasses = makeSizeClasses();
static_assert(kSizeClasses.slotSize[kClasses - 1] == kSlotMax);

}  // namespace egfhost
