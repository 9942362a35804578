// Arcs cut into points. Centres and radii are in space units (1/4096 pixel), whole angles are
// millionths of a degree, counter-clockwise on a page whose y grows downwards. Point arrays come
// from the host's allocator and belong to the caller; null means that memory ran out.
#pragma once

#include <cstdint>

#include "host/egf_small.h"

namespace egfsvg {

/// An arc of an ellipse on the axes by its polar angles, from start to end; equal angles are the
/// whole turn. A circle is cut by its size, an ellipse in steps of two degrees or less.
_mpl_spacept_tag* discretizePolarArc(const _mpl_spacept_tag& center, float rx, float ry,
                                     std::int32_t start, std::int32_t end, unsigned int* count);

/// The first and the last point of the same arc, without the ones between.
struct ArcEndPoints {
  _mpl_spacept_tag first;
  _mpl_spacept_tag last;
};
ArcEndPoints polarArcEnds(const _mpl_spacept_tag& center, float rx, float ry, std::int32_t start,
                          std::int32_t end);

/// The large-arc flag that an arc is written with: whole degrees tell it.
bool writtenLarge(std::int32_t start, std::int32_t end);

/// An arc by the parameters of an ellipse whose axes are turned by `rotation` (radians, SVG
/// 1.1 x-axis-rotation). At least one segment for each degree and a half.
_mpl_spacept_tag* discretizeTurnedArc(const _mpl_spacept_tag& center, float rx, float ry,
                                      double rotation, std::int32_t start, std::int32_t end,
                                      unsigned int* count);

/// The four corner arcs of a rounded rectangle, one behind the other: top left, bottom left, bottom
/// right, top right, each counter-clockwise.
_mpl_spacept_tag* discretizeRoundedRect(const _mpl_spacept_tag* corners, float rx, float ry,
                                        unsigned int* count);

/// One corner of a rounded rectangle: its arc's centre lies off the corner by the radii times the
/// signs, and the angles are whole degrees.
struct RoundedCorner {
  int corner;
  int signX;
  int signY;
  int startDegrees;
  int endDegrees;
};

inline constexpr int kCornerCount = 4;
inline constexpr RoundedCorner kRoundedCorners[kCornerCount] = {
    {0, 1, 1, 90, 180}, {1, 1, -1, 180, 270}, {2, -1, -1, 270, 360}, {3, -1, 1, 0, 90}};

_mpl_spacept_tag cornerCenter(const _mpl_spacept_tag* corners, const RoundedCorner& corner,
                              float rx, float ry);

}  // namespace egfsvg
