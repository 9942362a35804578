// The commands of a path record, as the reader stores them and both adapters and the writer use
// them. Relative commands stay relative and arcs stay arcs in the record.
#pragma once

#include <cstdint>

namespace egfsvg {

/// Command codes. An even code from 4 on is the relative form of the code before it.
enum PathCommand : std::int32_t {
  kPathNone = 1,
  kPathClose = 2,
  kPathMoveAbs = 3,
  kPathMoveRel = 4,
  kPathLineAbs = 5,
  kPathLineRel = 6,
  kPathCubicAbs = 7,
  kPathCubicRel = 8,
  kPathQuadAbs = 9,
  kPathQuadRel = 10,
  kPathArcAbs = 11,
  kPathArcRel = 12,
  kPathHorizontalAbs = 13,
  kPathHorizontalRel = 14,
  kPathVerticalAbs = 15,
  kPathVerticalRel = 16,
  kPathSmoothCubicAbs = 17,
  kPathSmoothCubicRel = 18,
  kPathSmoothQuadAbs = 19,
  kPathSmoothQuadRel = 20,
};

/// Bounds of one path; parsing stops quietly there.
inline constexpr std::int32_t kMaxSubPaths = 65'535;
inline constexpr std::int32_t kMaxPathRecords = 4'000'000;

/// An absolute line to a point beyond this is dropped (user units, either axis).
inline constexpr double kMaxLineCoordinate = 25'000.0;

}  // namespace egfsvg
