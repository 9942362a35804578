#include "cli/dump.h"

#include <array>

#include "cli/object_json.h"
#include "host/egf_rows.h"
#include "host/palettes.h"
#include "host/style_tables.h"

namespace egfsvg {
namespace {

// The tables of a dump: those whose records the reader makes.
constexpr std::array<StyleClass, 4> kTables{kStyleGradient, kStyleStroke, kStyleFill, kStylePen};

struct StylePrinter {
  JsonWriter& json;
  const RecordRow& record;
};

int printStyle(std::uint32_t size, const void* bytes, void* userData) {
  auto& printer = *static_cast<StylePrinter*>(userData);
  if (size >= printer.record.size) writeStyleRecord(printer.json, bytes, printer.record);
  return 0;
}

void writeTable(JsonWriter& json, HostHandle table, const RecordRow& record) {
  const bool empty = STYLE_QueryTotalStyleCount(table) == 0;
  json.beginArray(empty ? JsonLayout::kInline : JsonLayout::kLines);
  _style_cursor cursor{0, static_cast<std::uint32_t>(record.size)};
  StylePrinter printer{json, record};
  STYLE_Enumerate(table, &cursor, printStyle, &printer);
  json.endArray();
}

}  // namespace

void writePage(JsonWriter& json, const egfrender::Page& page, const std::string& name) {
  json.beginObject();
  json.member("name", name);
  json.key("resolution");
  json.beginArray();
  json.value(page.resolution);
  json.value(page.resolution);
  json.endArray();
  json.key("root");
  writeObject(json, *page.body->root.get());
  json.endObject();
}

void writeStyles(JsonWriter& json, HostHandle document) {
  json.beginObject(JsonLayout::kLines);
  for (const StyleClass table : kTables) {
    json.key(std::to_string(table));
    const HostHandle handle = ISL_GetProperty(document, static_cast<std::uint32_t>(table));
    writeTable(json, handle, *recordOf(kStyleRecords, table));
  }
  json.endObject();
}

void writeDashes(JsonWriter& json, const EgfPageHeader& header) {
  json.beginArray(header.firstDash ? JsonLayout::kLines : JsonLayout::kInline);
  for (const _egf_dash_record* dash = header.firstDash.get(); dash != nullptr;
       dash = dash->next.get()) {
    writeStyleRecord(json, dash, kDashRecord);
  }
  json.endArray();
}

void writeColours(JsonWriter& json, const _sel_colour_list* palette) {
  json.beginArray();
  const std::uint32_t count = palette == nullptr ? 0 : palette->count;
  for (std::uint32_t i = 0; i < count; ++i) writeColour(json, palette->colours[i]);
  json.endArray();
}

void writeDump(PageReader& reader, PageRange pages, ByteSink& sink) {
  JsonWriter json(sink);
  json.beginObject(JsonLayout::kLines);
  json.key("pages");
  json.beginArray(JsonLayout::kLines);
  for (int page = pages.first; page <= pages.last; ++page) {
    reader.read(page);
    writePage(json, reader.page(), PageReader::pageName(page));
  }
  json.endArray();
  json.key("styles");
  writeStyles(json, reader.document());
  json.key("dashes");
  writeDashes(json, reader.page().body->pageHeader);
  json.key("palette");
  writeColours(json, reader.palette());
  json.endObject();
  json.endDocument();
  json.finish();
}

}  // namespace egfsvg
