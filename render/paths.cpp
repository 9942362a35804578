// Paths: figures whose parts are objects of their own, joined in order.
#include <array>

#include "render/object_walk.h"
#include "render/shapes.h"

namespace egfrender {
namespace {

using egfsvg::as;

struct PartRow {
  std::int32_t layoutClass;
  void (*add)(Outline& outline, const _egf_obj& part);
};

constexpr std::array<PartRow, 6> kParts{{
    {egfsvg::kClassArc,
     [](Outline& outline, const _egf_obj& part) {
       addArcObject(outline, *as<egfsvg::EgfArc>(&part));
     }},
    {egfsvg::kClassLine,
     [](Outline& outline, const _egf_obj& part) { addLine(outline, *as<egfsvg::EgfLine>(&part)); }},
    {egfsvg::kClassEllipse,
     [](Outline& outline, const _egf_obj& part) {
       addEllipse(outline, *as<egfsvg::EgfEllipse>(&part));
     }},
    {egfsvg::kClassPolyline,
     [](Outline& outline, const _egf_obj& part) {
       addPolyline(outline, *as<egfsvg::EgfPolyline>(&part));
     }},
    {egfsvg::kClassBox,
     [](Outline& outline, const _egf_obj& part) {
       addPolygon(outline, *as<egfsvg::EgfPolygon>(&part));
     }},
    {egfsvg::kClassPolygon,
     [](Outline& outline, const _egf_obj& part) {
       addPolygon(outline, *as<egfsvg::EgfPolygon>(&part));
     }},
}};

void addPart(Outline& outline, const _egf_obj& part) {
  for (const PartRow& row : kParts) {
    if (row.layoutClass == part.layoutClass) return row.add(outline, part);
  }
}

bool isPath(const _egf_obj& object) { return object.layoutClass == egfsvg::kClassPath; }

bool closesItself(const _egf_obj& path) {
  return as<egfsvg::EgfPath>(&path)->pathKind == egfsvg::kPathClosedFigure;
}

}  // namespace

// A path inside a path is a figure of its own; what follows it begins anew.
void drawPath(Canvas& canvas, const Page& page, const _egf_obj& object) {
  Outline outline(canvas.context(), canvas.placement());
  walkObjects(
      object,
      [&](const _egf_obj& part) {
        if (isPath(part)) {
          outline.startFigure();
        } else {
          addPart(outline, part);
        }
        return isPath(part);
      },
      [&](const _egf_obj& part) {
        if (!isPath(part)) return;
        if (closesItself(part)) outline.close();
        outline.startFigure();
      });
  const ShapePaints paints = pathPaints(page, *as<egfsvg::EgfPath>(&object));
  canvas.draw(paints.fill, paints.stroke);
}

}  // namespace egfrender
