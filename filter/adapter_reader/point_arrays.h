// Points of shapes: corners, the arrays that objects own, bounds in pixels.
#pragma once

#include <cstdint>

#include "adapter_reader/mapping.h"
#include "host/egf_objects.h"
#include "model/values.h"

class CAdapterReader;

namespace egfsvg {

inline constexpr int kRectCorners = 4;

/// A new object that belongs to the document, null when memory ran out; allocateObject logs that.
_egf_obj* newObject(int objClass, const char* file, int line);
_egf_obj* allocateObject(int objClass, const char* file, int line);

/// The pen block of a polygon or box as every formatter starts it.
void setPolygonTemplate(EgfPolygon* polygon);

/// Corners in the order of a box: top left, bottom left, bottom right, top right. Space units.
void rectCorners(CAdapterReader& adapter, const _svg_point& origin, const _svg_value& width,
                 const _svg_value& height, _mpl_spacept_tag (&corners)[kRectCorners]);

/// Gives the polygon a copy of the points. False, with the fault logged, when memory ran out.
bool setPoints(EgfPolygon* polygon, const _mpl_spacept_tag* points, std::int32_t count);

/// An array of an element's points in space units. Null, with the fault logged, when memory ran
/// out.
_mpl_spacept_tag* convertedPoints(CAdapterReader& adapter, const _svg_point* points,
                                  std::int32_t count);

/// Maps the points in place; without a map they stay.
void mapPoints(CAdapterReader& adapter, _mpl_spacept_tag* points, std::int32_t count,
               _viewPortMap* map);

/// The box of at least one point, grown by a margin in pixels. Pixels.
_mpl_spacerect_tag pixelBounds(CAdapterReader& adapter, _mpl_spacept_tag* points,
                               std::int32_t count, double margin);

/// The width of a pen in pixels.
double penWidth(CAdapterReader& adapter, const _svg_value& strokeWidth);

}  // namespace egfsvg
