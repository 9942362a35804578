// Style sheets: the rules of a style element, and what they do to the elements that follow it.
#include "frame/result_codes.h"
#include "fuzz/fuzz_support.h"

namespace egfsvg::fuzz {
namespace {

std::int32_t goOn(_handlerObject*) { return kGoOn; }

constexpr const char* kBefore = "<svg width=\"9\" height=\"9\"><style type=\"text/css\">";
constexpr const char* kAfter =
    "</style><g class=\"a\" id=\"x\"><rect class=\"a b\" id=\"y\" width=\"1\" height=\"1\"/>"
    "<path class=\"c\" d=\"M0 0L1 1\"/></g></svg>";

void readSheet(const Input& input) {
  TextReader reader(kBefore + input.text + kAfter);
  _handlerEnumData record = {};
  record.source = reader.stream();
  std::strcpy(record.pageName, "Page 1");
  record.owner = &record;
  record.callback = goOn;
  QV_FILEID file = {};
  reader->EnumerateData(&record, &file);
}

}  // namespace
}  // namespace egfsvg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const egfsvg::fuzz::Input input(data, size);
  input.applySettings();
  const egfsvg::fuzz::LeakCheck leaks;
  egfsvg::fuzz::readSheet(input);
  return 0;
}
