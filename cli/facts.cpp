#include "cli/facts.h"

#include <array>

#include "cli/module.h"
#include "frame/result_codes.h"
#include "host/egf_rows.h"
#include "host/palettes.h"
#include "host/style_tables.h"
#include "render/object_walk.h"
#include "render/picture.h"

namespace egfsvg {
namespace {

constexpr std::array<StyleClass, 4> kTables{kStyleGradient, kStyleStroke, kStyleFill, kStylePen};

PageFacts pageFacts(const egfrender::Page& page, const std::string& name) {
  PageFacts facts;
  facts.name = name;
  const egfrender::Box box = egfrender::pageBox(page);
  facts.width = box.width();
  facts.height = box.height();
  const _egf_obj* root = page.body->root.get();
  egfrender::walkObjects(*root, [&](const _egf_obj& object) {
    const RecordRow* record = recordOf(kObjectRecords, object.layoutClass);
    if (&object != root && record != nullptr) ++facts.objects[record->name];
    return true;
  });
  return facts;
}

std::vector<StyleFacts> styleFacts(HostHandle document, const EgfPageHeader& header) {
  std::vector<StyleFacts> facts;
  for (const StyleClass table : kTables) {
    const HostHandle handle = ISL_GetProperty(document, static_cast<std::uint32_t>(table));
    facts.push_back({recordOf(kStyleRecords, table)->name, STYLE_QueryTotalStyleCount(handle)});
  }
  std::uint32_t dashes = 0;
  for (const auto* dash = header.firstDash.get(); dash != nullptr; dash = dash->next.get()) {
    ++dashes;
  }
  facts.push_back({"dash", dashes});
  return facts;
}

// The resolution that the file's comment names, as it stands there.
std::string resolutionComment(Source& source) {
  _handlerOpenReader open{0, source.stream()};
  if (filterModule().openHandler(&open) != kOk) return {};
  _handlerPreprocess preprocess{open.reader, {}, source.stream()};
  const std::int32_t code = filterModule().preprocessHandler(&preprocess);
  _handlerCloseReader close{open.reader};
  filterModule().closeHandler(&close);
  return code == kOk ? preprocess.text : "";
}

}  // namespace

DrawingFacts factsOf(Source& source, const Options& options) {
  DrawingFacts facts;
  facts.file = source.name();
  facts.compressed = source.input().compressed();
  facts.bytes = source.input().bytes();
  facts.comment = resolutionComment(source);
  PageReader reader(source, options);
  for (int page = 1; page <= reader.pageCount(); ++page) {
    reader.read(page);
    facts.pages.push_back(pageFacts(reader.page(), PageReader::pageName(page)));
  }
  facts.resolution = reader.page().resolution;
  facts.styles = styleFacts(reader.document(), reader.page().body->pageHeader);
  facts.colours = reader.palette() == nullptr ? 0 : reader.palette()->count;
  facts.told = source.reports().told();
  return facts;
}

}  // namespace egfsvg
