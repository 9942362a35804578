// Children of an `a`.
#pragma once

#include "model/elements.h"

extern "C" {

/// Appends a copy of the object to the children of `*slot` and frees the object's block, whose
/// contents the child owns from then on. 0; or -1 for a null argument, or with message 1273 logged
/// when memory ends: the object then stays the caller's.
__attribute__((visibility("default"))) int SVG_A_PutObject(_svg_a** slot, _svg_objects* object);

}  // extern "C"
