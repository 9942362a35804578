#include "render/paints.h"

#include <gtest/gtest.h>

#include <vector>

#include "host/egf_templates.h"
#include "tests/unit/render/test_page.h"

namespace egfrender {
namespace {

using namespace egfsvg;        // NOLINT(google-build-using-namespace)
using namespace egfsvg::test;  // NOLINT(google-build-using-namespace)

TEST(Colours, ExchangeBlackAndWhite) {
  struct Row {
    std::uint32_t stored;
    double red, green, blue;
  };
  for (const Row& row : {Row{0xffffff, 0, 0, 0}, Row{0x000000, 1, 1, 1}, Row{0xff0000, 1, 0, 0},
                         Row{0x000001, 0, 0, 1.0 / 255}, Row{0x04ffffff, 0, 0, 0},
                         Row{0xfffffe, 1, 1, 254.0 / 255}}) {
    const Colour colour = shownColour(colourOf(row.stored), 0.5);
    EXPECT_DOUBLE_EQ(colour.red, row.red) << row.stored;
    EXPECT_DOUBLE_EQ(colour.green, row.green) << row.stored;
    EXPECT_DOUBLE_EQ(colour.blue, row.blue) << row.stored;
    EXPECT_DOUBLE_EQ(colour.alpha, 0.5);
  }
}

// A fill's opacity by its style code and by the extended record, when there is one.
TEST(Paints, TakeTheFillOpacityFromCodeAndRecord) {
  struct Row {
    std::uint8_t code;
    int fillAlpha;    // -1: no extended record
    double expected;  // -1: no fill
  };
  const std::vector<Row> rows = {
      {kFillNone, -1, -1},
      {kFillNone, 255, -1},
      {kFillOpaque, -1, 1},
      {kFillOpaque, 255, 1},
      {kFillPartial, 63, 63 / 255.0},
      {kFillPartial, -1, 0.5},
      {kFillPartial, 0, -1},
      {kFillDefault, -1, 1},
      {kFillDefault, 51, 0.2},
      {kFillLinear, 100, 100 / 255.0},
      {kFillRadial, -1, 1},
  };
  for (const Row& row : rows) {
    TestPage page;
    AreaPen pen{.fill = 0xff0000, .fillStyle = row.code};
    if (row.fillAlpha >= 0) {
      auto record = kFillParms;
      record.fillAlpha = static_cast<std::uint8_t>(row.fillAlpha);
      pen.fillParmsNo = page.style(kStyleFill, record);
    }
    const auto* polygon = as<EgfPolygon>(page.add(box(0, 0, 10, 10, pen)));
    const Fill fill = polygonPaints(page.page(), *polygon).fill;
    ASSERT_EQ(fill.has_value(), row.expected >= 0) << int{row.code} << " " << row.fillAlpha;
    if (fill) {
      EXPECT_DOUBLE_EQ(fill->paint.colour.alpha, row.expected);
    }
  }
}

TEST(Paints, TakeTheStrokeOfAShapeFromItsRecord) {
  struct Row {
    double width;
    int strokeCode;  // -1: no extended record
    int strokeAlpha;
    bool drawn;
  };
  const std::vector<Row> rows = {
      {1, -1, 255, true},           {0, -1, 255, false},           {1, kFillOpaque, 255, true},
      {1, kFillNone, 255, false},   {1, kFillOpaque, 0, false},    {1, kFillPartial, 10, true},
      {1, kFillDefault, 255, true}, {-1, kFillOpaque, 255, false},
  };
  for (const Row& row : rows) {
    TestPage page;
    AreaPen pen{.width = row.width, .stroke = 0x0000ff};
    if (row.strokeCode >= 0) {
      auto record = kFillParms;
      record.strokeFillStyle = static_cast<std::uint32_t>(row.strokeCode);
      record.strokeAlpha = static_cast<std::uint8_t>(row.strokeAlpha);
      pen.fillParmsNo = page.style(kStyleFill, record);
    }
    const auto* polygon = as<EgfPolygon>(page.add(box(0, 0, 10, 10, pen)));
    const Stroke stroke = polygonPaints(page.page(), *polygon).stroke;
    ASSERT_EQ(stroke.has_value(), row.drawn) << row.width << " " << row.strokeCode;
    if (stroke) {
      EXPECT_DOUBLE_EQ(stroke->paint.colour.alpha, row.strokeAlpha / 255.0);
    }
  }
}

TEST(Paints, KnowCapsJoinsAndTheFillRule) {
  struct Row {
    std::uint8_t join, startCap;
    bool closed;
    cairo_line_join_t expectedJoin;
    cairo_line_cap_t expectedCap;
  };
  constexpr std::uint8_t kNoRecord = 99;
  const std::vector<Row> rows = {
      {kJoinRound, kNoRecord, true, CAIRO_LINE_JOIN_ROUND, CAIRO_LINE_CAP_BUTT},
      {kJoinRound, kNoRecord, false, CAIRO_LINE_JOIN_ROUND, CAIRO_LINE_CAP_ROUND},
      {kJoinBevel, kCapButt, false, CAIRO_LINE_JOIN_BEVEL, CAIRO_LINE_CAP_BUTT},
      {kJoinMiter, kCapSquare, false, CAIRO_LINE_JOIN_MITER, CAIRO_LINE_CAP_SQUARE},
      {kJoinUnset, kCapRound, true, CAIRO_LINE_JOIN_MITER, CAIRO_LINE_CAP_ROUND},
      {kJoinMiter, kCapUnset, true, CAIRO_LINE_JOIN_MITER, CAIRO_LINE_CAP_BUTT},
  };
  for (const Row& row : rows) {
    TestPage page;
    AreaPen pen{.width = 2, .joinStyle = row.join, .evenOdd = row.closed, .closed = row.closed};
    if (row.startCap != kNoRecord) {
      auto record = kFillParms;
      record.startCap = row.startCap;
      record.miterLimit = 7;
      pen.fillParmsNo = page.style(kStyleFill, record);
    }
    const auto* polygon =
        as<EgfPolygon>(page.add(egfsvg::test::polygon({{0, 0}, {10, 0}, {10, 10}}, pen)));
    const ShapePaints paints = polygonPaints(page.page(), *polygon);
    ASSERT_TRUE(paints.stroke && paints.fill);
    EXPECT_EQ(paints.stroke->join, row.expectedJoin);
    EXPECT_EQ(paints.stroke->cap, row.expectedCap);
    EXPECT_DOUBLE_EQ(paints.stroke->miterLimit, row.startCap == kNoRecord ? 10 : 7);
    EXPECT_EQ(paints.fill->rule, row.closed ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
  }
}

// An ellipse has no ends, so that its dashes have none either.
TEST(Paints, GiveAnEllipseButtCaps) {
  TestPage page;
  const auto* record = as<EgfEllipse>(page.add(ellipse(5, 5, 3, 3, {.width = 2})));
  const Stroke stroke = ellipsePaints(page.page(), *record).stroke;
  ASSERT_TRUE(stroke.has_value());
  EXPECT_EQ(stroke->cap, CAIRO_LINE_CAP_BUTT);
}

TEST(Paints, TakeALinesStrokeFromPenAndRecord) {
  struct Row {
    std::uint8_t rasterOp, cap;
    int alpha;  // -1: no extended record
    int recordCap;
    double expectedAlpha;  // -1: not drawn
    cairo_line_cap_t expectedCap;
  };
  const std::vector<Row> rows = {
      {kRasterOpaque, kCapButt, -1, 0, 1, CAIRO_LINE_CAP_BUTT},
      {kRasterOpaque, kCapRound, -1, 0, 1, CAIRO_LINE_CAP_ROUND},
      {kRasterPartial, kCapSquare, -1, 0, 0.5, CAIRO_LINE_CAP_SQUARE},
      {kRasterPartial, kCapSquare, 51, kCapUnset, 0.2, CAIRO_LINE_CAP_SQUARE},
      {kRasterOpaque, kCapRound, 255, kCapButt, 1, CAIRO_LINE_CAP_BUTT},
      // An unstroked line is opaque by its code, and invisible by its record.
      {kRasterOpaque, kCapButt, 0, kCapButt, -1, CAIRO_LINE_CAP_BUTT},
      {kRasterNone, kCapButt, -1, 0, -1, CAIRO_LINE_CAP_BUTT},
      {kRasterNone, kCapButt, 255, kCapButt, -1, CAIRO_LINE_CAP_BUTT},
  };
  for (const Row& row : rows) {
    TestPage page;
    LinePen pen{.rasterOp = row.rasterOp, .capStyle = row.cap};
    if (row.alpha >= 0) {
      auto record = kStrokeParms;
      record.strokeAlpha = static_cast<std::uint8_t>(row.alpha);
      record.capStyle = static_cast<std::uint8_t>(row.recordCap);
      pen.strokeParmsNo = page.style(kStyleStroke, record);
    }
    const auto* record = as<EgfLine>(page.add(line({0, 0}, {9, 0}, pen)));
    const Stroke stroke = linePaint(page.page(), *record);
    ASSERT_EQ(stroke.has_value(), row.expectedAlpha >= 0) << int{row.rasterOp} << row.alpha;
    if (!stroke) continue;
    EXPECT_DOUBLE_EQ(stroke->paint.colour.alpha, row.expectedAlpha);
    EXPECT_EQ(stroke->cap, row.expectedCap);
  }
}

TEST(Paints, MeasureWidthsInEveryUnit) {
  struct Row {
    std::uint32_t unit;
    double length, expected;
  };
  TestPage page;
  for (const Row& row :
       {Row{kMeasureDevice, 3, 3}, Row{kMeasureInch, 0.5, 48}, Row{kMeasureCentimetre, 2.54, 96},
        Row{kMeasureMillimetre, 25.4, 96}, Row{kMeasureMetre, 0.0254, 96},
        Row{kMeasureFoot, 0.25, 288}, Row{kMeasurePoint, 36, 48}, Row{kMeasureTwip, 720, 48},
        Row{kMeasurePixel200, 96, 200}, Row{9, 3, 3}}) {
    const auto* record =
        as<EgfLine>(page.add(edit<EgfLine>(line({0, 0}, {9, 0}), [&](EgfLine& object) {
          object.pen.lineWidth = {row.unit, row.length};
        })));
    const Stroke stroke = linePaint(page.page(), *record);
    ASSERT_TRUE(stroke.has_value());
    EXPECT_NEAR(stroke->width, row.expected, 1e-9) << row.unit;
  }
}

TEST(Paints, ReadDashes) {
  TestPage page;
  struct Row {
    std::vector<double> segments;
    std::uint32_t unit;
    std::vector<double> expected;
  };
  const std::vector<Row> rows = {
      {{5, -3}, kMeasureDevice, {5, 3}},
      {{5, -3, 2, -5, 3, -2}, kMeasureDevice, {5, 3, 2, 5, 3, 2}},
      {{1, -0.5}, kMeasureInch, {96, 48}},
      {{0, 0}, kMeasureDevice, {}},
      {{0, -4}, kMeasureDevice, {0, 4}},
  };
  for (const Row& row : rows) {
    const std::uint32_t style = page.tree().dash(row.segments, row.unit);
    EXPECT_EQ(dashLengths(page.page(), style), row.expected);
  }
  EXPECT_TRUE(dashLengths(page.page(), kLineSolid).empty());
  EXPECT_TRUE(dashLengths(page.page(), 4711).empty());
}

TEST(Paints, TakeAPathsPenFromTheStyleTable) {
  TestPage page;
  auto pen = kPolygonPen;
  pen.lineWidth = {kMeasureDevice, 2.0};
  pen.fillColor = colourOf(0x00ff00);
  pen.fillStyle = kFillOpaque;
  const auto withPen = as<EgfPath>(
      page.add(path({line({0, 0}, {9, 0})}, {.gdiFillStyleNo = page.style(kStylePen, pen)})));
  const ShapePaints paints = pathPaints(page.page(), *withPen);
  ASSERT_TRUE(paints.fill && paints.stroke);
  EXPECT_DOUBLE_EQ(paints.fill->paint.colour.green, 1);
  EXPECT_DOUBLE_EQ(paints.stroke->width, 2);
  const auto without = as<EgfPath>(page.add(path({line({0, 0}, {9, 0})})));
  EXPECT_FALSE(pathPaints(page.page(), *without).fill.has_value());
  EXPECT_FALSE(pathPaints(page.page(), *without).stroke.has_value());
}

TEST(Paints, DescribeGradients) {
  TestPage page;
  auto ramp = kGradientParms;
  ramp.stopCount = 2;
  auto record = kFillParms;
  record.wrapMode = _egf_wrapmode_tag::kFlip;
  record.angleIsSet = 1;
  record.gradientAngle = 45 * kMillionths;
  const AreaPen pen{.fill = 0x0000ff,
                    .fillStyle = kFillLinear,
                    .fillParmsNo = page.style(kStyleFill, record),
                    .fillGradientNo = page.style(kStyleGradient, ramp),
                    .gradPts = {{0, 0}, {10, 0}}};
  const auto* polygon = as<EgfPolygon>(page.add(box(0, 0, 10, 10, pen)));
  const Fill fill = polygonPaints(page.page(), *polygon).fill;
  ASSERT_TRUE(fill && fill->paint.gradient);
  EXPECT_EQ(fill->paint.gradient->ramp.stopCount, 2);
  EXPECT_EQ(fill->paint.gradient->pointCount, 2U);
  EXPECT_FALSE(fill->paint.gradient->radial);
  EXPECT_EQ(fill->paint.gradient->wrapMode, _egf_wrapmode_tag::kFlip);
  EXPECT_TRUE(fill->paint.gradient->angleIsSet);
  EXPECT_EQ(fill->paint.gradient->angle, 45 * kMillionths);
}

}  // namespace
}  // namespace egfrender
