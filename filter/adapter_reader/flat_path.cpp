// Flattened paths, for hotspots: one polygon in which every curve is straight segments.

#include <algorithm>

#include "adapter_reader/owners.h"
#include "adapter_reader/path_walk.h"
#include "adapter_reader/point_arrays.h"
#include "adapter_reader/point_map.h"
#include "adapter_reader/shape_paint.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_bits.h"
#include "host/egf_templates.h"
#include "host/memory.h"
#include "model/codes.h"
#include "model/numbers.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

constexpr std::int32_t kMaxSubPathPoints = 65'535;  // what a sub-path's size can hold
constexpr double kMillionth = 1'000'000.0;

class FlatPathBuilder {
 public:
  FlatPathBuilder(CAdapterReader& adapter, EgfPolygon* polygon)
      : adapter_(adapter), polygon_(polygon) {}
  ~FlatPathBuilder() = default;
  FlatPathBuilder(const FlatPathBuilder&) = delete;
  FlatPathBuilder& operator=(const FlatPathBuilder&) = delete;

  // The walk's sink.
  bool beginSubPath(const _svg_singlepath&) {
    start_ = points_.count();
    return true;
  }
  bool moveTo(PlanePoint to) { return add(to); }
  bool lineTo(PlanePoint, PlanePoint to) { return add(to); }
  bool curveTo(const CubicPoints& cubic);
  bool arcTo(const ArcEnds& ends, const ArcCenter& arc);
  bool closeTo(PlanePoint, PlanePoint) { return true; }
  bool endSubPath(const _svg_singlepath& subPath);

  void mapPoints(const _viewPortMap* map) {
    egfsvg::mapPoints(points_.data(), points_.count(), map);
  }
  /// The box of the points in pixels, grown by a margin in pixels.
  _mpl_spacerect_tag bounds(double margin) const;
  /// Hands the points to the polygon.
  void finish() {
    polygon_->pointCount = points_.count();
    polygon_->points = PointArray::of(points_.release());
  }

 private:
  bool add(PlanePoint point) {
    const _mpl_spacept_tag place = stored(point);
    return addAll(&place, 1);
  }
  bool addAll(const _mpl_spacept_tag* added, unsigned int n);

  CAdapterReader& adapter_;
  EgfPolygon* polygon_;
  GrowingArray<_mpl_spacept_tag> points_{RMM_SITE};
  std::int32_t start_ = 0;  // of the sub-path
};

bool FlatPathBuilder::addAll(const _mpl_spacept_tag* added, unsigned int n) {
  const std::int32_t room =
      kMaxSubPathPoints - std::min(kMaxSubPathPoints, points_.count() - start_);
  return points_.append(added, static_cast<std::int32_t>(std::min<std::int64_t>(n, room)));
}

bool FlatPathBuilder::curveTo(const CubicPoints& cubic) {
  const _mpl_spacept_tag places[4] = {stored(cubic.from), stored(cubic.first), stored(cubic.second),
                                      stored(cubic.to)};
  std::uint32_t n = 0;
  RmmOwner<_mpl_spacept_tag> curve(EEL_DiscretizeCurve(places, 4, 1, 0, &n));
  return curve && addAll(curve.get(), n);
}

/// The arc runs counter-clockwise as computed; with the sweep flag it is drawn the other way.
bool FlatPathBuilder::arcTo(const ArcEnds& ends, const ArcCenter& arc) {
  _mpl_spacept_tag center{static_cast<float>(arc.cx), static_cast<float>(arc.cy)};
  unsigned int n = 0;
  RmmOwner<_mpl_spacept_tag> points(
      adapter_.svg_discretizeArc(&center, static_cast<float>(arc.rx), static_cast<float>(arc.ry),
                                 ends.rotation, rounded<std::int32_t>(arc.start * kMillionth),
                                 rounded<std::int32_t>(arc.end * kMillionth), &n));
  if (!points) return false;
  if (ends.sweep) std::reverse(points.get(), points.get() + n);
  return addAll(points.get(), n);
}

bool FlatPathBuilder::endSubPath(const _svg_singlepath& subPath) {
  const std::int32_t added = points_.count() - start_;
  if ((subPath.closed != 0 || subPath.subFlag != 0) && added > 0) {  // either flag closes
    const _mpl_spacept_tag first = points_[start_];
    const _mpl_spacept_tag last = points_.back();
    if ((first.x != last.x || first.y != last.y) && !addAll(&first, 1)) return false;
  }
  if (polygon_->subPathSizes) {
    polygon_->subPathSizes[polygon_->subPathCount] =
        static_cast<std::uint16_t>(points_.count() - start_);
  }
  polygon_->subPathCount = polygon_->subPathCount + 1;
  return true;
}

_mpl_spacerect_tag FlatPathBuilder::bounds(double margin) const {
  if (points_.empty()) return {};
  return pixelBounds(points_.data(), points_.count(), margin);
}

bool makeSizeTable(EgfPolygon* polygon, std::int32_t subPaths) {
  if (subPaths <= 1) return true;
  auto* sizes = allocateArray<std::uint16_t>(static_cast<std::size_t>(subPaths), RMM_SITE);
  polygon->subPathSizes = ref32<std::uint16_t>::of(sizes);
  return sizes != nullptr;
}

/// As any filled shape, but a miter limit is kept only for a solid pen.
bool finishFlat(CAdapterReader& adapter, _egf_obj* object, const _mpl_spacerect_tag& bounds,
                _viewPortMap* map, _svg_path& element) {
  auto* polygon = as<EgfPolygon>(object);
  FilledPen& pen = filledPen(polygon->pen);
  pen.modeFlags =
      FillRuleBits::with(FigureBits::with(pen.modeFlags, kFigureClosed),
                         static_cast<unsigned>(adapter.castFillMode(element.fill.fillRule)));
  polygon->pen.scaleFactor = 1.0;
  FilledPaint paint(adapter, element.fill, element.stroke, element.graphics);
  paint.setShapePen(pen);
  if (!paint.setGradient(kPolygonForm, map, bounds, object)) return false;
  paint.setFillStyle(pen);
  paint.setJoin(pen, pen.lineStyle == kLineSolid);
  paint.storeStyles(kPolygonForm, object);
  return true;
}

}  // namespace
}  // namespace egfsvg

_egf_obj* CAdapterReader::SVG_formatEGFPath(_svg_path* element) {
  using namespace egfsvg;
  if (element->graphics.visibility == kHidden) return nullptr;
  ObjectOwner object(EEL_AllocObject(kClassPolygon, RMM_SITE));
  if (!object) {
    logOutOfMemory(RMM_SITE);
    return nullptr;
  }
  EgfPolygon* polygon = as<EgfPolygon>(object.get());
  polygon->pen = kPolygonPen;
  polygon->trailingWord = kPolygonTrailingWord;
  FlatPathBuilder builder(*this, polygon);
  if (!makeSizeTable(polygon, element->pathCount) || !PathWalk(*this, builder).run(*element)) {
    logOutOfMemory(RMM_SITE);
    return nullptr;
  }
  _mpl_spacerect_tag bounds{};
  if (needsBounds(element->fill, element->stroke)) {
    bounds = builder.bounds(penWidth(*this, element->stroke.strokeWidth));
  }
  MapOwner pathMap(*this, _findMapMatrix(&element->head, nullptr, nullptr));
  builder.mapPoints(pathMap.get());
  builder.finish();
  if (!finishFlat(*this, object.get(), bounds, pathMap.get(), *element)) return nullptr;
  EGF_CalcPolygonMer(object.get(), this->map);
  return object.release();
}
