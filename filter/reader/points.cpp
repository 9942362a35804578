// The points attribute of polylines and polygons.

#include "model/decimal_pair.h"
#include "model/gathered_array.h"
#include "reader/number_scan.h"
#include "reader/svg_handlerreader.h"
#include "reader/value_text.h"

namespace egfsvg {

namespace {

constexpr std::ptrdiff_t kNearPoints = 64;
using Points = GatheredArray<_svg_point, kNearPoints>;

// Kept: both coordinates refer to the width, and units in the text are not honoured.
const char* readCoordinate(_svg_value& out, const char* at, const char* last, NumberRule rule) {
  out = pixels(0.0, kAxisWidth);
  const char* end = plainDecimal(at, last, &out.value);
  if (end != nullptr && (end == last || isListSeparator(*end)) && end - at <= kListTokenSize) {
    return end;
  }
  const NumberSpan span = rule(at, last);
  out.value = decimalPrefix(at, span.end);
  return span.next;
}

/// Takes points of the usual form, two short numbers with one separator behind each, as many as
/// follow. Every rule reads these alike. Where another text follows, or the end.
const char* readPlainPoints(Points& points, const char* at, const ValueText& text) {
  if (text.readable - at < kDecimalPairReach) return at;
  const char* const lastStart = text.readable - kDecimalPairReach;
  _svg_point* place = points.next();
  for (; place != points.full() && at <= lastStart; ++place) {
    const DecimalPair pair = DecimalPair::scan(at);
    if (pair.end() == nullptr || !isListSeparator(pair.between())) break;
    const bool separated = isListSeparator(*pair.end());
    if (!separated && pair.end() != text.last) break;
    place->x.unit = place->y.unit = kUnitPixel;
    place->x.axis = place->y.axis = kAxisWidth;
    pair.values(place->x.value, place->y.value);
    at = pair.end() + (separated ? 1 : 0);
  }
  points.setNext(place);
  return at;
}

// A lone coordinate at the end counts for nothing. False without memory.
bool readPoints(Points& points, const ValueText& text, NumberRule rule) {
  const char* const last = text.last;
  const char* at = text.first;
  for (;;) {
    at = readPlainPoints(points, at, text);
    at = skipListSeparators(at, last);
    if (at == last) return true;
    _svg_point point;
    at = skipListSeparators(readCoordinate(point.x, at, last, rule), last);
    if (at == last) return true;
    at = readCoordinate(point.y, at, last, rule);
    _svg_point* const place = points.append();
    if (place == nullptr) return false;
    *place = point;
  }
}

}  // namespace

}  // namespace egfsvg

_svg_point* CHandlerReader::SetPointsAtt(int* count, _svg_attrib_pair* pair) {
  if (count == nullptr || pair == nullptr || pair->value == nullptr) return nullptr;
  *count = 0;
  egfsvg::Points points(RMM_SITE);
  const auto rule = egfsvg::listNumberRule(state.settings.compactNumbers);
  if (!egfsvg::readPoints(points, egfsvg::textOf(*pair), rule)) return nullptr;
  const int gathered = points.count();
  _svg_point* const block = points.release();
  if (block != nullptr) *count = gathered;
  return block;
}
