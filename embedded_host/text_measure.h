// Where a text stands: its lines measured and laid out about its anchor.
#pragma once

#include "embedded_host/box.h"
#include "host/egf_pens.h"

namespace egfhost {

// Grows the box by the corners of a text's lines, in space units. A null text adds nothing. Without
// a map the resolution is 96 dots per inch.
void includeText(Box& box, const _egf_textparms& parms, _mpl_spacept_tag origin, const char* text,
                 HostHandle map);

}  // namespace egfhost
