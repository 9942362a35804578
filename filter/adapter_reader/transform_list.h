// The functions of a transform list as matrices.
#pragma once

#include "adapter_reader/pixel_scale.h"
#include "geometry/matrix.h"
#include "model/values.h"

namespace egfsvg {

/// Multiplies one entry in, from the right. An unknown kind, or one without its arguments, changes
/// nothing.
void multiplyEntry(const PixelScale& scale, const transformEntry& entry, PlaneColumns& running);
void multiplyEntry(const PixelScale& scale, const transformEntry& entry, MatrixRows& running);

}  // namespace egfsvg
