// The points that objects stand on.
#pragma once

#include <cstddef>
#include <cstdint>

#include "host/egf_bits.h"
#include "host/egf_objects.h"

namespace egfhost {

// A count of a record; a negative one is none.
inline std::size_t positive(std::int64_t count) {
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

// The points of a polygon, a curve or a polyline.
struct PointRun {
  const _mpl_spacept_tag* at;
  std::size_t count;
  bool curve;
};

inline PointRun pointsOf(const egfsvg::EgfPolygon* polygon) {
  const egfsvg::PointArray points = polygon->points;
  return {points.get(), points ? positive(polygon->pointCount) : 0,
          egfsvg::CurveBits::get(polygon->pen.modeFlags) == 1};
}

inline PointRun pointsOf(const egfsvg::EgfPolyline* polyline) {
  const egfsvg::PointArray points = polyline->points;
  return {points.get(), points ? polyline->pointCount : 0, false};
}

}  // namespace egfhost
