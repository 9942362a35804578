// A drawing's pages as one JSON document.
#pragma once

#include <string>

#include "cli/byte_sink.h"
#include "cli/json_writer.h"
#include "cli/page_reader.h"

namespace egfsvg {

// Reads and writes the pages one after the other, then the styles, dashes and colours that they
// name.
void writeDump(PageReader& reader, PageRange pages, ByteSink& sink);

// The same for a page that is there already; used with hand-built trees too.
void writePage(JsonWriter& json, const egfrender::Page& page, const std::string& name);
void writeStyles(JsonWriter& json, HostHandle document);
void writeDashes(JsonWriter& json, const EgfPageHeader& header);
void writeColours(JsonWriter& json, const _sel_colour_list* palette);

}  // namespace egfsvg
