#include <gtest/gtest.h>

#include <vector>

#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

// A gradient of stops that lives as long as this.
struct Ramp {
  Ramp(std::int32_t type, std::vector<std::pair<_svg_color, double>> colours) {
    initGradientObj(&gradient);
    if (type == kTagRadialGradient) {
      initRadialGrad(&gradient);
    } else {
      initLinearGrad(&gradient);
    }
    gradient.head.type = type;
    for (const auto& [colour, opacity] : colours) {
      _svg_stop stop;
      initStopObj(&stop);
      stop.gradients.stopColor = colour;
      stop.gradients.stopOpacity = opacity;
      stops.push_back(stop);
    }
    gradient.stops = stops.data();
    gradient.stopCount = static_cast<std::int32_t>(stops.size());
  }
  Ramp& vector(double x1, double y1, double x2, double y2) {
    gradient.parms.linear.x1.value = x1;
    gradient.parms.linear.y1.value = y1;
    gradient.parms.linear.x2.value = x2;
    gradient.parms.linear.y2.value = y2;
    return *this;
  }
  _svg_gradient gradient;
  std::vector<_svg_stop> stops;
};

_svg_pa_graphics graphicsWith(double opacity) {
  _svg_pa_graphics graphics;
  initGraphics(&graphics);
  graphics.opacity = opacity;
  return graphics;
}

_svg_pa_fill fillWith(_svg_gradient* gradient, double opacity = 1.0) {
  _svg_pa_fill fill;
  initFill(&fill);
  fill.fillOpacity = opacity;
  fill.fillGradient = gradient;
  return fill;
}

_svg_pa_stroke strokeWith(_svg_gradient* gradient, double opacity = 1.0) {
  _svg_pa_stroke stroke;
  initStroke(&stroke);
  stroke.strokeOpacity = opacity;
  stroke.strokeGradient = gradient;
  return stroke;
}

bool operator==(const _svg_color& a, const _svg_color& b) {
  return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

TEST(PaintCodes, PlainOpacitiesMultiply) {
  AdapterPage page;
  _svg_pa_fill fill = fillWith(nullptr, 0.5);
  EXPECT_EQ(page->castFillStyle(fill, graphicsWith(2.0)), 1);
  EXPECT_EQ(page->castFillStyle(fill, graphicsWith(1.0)), 3);
  EXPECT_EQ(page->castFillStyle(fill, graphicsWith(0.0)), 0);
  EXPECT_EQ(page->castFillStyle(fill, graphicsWith(3.0)), 7);
  _svg_pa_stroke stroke = strokeWith(nullptr, 0.5);
  EXPECT_EQ(page->castFillStyle(stroke, graphicsWith(2.0)), 1);
  EXPECT_EQ(page->castRasterOperat(stroke, graphicsWith(2.0)), 0);
  EXPECT_EQ(page->castRasterOperat(stroke, graphicsWith(1.0)), 1);
  EXPECT_EQ(page->castRasterOperat(stroke, graphicsWith(0.0)), 7);
}

TEST(PaintCodes, AGradientWithoutStopsIsNoFill) {
  AdapterPage page;
  Ramp none(kTagLinearGradient, {});
  _svg_pa_fill fill = fillWith(&none.gradient);
  EXPECT_EQ(page->castFillStyle(fill, graphicsWith(1.0)), 0);
  EXPECT_EQ(fill.fillOpacity, 0.0);
}

TEST(PaintCodes, AGradientWithoutStopsLeavesTheStrokeCodeAlone) {
  AdapterPage page;
  Ramp none(kTagLinearGradient, {});
  _svg_pa_stroke stroke = strokeWith(&none.gradient, 0.5);
  EXPECT_EQ(page->castFillStyle(stroke, graphicsWith(1.0)), 3);
  EXPECT_EQ(stroke.strokeOpacity, 0.5);
  EXPECT_EQ(stroke.strokePresent, 0);
  EXPECT_EQ(page->castRasterOperat(stroke, graphicsWith(1.0)), 7);
  EXPECT_EQ(stroke.strokeOpacity, 0.0);
}

TEST(PaintCodes, OneStopIsAPlainPaint) {
  AdapterPage page;
  Ramp one(kTagRadialGradient, {{kBlue, 0.5}});
  _svg_pa_fill fill = fillWith(&one.gradient, 0.5);
  EXPECT_EQ(page->castFillStyle(fill, graphicsWith(1.0)), 3);
  EXPECT_EQ(fill.fillOpacity, 0.25);  // a product
  EXPECT_TRUE(fill.fillColor == kBlue);
  _svg_pa_stroke stroke = strokeWith(&one.gradient, 0.125);
  EXPECT_EQ(page->castFillStyle(stroke, graphicsWith(2.0)), 1);
  EXPECT_EQ(stroke.strokeOpacity, 0.5);  // the stop's own
  EXPECT_EQ(stroke.strokePresent, 1);
  EXPECT_TRUE(stroke.strokeColor == kBlue);
}

TEST(PaintCodes, KindsOfGradients) {
  struct Row {
    std::int32_t type;
    int code;
  };
  constexpr Row kRows[] = {{kTagLinearGradient, 9}, {kTagRadialGradient, 10}, {kTagPattern, 7}};
  AdapterPage page;
  for (const Row& row : kRows) {
    Ramp ramp(row.type, {{kRed, 1.0}, {kBlue, 0.5}});
    _svg_pa_fill fill = fillWith(&ramp.gradient, 0.25);
    EXPECT_EQ(page->castFillStyle(fill, graphicsWith(0.5)), row.code);
    EXPECT_TRUE(fill.fillColor == kBlue);
    EXPECT_EQ(fill.fillOpacity, 0.25);
    _svg_pa_stroke stroke = strokeWith(&ramp.gradient, 0.25);
    EXPECT_EQ(page->castFillStyle(stroke, graphicsWith(0.5)), row.code);
    EXPECT_EQ(stroke.strokeOpacity, 1.0);
    EXPECT_EQ(stroke.strokePresent, 1);
    EXPECT_TRUE(stroke.strokeColor == kBlue);
  }
}

TEST(PaintCodes, AVectorWithoutLengthIsTheLastStop) {
  AdapterPage page;
  Ramp ramp(kTagLinearGradient, {{kRed, 1.0}, {kBlue, 1.0}});
  ramp.vector(25.0, 50.0, 25.0, 50.0);
  ramp.gradient.parms.linear.x2.unit = kUnitPixel;  // units are not looked at
  _svg_pa_fill fill = fillWith(&ramp.gradient);
  EXPECT_EQ(page->castFillStyle(fill, graphicsWith(1.0)), 1);
  EXPECT_TRUE(fill.fillColor == kBlue);
  ramp.stops.back().gradients.stopOpacity = 0.5;
  EXPECT_EQ(page->castFillStyle(fill, graphicsWith(1.0)), 3);
  EXPECT_EQ(fill.fillOpacity, 0.5);
  _svg_pa_stroke stroke = strokeWith(&ramp.gradient, 0.1);
  EXPECT_EQ(page->castFillStyle(stroke, graphicsWith(1.0)), 3);
  EXPECT_EQ(stroke.strokeOpacity, 0.5);
  ramp.vector(25.0, 50.0, 25.0, 51.0);
  EXPECT_EQ(page->castFillStyle(stroke, graphicsWith(1.0)), 9);
}

// The element's opacity does not count for a raster code that comes from a gradient.
TEST(PaintCodes, RasterCodesTakeTheLastStop) {
  AdapterPage page;
  Ramp ramp(kTagLinearGradient, {{kRed, 1.0}, {kBlue, 1.0}});
  _svg_pa_stroke stroke = strokeWith(&ramp.gradient, 0.1);
  EXPECT_EQ(page->castRasterOperat(stroke, graphicsWith(0.5)), 0);
  EXPECT_EQ(stroke.strokeOpacity, 1.0);
  EXPECT_TRUE(stroke.strokeColor == kBlue);
  EXPECT_EQ(stroke.strokePresent, 0);
  ramp.stops.back().gradients.stopOpacity = 0.25;
  EXPECT_EQ(page->castRasterOperat(stroke, graphicsWith(0.5)), 1);
  EXPECT_EQ(stroke.strokeOpacity, 0.25);
}

}  // namespace
}  // namespace egfsvg::test
