// The root and nested svg, and groups.

#include "adapter_writer/style_pools.h"
#include "adapter_writer/user_scale.h"
#include "host/egf_bits.h"
#include "host/objects.h"
#include "host/platform_text.h"
#include "model/lifecycle.h"
#include "model/numbers.h"
#include "model/paint_codes.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

constexpr const char* kOwnViewportName = "setInitialViewPort";
constexpr std::int32_t kRectCorners = 4;
constexpr std::int32_t kOppositeCorner = 2;

/// False without memory. The box is in work units, so no size of a space unit enters.
bool setViewBox(const UserScale& scale, const _mpl_spacerect_tag& box, _svg_svg* record) {
  record->viewBox = allocateZeroed<_svg_viewbox>(RMM_SITE);
  if (record->viewBox == nullptr) return false;
  _svg_viewbox& view = *record->viewBox;
  view.x.value = scale.kx * double{box.left};
  view.y.value = scale.ky * double{box.top};
  view.height.value = scale.ky * double{box.bottom} - scale.ky * double{box.top};
  view.width.value = scale.kx * double{box.right} - scale.kx * double{box.left};
  return true;
}

/// The name tells that the drawing has a viewport of its own.
bool hasOwnViewport(const EgfGroup& group) {
  const ref32<char> name = group.groupName;
  return name && _wu_stricmp(name.get(), kOwnViewportName) == 0;
}

/// Kept: the height is scaled like the width.
void setViewport(const UserScale& scale, const _mpl_spacept_tag* corners, _svg_svg* record) {
  const _mpl_spacept_tag from = corners[0];
  const _mpl_spacept_tag to = corners[kOppositeCorner];
  setPixels(record->x, scale.x(from.x));
  setPixels(record->y, scale.y(from.y));
  setPixels(record->width, scale.acrossX(from.x, to.x));
  setPixels(record->height, scale.acrossX(from.y, to.y));
}

/// The corners of a viewport rectangle, null when the object is none.
const _mpl_spacept_tag* viewportCorners(const _egf_obj& object) {
  const bool box = object.objClass == kClassBox;
  if (!box && object.objClass != kClassPolygon) return nullptr;
  const auto& polygon = *as<EgfPolygon>(&object);
  const std::int32_t count = polygon.pointCount;
  if (box ? count <= kOppositeCorner : count != kRectCorners) return nullptr;
  const PointArray points = polygon.points;
  return points.get();
}

}  // namespace
}  // namespace egfsvg

void CAdapterWriter::SetSVGSVG(_egf_obj* object, _svg_svg* record) {
  using namespace egfsvg;
  if (object == nullptr) return;
  initSVGObj(record);
  const UserScale scale = scaleOf(*this);
  _mpl_spacerect_tag bounds{};
  _mpl_spacerect_tag box{};
  EEL_GetObjectMer(object, &bounds, view);
  MPL_XWORKtoWORK(&bounds, &box);
  if (!setViewBox(scale, box, record)) return;
  const auto& group = *as<EgfGroup>(object);
  const bool ownViewport = hasOwnViewport(group);
  const bool isRoot = objectTree != nullptr && object == objectTree->root.get();
  const ref32<_egf_obj> first = group.firstChild;
  if (!first || (isRoot && !ownViewport)) return;
  if (!ownViewport && ViewportBits::get(first->objAttr2) == 0) return;
  const _mpl_spacept_tag* corners = viewportCorners(*first.get());
  if (corners == nullptr) return;
  setViewport(scale, corners, record);
  if (first->objClass == kClassBox) {
    svgWidth = shownInteger(record->width.value);
    svgHeight = shownInteger(record->height.value);
  }
  turnForward(record->x, record->width);
  turnForward(record->y, record->height);
}

/// Only a polygon that is cut into several paths lends its pen to its group.
void CAdapterWriter::SetSVGGroup(_egf_obj* object, _svg_group* record) {
  using namespace egfsvg;
  initGroupObj(record);
  _svg_pa_fill& fill = record->pa.fill;
  _svg_pa_stroke& stroke = record->pa.stroke;
  fill.packedColor = kNoPaint;
  stroke.packedColor = kNoPaint;
  if (object->objClass == kClassEllipse || _getSvgObjType(object) != kTagPath) return;
  const auto& polygon = *as<EgfPolygon>(object);
  const _egf_gdi_fillparms_tag pen = polygon.pen;
  const auto* parms =
      documentRecord<_egf_gdiplus_fillparms_tag>(*this, kStyleFill, polygon.fillParmsNo);
  _setObjFillAndStroke(fill, stroke, parms, pen.fillStyle, pen.fillColor, pen.strokeColor);
  _setSvgLineJoin(stroke, pen.joinStyle, parms);
  if (parms != nullptr) stroke.strokeLinecap = _setSvgLineCap(parms->startCap);
  _setStrokeWidth(stroke, pen.lineWidth);
  _setStrokeDashArray(stroke, pen.lineStyle);
}
