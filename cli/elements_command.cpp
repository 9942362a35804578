// egfsvg elements: the element records as the reader hands them out, one JSON object a line.
#include <cstdio>
#include <exception>

#include "cli/commands.h"
#include "cli/element_json.h"
#include "cli/failure.h"
#include "cli/module.h"
#include "cli/output_file.h"
#include "cli/page_reader.h"
#include "cli/settings.h"
#include "frame/result_codes.h"

namespace egfsvg {
namespace {

// What the callback works on. An exception waits here, since it must not pass through the filter.
struct ElementPrinter {
  JsonWriter& json;
  std::uint64_t count = 0;
  std::exception_ptr fault;
};

std::int32_t printElement(_handlerObject* object) {
  auto& printer = *static_cast<ElementPrinter*>(object->owner);
  try {
    writeElement(printer.json, *object);
    printer.json.endDocument();
    ++printer.count;
    return kGoOn;
  } catch (...) {
    printer.fault = std::current_exception();
    return kStopQuietly;
  }
}

// The reader of the SVG side alone.
class ElementReader {
 public:
  explicit ElementReader(Source& source) : source_(source) {
    _handlerOpenReader open{0, source.stream()};
    const std::int32_t code = filterModule().openHandler(&open);
    if (code != kOk) source.check(code, false);
    reader_ = open.reader;
  }
  ElementReader(const ElementReader&) = delete;
  ElementReader& operator=(const ElementReader&) = delete;
  ~ElementReader() {
    _handlerCloseReader close{reader_};
    filterModule().closeHandler(&close);
  }

  int pageCount() {
    _handlerQuery query{};
    query.reader = reader_;
    query.source = source_.stream();
    query.property = kPageCountProperty;
    const std::int32_t code = filterModule().queryHandler(&query);
    return code == kOk && query.value > 1 ? query.value : 1;
  }

  void print(int page, JsonWriter& json) {
    ElementPrinter printer{json};
    _handlerEnumData enumerate{};
    enumerate.reader = reader_;
    enumerate.source = source_.stream();
    std::snprintf(enumerate.pageName, sizeof enumerate.pageName, "%s",
                  PageReader::pageName(page).c_str());
    enumerate.owner = &printer;
    enumerate.callback = printElement;
    const std::int32_t code = filterModule().enumerateData(&enumerate, source_.file());
    if (printer.fault) std::rethrow_exception(printer.fault);
    json.finish();
    source_.check(code, printer.count > 0);
  }

 private:
  Source& source_;
  HostHandle reader_ = 0;
};

}  // namespace

ExitCode runElements(const Options& options) {
  applySettings(options);
  Source source(options.inputs.front(), options);
  ElementReader reader(source);
  const PageRange pages = pagesToTake(options, source.name(), reader.pageCount(), false);
  const auto output = OutputFile::create("-");
  JsonWriter json(*output);
  reader.print(pages.first, json);
  output->commit();
  return source.outcome();
}

}  // namespace egfsvg
