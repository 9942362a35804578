// Finds equal dash patterns without walking the whole dash table. Patterns that agree to within the
// tolerance fall into the same cell or the next one.
#pragma once

#include <cstdint>
#include <span>

#include "model/rmm_allocator.h"

namespace egfsvg {

/// Segments agree when they differ by at most this many pixels.
inline constexpr double kDashTolerance = 1e-5;

class DashIndex {
 public:
  void clear();

  /// Enters the pattern of the next table position. False when memory ran out.
  bool add(std::span<const double> segments);

  /// Calls `agrees` with each table position whose pattern may equal this one, and gives the lowest
  /// one that it accepts, or -1.
  template <class Agrees>
  std::int32_t lowest(std::span<const double> segments, Agrees agrees) const {
    std::int32_t found = kNone;
    const std::int64_t cell = cellOf(segments);
    for (std::int64_t near = cell - 1; near <= cell + 1 && !heads_.empty(); ++near) {
      for (std::int32_t at = heads_[bucketOf(near)]; at != kNone; at = entries_[at].next) {
        if (entries_[at].cell == near && (found == kNone || at < found) && agrees(at)) found = at;
      }
    }
    return found;
  }

 private:
  static constexpr std::int32_t kNone = -1;

  struct Entry {
    std::int64_t cell;
    std::int32_t next;  // position of the next entry of the same bucket
  };

  static std::int64_t cellOf(std::span<const double> segments);
  std::int32_t bucketOf(std::int64_t cell) const;
  bool growHeads();

  GrowingArray<std::int32_t> heads_{RMM_SITE};  // a power of two of buckets
  GrowingArray<Entry> entries_{RMM_SITE};       // one for each table position
};

}  // namespace egfsvg
