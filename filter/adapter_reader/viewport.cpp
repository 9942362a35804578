// The viewport of an svg element: its rectangle on the page and the size that percentages take.

#include "adapter_reader/owners.h"
#include "adapter_reader/pixel_scale.h"
#include "adapter_reader/point_arrays.h"
#include "adapter_reader/point_map.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_bits.h"
#include "host/egf_templates.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

/// The box that an svg element shows, in user space, and the element whose transforms hold there.
struct ViewportBox {
  _svg_point origin;
  _svg_value width;
  _svg_value height;
  _svg_common* mapped;
};

/// The outermost svg shows its view box, a nested one its own box. False when there is none.
bool viewportBox(_svg_svg& element, ViewportBox* box) {
  if (element.head.parent != nullptr) {
    *box = {{element.x, element.y}, element.width, element.height, element.head.parent};
    return true;
  }
  const _svg_viewbox* shown = element.viewBox;
  if (shown == nullptr) return false;
  *box = {{shown->x, shown->y}, shown->width, shown->height, &element.head};
  return true;
}

/// The four corners in the order of a box: top left, bottom left, bottom right, top right.
void boxCorners(CAdapterReader& adapter, const ViewportBox& box, _mpl_spacept_tag (&corners)[4]) {
  const PixelScale scale(adapter);
  rectCorners({scale.pixels(box.origin.x), scale.pixels(box.origin.y), scale.pixels(box.width),
               scale.pixels(box.height)},
              corners);
}

/// A rectangle object of the corners, mapped, without a fill and kept out of written files. Null,
/// with the fault logged, when memory ran out.
ObjectOwner viewportObject(CAdapterReader& adapter, int objClass, const ViewportBox& box,
                           const _mpl_spacept_tag (&corners)[4]) {
  ObjectOwner object(allocateObject(objClass, RMM_SITE));
  if (!object) return object;
  object->objAttr = OutputBits::with(object->objAttr, 0);
  auto* polygon = as<EgfPolygon>(object.get());
  setPolygonTemplate(polygon);
  polygon->pen.fillStyle = kFillNone;
  if (!setPoints(polygon, corners, 4)) return nullptr;
  const MapOwner map(adapter, adapter._findMapMatrix(box.mapped, nullptr, nullptr));
  mapPoints(polygon->points.get(), 4, map.get());
  return object;
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

_egf_obj* CAdapterReader::SVG_ViewPortCreate(_svg_svg* element, int isDefault) {
  ViewportBox box;
  if (!viewportBox(*element, &box)) return nullptr;
  _mpl_spacept_tag corners[4];
  boxCorners(*this, box, corners);
  ObjectOwner object = viewportObject(*this, kClassBox, box, corners);
  if (!object) return nullptr;
  EGF_CalcPolygonMer(object.get(), map);
  const bool sizedByBox = isDefault != 0 && element->viewBox != nullptr;
  viewportWidth = castS32(sizedByBox ? element->viewBox->width : element->width);
  viewportHeight = castS32(sizedByBox ? element->viewBox->height : element->height);
  return object.release();
}

/// Kept: the second corner goes to the first place, and the second place stays at the origin.
_egf_obj* CAdapterReader::SVG_formatEGFSvg(_svg_svg* element) {
  ViewportBox box;
  if (!viewportBox(*element, &box)) return nullptr;
  _mpl_spacept_tag corners[4];
  boxCorners(*this, box, corners);
  corners[0] = corners[1];
  corners[1] = {0.0F, 0.0F};
  ObjectOwner object = viewportObject(*this, kClassPolygon, box, corners);
  if (!object) return nullptr;
  _egf_gdi_fillparms_tag& pen = as<EgfPolygon>(object.get())->pen;
  pen.modeFlags = FigureBits::with(pen.modeFlags, kFigureClosed);
  pen.scaleFactor = 1.0;
  EGF_CalcPolygonMer(object.get(), map);
  return object.release();
}
