// The points attribute of polylines and polygons.

#include <cstring>

#include "model/rmm_allocator.h"
#include "reader/number_scan.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

namespace {

// Kept: both coordinates refer to the width, and units in the text are not honoured.
_svg_value coordinate(const char* first, const char* end) {
  return pixels(decimalPrefix(first, end), kAxisWidth);
}

// A lone coordinate at the end counts for nothing. False without memory.
bool readPoints(GrowingArray<_svg_point>& points, const char* at, const char* last,
                NumberRule rule) {
  bool pending = false;
  _svg_point point{};
  for (at = skipListSeparators(at, last); at != last; at = skipListSeparators(at, last)) {
    const NumberSpan span = rule(at, last);
    (pending ? point.y : point.x) = coordinate(at, span.end);
    if (pending && !points.push(point)) return false;
    pending = !pending;
    at = span.next;
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
