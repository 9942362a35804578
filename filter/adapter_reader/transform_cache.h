// The products along the last transform list. Elements of one group share the head of their lists,
// so only what differs from the list before is multiplied again.
#pragma once

#include <cstdint>
#include <cstring>

#include "geometry/matrix.h"
#include "model/rmm_allocator.h"
#include "model/values.h"

namespace egfsvg {

/// What the numbers of a list depend on besides the list.
struct TransformScene {
  double resolution = 0.0;
  float viewportWidth = 0.0F;
  float viewportHeight = 0.0F;

  /// To the bit, so that equal scenes give equal products.
  bool operator==(const TransformScene& other) const {
    return std::memcmp(this, &other, sizeof other) == 0;
  }
};
static_assert(sizeof(TransformScene) == sizeof(double) + 2 * sizeof(float));

/// Which list something was computed from.
enum class ListStamp : std::uint64_t {
  kNone = 0,   // no list that is kept
  kEmpty = 1,  // the list without entries
  kFirst = 2,  // and so on, another one for each kept list
};

class TransformCache {
 public:
  /// Of any list: that of the kept list when it is the same, else kNone.
  ListStamp stampOf(const TransformScene& scene, const transformEntry* entries,
                    std::int32_t count) const;
  /// Of the list that was just gone through, which is kept unless something hindered.
  ListStamp stampOfLast(std::int32_t count) const {
    return steps_.count() == count ? stamp_ : ListStamp::kNone;
  }

  /// How many entries at the head of the list are those of the kept list; their product is stored.
  /// The kept list is cut to that head.
  std::int32_t match(const TransformScene& scene, const transformEntry* entries, std::int32_t count,
                     PlaneColumns& product);

  /// Keeps an entry behind the kept list. Does nothing when memory ran out, or once an entry before
  /// it could not be kept.
  void keep(const transformEntry& entry, std::int32_t position, const PlaneColumns& product);

 private:
  static constexpr std::int32_t kMostArgs = 6;

  struct Step {
    std::int32_t kind;
    std::int32_t argCount;
    _svg_value args[kMostArgs];
    PlaneColumns product;
  };

  static bool same(const Step& step, const transformEntry& entry);

  bool isKept(const transformEntry* entries, std::int32_t count) const;
  void changeStamp() { stamp_ = static_cast<ListStamp>(static_cast<std::uint64_t>(stamp_) + 1); }

  ListStamp stamp_ = ListStamp::kFirst;
  TransformScene scene_;
  GrowingArray<Step> steps_{RMM_SITE};
};

}  // namespace egfsvg
