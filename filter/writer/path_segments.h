// The segments of a path as text. Codes 2, 3 and 5 are always written; of the rest each element
// writes what it knows.
#pragma once

#include "model/elements.h"
#include "writer/line_builder.h"

namespace egfsvg {

struct PathForms {
  bool curves;
  bool arcs;
  bool relativeArcs;
};

inline constexpr PathForms kAllForms{true, true, true};
inline constexpr PathForms kCloudForms{false, true, false};
inline constexpr PathForms kDiamondForms{true, false, false};

/// A line is broken before the segment that finds it longer than this.
inline constexpr std::int32_t kLongestLine = 110;

/// Adds one segment with its trailing blank.
void addSegment(const _svg_path_data& segment, PathForms forms, LineBuilder& line);

/// Adds all segments; full lines go out. -1 when one could not be written, else 0.
int putSegments(const _svg_path& path, PathForms forms, LineBuilder& line, HostHandle stream);

}  // namespace egfsvg
