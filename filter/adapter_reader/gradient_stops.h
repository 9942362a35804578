// The stops of a gradient as a ramp takes them: all, or the ones that matter most when the record
// has no room for all.
#pragma once

#include <cstdint>

#include "model/elements.h"
#include "model/rmm_allocator.h"

namespace egfsvg {

class GradientStops {
 public:
  /// At most `room` stops of the gradient (at least 2): stops equal to their neighbour go first,
  /// then the inner stops whose loss changes the ramp least. The first and the last stay.
  GradientStops(const _svg_gradient& gradient, int room);

  /// False when memory ran out.
  bool ready() const { return ready_; }
  int count() const { return count_; }
  const _svg_stop& operator[](int index) const {
    return kept_.empty() ? stops_[index] : *kept_[index];
  }

 private:
  void dropEqual();
  void dropLeast();

  const _svg_stop* stops_;
  int count_;
  bool ready_ = true;
  GrowingArray<const _svg_stop*> kept_;  // empty while all stops are taken
};

/// An opacity as a byte, 0 to 255.
std::uint8_t alphaOf(double opacity);

}  // namespace egfsvg
