// Two doubles at once: the coordinates of a point. SSE2 where there is any for what the compiler's
// own vectors lack, else one by one, with the same results.
#pragma once

#include <cmath>
#include <cstdint>

#include "embedded_host/float_pair.h"

namespace egfhost {

using DoublePair [[gnu::vector_size(2 * sizeof(double))]] = double;
// For each of the two all bits or none.
using PairMask [[gnu::vector_size(2 * sizeof(double))]] = std::int64_t;

// One of the two, twice.
template <int kPlace>
DoublePair twice(DoublePair pair) {
  return __builtin_shufflevector(pair, pair, kPlace, kPlace);
}

#if defined(__SSE2__)

inline DoublePair doublesAt(const _mpl_spacept_tag* point) {
  return _mm_cvtps_pd(FloatPair::at(point).both);
}
inline DoublePair squareRoot(DoublePair value) { return _mm_sqrt_pd(value); }
inline FloatPair rounded(DoublePair value) { return {_mm_cvtpd_ps(value)}; }

#else

inline DoublePair doublesAt(const _mpl_spacept_tag* point) {
  return DoublePair{point->x, point->y};
}
inline DoublePair squareRoot(DoublePair value) {
  return DoublePair{std::sqrt(value[0]), std::sqrt(value[1])};
}
inline FloatPair rounded(DoublePair value) {
  return FloatPair::of(static_cast<float>(value[0]), static_cast<float>(value[1]));
}

#endif

// A magnitude that is not negative, with the sign of another value.
inline DoublePair withSignOf(DoublePair magnitude, DoublePair sign) {
  const PairMask kSigns = {INT64_MIN, INT64_MIN};
  return reinterpret_cast<DoublePair>(reinterpret_cast<PairMask>(magnitude) |
                                      (reinterpret_cast<PairMask>(sign) & kSigns));
}

// One of two pairs as a whole, by the mask of one place.
template <int kPlace>
DoublePair chosen(PairMask mask, DoublePair yes, DoublePair no) {
  const PairMask both = __builtin_shufflevector(mask, mask, kPlace, kPlace);
  return reinterpret_cast<DoublePair>((both & reinterpret_cast<PairMask>(yes)) |
                                      (~both & reinterpret_cast<PairMask>(no)));
}

}  // namespace egfhost
