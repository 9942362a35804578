// Style elements as most files in the world write them: rules that stand in the element as
// characters, with or without a CDATA section around them.
#pragma once

#include "reader/svg_handlerreader.h"

namespace egfsvg {

/// Whether the tag that was read last ended in "/>".
bool endsSelfClosed(cBuffer& source);

/// Enters the rules of the element whose tag was read, up to its closing tag. An element that is
/// never closed has none, and the source stands where it stood.
void readPlainStyle(CHandlerReader& reader);

}  // namespace egfsvg
