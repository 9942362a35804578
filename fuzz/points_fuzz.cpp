// Point lists of polylines and polygons.
#include "fuzz/fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace egfsvg::fuzz;
  const Input input(data, size);
  input.applySettings();
  const LeakCheck leaks;
  TextReader reader("");
  Attribute attribute(input.text);
  int count = -1;
  _svg_point* points = reader->SetPointsAtt(&count, attribute.get());
  require((points == nullptr) == (count == 0), "an array stands for at least one point");
  for (int i = 0; i < count; ++i) {
    require(points[i].x.value == points[i].x.value, "a coordinate is a number");
    require(points[i].y.value == points[i].y.value, "a coordinate is a number");
  }
  RMM_Free(points);
  return 0;
}
