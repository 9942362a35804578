#include "model/value_parser.h"

#include <algorithm>
#include <cstring>

#include "model/characters.h"
#include "model/numbers.h"
#include "model/units.h"

namespace {

constexpr std::size_t kUnitBytes = 5;

bool endsNumber(char c) {
  return c == '\0' || c == '%' || egfsvg::isWhite(c) || egfsvg::isLetter(c);
}

}  // namespace

int ParseValue(_svg_value* out, const char* text) {
  if (out == nullptr || text == nullptr) return 0;
  const char* end = text;
  while (!endsNumber(*end)) ++end;
  const std::size_t length = std::min(static_cast<std::size_t>(end - text), egfsvg::kNumberScratch);
  out->value = egfsvg::decimalPrefix(text, text + length);
  const char* unitEnd = static_cast<const char*>(std::memchr(end, '\0', kUnitBytes));
  const std::size_t unitLength =
      unitEnd == nullptr ? kUnitBytes : static_cast<std::size_t>(unitEnd - end);
  out->unit = egfsvg::lengthUnit(end, unitLength);
  return 0;
}
