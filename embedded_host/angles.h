// Angles of the host: millionths of a degree, counter-clockwise on a page whose y grows downward.
#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>

#include "host/egf_small.h"

namespace egfhost {

// A turn as the cosine and sine of its angle. Quarter turns are exact.
struct Turn {
  double cosine;
  double sine;
};

inline Turn turnOf(std::int64_t millionths) {
  if (millionths == 0) return {1.0, 0.0};
  constexpr std::int64_t kQuarter = egfsvg::kFullTurn / 4;
  const std::int64_t angle =
      ((millionths % egfsvg::kFullTurn) + egfsvg::kFullTurn) % egfsvg::kFullTurn;
  if (angle % kQuarter == 0) {
    constexpr Turn kQuarters[] = {{1.0, 0.0}, {0.0, 1.0}, {-1.0, 0.0}, {0.0, -1.0}};
    return kQuarters[angle / kQuarter];
  }
  const double radians =
      static_cast<double>(angle) / egfsvg::kMillionths / 180.0 * std::numbers::pi;
  return {std::cos(radians), std::sin(radians)};
}

// How far an arc runs from start to end, in (0, full turn]; equal ends are a full turn.
inline std::int64_t sweepOf(std::int64_t start, std::int64_t end) {
  const std::int64_t sweep = (end - start) % egfsvg::kFullTurn;
  return sweep <= 0 ? sweep + egfsvg::kFullTurn : sweep;
}

inline bool isFullTurn(std::int64_t start, std::int64_t end) {
  return (end - start) % egfsvg::kFullTurn == 0;
}

}  // namespace egfhost
