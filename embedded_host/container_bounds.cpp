// The rectangles that groups and paths keep of their children.

#include <algorithm>

#include "embedded_host/bounds.h"
#include "embedded_host/object_tree.h"
#include "embedded_host/point_run.h"
#include "host/egf_codes.h"
#include "host/objects.h"

namespace egfhost {

using namespace egfsvg;

namespace {

_mpl_spacerect_tag unionOf(_mpl_spacerect_tag a, _mpl_spacerect_tag b) {
  return {std::min<float>(a.left, b.left), std::max<float>(a.right, b.right),
          std::min<float>(a.top, b.top), std::max<float>(a.bottom, b.bottom)};
}

// The rectangle of a path grows itself by the points of a child: of a curve that does not leave it
// nothing more has to be known than that.
inline Box boxToGrow(const EgfPath* path) {
  return path->hasBounds != 0 ? Box(path->bounds) : Box();
}

inline void keepBox(EgfPath* path, const Box& box) {
  if (!box.isUnspoilt()) return;
  path->bounds = box.rect();
  path->hasBounds = 1;
}

[[gnu::noinline]] void growByCurve(EgfPath* path, PointRun points) {
  Box box = boxToGrow(path);
  includeCurves(box, points.at, points.count);
  keepBox(path, box);
}

inline void growByPoints(EgfPath* path, PointRun points) {
  if (points.count == 0) return;
  if (points.curve) return growByCurve(path, points);
  Box box = boxToGrow(path);
  box.include(points.at, points.count);
  keepBox(path, box);
}

// The same by a child of any class.
[[gnu::noinline]] void growByBounds(EgfPath* path, const _egf_obj* child, HostHandle map) {
  _mpl_spacerect_tag bounds;
  if (!boundsOf(child, map, &bounds)) return;
  path->bounds = path->hasBounds != 0 ? unionOf(path->bounds, bounds) : bounds;
  path->hasBounds = 1;
}

void growGroup(EgfGroup* group, const _egf_obj* child, HostHandle map) {
  _mpl_spacerect_tag bounds;
  if (!boundsOf(child, map, &bounds)) return;
  const _mpl_spacerect_tag mer = group->groupMer;
  group->groupMer = isEmpty(mer) ? bounds : unionOf(mer, bounds);
}

}  // namespace

void growPath(EgfPath* path, const _egf_obj* child, HostHandle map) {
  if (child->layoutClass == kClassPolyline)
    return growByPoints(path, pointsOf(as<EgfPolyline>(child)));
  if (child->layoutClass == kClassPolygon)
    return growByPoints(path, pointsOf(as<EgfPolygon>(child)));
  growByBounds(path, child, map);
}

void growContainer(_egf_obj* container, const _egf_obj* child, HostHandle map) {
  if (container->layoutClass == kClassPath) {
    growPath(as<EgfPath>(container), child, map);
  } else {
    growGroup(as<EgfGroup>(container), child, map);
  }
}

void refreshContainer(_egf_obj* container, HostHandle map) {
  if (container->layoutClass == kClassPath) {
    as<EgfPath>(container)->hasBounds = 0;
    as<EgfPath>(container)->bounds = {};
  } else {
    as<EgfGroup>(container)->groupMer = {};
  }
  for (const _egf_obj* at = firstChildOf(container); at != nullptr; at = at->next.get()) {
    growContainer(container, at, map);
  }
}

}  // namespace egfhost

extern "C" void EEL_ExpandMer(_mpl_spacerect_tag* mer, const _mpl_spacerect_tag* other) {
  if (mer == nullptr || other == nullptr) return;
  *mer = egfhost::isEmpty(*mer) ? *other : egfhost::unionOf(*mer, *other);
}
