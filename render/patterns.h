// A paint as a cairo pattern.
#pragma once

#include "render/cairo_owners.h"
#include "render/geometry.h"
#include "render/paints.h"

namespace egfrender {

// Never null. A gradient paints with the paint's colour, which is its last stop's.
Pattern patternOf(const Paint& paint, const Placement& placement);

}  // namespace egfrender
