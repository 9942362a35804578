// The two fields of the filter's reader that its host sets and reads directly.
#pragma once

#include "host/wire.h"

struct _sel_colour_list;

namespace egfsvg {

// Gives the reader the view whose map and style tables it uses.
void setReaderDocument(HostHandle reader, HostHandle view);

// The colours that the reader has met; belongs to it.
const _sel_colour_list* readerPalette(HostHandle reader);

}  // namespace egfsvg
