// The points attribute of polylines and polygons.

#include <cstring>

#include "model/rmm_allocator.h"
#include "reader/number_scan.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

namespace {

// Kept: both coordinates refer to the width, and units in the text are not honoured.
const char* readCoordinate(_svg_value& out, const char* at, const char* last, NumberRule rule) {
  out = pixels(0.0, kAxisWidth);
  const char* end = plainDecimal(at, last, &out.value);
  // Where a plain number ends at a separator, every rule ends it there.
  if (end != nullptr && (end == last || isListSeparator(*end)) && end - at <= kListTokenSize) {
    return end;
  }
  const NumberSpan span = rule(at, last);
  out.value = decimalPrefix(at, span.end);
  return span.next;
}

// A lone coordinate at the end counts for nothing. False without memory.
bool readPoints(GrowingArray<_svg_point>& points, const char* at, const char* last,
                NumberRule rule) {
  bool pending = false;
  _svg_point point{};
  for (at = skipListSeparators(at, last); at != last; at = skipListSeparators(at, last)) {
    at = readCoordinate(pending ? point.y : point.x, at, last, rule);
    if (pending && !points.push(point)) return false;
    pending = !pending;
  }
  return true;
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
