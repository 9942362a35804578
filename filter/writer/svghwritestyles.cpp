// The attribute form: fill, stroke and graphics as presentation attributes, each ending in a blank.

#include "writer/paint_tests.h"
#include "writer/svg_handlerwriter.h"

namespace egfsvg {
namespace {

void addFill(const _svg_pa_fill& fill, double opacity, LineBuilder& out) {
  if (hasColour(fill.packedColor)) {
    if (isInvisible(fill.fillOpacity, opacity)) {
      out.format<"fill=\"none\" ">();
    } else if (fill.packedColor != kBlackPaint) {
      out.format<"fill=\"#%6x\" ">(fill.packedColor);
    }
  }
  if (fill.packedColor != kNoPaint && fill.fillUrl != nullptr) {
    out.format<"fill=\"url(#grad%s)\" ">(fill.fillUrl);
  }
  if (isPartial(fill.fillOpacity)) out.format<"fill-opacity=\"%.2f\" ">(fill.fillOpacity);
}

/// Stroke colour 0 is printed, unlike fill colour 0.
void addStroke(const _svg_pa_stroke& stroke, double opacity, LineBuilder& out) {
  if (hasColour(stroke.packedColor)) {
    if (isInvisible(stroke.strokeOpacity, opacity)) {
      out.format<"stroke=\"none\" ">();
    } else if (stroke.strokeOpacity == 1.0) {
      out.format<"stroke=\"#%6x\" ">(stroke.packedColor);
    } else {
      out.format<"stroke=\"#%6x\" stroke-opacity=\"%.2f\" ">(stroke.packedColor,
                                                             stroke.strokeOpacity);
    }
  }
  if (stroke.packedColor != kNoPaint && stroke.strokeUrl != nullptr) {
    out.format<"stroke=\"url(#grad%s)\" ">(stroke.strokeUrl);
  }
}

void addWidth(double width, LineBuilder& out) {
  if (width < kThinnest) {
    out.format<"stroke-width=\"%e\" ">(width);
  } else {
    out.format<"stroke-width=\"%.6f\" ">(width);
  }
}

void addDashes(const _svg_pa_stroke& stroke, LineBuilder& out) {
  if (stroke.strokeDashCount <= 0) return;
  out.format<"stroke-dasharray=\"">();
  addDashList(stroke, out);
  out.format<"\" ">();
}

}  // namespace

void addDashList(const _svg_pa_stroke& stroke, LineBuilder& out) {
  for (std::int32_t i = 0; i < stroke.strokeDashCount; ++i) {
    out.add(i == 0 ? "" : ",").format<"%.6f">(stroke.strokeDashArray[i].value);
  }
}

}  // namespace egfsvg

void CHandlerWriter::GetLocalAttribs(const _svg_pa_fill& fill, const _svg_pa_stroke& stroke,
                                     const _svg_pa_graphics& graphics, egfsvg::LineBuilder& out) {
  using namespace egfsvg;
  out.clear();
  addFill(fill, graphics.opacity, out);
  addStroke(stroke, graphics.opacity, out);
  if (hasWidth(stroke, graphics)) addWidth(stroke.strokeWidth.value, out);
  if (isPartial(graphics.opacity)) out.format<"opacity=\"%.2f\" ">(graphics.opacity);
  if (fill.fillRule == kRuleEvenOdd) out.format<"fill-rule=\"evenodd\" ">();
  addDashes(stroke, out);
}

void CHandlerWriter::AddLineCapAttrib(const _svg_pa_stroke& stroke, egfsvg::LineBuilder& out) {
  if (stroke.strokeLinecap == egfsvg::kCapCodeRound) out.format<"stroke-linecap=\"round\" ">();
  if (stroke.strokeLinecap == egfsvg::kCapCodeSquare) out.format<"stroke-linecap=\"square\" ">();
}

void CHandlerWriter::AddLineJoinAttrib(const _svg_pa_stroke& stroke, egfsvg::LineBuilder& out) {
  using namespace egfsvg;
  if (stroke.strokeLinejoin == kJoinCodeBevel) out.format<"stroke-linejoin=\"bevel\" ">();
  if (stroke.strokeLinejoin == kJoinCodeRound) out.format<"stroke-linejoin=\"round\" ">();
  if (stroke.strokeLinejoin == kJoinCodeMiter && stroke.strokeMiterlimit != kDefaultMiterLimit) {
    out.format<"stroke-linejoin=\"miter\" stroke-miterlimit=\"%d\" ">(stroke.strokeMiterlimit);
  }
}
