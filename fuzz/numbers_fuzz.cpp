// The number readers: they stay inside the text, and the decimal one agrees with the C library on
// the text that it says it used.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "model/numbers.h"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

void checkDecimal(const char* first, const char* last) {
  const char* end = nullptr;
  const double value = egfsvg::decimalPrefix(first, last, &end);
  require(end >= first && end <= last);
  const std::string used(first, end);
  require(value == std::strtod(used.c_str(), nullptr));
}

void checkInteger(const char* first, const char* last) {
  const char* end = nullptr;
  const std::int32_t value = egfsvg::saturatingInteger(first, last, &end);
  require(end >= first && end <= last);
  const std::string used(first, end);
  const long long wide = std::strtoll(used.c_str(), nullptr, 10);
  require(value == egfsvg::truncated<std::int32_t>(static_cast<double>(wide)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const char* text = reinterpret_cast<const char*>(data);
  checkDecimal(text, text + size);
  checkInteger(text, text + size);
  return 0;
}
