// How a figure is filled and stroked, taken from an object's pen and the style records that it
// names. Lengths are in pixels of the page.
#pragma once

#include <cairo.h>

#include <optional>
#include <vector>

#include "host/egf_objects.h"
#include "render/colours.h"
#include "render/page.h"

namespace egfrender {

// What a gradient paint needs beyond its colour. The points belong to the object.
struct GradientUse {
  _egf_gdiplus_gradientparms_tag ramp;
  const _mpl_spacept_tag* points = nullptr;
  unsigned pointCount = 0;
  bool radial = false;
  _egf_wrapmode_tag wrapMode = _egf_wrapmode_tag::kTile;
  bool angleIsSet = false;
  std::int32_t angle = 0;  // millionths of a degree
};

// A colour, or a gradient whose last stop the colour is.
struct Paint {
  Colour colour;
  std::optional<GradientUse> gradient;
};

struct FillPaint {
  Paint paint;
  cairo_fill_rule_t rule = CAIRO_FILL_RULE_WINDING;
};

struct StrokePaint {
  Paint paint;
  double width = 1;
  cairo_line_cap_t cap = CAIRO_LINE_CAP_BUTT;
  cairo_line_join_t join = CAIRO_LINE_JOIN_MITER;
  double miterLimit = 10;
  std::vector<double> dashes;  // dash, gap, ...; empty for a solid line
};

// None where nothing is to be seen: no paint, no width, no opacity.
using Fill = std::optional<FillPaint>;
using Stroke = std::optional<StrokePaint>;

struct ShapePaints {
  Fill fill;
  Stroke stroke;
};

ShapePaints polygonPaints(const Page& page, const egfsvg::EgfPolygon& polygon);
ShapePaints ellipsePaints(const Page& page, const egfsvg::EgfEllipse& ellipse);
ShapePaints pathPaints(const Page& page, const egfsvg::EgfPath& path);
Stroke linePaint(const Page& page, const egfsvg::EgfLine& line);
Stroke polylinePaint(const Page& page, const egfsvg::EgfPolyline& polyline);
Stroke arcPaint(const Page& page, const egfsvg::EgfArc& arc);

}  // namespace egfrender
