// Transform lists, appended once or twice to an element.
#include "fuzz/fuzz_support.h"
#include "model/lifecycle.h"
#include "model/transform_list.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace egfsvg::fuzz;
  const Input input(data, size);
  input.applySettings();
  const LeakCheck leaks;
  TextReader reader("");
  Attribute attribute(input.text);
  _svg_common head;
  initSVGCommon(&head);
  const unsigned turns = input.kind() == 0 ? 1 : 2;
  for (unsigned turn = 0; turn < turns; ++turn) reader->SetTransformAtt(&head, attribute.get());
  require(head.transformCount >= 0 && head.transformCount <= egfsvg::kMaxTransforms,
          "a list has its bound");
  DestroyCommonElements(&head);
  return 0;
}
