// Copies of property groups between records. The target's old texts and arrays are freed; without
// memory a text or an array is left out.
#pragma once

#include "model/groups.h"
#include "reader/inherited_groups.h"

namespace egfsvg {

/// What children take over of a group, by its code. Codes without a row, and a null group, do
/// nothing.
void copyGroup(const _svg_pa& source, void* group, int groupCode);

/// All of a group, with texts and arrays of its own.
void copyWholeGroup(_svg_pa_fill& to, const _svg_pa_fill& from);
void copyWholeGroup(_svg_pa_stroke& to, const _svg_pa_stroke& from);
void copyWholeGroup(_svg_pa_graphics& to, const _svg_pa_graphics& from);
void copyWholeGroup(_svg_pa_textcontentelems& to, const _svg_pa_textcontentelems& from);

}  // namespace egfsvg
