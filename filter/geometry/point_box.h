// The box of points that are at hand. Both coordinates of a point are compared at once with SSE2,
// else one by one, with the same results.
#pragma once

#include <cstdint>
#include <cstring>
#include <limits>

#include "host/egf_small.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace egfsvg {

/// The box in plain C++. Of equal coordinates the first one stays, as zeros have a sign.
class PlainPointBox {
 public:
  void include(const _mpl_spacept_tag* point) {
    const float x = point->x;
    const float y = point->y;
    if (x < box_.left) box_.left = x;
    if (x > box_.right) box_.right = x;
    if (y < box_.top) box_.top = y;
    if (y > box_.bottom) box_.bottom = y;
    finite_ = finite_ && x - x == 0.0F && y - y == 0.0F;
  }

  /// Whether no coordinate is an infinity or a NaN.
  bool isFinite() const { return finite_; }
  /// Of at least one point, all of them finite.
  _mpl_spacerect_tag rect() const { return box_; }

 private:
  static constexpr float kInfinity = std::numeric_limits<float>::infinity();
  _mpl_spacerect_tag box_{kInfinity, -kInfinity, kInfinity, -kInfinity};
  bool finite_ = true;
};

#if defined(__SSE2__)

class PointBox {
 public:
  [[gnu::always_inline]] void include(const _mpl_spacept_tag* point) {
    // The upper half is zeros and never looked at.
    const __m128 both = _mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(point)));
    low_ = _mm_min_ps(both, low_);  // the second one, where neither is less
    high_ = _mm_max_ps(both, high_);
    differences_ = _mm_or_ps(differences_, _mm_sub_ps(both, both));
  }

  /// What is finite differs from itself by zero.
  bool isFinite() const { return _mm_cvtsi128_si64(_mm_castps_si128(differences_)) == 0; }

  _mpl_spacerect_tag rect() const {
    const __m128 sides = _mm_unpacklo_ps(low_, high_);
    _mpl_spacerect_tag box;
    std::memcpy(&box, &sides, sizeof box);
    return box;
  }

 private:
  __m128 low_ = _mm_set1_ps(std::numeric_limits<float>::infinity());
  __m128 high_ = _mm_set1_ps(-std::numeric_limits<float>::infinity());
  __m128 differences_ = _mm_setzero_ps();
};

#else

using PointBox = PlainPointBox;

#endif

}  // namespace egfsvg
