// Points of shapes: corners, the arrays that objects own, bounds in pixels.
#pragma once

#include <cstdint>

#include "adapter_reader/mapping.h"
#include "host/egf_objects.h"
#include "host/memory.h"
#include "host/objects.h"
#include "model/owners.h"
#include "model/values.h"

class CAdapterReader;

namespace egfsvg {

inline constexpr int kRectCorners = 4;

/// A new object that belongs to the document, null when memory ran out; allocateObject logs that.
inline _egf_obj* newObject(int objClass, const char* file, int line) {
  return static_cast<_egf_obj*>(RMM_ChownName(EEL_AllocObject(objClass, file, line)));
}
_egf_obj* allocateObject(int objClass, const char* file, int line);

/// The pen block of a polygon or box as every formatter starts it.
void setPolygonTemplate(EgfPolygon* polygon);

/// A rectangle as an element tells it, in pixels.
struct PixelBox {
  double x, y, width, height;
};

/// Corners in the order of a box: top left, bottom left, bottom right, top right. Space units.
void rectCorners(const PixelBox& box, _mpl_spacept_tag (&corners)[kRectCorners]);

/// The corners where they stand on the page; without a map they stay.
void placeCorners(const PixelBox& box, const _viewPortMap* map, _mpl_spacept_tag* to);

/// A copy of the points; null when memory ran out.
_mpl_spacept_tag* copiedPoints(const _mpl_spacept_tag* points, std::size_t count);

/// Gives the polygon a copy of the points. False, with the fault logged, when memory ran out.
bool setPoints(EgfPolygon* polygon, const _mpl_spacept_tag* points, std::int32_t count);

/// The points of an element where they stand on the page, in space units; without a map they stay.
/// `before`, when it is not null, is set to their box before the map. There is at least one point.
/// Null when memory ran out, which is logged.
RmmOwner<_mpl_spacept_tag> placedPoints(CAdapterReader& adapter, const _svg_point* points,
                                        std::int32_t count, const _viewPortMap* map,
                                        _mpl_spacerect_tag* before);

/// Makes the box hold the point too; numbers that are none change nothing.
inline void includePoint(_mpl_spacerect_tag& box, _mpl_spacept_tag point) {
  if (point.x < box.left) box.left = point.x;
  if (point.x > box.right) box.right = point.x;
  if (point.y < box.top) box.top = point.y;
  if (point.y > box.bottom) box.bottom = point.y;
}

/// A box in space units as pixels, grown by a margin in pixels.
_mpl_spacerect_tag inPixels(const _mpl_spacerect_tag& box, double margin);

/// The box of at least one point, grown by a margin in pixels. Pixels.
_mpl_spacerect_tag pixelBounds(const _mpl_spacept_tag* points, std::int32_t count, double margin);

/// The width of a pen in pixels.
double penWidth(CAdapterReader& adapter, const _svg_value& strokeWidth);

}  // namespace egfsvg
