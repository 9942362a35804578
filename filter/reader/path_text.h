// The d attribute of paths.
#pragma once

#include "model/elements.h"
#include "reader/value_text.h"

class CHandlerReader;

namespace egfsvg {

/// Replaces the sub-paths of a path, as SetPathAtt does.
int readPathData(CHandlerReader& reader, _svg_path* path, const ValueText& d);

}  // namespace egfsvg
