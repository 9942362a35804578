#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::nan("");

_svg_value in(UnitCode unit, double value, std::int32_t axis = 0) { return {unit, value, axis}; }

TEST(Casts, UnitsBecomePixels) {
  struct Row {
    int unit;
    double pixels;  // of one unit at 192 pixels per inch
  };
  constexpr Row kRows[] = {
      {kUnitPixel, 2.0},              // 192 / 96
      {kUnitPoint, 2.0 + 2.0 / 3.0},  // 192 / 72
      {kUnitPica, 32.0},              // 192 / 6
      {kUnitCentimetre, 75.5905511811023622},
      {kUnitMillimetre, 7.55905511811023622},
      {kUnitInch, 192.0},
      {kUnitBoundingBox, 1.0},
      {kUnitEm, 0.0},
      {kUnitEx, 0.0},
      {kUnitPercent, 0.0},
      {kUnitDegree, 0.0},
      {kUnitSpace, 0.0},
      {kUnitUnset, 0.0},
      {0, 0.0},
      {99, 0.0},
  };
  AdapterPage page;
  for (const Row& row : kRows) {
    EXPECT_DOUBLE_EQ(page->SVGUnitToPixel(row.unit, 192.0), row.pixels) << row.unit;
  }
}

TEST(Casts, LengthsBecomeSpaceUnits) {
  struct Row {
    double dotsPerInch;
    _svg_value value;
    float units;
  };
  const Row kRows[] = {
      {96.0, in(kUnitPixel, 1.0), 4096.0F},
      {96.0, in(kUnitPoint, 1.0), 5461.3335F},
      {96.0, in(kUnitPica, 1.0), 65536.0F},
      {96.0, in(kUnitCentimetre, 1.0), 154809.453F},
      {96.0, in(kUnitMillimetre, 1.0), 15480.9453F},
      {96.0, in(kUnitInch, 1.0), 393216.0F},
      {96.0, in(kUnitEm, 1.0), 0.0F},
      {96.0, in(kUnitSpace, 1.0), 0.0F},
      {96.0, in(kUnitUnset, 1.0), 0.0F},
      {200.0, in(kUnitPixel, 10.0), 85333.3359F},
      {200.0, in(kUnitPoint, 10.0), 113777.781F},
      {96.0, in(kUnitPixel, -3.5), -14336.0F},
  };
  for (const Row& row : kRows) {
    AdapterPage page(row.dotsPerInch);
    EXPECT_EQ(page->castS32(row.value), row.units) << row.value.unit << " at " << row.dotsPerInch;
  }
}

TEST(Casts, PercentagesTakeTheSideOfTheirAxis) {
  AdapterPage page;
  page->viewportWidth = 200.0F * 4096.0F;
  page->viewportHeight = 100.0F * 4096.0F;
  EXPECT_DOUBLE_EQ(page->SVGValueToPixelValue(in(kUnitPercent, 50.0, 1), 96.0), 100.0);
  EXPECT_DOUBLE_EQ(page->SVGValueToPixelValue(in(kUnitPercent, 50.0, 2), 96.0), 50.0);
  // sqrt((200² + 100²) / 2) / 2
  EXPECT_NEAR(page->SVGValueToPixelValue(in(kUnitPercent, 50.0, 0), 96.0), 79.0569415, 1e-7);
  EXPECT_NEAR(page->SVGValueToPixelValue(in(kUnitPercent, 50.0, 7), 96.0), 79.0569415, 1e-7);
}

TEST(Casts, LineWidthIsPixelsInDeviceUnits) {
  AdapterPage page(192.0);
  __meas width{9, -1.0};
  page->castLineThickness(in(kUnitPixel, 1.5), &width);
  EXPECT_EQ(+width.unit, 0U);
  EXPECT_EQ(+width.value, 3.0);
}

TEST(Casts, OpacitiesBecomeCodes) {
  struct Row {
    double opacity;
    int raster;
    int fill;
  };
  const Row kRows[] = {
      {1.0, 0, 1},  {0.5, 1, 3},    {0.0, 7, 0},       {1.5, 7, 7},
      {-0.1, 7, 7}, {1e-300, 1, 3}, {kInfinity, 7, 7}, {kNaN, 7, 7},
  };
  AdapterPage page;
  for (const Row& row : kRows) {
    EXPECT_EQ(page->castRasterOperat(row.opacity), row.raster) << row.opacity;
    EXPECT_EQ(page->castFillStyle(row.opacity), row.fill) << row.opacity;
  }
}

TEST(Casts, KeywordCodes) {
  AdapterPage page;
  constexpr int kCaps[][2] = {{1, 10}, {2, 0}, {3, 1}, {0, 0}, {4, 0}, {-1, 0}};
  for (const auto& row : kCaps) EXPECT_EQ(page->castLineCap(row[0]), row[1]) << row[0];
  constexpr int kJoins[][2] = {{1, 13}, {2, 0}, {3, 11}, {0, 13}, {9, 13}};
  for (const auto& row : kJoins) {
    _svg_pa_stroke stroke;
    initStroke(&stroke);
    stroke.strokeLinejoin = row[0];
    EXPECT_EQ(page->castJoinStyle(stroke), row[1]) << row[0];
  }
  constexpr int kRules[][2] = {{1, 0}, {2, 1}, {0, 0}, {3, 0}};
  for (const auto& row : kRules) EXPECT_EQ(page->castFillMode(row[0]), row[1]) << row[0];
}

TEST(Casts, ColoursBecomeWords) {
  AdapterPage page;
  EXPECT_EQ(colourWord(page->castColor({255, 0, 0, 0})), 0x00FF0000U);
  EXPECT_EQ(colourWord(page->castColor({255, 255, 255, 0})), 0x00FFFFFFU);  // black
  EXPECT_EQ(colourWord(page->castColor({0, 0, 0, 0})), 0x00000000U);        // white
  EXPECT_EQ(colourWord(page->castColor({1, 2, 3, 4})), 0x04010203U);
}

TEST(Casts, PointsBecomeSpaceUnits) {
  AdapterPage page(192.0);
  const _svg_point point{in(kUnitPixel, 10.0), in(kUnitPixel, 20.0)};
  _mpl_spacept_tag out{1.0F, 1.0F};
  page->SVGPointToPts(point, &out);
  EXPECT_EQ(pairOf(out), PointPair(81920.0F, 163840.0F));
  page->SVGPointToPts(point, in(kUnitPixel, 1.0), in(kUnitInch, 0.5), &out);
  EXPECT_EQ(pairOf(out), PointPair(90112.0F, 557056.0F));  // 11 * 2, 20 * 2 + 96 pixels
  page->SVGPointToPts(point, nullptr);
  page->SVGPointToPts(point, in(kUnitPixel, 1.0), in(kUnitPixel, 1.0), nullptr);
}

TEST(Casts, APointConvertedInPlaceIsMarkedAndNotRepeatable) {
  AdapterPage page;
  _svg_point point{in(kUnitPixel, 10.0, 1), in(kUnitPixel, 20.0, 2)};
  page->SVGPointToPts(point);
  EXPECT_EQ(point.x.value, 40960.0);
  EXPECT_EQ(point.y.value, 81920.0);
  EXPECT_EQ(point.x.unit, 13);
  EXPECT_EQ(point.y.unit, 13);
  page->SVGPointToPts(point);
  EXPECT_EQ(point.x.value, 0.0);
  EXPECT_EQ(point.y.value, 0.0);
}

TEST(Casts, Angles) {
  struct Row {
    _svg_angle angle;
    int tenths;
    double radians;
  };
  const Row kRows[] = {
      {{kUnitDegree, 45.0}, 450, 0.78539816335},
      {{kUnitDegree, 12.39}, 123, 0.216246294309033},
      {{kUnitDegree, -12.39}, -123, -0.216246294309033},
      {{kUnitRadian, 1.0}, 572, 1.0},  // 57.29 degrees
      {{kUnitGrad, 100.0}, 900, 1.5707963267},
      {{kUnitPercent, 10.0}, 0, 0.0},
      {{kUnitUnset, 10.0}, 0, 0.0},
      {{kUnitDegree, 1e300}, std::numeric_limits<std::int32_t>::max(), 1e300 * 3.1415926534 / 180},
      {{kUnitDegree, kNaN}, 0, kNaN},
  };
  AdapterPage page;
  for (const Row& row : kRows) {
    EXPECT_EQ(page->SVGAngleToAngle(row.angle), row.tenths) << row.angle.value;
    const double radians = page->SVGAngleToRAD(row.angle);
    if (std::isnan(row.radians)) {
      EXPECT_TRUE(std::isnan(radians));
    } else {
      EXPECT_NEAR(radians, row.radians, std::fabs(row.radians) * 1e-11) << row.angle.value;
    }
  }
}

TEST(Casts, TheMapIsAskedOnceAPage) {
  AdapterPage page(150.0);
  egfhost::countCalls();
  const _svg_value value = in(kUnitPixel, 96.0);
  EXPECT_EQ(page->castS32(value), 614400.0F);  // 150 pixels
  EXPECT_EQ(page->castS32(value), 614400.0F);
  EXPECT_EQ(egfhost::callCount("MPL_GetResXFactor"), 0U);
  page.close();
  page->castS32(value);
  EXPECT_EQ(egfhost::callCount("MPL_GetResXFactor"), 1U);
  egfhost::clearFaults();
}

TEST(Casts, WithoutAMapPixelsAreSvgPixels) {
  AdapterPage page(150.0, false);
  EXPECT_EQ(page->castS32(in(kUnitPixel, 1.0)), 4096.0F);
}

}  // namespace
}  // namespace egfsvg::test
