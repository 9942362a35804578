// What lines, arrow lines and outlines share.
#pragma once

#include <algorithm>
#include <limits>

#include "adapter_writer/user_scale.h"

namespace egfsvg {

/// A line that is shorter than this on both axes is not written (user units).
inline constexpr double kShortestLine = 0.001;

/// Ends in space units.
struct LineEnds {
  double x1, y1, x2, y2;
};

/// Sets both ends; false for a line that is too short.
bool setLineEnds(const UserScale& scale, const LineEnds& ends, _svg_line* record);

/// Leaves of a join only the miter with a limit of its own: the class holds the rest.
void keepMiterAlone(_svg_pa_stroke& stroke);

/// A count of points as elements hold it.
inline std::int32_t pointCount(std::uint32_t count) {
  return static_cast<std::int32_t>(
      std::min<std::uint32_t>(count, std::numeric_limits<std::int32_t>::max()));
}

}  // namespace egfsvg
