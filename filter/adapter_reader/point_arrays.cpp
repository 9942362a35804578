#include "adapter_reader/point_arrays.h"

#include <cstring>

#include "adapter_reader/owners.h"
#include "adapter_reader/pixel_scale.h"
#include "adapter_reader/point_map.h"
#include "host/egf_templates.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

_mpl_spacerect_tag boxOf(const _mpl_spacept_tag* points, std::int32_t count) {
  _mpl_spacerect_tag box{points[0].x, points[0].x, points[0].y, points[0].y};
  for (std::int32_t i = 1; i < count; ++i) includePoint(box, points[i]);
  return box;
}

/// Places points that the identity maps. False when a unit is not SVG's pixel, or a number not
/// finite: then nothing is settled.
bool placeInPixels(double perSvgPixel, const _svg_point* points, std::int32_t count,
                   _mpl_spacept_tag* to) {
  FiniteCheck check;
  for (std::int32_t i = 0; i < count; ++i) {
    const _svg_value& x = points[i].x;
    const _svg_value& y = points[i].y;
    if (x.unit != kUnitPixel || y.unit != kUnitPixel) return false;
    to[i] = unsignedZeros(
        stored({perSvgPixel * x.value * kSpaceUnits, perSvgPixel * y.value * kSpaceUnits}));
    check.include(&to[i]);
  }
  return check.isFinite();
}

}  // namespace

_egf_obj* allocateObject(int objClass, const char* file, int line) {
  _egf_obj* object = newObject(objClass, file, line);
  if (object == nullptr) logOutOfMemory(file, line);
  return object;
}

void setPolygonTemplate(EgfPolygon* polygon) {
  polygon->pen = kPolygonPen;
  polygon->trailingWord = kPolygonTrailingWord;
}

void rectCorners(const PixelBox& box, _mpl_spacept_tag (&corners)[kRectCorners]) {
  const auto left = static_cast<float>(box.x * kSpaceUnits);
  const auto top = static_cast<float>(box.y * kSpaceUnits);
  const auto right = static_cast<float>((box.x + box.width) * kSpaceUnits);
  const auto bottom = static_cast<float>((box.y + box.height) * kSpaceUnits);
  corners[0] = {left, top};
  corners[1] = {left, bottom};
  corners[2] = {right, bottom};
  corners[3] = {right, top};
}

namespace {

/// Stores four places. False when one is not finite.
template <class Place>
[[gnu::always_inline]] inline bool storePlaces(const _mpl_spacept_tag (&corners)[kRectCorners],
                                               _mpl_spacept_tag* to, Place&& place) {
  FiniteCheck check;
  for (int i = 0; i < kRectCorners; ++i) {
    to[i] = place(corners[i]);
    check.include(&to[i]);
  }
  return check.isFinite();
}

}  // namespace

void placeCorners(const PixelBox& box, const _viewPortMap* map, _mpl_spacept_tag* to) {
  _mpl_spacept_tag corners[kRectCorners];
  rectCorners(box, corners);
  if (map == nullptr) {
    std::memcpy(to, corners, sizeof corners);
  } else if (!isIdentity(*map) || !storePlaces(corners, to, unsignedZeros)) {
    storePlaces(corners, to, PointMap(map->matrix));
  }
}

_mpl_spacept_tag* copiedPoints(const _mpl_spacept_tag* points, std::size_t count) {
  auto* copy = allocateArray<_mpl_spacept_tag>(count, RMM_SITE);
  if (copy != nullptr) std::memcpy(copy, points, count * sizeof *copy);
  return copy;
}

bool setPoints(EgfPolygon* polygon, const _mpl_spacept_tag* points, std::int32_t count) {
  _mpl_spacept_tag* copy = copiedPoints(points, static_cast<std::size_t>(count));
  if (copy == nullptr) {
    logOutOfMemory(RMM_SITE);
    return false;
  }
  polygon->points = copy;
  polygon->pointCount = count;
  return true;
}

RmmOwner<_mpl_spacept_tag> placedPoints(CAdapterReader& adapter, const _svg_point* points,
                                        std::int32_t count, const _viewPortMap* map,
                                        _mpl_spacerect_tag* before) {
  RmmOwner<_mpl_spacept_tag> placed(
      allocateArray<_mpl_spacept_tag>(static_cast<std::size_t>(count), RMM_SITE));
  _mpl_spacept_tag* to = placed.get();
  if (to == nullptr) {
    logOutOfMemory(RMM_SITE);
    return placed;
  }
  const PixelScale scale(adapter);
  if (before == nullptr && map != nullptr && isIdentity(*map) &&
      placeInPixels(scale.perSvgPixel(), points, count, to)) [[likely]] {
    return placed;
  }
  for (std::int32_t i = 0; i < count; ++i) to[i] = scale.point(points[i].x, points[i].y);
  if (before != nullptr) *before = boxOf(to, count);
  mapPoints(to, count, map);
  return placed;
}

_mpl_spacerect_tag inPixels(const _mpl_spacerect_tag& box, double margin) {
  const auto side = [](float edge, double by) {
    return static_cast<float>(static_cast<double>(edge) / kSpaceUnits + by);
  };
  return {side(box.left, -margin), side(box.right, margin), side(box.top, -margin),
          side(box.bottom, margin)};
}

_mpl_spacerect_tag pixelBounds(const _mpl_spacept_tag* points, std::int32_t count, double margin) {
  return inPixels(boxOf(points, count), margin);
}

double penWidth(CAdapterReader& adapter, const _svg_value& strokeWidth) {
  return PixelScale(adapter).pixels(strokeWidth);
}

}  // namespace egfsvg

using namespace egfsvg;

void CAdapterReader::svg_UpdateObjBoundingBox(_mpl_spacerect_tag& box, _mpl_spacept_tag* points,
                                              int count) {
  for (int i = 0; i < count; ++i) includePoint(box, points[i]);
}

/// The array stays the caller's, unchanged, when memory runs out and the result is null.
_mpl_spacept_tag* CAdapterReader::AddNewPointData(_mpl_spacept_tag* points, unsigned int* count,
                                                  _mpl_spacept_tag* added, unsigned int n) {
  void* grown =
      RMM_ReAllocName(points, std::size_t{*count} + n, sizeof(_mpl_spacept_tag), RMM_SITE);
  if (grown == nullptr) return nullptr;
  auto* all = static_cast<_mpl_spacept_tag*>(grown);
  if (added != nullptr) std::memcpy(&all[*count], added, n * sizeof *all);
  *count += n;
  return all;
}
