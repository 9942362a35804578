// Lengths as attributes write them: a number and a unit.
#pragma once

#include "model/values.h"

namespace egfsvg {

/// Reads `unit` and `value` of a length from [first, last); the axis stays. An empty text is 0
/// pixels.
void parseLength(_svg_value* out, const char* first, const char* last);

}  // namespace egfsvg
