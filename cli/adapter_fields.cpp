#include "cli/adapter_fields.h"

#include "adapter_reader/svg_adapterreader.h"

// The class's type information stays inside the module, where a sanitizer cannot see it from here.
#define EGFSVG_FOREIGN_OBJECT __attribute__((no_sanitize("vptr")))

namespace egfsvg {

EGFSVG_FOREIGN_OBJECT void setReaderDocument(HostHandle reader, HostHandle view) {
  at<CAdapterReader>(reader)->document = view;
}

EGFSVG_FOREIGN_OBJECT const _sel_colour_list* readerPalette(HostHandle reader) {
  return at<CAdapterReader>(reader)->palette;
}

}  // namespace egfsvg
