// Rectangles of new objects without a call of the host.
#pragma once

#include "host/egf_objects.h"

namespace egfsvg {

/// The rectangle of an object whose record tells it: a group's and a path's own, the one that was
/// just computed for a polygon, box or polyline, the ends of a line, the radii of an ellipse. False
/// when the host has to be asked, also whether there is a rectangle at all.
bool boxAtHand(const _egf_obj* object, _mpl_spacerect_tag* box);

}  // namespace egfsvg
