// Rectangles of new objects without a call of the host.
#pragma once

#include <cstdint>
#include <cstring>

#include "geometry/point_box.h"
#include "host/egf.h"
#include "host/egf_objects.h"

namespace egfsvg {

/// The rectangle of an object whose record tells it: a group's and a path's own, the one that was
/// just computed for a polygon, box or polyline, the ends of a line, the radii of an ellipse. False
/// when the host has to be asked, also whether there is a rectangle at all.
bool boxAtHand(const _egf_obj* object, _mpl_spacerect_tag* box);

/// Whether the rectangle is all zeros, of either sign, which stands for none.
inline bool isNone(const _mpl_spacerect_tag& box) {
  constexpr std::uint64_t kAllButSigns = 0x7FFFFFFF7FFFFFFF;
  std::uint64_t halves[2];
  static_assert(sizeof halves == sizeof box);
  std::memcpy(halves, &box, sizeof box);
  return ((halves[0] | halves[1]) & kAllButSigns) == 0;
}

/// Grows a rectangle so that it holds another; none becomes a copy.
inline void growBox(_mpl_spacerect_tag* box, const _mpl_spacerect_tag& by) {
  const _mpl_spacerect_tag old = *box;
  if (isNone(old)) {
    *box = by;
    return;
  }
  *box = {by.left < old.left ? by.left : old.left, by.right > old.right ? by.right : old.right,
          by.top < old.top ? by.top : old.top, by.bottom > old.bottom ? by.bottom : old.bottom};
}

/// Stores the rectangle of a polygon or box. The host computes it when the box of all points is not
/// at hand, which null says, or not finite.
inline void setBounds(_egf_obj* polygon, const PointBox* box, HostHandle map) {
  if (box != nullptr && box->isFinite()) [[likely]] {
    as<EgfPolygon>(polygon)->bounds = box->rect();
  } else {
    EGF_CalcPolygonMer(polygon, map);
  }
}

}  // namespace egfsvg
