#include "adapter_reader/object_boxes.h"

#include "host/egf_codes.h"

namespace egfsvg {
namespace {

/// A rectangle of zeros stands for none.
bool take(_mpl_spacerect_tag kept, _mpl_spacerect_tag* box) {
  *box = kept;
  return box->left != 0.0F || box->right != 0.0F || box->top != 0.0F || box->bottom != 0.0F;
}

bool boxOfEnds(_mpl_spacept_tag start, _mpl_spacept_tag end, _mpl_spacerect_tag* box) {
  *box = {end.x < start.x ? end.x : start.x, end.x > start.x ? end.x : start.x,
          end.y < start.y ? end.y : start.y, end.y > start.y ? end.y : start.y};
  return (start.x + start.y + end.x + end.y) * 0.0F == 0.0F;  // else one may not be finite
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
