// Path data.
#include "fuzz/fuzz_support.h"
#include "model/lifecycle.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace egfsvg::fuzz;
  const Input input(data, size);
  input.applySettings();
  const LeakCheck leaks;
  TextReader reader("");
  _svg_path path;
  initPath(&path);
  reader->SetPathAtt(&path, input.text.c_str());
  DestroyPathElements(&path);
  DestroyCommonElements(&path.head);
  return 0;
}
