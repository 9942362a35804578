#include "adapter_reader/object_boxes.h"

#include <cmath>

#include "geometry/point_checks.h"
#include "host/egf_codes.h"

namespace egfsvg {
namespace {

bool take(const _mpl_spacerect_tag& kept, _mpl_spacerect_tag* box) {
  *box = kept;
  return !isNone(kept);
}

/// False when a coordinate is not finite.
bool boxOfEnds(const _mpl_spacept_tag& start, const _mpl_spacept_tag& end,
               _mpl_spacerect_tag* box) {
  PointBox both;
  both.include(&start);
  both.include(&end);
  *box = both.rect();
  return both.isFinite();
}

/// Of a whole ellipse that is not turned.
bool boxOfRadii(const EgfEllipse& ellipse, _mpl_spacerect_tag* box) {
  const bool whole = ellipse.startAngle == 0 && ellipse.endAngle == kFullTurn;
  if (ellipse.pen.ellipseRotation != 0 || !whole) return false;
  const double x = ellipse.center.x;
  const double y = ellipse.center.y;
  const double rx = std::fabs(ellipse.radiusPt.x - x);
  const double ry = std::fabs(ellipse.radiusPt.y - y);
  return boxOfEnds({static_cast<float>(x - rx), static_cast<float>(y - ry)},
                   {static_cast<float>(x + rx), static_cast<float>(y + ry)}, box);
}

}  // namespace

bool boxAtHand(const _egf_obj* object, _mpl_spacerect_tag* box) {
  switch (object->objClass) {
    case kClassBox:
    case kClassPolygon:
      return take(as<EgfPolygon>(object)->bounds, box);
    case kClassPolyline:
      return take(as<EgfPolyline>(object)->bounds, box);
    case kClassLine:
      return boxOfEnds(as<EgfLine>(object)->startPt, as<EgfLine>(object)->endPt, box);
    case kClassEllipse:
      return boxOfRadii(*as<EgfEllipse>(object), box);
    case kClassGroup:
      return as<EgfGroup>(object)->firstChild && take(as<EgfGroup>(object)->groupMer, box);
    case kClassPath:
      return as<EgfPath>(object)->firstChild && as<EgfPath>(object)->hasBounds != 0 &&
             take(as<EgfPath>(object)->bounds, box);
    default:
      return false;
  }
}

}  // namespace egfsvg
