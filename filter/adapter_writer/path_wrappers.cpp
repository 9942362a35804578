// Arcs, open ellipses and polygons of many subpaths as path elements: each is put into a path
// object of its own, and takes the same road as a path.

#include "adapter_writer/element_parts.h"
#include "adapter_writer/subpath_walk.h"
#include "frame/result_codes.h"
#include "host/egf_codes.h"
#include "host/objects.h"
#include "model/lifecycle.h"
#include "model/owners.h"
#include "model/paint_codes.h"

namespace egfsvg {
namespace {

/// Gives the record the subpaths of an object; none when they have no segments.
int setWrappedPath(CAdapterWriter& writer, _egf_obj* object, _svg_path* record) {
  initPath(record);
  const ObjectOwner path(
      static_cast<_egf_obj*>(RMM_ChownName(EEL_AllocObject(kClassPath, RMM_SITE))));
  if (path == nullptr) {
    logOutOfMemory(RMM_SITE);
    return kOutOfMemory;
  }
  if (EEL_PutObject(path.get(), object, writer.view) != 0) return kOutOfMemory;
  SubPaths subPaths;
  if (writer._setPathCommandsData(&subPaths.paths, &subPaths.count, path.get()) != 0) {
    return kMissingField;
  }
  if (subPaths.hasSegments()) subPaths.giveTo(record);
  return kOk;
}

const _egf_gdiplus_fillparms_tag* fillParms(const CAdapterWriter& writer, std::uint32_t number) {
  return documentRecord<_egf_gdiplus_fillparms_tag>(writer, kStyleFill, number);
}

/// An arc's extended record is as long as its table says.
const _egf_gdiplus_arcparms_tag* arcParms(const CAdapterWriter& writer, std::uint32_t number) {
  constexpr std::size_t kNeeded = offsetof(_egf_gdiplus_arcparms_tag, strokeAlpha) + 1;
  return static_cast<const _egf_gdiplus_arcparms_tag*>(
      documentRecord(writer, kStyleArc, number, kNeeded));
}

void setEllipseRotation(CAdapterWriter& writer, const EgfEllipse& ellipse, _svg_path* record) {
  constexpr std::int32_t kRotateArgs = 3;
  const std::int32_t rotation = ellipse.pen.ellipseRotation;
  if (rotation == 0) return;
  _svg_value* args = setTransform(writer, record->head, kRotate, kRotateArgs);
  if (args == nullptr) return;
  const UserScale scale = scaleOf(writer);
  args[0] = clockwiseDegrees(rotation);
  args[1] = pixels(scale.x(ellipse.center.x));
  args[2] = pixels(scale.y(ellipse.center.y));
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

int CAdapterWriter::SetSVGPathForElips(_egf_obj* object, _svg_path* record) {
  const auto& ellipse = *as<EgfEllipse>(object);
  const auto* parms = fillParms(*this, ellipse.fillParmsNo);
  const int result = setWrappedPath(*this, object, record);
  if (result != kOk || record->paths == nullptr) return result;
  const EgfEllipsePen pen = ellipse.pen;
  _svg_pa_stroke& stroke = record->stroke;
  _setObjFillAndStroke(record->fill, stroke, parms, pen.fillStyle, pen.fillColor, pen.strokeColor);
  _setStrokeWidth(stroke, pen.lineWidth);
  _setStrokeDashArray(stroke, pen.lineStyle);
  if (parms != nullptr) stroke.strokeLinecap = _setSvgLineCap(parms->startCap);
  stroke.strokeLinejoin = kJoinCodeRound;
  setEllipseRotation(*this, ellipse, record);
  return kOk;
}

int CAdapterWriter::SetSVGPathForArc(_egf_obj* object, _svg_path* record) {
  const auto& arc = *as<EgfArc>(object);
  const auto* parms = arcParms(*this, arc.arcParmsNo);
  const int result = setWrappedPath(*this, object, record);
  if (result != kOk || record->paths == nullptr) return result;
  const EgfArcPen pen = arc.pen;
  _svg_pa_stroke& stroke = record->stroke;
  _setArcObjStroke(stroke, parms, pen.rasterOp, pen.strokeColor, 0);
  record->fill.packedColor = kBlackPaint;
  record->fill.fillOpacity = 0.0;
  _setStrokeWidth(stroke, pen.lineWidth);
  stroke.strokeLinecap = _setSvgLineCap(pen.capStyle);
  _setStrokeDashArray(stroke, pen.lineStyle);
  return kOk;
}

int CAdapterWriter::SetSVGPathForPolygon(_egf_obj* styleObject, _svg_path* record,
                                         _egf_obj* polygon) {
  const auto* source = as<EgfPolygon>(styleObject);
  const auto* parms = source == nullptr ? nullptr : fillParms(*this, source->fillParmsNo);
  const int result = setWrappedPath(*this, polygon, record);
  if (result != kOk || record->paths == nullptr) return result;
  _svg_pa_stroke& stroke = record->stroke;
  if (source == nullptr) {
    record->fill.packedColor = kNoPaint;
    stroke.packedColor = kNoPaint;
    stroke.strokeDashCount = 0;
    return kOk;
  }
  const _egf_gdi_fillparms_tag pen = source->pen;
  _setObjFillAndStroke(record->fill, stroke, parms, pen.fillStyle, pen.fillColor, pen.strokeColor);
  _setSvgLineJoin(stroke, pen.joinStyle, parms);
  if (parms != nullptr) stroke.strokeLinecap = _setSvgLineCap(parms->startCap);
  _setStrokeWidth(stroke, pen.lineWidth);
  _setStrokeDashArray(stroke, pen.lineStyle);
  return kOk;
}
