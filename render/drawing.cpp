#include "render/drawing.h"

#include <array>

#include "render/object_walk.h"
#include "render/shapes.h"

namespace egfrender {
namespace {

// By layout class, since the class itself may be overwritten by a mark.
struct DrawRow {
  std::int32_t layoutClass;
  void (*draw)(Canvas& canvas, const Page& page, const _egf_obj& object);
};

constexpr std::array<DrawRow, 7> kDrawings{{
    {egfsvg::kClassBox, drawPolygon},
    {egfsvg::kClassArc, drawArc},
    {egfsvg::kClassLine, drawLine},
    {egfsvg::kClassEllipse, drawEllipse},
    {egfsvg::kClassPolyline, drawPolyline},
    {egfsvg::kClassPolygon, drawPolygon},
    {egfsvg::kClassPath, drawPath},
}};

const DrawRow* rowOf(std::int32_t layoutClass) {
  for (const DrawRow& row : kDrawings) {
    if (row.layoutClass == layoutClass) return &row;
  }
  return nullptr;
}

}  // namespace

bool isDrawable(std::int32_t layoutClass) { return rowOf(layoutClass) != nullptr; }

void drawPage(Canvas& canvas, const Page& page) {
  if (page.body == nullptr || !page.body->root) return;
  walkObjects(*page.body->root.get(), [&](const _egf_obj& object) {
    if (!isShown(page, object)) return false;
    if (const DrawRow* row = rowOf(object.layoutClass)) row->draw(canvas, page, object);
    return object.layoutClass == egfsvg::kClassGroup;
  });
}

}  // namespace egfrender
