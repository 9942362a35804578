// Pen, fill and style numbers of boxes, polygons and paths.

#include "adapter_reader/owners.h"
#include "adapter_reader/shape_paint.h"
#include "adapter_reader/shapes.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_bits.h"

namespace egfsvg {
namespace {

std::uint8_t figureMode(CAdapterReader& adapter, std::uint8_t mode, unsigned figure,
                        const _svg_pa_fill& fill) {
  const auto rule = static_cast<unsigned>(adapter.castFillMode(fill.fillRule));
  return FillRuleBits::with(FigureBits::with(mode, figure), rule);
}

}  // namespace

int finishPolygon(CAdapterReader& adapter, ObjectOwner& object, const ShapeScene& scene,
                  unsigned figure, bool openCaps) {
  auto* polygon = as<EgfPolygon>(object.get());
  FilledPen& pen = filledPen(polygon->pen);
  pen.modeFlags = figureMode(adapter, pen.modeFlags, figure, scene.fill);
  polygon->pen.scaleFactor = 1.0;
  FilledPaint paint(adapter, scene.fill, scene.stroke, scene.graphics);
  paint.setShapePen(pen);
  if (!paint.setGradient(kPolygonForm, scene.map, scene.bounds, object.get())) {
    object.reset();
    return -1;
  }
  paint.setFillStyle(pen);
  paint.setJoin(pen);
  if (openCaps && FigureBits::get(pen.modeFlags) == kFigureOpen && pen.lineStyle == kLineSolid) {
    paint.setCaps();
  }
  paint.storeStyles(kPolygonForm, object.get());
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
      finishPolygon(*this, owner, {fill, stroke, graphics, bounds, by}, kFigureClosed, false);
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
  FilledPen& pen = filledPen(record);
  pen.modeFlags = figureMode(*this, pen.modeFlags, kFigureClosed, fill);
  record.scaleFactor = 1.0;
  FilledPaint paint(*this, fill, stroke, graphics);
  paint.parms().open();
  paint.setPathPen(pen);
  if (!paint.setGradient(kPathForm, by, bounds, object)) return -1;
  paint.setFillStyle(pen);
  paint.setJoin(pen);
  if (path->pathKind != kPathClosedFigure) paint.setCaps();
  path->gdiFillStyleNo = state.styles.number(document, record);
  paint.storeStyles(kPathForm, object);
  (void)owner.release();
  return 0;
}
