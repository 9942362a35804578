// Circles and ellipses. A host ellipse can be moved, scaled and turned; a sheared one becomes a
// polygon.

#include <cmath>
#include <utility>

#include "adapter_reader/owners.h"
#include "adapter_reader/pixel_scale.h"
#include "adapter_reader/plain_paint.h"
#include "adapter_reader/point_arrays.h"
#include "adapter_reader/point_map.h"
#include "adapter_reader/shape_paint.h"
#include "adapter_reader/shapes.h"
#include "adapter_reader/svg_adapterreader.h"
#include "geometry/angles.h"
#include "geometry/matrix.h"
#include "host/egf_bits.h"
#include "host/egf_templates.h"
#include "model/numbers.h"

namespace egfsvg {
namespace {

/// A circle or ellipse element by what both have.
struct RoundShape {
  _svg_common& head;
  _svg_pa_fill& fill;
  _svg_pa_stroke& stroke;
  _svg_pa_graphics& graphics;
  const _svg_value& cx;
  const _svg_value& cy;
  const _svg_value& rx;
  const _svg_value& ry;
};

_mpl_spacerect_tag roundBounds(const EgfEllipse& ellipse, double margin) {
  const auto radius = [](float edge, float middle) {
    return std::fabs(std::trunc(static_cast<double>(edge) - static_cast<double>(middle)));
  };
  const auto side = [&](float middle, double away, double by) {
    return static_cast<float>((static_cast<double>(middle) + away) / kSpaceUnits + by);
  };
  const double rx = radius(ellipse.radiusPt.x, ellipse.center.x);
  const double ry = radius(ellipse.radiusPt.y, ellipse.center.y);
  return {side(ellipse.center.x, -rx, -margin), side(ellipse.center.x, rx, margin),
          side(ellipse.center.y, -ry, -margin), side(ellipse.center.y, ry, margin)};
}

/// Kept: a negative shear counts as none.
bool isSheared(const Decomposition& parts) { return parts.shear > 0.0; }

void placeEllipse(CAdapterReader& adapter, const RoundShape& shape, EgfEllipse* ellipse) {
  ellipse->pen = kEllipsePen;
  ellipse->pen.ellipseRotation = 0;
  ellipse->pen.scaleFactor = 1.0;
  ellipse->startAngle = 0;
  ellipse->endAngle = kFullTurn;
  const PixelScale scale(adapter);
  const double x = scale.pixels(shape.cx);
  const double y = scale.pixels(shape.cy);
  ellipse->center = stored({x * kSpaceUnits, y * kSpaceUnits});
  ellipse->radiusPt = stored(
      {(x + scale.pixels(shape.rx)) * kSpaceUnits, (y + scale.pixels(shape.ry)) * kSpaceUnits});
}

/// Moves, scales and turns the ellipse itself. Host angles run against SVG's.
void mapEllipse(CAdapterReader& adapter, _viewPortMap* map, const Decomposition& parts,
                EgfEllipse* ellipse) {
  const double dx =
      static_cast<double>(ellipse->radiusPt.x) - static_cast<double>(ellipse->center.x);
  const double dy =
      static_cast<double>(ellipse->radiusPt.y) - static_cast<double>(ellipse->center.y);
  _mpl_spacept_tag center = ellipse->center;
  adapter._transformPoint(&center, map);
  ellipse->center = center;
  ellipse->radiusPt = {static_cast<float>(dx * parts.scaleX + static_cast<double>(center.x)),
                       static_cast<float>(dy * parts.scaleY + static_cast<double>(center.y))};
  ellipse->pen.ellipseRotation =
      truncated<std::int32_t>(-settledDegrees(degreesOf(parts.rotation)) * kMillionths);
}

/// A new polygon of the ellipse's outline, mapped. Null, with the fault logged, out of memory.
ObjectOwner shearedOutline(_egf_obj* ellipse, _viewPortMap* map) {
  ObjectOwner object(static_cast<_egf_obj*>(RMM_ChownName(EEL_XlatEllipseToPolygon(ellipse, 0))));
  if (!object) {
    logOutOfMemory(RMM_SITE);
    return object;
  }
  auto* polygon = as<EgfPolygon>(object.get());
  polygon->pen.modeFlags = FigureBits::with(polygon->pen.modeFlags, kFigureClosed);
  mapPoints(polygon->points.get(), polygon->pointCount, map);
  return object;
}

/// Gradient, fill code and style numbers of the object that the ellipse has become.
bool finishRound(FilledPaint& paint, const FilledForm& form, FilledPen& pen, _viewPortMap* map,
                 const _mpl_spacerect_tag& bounds, _egf_obj* object) {
  if (!paint.setGradient(form, map, bounds, object)) return false;
  paint.setFillStyle(pen);
  paint.storeStyles(form, object);
  return true;
}

/// The ellipse painted step by step, as it stays or as a polygon. Null when that failed.
[[gnu::noinline]] _egf_obj* paintRound(CAdapterReader& adapter, const RoundShape& shape,
                                       _viewPortMap* map, const Decomposition& parts,
                                       ObjectOwner object) {
  auto* ellipse = as<EgfEllipse>(object.get());
  const _mpl_spacerect_tag bounds =
      roundBounds(*ellipse, penWidth(adapter, shape.stroke.strokeWidth));
  FilledPaint paint(adapter, shape.fill, shape.stroke, shape.graphics);
  paint.setShapePen(filledPen(ellipse->pen));
  if (!isSheared(parts)) {
    mapEllipse(adapter, map, parts, ellipse);
    FilledPen& pen = filledPen(ellipse->pen);
    if (!finishRound(paint, kEllipseForm, pen, map, bounds, object.get())) return nullptr;
    EGF_CalcEllipseMer(&bounds, object.get());
    return object.release();
  }
  object = shearedOutline(object.get(), map);
  if (!object) return nullptr;
  FilledPen& pen = filledPen(as<EgfPolygon>(object.get())->pen);
  if (!finishRound(paint, kShearedForm, pen, map, bounds, object.get())) return nullptr;
  EGF_CalcPolygonMer(object.get(), adapter.map);
  return object.release();
}

_egf_obj* formatRound(CAdapterReader& adapter, const RoundShape& shape) {
  if (isHidden(shape.graphics)) return nullptr;
  ObjectOwner object(allocateObject(kClassEllipse, RMM_SITE));
  if (!object) return nullptr;
  auto* ellipse = as<EgfEllipse>(object.get());
  placeEllipse(adapter, shape, ellipse);
  const MapOwner map(adapter, adapter._findMapMatrix(&shape.head, nullptr, nullptr));
  if (!map) return nullptr;
  Decomposition parts;
  decomposeMatrix(map.get()->userSpace->matrix.m, &parts);
  if (isSheared(parts) || !isPlain(shape.fill, shape.stroke)) [[unlikely]] {
    return paintRound(adapter, shape, map.get(), parts, std::move(object));
  }
  const _mpl_spacerect_tag bounds =
      roundBounds(*ellipse, penWidth(adapter, shape.stroke.strokeWidth));
  paintPlainEllipse(adapter, shape.fill, shape.stroke, shape.graphics, ellipse);
  mapEllipse(adapter, map.get(), parts, ellipse);
  EGF_CalcEllipseMer(&bounds, object.get());
  return object.release();
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

_egf_obj* CAdapterReader::SVG_formatEGFCircle(_svg_circle* element) {
  return formatRound(*this, {element->head, element->fill, element->stroke, element->graphics,
                             element->cx, element->cy, element->r, element->r});
}

_egf_obj* CAdapterReader::SVG_formatEGFEllipse(_svg_ellipse* element) {
  return formatRound(*this, {element->head, element->fill, element->stroke, element->graphics,
                             element->cx, element->cy, element->rx, element->ry});
}
