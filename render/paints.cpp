#include "render/paints.h"

#include <cmath>

#include "host/egf_bits.h"
#include "host/egf_templates.h"

namespace egfrender {
namespace {

constexpr double kFullAlpha = 255.0;
// The opacity of what is marked as partly transparent without saying how much.
constexpr double kHalf = 0.5;

cairo_line_cap_t capOf(unsigned code) {
  switch (code) {
    case egfsvg::kCapRound:
      return CAIRO_LINE_CAP_ROUND;
    case egfsvg::kCapSquare:
      return CAIRO_LINE_CAP_SQUARE;
    default:
      return CAIRO_LINE_CAP_BUTT;
  }
}

cairo_line_join_t joinOf(unsigned code) {
  switch (code) {
    case egfsvg::kJoinRound:
      return CAIRO_LINE_JOIN_ROUND;
    case egfsvg::kJoinBevel:
      return CAIRO_LINE_JOIN_BEVEL;
    default:
      return CAIRO_LINE_JOIN_MITER;
  }
}

// The gradient that a style number names, as far as records and points go.
std::optional<GradientUse> gradientOf(const Page& page, std::uint32_t number,
                                      egfsvg::PointArray points, unsigned pointCount) {
  const auto ramp = gradientParms(page, number);
  if (!ramp || !points || pointCount == 0) return std::nullopt;
  return GradientUse{.ramp = *ramp, .points = points.get(), .pointCount = pointCount};
}

template <class Extended>
void describeGradient(GradientUse& gradient, const Extended& extended, bool radial) {
  gradient.radial = radial;
  gradient.wrapMode = extended.wrapMode;
  gradient.angleIsSet = extended.angleIsSet == 1;
  gradient.angle = extended.gradientAngle;
}

bool isRadial(const _egf_gdiplus_fillparms_tag& extended) {
  return egfsvg::PathGradientBits::get(extended.gradientKind) != 0;
}

bool isGradient(unsigned code) {
  return code == egfsvg::kFillLinear || code == egfsvg::kFillRadial;
}

// What filled shapes have in common, whatever their layout.
struct ShapePen {
  double lineWidth;  // pixels
  _sel_RGB_type strokeColor;
  _sel_RGB_type fillColor;
  std::uint32_t lineStyle;
  unsigned fillStyle;
  unsigned joinStyle;
  unsigned modeFlags;
  bool open;  // its ends are to be seen
};

// Any pen record that names its fields so.
template <class Pen>
ShapePen shapePen(const Page& page, const Pen& pen, bool open) {
  const __meas width = pen.lineWidth;
  return {pixelLength(page, width.unit, width.value),
          pen.strokeColor,
          pen.fillColor,
          pen.lineStyle,
          pen.fillStyle,
          pen.joinStyle,
          pen.modeFlags,
          open};
}

bool isOpen(const _egf_gdi_fillparms_tag& pen) {
  return egfsvg::FigureBits::get(pen.modeFlags) == egfsvg::kFigureOpen;
}

struct ShapeGradients {
  std::uint32_t fill;
  std::uint32_t stroke;
  egfsvg::PointArray points;
  unsigned pointCount;
};

using Extended = std::optional<_egf_gdiplus_fillparms_tag>;

Fill shapeFill(const Page& page, const ShapePen& pen, const Extended& extended,
               const ShapeGradients& gradients) {
  if (pen.fillStyle == egfsvg::kFillNone) return std::nullopt;
  double alpha = pen.fillStyle == egfsvg::kFillPartial ? kHalf : 1.0;
  if (extended) alpha = extended->fillAlpha / kFullAlpha;
  FillPaint fill;
  if (isGradient(pen.fillStyle)) {
    fill.paint.gradient = gradientOf(page, gradients.fill, gradients.points, gradients.pointCount);
    if (fill.paint.gradient && extended) {
      describeGradient(*fill.paint.gradient, *extended, isRadial(*extended));
    }
  }
  if (alpha <= 0) return std::nullopt;
  fill.paint.colour = shownColour(pen.fillColor, alpha);
  fill.rule = egfsvg::FillRuleBits::get(static_cast<std::uint8_t>(pen.modeFlags)) != 0
                  ? CAIRO_FILL_RULE_EVEN_ODD
                  : CAIRO_FILL_RULE_WINDING;
  return fill;
}

bool isDrawnWidth(double width) { return width > 0 && std::isfinite(width); }

// Without an extended record the ends of an open figure are round, and those of dashes butt.
cairo_line_cap_t shapeCap(const ShapePen& pen, const Extended& extended) {
  if (extended) return capOf(extended->startCap);
  return pen.open ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT;
}

Stroke shapeStroke(const Page& page, const ShapePen& pen, const Extended& extended,
                   const ShapeGradients& gradients) {
  const unsigned code = extended ? extended->strokeFillStyle : unsigned{egfsvg::kFillOpaque};
  const double alpha = extended ? extended->strokeAlpha / kFullAlpha : 1.0;
  if (code == egfsvg::kFillNone || alpha <= 0 || !isDrawnWidth(pen.lineWidth)) return std::nullopt;
  StrokePaint stroke;
  stroke.paint.colour = shownColour(pen.strokeColor, alpha);
  if (isGradient(code)) {
    stroke.paint.gradient =
        gradientOf(page, gradients.stroke, gradients.points, gradients.pointCount);
    if (stroke.paint.gradient) {
      describeGradient(*stroke.paint.gradient, *extended, isRadial(*extended));
    }
  }
  stroke.width = pen.lineWidth;
  stroke.cap = shapeCap(pen, extended);
  stroke.join = joinOf(pen.joinStyle);
  stroke.miterLimit = extended ? extended->miterLimit : egfsvg::kFillParms.miterLimit;
  stroke.dashes = dashLengths(page, pen.lineStyle);
  return stroke;
}

ShapePaints shapePaints(const Page& page, const ShapePen& pen, std::uint32_t fillParmsNo,
                        const ShapeGradients& gradients) {
  const Extended extended = fillParms(page, fillParmsNo);
  return {shapeFill(page, pen, extended, gradients), shapeStroke(page, pen, extended, gradients)};
}

// The part of a stroke that a line's, a polyline's and an arc's pen share.
template <class Pen>
Stroke penStroke(const Page& page, const Pen& pen, double alpha) {
  const __meas measure = pen.lineWidth;
  const double width = pixelLength(page, measure.unit, measure.value);
  if (pen.rasterOp == egfsvg::kRasterNone || alpha <= 0 || !isDrawnWidth(width)) {
    return std::nullopt;
  }
  StrokePaint stroke;
  stroke.paint.colour = shownColour(pen.strokeColor, alpha);
  stroke.width = width;
  stroke.cap = capOf(pen.capStyle);
  stroke.dashes = dashLengths(page, pen.lineStyle);
  return stroke;
}

double plainAlpha(unsigned rasterOp) { return rasterOp == egfsvg::kRasterPartial ? kHalf : 1.0; }

// A line's or a polyline's stroke: its pen, then what the extended record says.
template <class Object>
Stroke openStroke(const Page& page, const Object& object, cairo_line_join_t join) {
  const auto extended = strokeParms(page, object.strokeParmsNo);
  const double alpha =
      extended ? extended->strokeAlpha / kFullAlpha : plainAlpha(object.pen.rasterOp);
  Stroke stroke = penStroke(page, object.pen, alpha);
  if (!stroke) return stroke;
  stroke->join = join;
  stroke->miterLimit = extended ? extended->miterLimit : egfsvg::kStrokeParms.miterLimit;
  if (!extended) return stroke;
  if (extended->capStyle != egfsvg::kCapUnset) stroke->cap = capOf(extended->capStyle);
  if (isGradient(extended->strokeFillStyle)) {
    stroke->paint.gradient =
        gradientOf(page, object.strokeGradientNo, object.gradPts, object.gradPtCount);
    if (stroke->paint.gradient) {
      describeGradient(*stroke->paint.gradient, *extended, extended->gradientKind != 0);
    }
  }
  return stroke;
}

}  // namespace

ShapePaints polygonPaints(const Page& page, const egfsvg::EgfPolygon& polygon) {
  return shapePaints(
      page, shapePen(page, polygon.pen, isOpen(polygon.pen)), polygon.fillParmsNo,
      {polygon.fillGradientNo, polygon.strokeGradientNo, polygon.gradPts, polygon.gradPtCount});
}

ShapePaints ellipsePaints(const Page& page, const egfsvg::EgfEllipse& ellipse) {
  return shapePaints(
      page, shapePen(page, ellipse.pen, false), ellipse.fillParmsNo,
      {ellipse.fillGradientNo, ellipse.strokeGradientNo, ellipse.gradPts, ellipse.gradPtCount});
}

ShapePaints pathPaints(const Page& page, const egfsvg::EgfPath& path) {
  const auto pen = penParms(page, path.gdiFillStyleNo);
  if (!pen) return {};
  return shapePaints(page, shapePen(page, *pen, isOpen(*pen)), path.fillParmsNo,
                     {path.fillGradientNo, path.strokeGradientNo, path.gradPts, path.gradPtCount});
}

Stroke linePaint(const Page& page, const egfsvg::EgfLine& line) {
  return openStroke(page, line, CAIRO_LINE_JOIN_MITER);
}

Stroke polylinePaint(const Page& page, const egfsvg::EgfPolyline& polyline) {
  return openStroke(page, polyline, joinOf(polyline.pen.joinStyle));
}

Stroke arcPaint(const Page& page, const egfsvg::EgfArc& arc) {
  const auto extended = arcParms(page, arc.arcParmsNo);
  const double alpha = extended ? extended->strokeAlpha / kFullAlpha : plainAlpha(arc.pen.rasterOp);
  return penStroke(page, arc.pen, alpha);
}

}  // namespace egfrender
