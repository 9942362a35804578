// Pen, fill and style numbers of boxes, polygons and paths.

#include "adapter_reader/object_boxes.h"
#include "adapter_reader/owners.h"
#include "adapter_reader/plain_paint.h"
#include "adapter_reader/shape_paint.h"
#include "adapter_reader/shapes.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_bits.h"

namespace egfsvg {
namespace {

/// The same paint step by step, for what has a gradient. False when that failed.
[[gnu::noinline]] bool paintPolygon(CAdapterReader& adapter, const ShapeScene& scene,
                                    unsigned figure, _egf_obj* object) {
  auto* polygon = as<EgfPolygon>(object);
  FilledPen& pen = filledPen(polygon->pen);
  pen.modeFlags = figureMode(pen.modeFlags, figure, scene.fill.fillRule);
  polygon->pen.scaleFactor = 1.0;
  FilledPaint paint(adapter, scene.fill, scene.stroke, scene.graphics);
  paint.setShapePen(pen);
  if (!paint.setGradient(kPolygonForm, scene.map, scene.bounds, object)) return false;
  paint.setFillStyle(pen);
  paint.setJoin(pen);
  if (figure == kFigureOpen && pen.lineStyle == kLineSolid) paint.setCaps();
  paint.storeStyles(kPolygonForm, object);
  return true;
}

[[gnu::noinline]] bool paintPath(CAdapterReader& adapter, const ShapeScene& scene,
                                 _egf_gdi_fillparms_tag& record, _egf_obj* object) {
  auto* path = as<EgfPath>(object);
  FilledPen& pen = filledPen(record);
  FilledPaint paint(adapter, scene.fill, scene.stroke, scene.graphics);
  paint.parms().open();
  paint.setPathPen(pen);
  if (!paint.setGradient(kPathForm, scene.map, scene.bounds, object)) return false;
  paint.setFillStyle(pen);
  paint.setJoin(pen);
  if (path->pathKind != kPathClosedFigure) paint.setCaps();
  path->gdiFillStyleNo = adapter.state.styles.number(adapter.document, record);
  paint.storeStyles(kPathForm, object);
  return true;
}

}  // namespace

int finishPolygon(CAdapterReader& adapter, ObjectOwner& object, const ShapeScene& scene,
                  unsigned figure) {
  if (isPlain(scene.fill, scene.stroke)) {
    paintPlainPolygon(adapter, scene.fill, scene.stroke, scene.graphics, figure,
                      as<EgfPolygon>(object.get()));
  } else if (!paintPolygon(adapter, scene, figure, object.get())) {
    object.reset();
    return -1;
  }
  EGF_CalcPolygonMer(object.get(), adapter.map);
  return 0;
}

}  // namespace egfsvg

using namespace egfsvg;

int CAdapterReader::_setPgonParms(_egf_obj* object, _mpl_spacerect_tag& bounds, _viewPortMap* by,
                                  _svg_pa_fill& fill, _svg_pa_stroke& stroke,
                                  _svg_pa_graphics& graphics) {
  ObjectOwner owner(object);
  const int result =
      finishPolygon(*this, owner, {fill, stroke, graphics, bounds, by}, kFigureClosed);
  (void)owner.release();
  return result;
}

/// A path has no pen of its own: the pen is a style record too, and the extended record is always
/// there.
int CAdapterReader::_setPathParms(_egf_obj* object, _mpl_spacerect_tag& bounds, _viewPortMap* by,
                                  _svg_pa_fill& fill, _svg_pa_stroke& stroke,
                                  _svg_pa_graphics& graphics) {
  ObjectOwner owner(object);
  auto* path = as<EgfPath>(object);
  _egf_gdi_fillparms_tag record = kPolygonPen;
  record.modeFlags = figureMode(record.modeFlags, kFigureClosed, fill.fillRule);
  record.scaleFactor = 1.0;
  if (isPlain(fill, stroke)) [[likely]] {
    paintPlainPath(*this, fill, stroke, graphics, record, path);
  } else if (!paintPath(*this, {fill, stroke, graphics, bounds, by}, record, object)) {
    return -1;
  }
  (void)owner.release();
  return 0;
}
