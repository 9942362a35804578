// What both roads of a path share: arcs by their centre, runs of straight points, and the repairs
// of curves and scaled arcs.

#include <cmath>
#include <utility>

#include "adapter_reader/owners.h"
#include "adapter_reader/page.h"
#include "adapter_reader/path_builder.h"
#include "adapter_reader/point_arrays.h"
#include "adapter_reader/svg_adapterreader.h"
#include "geometry/elliptic_arc.h"
#include "host/egf_templates.h"
#include "host/memory.h"

namespace egfsvg {
namespace {

constexpr double kUnitsPerPixel = 4096.0;
constexpr double kOneThird = 0.33333334;

PlanePoint between(PlanePoint a, PlanePoint b, double part) {
  return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
}

}  // namespace

void raiseQuadratic(PlanePoint current, PlanePoint control, PlanePoint end, bool exact,
                    PlanePoint* first, PlanePoint* second) {
  *first = exact ? between(control, current, kOneThird) : between(control, end, kOneThird);
  *second = exact ? between(control, end, kOneThird) : control;
}

void repairControls(const CAdapterReader& adapter, _mpl_spacept_tag* p) {
  constexpr double kRepairOffset = 9024.0;  // space units at 96 pixels per inch
  const auto samePlace = [&](int a, int b) { return p[a].x == p[b].x && p[a].y == p[b].y; };
  const auto beside = [&](float x) {
    return x + static_cast<float>(kRepairOffset * resolutionOf(adapter) / 96.0);
  };
  if (samePlace(0, 1)) {
    p[1].x = beside(p[0].x);
  } else if (samePlace(2, 3)) {
    p[2].x = beside(p[3].x);
  } else if (samePlace(1, 2)) {
    p[2].x = beside(p[1].x);
  }
}

ObjectOwner straightLine(const _mpl_spacept_tag* points) {
  ObjectOwner object(newObject(kClassLine, RMM_SITE));
  if (!object) return object;
  EgfLine* line = as<EgfLine>(object.get());
  line->pen = kLinePen;
  line->pen.scaleFactor = 1.0;
  line->startPt = points[0];
  line->endPt = points[1];
  return object;
}

ObjectOwner straightRun(RmmOwner<_mpl_spacept_tag> points, unsigned int count) {
  ObjectOwner object(points ? newObject(kClassPolyline, RMM_SITE) : nullptr);
  if (!object) return object;
  EgfPolyline* run = as<EgfPolyline>(object.get());
  run->pen = kPolylinePen;
  run->pen.scaleFactor = 1.0;
  run->points = PointArray::of(points.release());
  run->pointCount = count;
  return object;
}

BezierPathBuilder::BezierPathBuilder(CAdapterReader& adapter, const Plan& plan)
    : adapter_(adapter),
      plan_(plan),
      identity_(plan.map != nullptr && isIdentity(*plan.map)),
      outer_(newObject(kClassPath, RMM_SITE)) {
  if (plan.map != nullptr && !identity_) map_.emplace(plan.map->matrix);
  here_ = onPage({0.0, 0.0});
}

void BezierPathBuilder::decomposeMap() {
  if (decomposed_ || plan_.map == nullptr || plan_.map->userSpace == nullptr) return;
  decomposed_ = true;
  adapter_.svg_DecomposeMatrix(plan_.map->userSpace->matrix.m, &shear_, &scaleX_, &scaleY_,
                               &rotation_);
}

bool BezierPathBuilder::hasChildren() const {
  return static_cast<bool>(as<EgfPath>(outer_.get())->firstChild);
}

}  // namespace egfsvg

int CAdapterReader::ArcEndpointToCenter(_svg_path_data* d, double x, double y,
                                        _mpl_spacept_tag* center, double* rx, double* ry,
                                        double* startAngle, double* endAngle, int relative) {
  using namespace egfsvg;
  const double res = resolutionOf(*this);
  const auto units = [&](const _svg_value& v) {
    return SVGValueToPixelValue(v, res) * kUnitsPerPixel;
  };
  const ArcEnds ends{x,
                     y,
                     units(d->arg0) + (relative != 0 ? x : 0.0),
                     units(d->arg1) + (relative != 0 ? y : 0.0),
                     std::fabs(units(d->arg2)),
                     std::fabs(units(d->arg3)),
                     SVGAngleToRAD({d->arg4.unit, d->arg4.value}),
                     d->arg4.axis != 0,
                     d->arg5.unit != 0};
  ArcCenter arc{};
  if (!arcFromEnds(ends, &arc)) return -1;
  *center = {static_cast<float>(arc.cx), static_cast<float>(arc.cy)};
  *rx = arc.rx;
  *ry = arc.ry;
  *startAngle = arc.start;
  *endAngle = arc.end;
  return 0;
}

int CAdapterReader::_attachPlineToPath(_mpl_spacept_tag* points, unsigned int* count,
                                       _egf_obj* path) {
  using namespace egfsvg;
  if (points == nullptr || *count < 2) return 0;
  RmmOwner<_mpl_spacept_tag> owned(points);
  ObjectOwner object = *count == 2 ? straightLine(points) : straightRun(std::move(owned), *count);
  return object && handOver(path, object) ? 0 : -1;
}

/// At most one repair is made, the first that applies.
void CAdapterReader::_checkBezierCntrlPts(_mpl_spacept_tag* p) { egfsvg::repairControls(*this, p); }

void CAdapterReader::_scaleEllipseArc(double* startDeg, double* endDeg, double* rx, double* ry,
                                      double scaleX, double scaleY) {
  egfsvg::scaleArcAngles(startDeg, endDeg, scaleX, scaleY);
  *rx *= scaleX;
  *ry *= scaleY;
}
