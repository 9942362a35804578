// The points attribute of polylines and polygons.

#include <cstring>

#include "model/plain_decimal.h"
#include "model/rmm_allocator.h"
#include "reader/number_scan.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

namespace {

// A coordinate of any form.
[[gnu::noinline]] const char* readOddCoordinate(double& out, const char* at, const char* last,
                                                NumberRule rule) {
  const char* end = plainDecimal(at, last, &out);
  if (end != nullptr && (end == last || isListSeparator(*end)) && end - at <= kListTokenSize) {
    return end;
  }
  const NumberSpan span = rule(at, last);
  out = decimalPrefix(at, span.end);
  return span.next;
}

// Kept: both coordinates refer to the width, and units in the text are not honoured.
const char* readCoordinate(_svg_value& out, const char* at, const char* last, NumberRule rule) {
  out = pixels(0.0, kAxisWidth);
  const bool negative = *at == '-';
  const char* const end = shortDecimal(at + (negative ? 1 : 0), last, &out.value);
  // Where a plain number ends at a separator, every rule ends it there.
  if (end == nullptr || (end != last && !isListSeparator(*end))) [[unlikely]] {
    return readOddCoordinate(out.value, at, last, rule);
  }
  out.value = detail::withSign(out.value, negative);
  return end;
}

// A lone coordinate at the end counts for nothing. False without memory.
bool readPoints(GrowingArray<_svg_point>& points, const char* at, const char* last,
                NumberRule rule) {
  _svg_point point{};
  for (;;) {
    at = skipListSeparators(at, last);
    if (at == last) return true;
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
  egfsvg::GrowingArray<_svg_point> points(RMM_SITE);
  const char* last = pair->value + std::strlen(pair->value);
  const auto rule = egfsvg::listNumberRule(state.settings.compactNumbers);
  if (!egfsvg::readPoints(points, pair->value, last, rule)) return nullptr;
  *count = points.count();
  return points.release();
}
