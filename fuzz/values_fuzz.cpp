// Single values: lengths, angles, colours, the viewBox and the fit into a viewport.
#include "fuzz/fuzz_support.h"

namespace egfsvg::fuzz {
namespace {

void parseNumbers(CHandlerReader& reader, Attribute& attribute) {
  _svg_value length = kDefaultValue;
  reader.ParseValue(&length, attribute.get()->value);
  require(length.value == length.value, "a length is a number");
  _svg_angle angle = {};
  reader.ParseAngle(&angle, attribute.get()->value);
  require(angle.value == angle.value, "an angle is a number");
}

void parseColour(CHandlerReader& reader, Attribute& attribute) {
  int channels[3] = {};
  reader.GetSVGColorPatt(channels[0], channels[1], channels[2], attribute.get());
  for (const int channel : channels) require(channel >= 0 && channel <= 255, "a channel is a byte");
}

void parseViewport(CHandlerReader& reader, Attribute& attribute) {
  _svg_viewbox* box = nullptr;
  reader.SetViewboxAtt(&box, attribute.get());
  RMM_Free(box);
  int aspect = 0;
  reader.SetPreserveAspectAtt(&aspect, attribute.get());
}

}  // namespace
}  // namespace egfsvg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace egfsvg::fuzz;
  const Input input(data, size);
  input.applySettings();
  const LeakCheck leaks;
  TextReader reader("");
  Attribute attribute(input.text);
  parseNumbers(*reader, attribute);
  parseColour(*reader, attribute);
  parseViewport(*reader, attribute);
  return 0;
}
