// A paint as a cairo pattern.
#pragma once

#include "render/cairo_owners.h"
#include "render/geometry.h"
#include "render/paints.h"

namespace egfrender {

// Never null. `area` is what will be painted, in device pixels. A gradient without extent paints
// with the paint's colour, which is its last stop's.
Pattern patternOf(const Paint& paint, const Placement& placement, const Box& area);

}  // namespace egfrender
