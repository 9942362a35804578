// Rectangles of objects: geometry alone, in space units, without the pen's width.
#pragma once

#include "embedded_host/box.h"
#include "host/egf_objects.h"

namespace egfhost {

// The object's rectangle from its geometry; for groups and paths the one that they keep. False for
// an object that has none. The map is asked for its resolution by texts alone.
bool boundsOf(const _egf_obj* object, HostHandle map, _mpl_spacerect_tag* bounds);

// Computes the rectangle and keeps it in the object where its record has room for it, all zero when
// there is none.
bool refreshBounds(_egf_obj* object, HostHandle map);

// Grows the rectangle of a path by that of a new child.
void growPath(egfsvg::EgfPath* path, const _egf_obj* child, HostHandle map);

// The same for a group or a path.
void growContainer(_egf_obj* container, const _egf_obj* child, HostHandle map);

// Recomputes the rectangle of a group or path from its children's.
void refreshContainer(_egf_obj* container, HostHandle map);

// The box of a run of an ellipse, counter-clockwise from start to end; a whole one when they are a
// full turn apart. The rotation turns the ellipse about its centre. Radii may be negative.
void includeEllipse(Box& box, _mpl_spacept_tag center, double rx, double ry, std::int32_t rotation,
                    std::int32_t start, std::int32_t end);

// The box of a chain of cubic curves: points 0, 3, 6 ... are on it.
[[gnu::noinline]] void includeCurves(Box& box, const _mpl_spacept_tag* points, std::size_t count);

}  // namespace egfhost
