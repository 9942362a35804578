// Owning a colour list: its array and the list are two blocks.
#pragma once

#include "host/palettes.h"

namespace egfsvg {

void freePalette(_sel_colour_list* list);

}  // namespace egfsvg
