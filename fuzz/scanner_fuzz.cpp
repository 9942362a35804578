// The tag and attribute stream: every tag of the text, and every attribute of every tag.
#include "fuzz/fuzz_support.h"
#include "reader/attribute_loop.h"

namespace egfsvg::fuzz {
namespace {

void scanAll(const Input& input) {
  TextReader reader(input.text);
  const bool readAttributes = input.kind() != 0;
  std::size_t tags = 0;
  int index = 0;
  while (reader->GetNextTag(&index) != -1) {
    require(++tags <= input.text.size(), "each tag takes a byte of the text");
    if (!readAttributes || reader->hasAttributes == 0) continue;
    std::size_t pairs = 0;
    readAttributesQuietly(*reader, [&](int, _svg_attrib_pair* pair) {
      require(++pairs <= input.text.size(), "each attribute takes a byte of the text");
      require(std::strlen(pair->name) < sizeof pair->name, "a name fits its array");
    });
  }
}

}  // namespace
}  // namespace egfsvg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const egfsvg::fuzz::Input input(data, size);
  input.applySettings();
  const egfsvg::fuzz::LeakCheck leaks;
  egfsvg::fuzz::scanAll(input);
  return 0;
}
