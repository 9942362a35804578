// Lengths and angles: a number, then a unit that is compared without regard to case.

#include <algorithm>
#include <cstring>

#include "model/characters.h"
#include "model/numbers.h"
#include "model/units.h"
#include "model/value_parser.h"
#include "reader/lengths.h"
#include "reader/svg_handlerreader.h"
#include "reader/value_text.h"

namespace egfsvg {

namespace {

constexpr std::ptrdiff_t kUnitSize = 5;  // bytes of a unit that count

double boundedDecimal(const char* first, const char* end) {
  const auto length = std::min(static_cast<std::size_t>(end - first), kNumberScratch);
  return decimalPrefix(first, first + length);
}

bool endsNumber(const char* at, const char* last) {
  return at == last || isWhite(*at) || *at == '%';
}

// Kept: a lower-case e always counts as an exponent, so "2em" is the number "2e" and the unit "m".
const char* lengthNumberEnd(const char* first, const char* last) {
  const char* at = first;
  while (!endsNumber(at, last)) {
    if (isLetter(*at) && *at != 'e') break;
    if (*at == '-' && at != first && at[-1] != 'e') break;
    ++at;
  }
  return at;
}

const char* lengthUnitEnd(const char* first, const char* last) {
  const char* at = first;
  while (at != last && at - first < kUnitSize) {
    if (isOfClass(*at, kClassWhite | kClassDigit)) break;
    if (isPunctuation(*at) && *at != '%') break;
    ++at;
  }
  return at;
}

[[gnu::noinline, gnu::cold]] int readOtherLength(_svg_value* out, const _svg_attrib_pair& pair) {
  const ValueText text = textOf(pair);
  parseLength(out, text.first, text.last);
  return 0;
}

constexpr double kDotsPerInch = 96.0;
constexpr double kCentimetresPerInch = 2.54;
constexpr double kPointsPerInch = 72.0;
constexpr double kPicasPerInch = 6.0;

}  // namespace

void parseLength(_svg_value* out, const char* first, const char* last) {
  while (first != last && isWhite(*first)) ++first;
  if (plainDecimal(first, last, &out->value) == last && first != last) {
    out->unit = kUnitPixel;
    return;
  }
  const char* unit = lengthNumberEnd(first, last);
  out->value = boundedDecimal(first, unit);
  out->unit = lengthUnit(unit, static_cast<std::size_t>(lengthUnitEnd(unit, last) - unit));
}

}  // namespace egfsvg

int CHandlerReader::ParseValue(_svg_value* out, const char* text) {
  if (out != nullptr && text != nullptr) egfsvg::parseLength(out, text, text + std::strlen(text));
  return 0;
}

// The unit is all that follows the number, so a blank in front of it or behind it makes degrees.
int CHandlerReader::ParseAngle(_svg_angle* out, const char* text) {
  if (out == nullptr || text == nullptr) return 0;
  const char* last = text + std::strlen(text);
  const char* unit = text;
  while (!egfsvg::endsNumber(unit, last) && !egfsvg::isLetter(*unit)) ++unit;
  out->value = egfsvg::boundedDecimal(text, unit);
  out->unit = egfsvg::angleUnit(unit, static_cast<std::size_t>(last - unit));
  return 0;
}

int CHandlerReader::SetValueAtt(_svg_value* out, _svg_attrib_pair* pair) {
  if (pair == nullptr || out == nullptr || pair->value == nullptr) return 0;
  if (!egfsvg::readPlainNumber(*pair, out->value)) return egfsvg::readOtherLength(out, *pair);
  out->unit = egfsvg::kUnitPixel;
  return 0;
}

int CHandlerReader::SetAngleAtt(_svg_angle* out, _svg_attrib_pair* pair) {
  return pair == nullptr ? 0 : ParseAngle(out, pair->value);
}

double CHandlerReader::SVGPixelValue(_svg_value* value) {
  using namespace egfsvg;
  if (value == nullptr) return 0.0;
  double factor = 0.0;
  switch (value->unit) {
    case kUnitEm:
    case kUnitEx:
    case kUnitPixel:
      factor = 1.0;
      break;
    case kUnitPoint:
      factor = kDotsPerInch / kPointsPerInch;
      break;
    case kUnitPica:
      factor = kDotsPerInch / kPicasPerInch;
      break;
    case kUnitCentimetre:
      factor = kDotsPerInch / kCentimetresPerInch;
      break;
    case kUnitMillimetre:
      factor = kDotsPerInch / kCentimetresPerInch / 10.0;
      break;
    case kUnitInch:
      factor = kDotsPerInch;
      break;
    case kUnitPercent:
      factor = (value->axis == kAxisWidth ? viewportWidth : viewportHeight) / 100.0;
      break;
    default:
      break;
  }
  value->value *= factor;
  value->unit = kUnitPixel;
  return value->value;
}
