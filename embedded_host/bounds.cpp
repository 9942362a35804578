#include "embedded_host/bounds.h"

#include <algorithm>
#include <array>

#include "embedded_host/fault.h"
#include "embedded_host/layouts.h"
#include "embedded_host/point_run.h"
#include "embedded_host/text_measure.h"
#include "host/egf.h"
#include "host/egf_bits.h"
#include "host/egf_codes.h"
#include "host/objects.h"

namespace egfhost {

namespace {

using namespace egfsvg;

void include(Box& box, PointRun points) {
  if (points.curve) {
    includeCurves(box, points.at, points.count);
  } else {
    box.include(points.at, points.count);
  }
}

void polygonBox(const _egf_obj* object, HostHandle, Box& box) {
  include(box, pointsOf(as<EgfPolygon>(object)));
}

void polylineBox(const _egf_obj* object, HostHandle, Box& box) {
  include(box, pointsOf(as<EgfPolyline>(object)));
}

void ellipseBox(const _egf_obj* object, HostHandle, Box& box) {
  const auto* record = as<EgfEllipse>(object);
  const _mpl_spacept_tag center = record->center;
  const _mpl_spacept_tag corner = record->radiusPt;
  includeEllipse(box, center, double{corner.x} - center.x, double{corner.y} - center.y,
                 record->pen.ellipseRotation, record->startAngle, record->endAngle);
}

void arcBox(const _egf_obj* object, HostHandle, Box& box) {
  const auto* record = as<EgfArc>(object);
  const _mpl_spacept_tag radii = record->radiusPt;
  includeEllipse(box, record->center, radii.x, radii.y, 0, record->startAngle, record->endAngle);
}

void lineBox(const _egf_obj* object, HostHandle, Box& box) {
  const auto* record = as<EgfLine>(object);
  box.include(record->startPt);
  box.include(record->endPt);
}

void arrowLineBox(const _egf_obj* object, HostHandle, Box& box) {
  const auto* record = as<EgfArrowLine>(object);
  box.include(record->startPt);
  box.include(record->endPt);
  Box heads;
  for (const _mpl_spacept_tag& point : record->headPts) heads.include(point);
  // Head points that were never set stand at the origin, all of them.
  if (!isEmpty(heads.rect())) box.include(heads.rect());
}

void textBox(const _egf_obj* object, HostHandle map, Box& box) {
  const auto* record = as<EgfTextObject>(object);
  includeText(box, record->parms, record->text.origin, record->text.textString.get(), map);
}

void annotationBox(const _egf_obj* object, HostHandle map, Box& box) {
  const auto* record = as<EgfAnnotation>(object);
  includeText(box, record->parms, record->origin, record->annotText.get(), map);
}

void cloudBox(const _egf_obj* object, HostHandle, Box& box) {
  const auto* record = as<EgfCloud>(object);
  box.include(record->corners, std::size(record->corners));
  const PointArray outline = record->outline;
  box.include(outline.get(), outline ? record->outlineCount : 0);
}

void diamondBox(const _egf_obj* object, HostHandle, Box& box) {
  const auto* record = as<EgfDiamond>(object);
  const PointArray points = record->points;
  constexpr std::size_t kCorners = 4;
  box.include(points.get(), points ? kCorners : 0);
}

void crossoutBox(const _egf_obj* object, HostHandle, Box& box) {
  const auto* record = as<EgfCrossout>(object);
  for (const _mpl_spacept_tag& point :
       {record->startPt, record->endPt, record->startPt2, record->endPt2}) {
    box.include(point);
  }
}

void imageBox(const _egf_obj* object, HostHandle, Box& box) {
  box.include(as<EgfImage>(object)->placement);
}

void opaqueBox(const _egf_obj* object, HostHandle, Box& box) {
  box.include(as<EgfOpaqueObject>(object)->placement);
}

void stockObjectBox(const _egf_obj* object, HostHandle, Box& box) {
  box.include(as<EgfStockObject>(object)->place);
}

void groupBox(const _egf_obj* object, HostHandle, Box& box) {
  const auto* record = as<EgfGroup>(object);
  if (record->firstChild && !isEmpty(record->groupMer)) box.include(record->groupMer);
}

void pathBox(const _egf_obj* object, HostHandle, Box& box) {
  const auto* record = as<EgfPath>(object);
  if (record->firstChild && record->hasBounds != 0) box.include(record->bounds);
}

struct BoundsRow {
  std::int32_t objClass;
  void (*include)(const _egf_obj*, HostHandle, Box&);
  std::size_t slot;  // where the record keeps its rectangle, 0 when it does not
};

constexpr BoundsRow kBoundsRows[] = {
    {kClassGroup, groupBox, 0},
    {kClassBox, polygonBox, offsetof(EgfPolygon, bounds)},
    {kClassArc, arcBox, 0},
    {kClassLine, lineBox, 0},
    {kClassEllipse, ellipseBox, 0},
    {kClassArrowLine, arrowLineBox, 0},
    {kClassPolyline, polylineBox, offsetof(EgfPolyline, bounds)},
    {kClassPolygon, polygonBox, offsetof(EgfPolygon, bounds)},
    {kClassText, textBox, offsetof(EgfTextObject, text.bounds)},
    {kClassAnnotation, annotationBox, offsetof(EgfAnnotation, bounds)},
    {kClassImage, imageBox, 0},
    {kClassIcon, opaqueBox, 0},
    {kClassBookmark, opaqueBox, 0},
    {kClassStockObject, stockObjectBox, 0},
    {kClassCloud, cloudBox, offsetof(EgfCloud, bounds)},
    {kClassDiamond, diamondBox, offsetof(EgfDiamond, bounds)},
    {kClassCrossout, crossoutBox, offsetof(EgfCrossout, bounds)},
    {kClassMetafile, opaqueBox, 0},
    {kClassPath, pathBox, 0},
    {kClassComplexLine, opaqueBox, 0},
    {kClassRegion, opaqueBox, 0},
    {kClassCopy, opaqueBox, 0},
};

// The rows by layout class; a hotspot's data has no place, and so no row.
consteval std::array<BoundsRow, kLayoutCount> rowsByClass() {
  std::array<BoundsRow, kLayoutCount> rows{};
  for (const BoundsRow& row : kBoundsRows) rows[static_cast<std::size_t>(row.objClass)] = row;
  return rows;
}

constexpr std::array<BoundsRow, kLayoutCount> kBoundsByClass = rowsByClass();

// Texts are measured once: the rectangle that they keep holds until it is recomputed.
bool keptTextBounds(const _egf_obj* object, std::size_t slot, _mpl_spacerect_tag* bounds) {
  if (object->layoutClass != kClassText && object->layoutClass != kClassAnnotation) return false;
  *bounds = readPacked<_mpl_spacerect_tag>(object, slot);
  return !isEmpty(*bounds);
}

bool computeBounds(const _egf_obj* object, const BoundsRow& row, HostHandle map,
                   _mpl_spacerect_tag* bounds) {
  Box box;
  if (row.include != nullptr) row.include(object, map, box);
  const bool usable = box.isUsable();
  *bounds = usable ? box.rect() : _mpl_spacerect_tag{};
  return usable;
}

// Keeps what a box has come to as the polygon's rectangle.
inline bool keepBox(EgfPolygon* polygon, const Box& box) {
  const bool usable = box.isUsable();
  polygon->bounds = usable ? box.rect() : _mpl_spacerect_tag{};
  return usable;
}

[[gnu::noinline]] bool refreshCurve(EgfPolygon* polygon, PointRun points) {
  Box box;
  includeCurves(box, points.at, points.count);
  return keepBox(polygon, box);
}

inline bool refreshPolygon(EgfPolygon* polygon) {
  const PointRun points = pointsOf(polygon);
  if (points.curve) return refreshCurve(polygon, points);
  Box box;
  box.include(points.at, points.count);
  return keepBox(polygon, box);
}

const BoundsRow& rowOf(const _egf_obj* object) { return kBoundsByClass[object->layoutClass]; }

[[gnu::noinline]] bool refreshByRow(_egf_obj* object, HostHandle map) {
  const BoundsRow& row = rowOf(object);
  _mpl_spacerect_tag bounds;
  const bool usable = computeBounds(object, row, map, &bounds);
  if (row.slot != 0) writePacked(object, row.slot, bounds);
  return usable;
}

}  // namespace

bool boundsOf(const _egf_obj* object, HostHandle map, _mpl_spacerect_tag* bounds) {
  const BoundsRow& row = rowOf(object);
  return keptTextBounds(object, row.slot, bounds) || computeBounds(object, row, map, bounds);
}

bool refreshBounds(_egf_obj* object, HostHandle map) {
  // Most objects are polygons: those go the short way.
  if (object->layoutClass == kClassPolygon || object->layoutClass == kClassBox) {
    return refreshPolygon(as<EgfPolygon>(object));
  }
  return refreshByRow(object, map);
}

}  // namespace egfhost

namespace {

constexpr int kNone = -1;

int recompute(_egf_obj* object, HostHandle map) {
  return object != nullptr && egfhost::refreshBounds(object, map) ? 0 : kNone;
}

// A tree block in the place of an object stands for its root: no object class is that large.
_egf_obj* objectOrRoot(_egf_obj* object) {
  using namespace egfsvg;
  if ((object->objClass >> kHeaderSizeShift) != (kTreeBlockWord >> kHeaderSizeShift)) return object;
  return blockBody<EgfTreeBody>(reinterpret_cast<EgfBlockHeader*>(object))->root.get();
}

}  // namespace

extern "C" {

int EEL_GetObjectMer(_egf_obj* object, _mpl_spacerect_tag* mer, HostHandle map) {
  if (mer == nullptr) return kNone;
  *mer = {};
  if (egfhost::faultFails(egfhost::FaultCall::EEL_GetObjectMer) || object == nullptr) return kNone;
  const _egf_obj* measured = objectOrRoot(object);
  return measured != nullptr && egfhost::boundsOf(measured, map, mer) ? 0 : kNone;
}

int EGF_CalcPolygonMer(_egf_obj* object, HostHandle map) { return recompute(object, map); }
int EGF_CalcPolylineMer(_egf_obj* object, HostHandle map) { return recompute(object, map); }
int EGF_CalcTextMer(_egf_obj* object, HostHandle map) { return recompute(object, map); }
int EGF_CalcAnnotnMer(_egf_obj* object, HostHandle map) { return recompute(object, map); }

int EGF_CalcEllipseMer(const _mpl_spacerect_tag* /*bounds*/, _egf_obj* object) {
  return recompute(object, 0);
}

}  // extern "C"
