// What the formatters of shapes hand to the steps that they share.
#pragma once

#include "adapter_reader/owners.h"
#include "model/elements.h"

namespace egfsvg {

/// The property groups of a shape and where it lies. Taking style codes changes the groups.
struct ShapeScene {
  _svg_pa_fill& fill;
  _svg_pa_stroke& stroke;
  _svg_pa_graphics& graphics;
  _mpl_spacerect_tag bounds;  // pixels, before the map
  _viewPortMap* map;          // null: nothing is mapped
};

/// Pen, fill, style numbers and bounds of a polygon whose points are set, as an open or a closed
/// figure. 0, or -1 after destroying the object.
int finishPolygon(CAdapterReader& adapter, ObjectOwner& object, const ShapeScene& scene,
                  unsigned figure);

/// A polyline or polygon element by what both have.
struct PointShape {
  _svg_common& head;
  _svg_pa_fill& fill;
  _svg_pa_stroke& stroke;
  _svg_pa_graphics& graphics;
  const _svg_point* points;
  std::int32_t count;
  bool closed;
};

/// A polygon of the shape's points; null when it is hidden, has no points, or failed.
_egf_obj* formatPolygon(CAdapterReader& adapter, const PointShape& shape);

template <class Element>
PointShape pointShape(Element& element, bool closed) {
  return {element.head,   element.fill,       element.stroke, element.graphics,
          element.points, element.pointCount, closed};
}

inline bool isHidden(const _svg_pa_graphics& graphics) { return graphics.visibility == kHidden; }

}  // namespace egfsvg
