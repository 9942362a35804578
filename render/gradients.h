// Gradients as cairo patterns, from the records alone: the ramp, the vector or the ring of points,
// the angle and the marks.
#pragma once

#include "render/cairo_owners.h"
#include "render/geometry.h"
#include "render/paints.h"

namespace egfrender {

// Null when the records describe no gradient (no stops, points of no extent). `area` is what will
// be painted, in device pixels; `alpha` multiplies that of the stops.
Pattern gradientPattern(const GradientUse& gradient, double alpha, const Placement& placement,
                        const Box& area);

}  // namespace egfrender
