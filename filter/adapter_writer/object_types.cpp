// Which element stands for an ellipse or a polygon.

#include <cmath>
#include <cstdlib>

#include "adapter_writer/svg_adapterwriter.h"
#include "host/egf.h"
#include "host/egf_bits.h"
#include "host/egf_codes.h"

namespace egfsvg {
namespace {

constexpr std::int32_t kRectCorners = 4;

bool isWholeEllipse(const EgfEllipse& ellipse) {
  const std::int64_t end = ellipse.endAngle == 0 ? kFullTurn : ellipse.endAngle;
  return ellipse.startAngle == 0 && std::abs(end) == kFullTurn;
}

int ellipseType(const EgfEllipse& ellipse) {
  if (!isWholeEllipse(ellipse)) return kTagPath;
  const double width = std::fabs(double{ellipse.radiusPt.x} - double{ellipse.center.x});
  const double height = std::fabs(double{ellipse.radiusPt.y} - double{ellipse.center.y});
  return std::round(width) == std::round(height) ? kTagCircle : kTagEllipse;
}

/// Four corners whose sides lie on the axes, whichever comes first.
bool isUpright(const _mpl_spacept_tag* p) {
  const bool downFirst = p[0].x == p[1].x && p[0].y == p[3].y;
  const bool acrossFirst = p[0].x == p[3].x && p[0].y == p[1].y;
  return downFirst || acrossFirst;
}

int polygonType(const EgfPolygon& polygon) {
  if (polygon.subPathCount >= 2) return kTagPath;
  if (FigureBits::get(polygon.pen.modeFlags) == kFigureOpen) return kTagPolyline;
  const PointArray points = polygon.points;
  const bool corners = polygon.pointCount == kRectCorners && points;
  const bool box = polygon.head.objClass == kClassBox && corners && isUpright(points.get());
  return box ? kTagRect : kTagPolygon;
}

}  // namespace
}  // namespace egfsvg

int CAdapterWriter::_getSvgObjType(_egf_obj* object) {
  using namespace egfsvg;
  switch (EGF_GetObjectClass(object)) {
    case kClassEllipse:
      return ellipseType(*as<EgfEllipse>(object));
    case kClassPolygon:
      return polygonType(*as<EgfPolygon>(object));
    default:
      return kTagNone;
  }
}
