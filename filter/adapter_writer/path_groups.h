// Polygons of many subpaths, cut into paths so that one path's text stays bounded.
#pragma once

#include <cstdint>

#include "host/egf_objects.h"

namespace egfsvg {

inline constexpr std::uint32_t kSubPathsInPath = 20;

/// The paths that a polygon is cut into.
inline std::uint32_t pathGroups(const EgfPolygon& polygon) {
  return polygon.subPathCount / kSubPathsInPath +
         (polygon.subPathCount % kSubPathsInPath != 0 ? 1 : 0);
}

}  // namespace egfsvg
