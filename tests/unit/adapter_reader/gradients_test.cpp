// Gradients from their definitions to the pooled records.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_bits.h"
#include "host/egf_templates.h"
#include "model/lifecycle.h"
#include "tests/support/drawn_page.h"
#include "tests/support/reader_harness.h"

namespace egfsvg {
namespace {

using test::DrawnPage;
using test::pointText;

constexpr const char* kRedBlue =
    "<stop offset=\"0\" stop-color=\"red\"/><stop offset=\"1\" stop-color=\"blue\"/>";

/// A page with gradient `a` and one shape.
std::string drawing(const std::string& tag, const std::string& attributes, const std::string& shape,
                    const std::string& stops = kRedBlue) {
  return "<svg viewBox=\"0 0 200 200\"><defs><" + tag + " id=\"a\" " + attributes + ">" + stops +
         "</" + tag + "></defs>" + shape + "</svg>";
}
std::string linear(const std::string& attributes, const std::string& shape,
                   const std::string& stops = kRedBlue) {
  return drawing("linearGradient", attributes, shape, stops);
}

constexpr const char* kTall =
    "<rect x=\"10\" y=\"20\" width=\"30\" height=\"40\" fill=\"url(#a)\"/>";
constexpr const char* kSquare = "<rect width=\"100\" height=\"100\" fill=\"url(#a)\"/>";

struct Painted {
  std::string points;
  std::string positions;
  std::string colours;
  _egf_gdiplus_gradientparms_tag ramp{};
  _egf_gdiplus_fillparms_tag parms{};
  int fillStyle = 0;
};

Painted painted(const std::string& text) {
  const DrawnPage page(text);
  Painted result;
  auto* polygon = page.only<EgfPolygon>(kClassBox);
  if (polygon == nullptr) return result;
  result.points = pointText(polygon->gradPts.get(), polygon->gradPtCount);
  result.fillStyle = polygon->pen.fillStyle;
  if (polygon->fillParmsNo != 0) {
    result.parms = page.style<_egf_gdiplus_fillparms_tag>(kStyleFill, polygon->fillParmsNo);
  }
  if (polygon->fillGradientNo == 0) return result;
  result.ramp = page.style<_egf_gdiplus_gradientparms_tag>(kStyleGradient, polygon->fillGradientNo);
  for (int i = 0; i < result.ramp.stopCount; ++i) {
    const std::int16_t position = result.ramp.stopPositions[i];
    result.positions += (i > 0 ? "," : "") + std::to_string(position);
    const std::uint32_t word = colourWord(result.ramp.stopColors[i]);
    result.colours += word == 0xff0000 ? 'R' : word == 0x0000ff ? 'B' : '?';
  }
  return result;
}

std::string matrixText(const _egf_gdiplus_gradientparms_tag& ramp) {
  const _egf_matrix_tag m = ramp.gradMatrix;
  std::string text;
  for (float v : {m.m11, m.m12, m.m21, m.m22, m.dx, m.dy}) {
    text += (text.empty() ? "" : ",") + std::to_string(std::lround(v));
  }
  return text;
}

TEST(Gradients, FillABoxFromItsOwnBounds) {
  const Painted p = painted(linear("", kTall));
  EXPECT_EQ(p.points, "(40960,81920) (163840,81920)");
  EXPECT_EQ(p.positions, "0,0,1000,1000");
  EXPECT_EQ(p.colours, "RRBB");
  EXPECT_EQ(p.fillStyle, kFillLinear);
  EXPECT_EQ(+p.parms.angleIsSet, 0U);
  EXPECT_EQ(+p.parms.gradientAngle, 90000000);
  EXPECT_EQ(p.parms.wrapMode, _egf_wrapmode_tag::kTile);
}

struct VectorRow {
  const char* attributes;
  const char* shape;
  const char* points;
  const char* positions;
  const char* colours;
  std::uint32_t angleIsSet;
  std::int32_t angle;
  const char* matrix;
};

TEST(Gradients, VectorsAnglesAndRamps) {
  const VectorRow rows[] = {
      {"x2=\"0\" y2=\"1\"", kSquare, "(0,0) (0,409600)", "0,0,1000,1000", "RRBB", 0, 90000000,
       "1,0,0,1,0,0"},
      {"x2=\"1\" y2=\"1\"", kSquare, "(0,0) (409600,409600)", "0,0,1000,1000", "RRBB", 1, 45000000,
       "1,0,0,1,0,0"},
      {"x1=\"0\" y1=\"1\" x2=\"1\" y2=\"0\"", kSquare, "(0,409600) (409600,0)", "0,0,1000,1000",
       "RRBB", 1, 45000000, "1,0,0,-1,0,409600"},
      {"x1=\"1\" y1=\"0\" x2=\"0\" y2=\"1\"", kSquare, "(409600,0) (0,409600)", "0,0,1000,1000",
       "BBRR", 1, 45000000, "1,0,0,-1,-409600,0"},
  };
  for (const VectorRow& row : rows) {
    const Painted p = painted(linear(row.attributes, row.shape));
    EXPECT_EQ(p.points, row.points) << row.attributes;
    EXPECT_EQ(p.positions, row.positions) << row.attributes;
    EXPECT_EQ(p.colours, row.colours) << row.attributes;
    EXPECT_EQ(+p.parms.angleIsSet, row.angleIsSet) << row.attributes;
    EXPECT_EQ(+p.parms.gradientAngle, row.angle) << row.attributes;
    EXPECT_EQ(matrixText(p.ramp), row.matrix) << row.attributes;
  }
}

TEST(Gradients, PadReachesTheEdges) {
  struct PadRow {
    const char* vector;
    const char* points;
    const char* positions;
  };
  const PadRow rows[] = {
      {"x1=\"25\" y1=\"0\" x2=\"75\" y2=\"0\"", "(0,0) (409600,0)", "0,250,750,1000"},
      {"x1=\"75\" y1=\"0\" x2=\"25\" y2=\"0\"", "(409600,0) (102400,0)", "0,333,1000,1000"},
      {"x1=\"0\" y1=\"25\" x2=\"0\" y2=\"75\"", "(0,0) (0,409600)", "0,250,750,1000"},
      {"x1=\"0\" y1=\"75\" x2=\"0\" y2=\"25\"", "(0,409600) (0,0)", "0,250,750,1000"},
  };
  for (const PadRow& row : rows) {
    const Painted p =
        painted(linear(std::string("gradientUnits=\"userSpaceOnUse\" ") + row.vector, kSquare));
    EXPECT_EQ(p.points, row.points) << row.vector;
    EXPECT_EQ(p.positions, row.positions) << row.vector;
  }
}

TEST(Gradients, PositionsNeverFall) {
  const Painted p = painted(
      linear("", kSquare,
             "<stop offset=\".5\" stop-color=\"red\"/><stop offset=\".2\" stop-color=\"blue\"/>"
             "<stop offset=\"1\" stop-color=\"red\"/>"));
  EXPECT_EQ(p.positions, "0,500,500,1000,1000");
  // Those of a ring do, which runs from its edge inwards.
  const Painted ring = painted(
      drawing("radialGradient", "r=\"1\" spreadMethod=\"repeat\"", kSquare,
              "<stop offset=\".5\" stop-color=\"red\"/><stop offset=\".2\" stop-color=\"blue\"/>"
              "<stop offset=\"1\" stop-color=\"red\"/>"));
  EXPECT_EQ(ring.positions, "1000,1000,200,500,0");
}

TEST(Gradients, StopsCarryOpacityAndExchangedColours) {
  const Painted p = painted(linear("", kSquare,
                                   "<stop offset=\"0\" stop-color=\"black\" stop-opacity=\".5\"/>"
                                   "<stop offset=\"1\" stop-color=\"white\"/>"));
  EXPECT_EQ(static_cast<int>(p.ramp.stopAlpha[0]), 127);
  EXPECT_EQ(static_cast<int>(p.ramp.stopAlpha[1]), 127);
  EXPECT_EQ(static_cast<int>(p.ramp.stopAlpha[2]), 255);
  EXPECT_EQ(colourWord(p.ramp.stopColors[1]), 0x00ffffffU);
  EXPECT_EQ(colourWord(p.ramp.stopColors[2]), 0x00000000U);
}

TEST(Gradients, OpacitiesStayInTheirRange) {
  struct Row {
    const char* opacity;
    int alpha;
  };
  const Row rows[] = {{"-1", 0},      {"2", 255},    {"50%", 255}, {".999", 254},
                      {"1e999", 255}, {"-1e999", 0}, {"", 0},      {"x", 0}};
  for (const Row& row : rows) {
    const Painted p = painted(linear("", kSquare,
                                     std::string("<stop offset=\"0\" stop-opacity=\"") +
                                         row.opacity + "\"/><stop offset=\"1\"/>"));
    EXPECT_EQ(static_cast<int>(p.ramp.stopAlpha[1]), row.alpha) << row.opacity;
  }
}

// Words and numbers that no honest file holds, and a box without width.
TEST(Gradients, OddValues) {
  const char* const attributes[] = {"gradientTransform=\"translate()\"",
                                    "gradientTransform=\"matrix(1)\"",
                                    "gradientTransform=\"scale(0)\"",
                                    "gradientTransform=\"matrix(0,0,0,0,0,0)\"",
                                    "x1=\"1e999\"",
                                    "x1=\"-1e999\" x2=\"1e999\"",
                                    "x1=\"1\" x2=\"1\" y1=\"1\" y2=\"1\"",
                                    "r=\"0\"",
                                    "r=\"-1\"",
                                    "r=\"1e999\"",
                                    "r=\"1e-30\"",
                                    "fx=\"1e30\" fy=\"-1e30\"",
                                    "gradientUnits=\"userSpaceOnUse\" r=\"1e20\"",
                                    "gradientUnits=\"userSpaceOnUse\" x2=\"1e-30\"",
                                    "spreadMethod=\"PAD\"",
                                    "xlink:href=\"#a\""};
  const char* const figures[] = {
      "<rect width=\"100\" height=\"100\" fill=\"url(#a)\"/>",
      "<ellipse rx=\"30\" ry=\"1e-9\" fill=\"url(#a)\"/>",
      "<line x1=\"5\" y1=\"1\" x2=\"5\" y2=\"90\" stroke-width=\"0\" stroke=\"url(#a)\"/>",
      "<path d=\"M1 1L1 1L1 1\" fill=\"url(#a)\"/>"};
  for (const char* tag : {"linearGradient", "radialGradient"}) {
    for (const char* row : attributes) {
      for (const char* figure : figures) {
        const DrawnPage page(drawing(tag, row, figure));
        EXPECT_EQ(page.result(), 0) << tag << " " << row << " " << figure;
      }
    }
  }
}

TEST(Gradients, WithoutStopsNothingIsFilled) {
  const Painted none = painted(linear("", kSquare, ""));
  EXPECT_EQ(none.fillStyle, kFillNone);
  EXPECT_EQ(none.points, "");
  // A link that goes forward finds nothing.
  const Painted forward = painted(
      "<svg viewBox=\"0 0 9 9\"><linearGradient id=\"a\" xlink:href=\"#b\" />"
      "<linearGradient id=\"b\" >" +
      std::string(kRedBlue) + "</linearGradient>" + std::string(kSquare) + "</svg>");
  EXPECT_EQ(forward.fillStyle, kFillNone);
}

TEST(Gradients, LinksLendTheirStops) {
  const std::string base = "<svg viewBox=\"0 0 9 9\"><linearGradient id=\"b\" >" +
                           std::string(kRedBlue) + "</linearGradient>";
  EXPECT_EQ(
      painted(base + "<linearGradient id=\"a\" xlink:href=\"#b\" />" + kSquare + "</svg>").colours,
      "RRBB");
  EXPECT_EQ(painted(base +
                    "<linearGradient id=\"a\" xlink:href=\"#b\"><stop offset=\"0\" "
                    "stop-color=\"blue\"/><stop offset=\"1\" stop-color=\"blue\"/>"
                    "</linearGradient>" +
                    kSquare + "</svg>")
                .colours,
            "BBBB");
}

TEST(Gradients, AFormerColourOrNoneDoesNotStay) {
  const DrawnPage page(
      linear("", "<rect width=\"9\" height=\"9\" style=\"fill:none\" fill=\"url(#a)\"/>"));
  auto* box = page.only<EgfPolygon>(kClassBox);
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(static_cast<int>(box->pen.fillStyle), kFillLinear);
  const DrawnPage plain(
      linear("", "<rect width=\"9\" height=\"9\" fill=\"url(#a)\" style=\"fill:red\"/>"));
  box = plain.only<EgfPolygon>(kClassBox);
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(static_cast<int>(box->pen.fillStyle), kFillOpaque);
}

std::string radialSteps(const char* radius) {
  const Painted p = painted(drawing(
      "radialGradient", std::string("spreadMethod=\"repeat\" r=\"") + radius + "\"", kSquare));
  return std::to_string(p.ramp.gradReflect + 1) + " " + p.positions;
}

TEST(Gradients, SmallCirclesDoubleUntilTheyCover) {
  EXPECT_EQ(radialSteps("1"), "1 1000,1000,0,0");
  EXPECT_EQ(radialSteps(".5"), "2 500,500,0,0");
  // 1000 / 128 is 7.8; 1000 / 256 is 3.9, where the doubling ends.
  EXPECT_EQ(radialSteps(".01"), "128 7,7,0,0");
  EXPECT_EQ(radialSteps(".001"), "256 3,3,0,0");
}

TEST(Gradients, RadialMarks) {
  const Painted p = painted(drawing("radialGradient", "", kSquare));
  EXPECT_EQ(p.fillStyle, kFillRadial);
  EXPECT_EQ(p.parms.wrapMode, _egf_wrapmode_tag::kRadial);
  EXPECT_EQ(PathGradientBits::get(p.parms.gradientKind), 1U);
  EXPECT_EQ(GradientModeBits::get(p.parms.gradientFlags), 0U);
  // Pad: from the ring inward, the last colour first; half the way belongs to the doubled ring.
  EXPECT_EQ(p.positions, "0,500,500,1000,1000");
  EXPECT_EQ(p.colours, "BBBRR");
  EXPECT_EQ(p.points.substr(0, 16), "(204800,204800) ");
}

_svg_gradient gradientOf(int type, int spread, _svg_stop* stops, int count) {
  _svg_gradient gradient;
  initGradientObj(&gradient);
  type == kTagRadialGradient ? initRadialGrad(&gradient) : initLinearGrad(&gradient);
  gradient.head.type = type;
  gradient.spreadMethod = spread;
  gradient.stops = stops;
  gradient.stopCount = count;
  return gradient;
}

std::vector<_svg_stop> evenStops(int count) {
  std::vector<_svg_stop> stops(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    initStopObj(&stops[static_cast<std::size_t>(i)]);
    stops[static_cast<std::size_t>(i)].offset = percent(100.0 * i / (count - 1));
    stops[static_cast<std::size_t>(i)].gradients.stopColor = {1 + i * 250 / count, 5, 9, 0};
  }
  return stops;
}

std::string rampText(int type, int spread, unsigned steps, int count) {
  std::vector<_svg_stop> stops = evenStops(count);
  _svg_gradient gradient = gradientOf(type, spread, stops.data(), count);
  _egf_gdiplus_gradientparms_tag record = kGradientParms;
  CAdapterReader adapter;
  const int result = type == kTagRadialGradient
                         ? adapter.SetInterpolationColours(&gradient, &record, steps)
                         : adapter.SetGradientColours(&gradient, &record, 0, 0);
  EXPECT_EQ(result, 0);
  std::string text = std::to_string(record.gradReflect) + ":";
  for (int i = 0; i < record.stopCount; ++i) {
    const std::int16_t position = record.stopPositions[i];
    text += " " + std::to_string(position);
  }
  return text;
}

TEST(Gradients, RepeatedAndReflectedRamps) {
  EXPECT_EQ(rampText(kTagRadialGradient, kSpreadRepeat, 2, 2), "1: 500 500 0 0");
  EXPECT_EQ(rampText(kTagRadialGradient, kSpreadReflect, 4, 2), "1: 500 500 250 250 250 0 0");
  EXPECT_EQ(rampText(kTagRadialGradient, kSpreadReflect, 1, 2), "0: 2000 2000 1000 1000 1000 0 0");
  EXPECT_EQ(rampText(kTagRadialGradient, 0, 1, 2), "0:");  // an unknown word copies nothing
}

TEST(Gradients, ManyStopsStayInTheirRoom) {
  struct RoomRow {
    int type, spread, stops, entries;
  };
  const RoomRow rows[] = {
      {kTagLinearGradient, kSpreadPad, 50, 16},    {kTagLinearGradient, kSpreadPad, 14, 16},
      {kTagRadialGradient, kSpreadPad, 14, 16},    {kTagRadialGradient, kSpreadPad, 13, 16},
      {kTagRadialGradient, kSpreadRepeat, 20, 16}, {kTagRadialGradient, kSpreadReflect, 20, 15},
      {kTagRadialGradient, kSpreadReflect, 6, 15}, {kTagLinearGradient, kSpreadPad, 5000, 16}};
  for (const RoomRow& row : rows) {
    const std::string text = rampText(row.type, row.spread, 1, row.stops);
    EXPECT_EQ(std::count(text.begin(), text.end(), ' '), row.entries)
        << row.type << " " << row.spread << " " << row.stops;
  }
}

TEST(Gradients, ReversalLeavesAlphaWhereItIs) {
  _egf_gdiplus_gradientparms_tag record = kGradientParms;
  const int positions[] = {0, 200, 400, 700, 1000};
  record.stopCount = 5;
  for (int i = 0; i < 5; ++i) {
    record.stopPositions[i] = static_cast<std::int16_t>(positions[i]);
    record.stopColors[i] = colourOf(static_cast<std::uint32_t>(i));
    record.stopAlpha[i] = static_cast<std::uint8_t>(10 * i);
  }
  CAdapterReader adapter;
  adapter.ReverseGradientColor(&record);
  const int expected[] = {0, 300, 400, 800, 1000};
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(+record.stopPositions[i], expected[i]);
    EXPECT_EQ(colourWord(record.stopColors[i]), static_cast<std::uint32_t>(4 - i));
    EXPECT_EQ(static_cast<int>(record.stopAlpha[i]), 10 * i);
  }
}

TEST(Gradients, BaseAngles) {
  CAdapterReader adapter;
  _mpl_spacept_tag a{0, 0}, b{4096, 0}, c{0, 4096};
  EXPECT_EQ(adapter.SetLinearGrBaseAngle(nullptr, a, b), 0.0);
  EXPECT_EQ(adapter.SetLinearGrBaseAngle(nullptr, a, c), 1.5707963267);
}

TEST(Gradients, AFocusOutsideIsPulledOntoTheCircle) {
  CAdapterReader adapter;
  _mpl_spacept_tag center{2048, 2048}, radius{3276.8F, 3276.8F}, focus{3686.4F, 2048};
  EXPECT_EQ(adapter.PathGradientFocusCorrection(focus, center, radius), 1);
  EXPECT_EQ(std::lround(focus.x), 3276);
  EXPECT_EQ(std::lround(focus.y), 2048);
  focus = center;
  EXPECT_EQ(adapter.PathGradientFocusCorrection(focus, center, radius), 0);
}

TEST(Gradients, TheBoxStaysInTheCallersMap) {
  CAdapterReader adapter;
  _viewPortMap map{};
  for (int i = 0; i < 3; ++i) map.matrix.m[i][i] = 1.0;
  auto stops = evenStops(2);
  _svg_gradient gradient = gradientOf(kTagLinearGradient, kSpreadPad, stops.data(), 2);
  CHandlerReader reader;
  reader.SetBoundingBoxUnits(&gradient);
  _mpl_spacept_tag start{}, end{};
  double angle = 0;
  std::int32_t before = 0, after = 0;
  ASSERT_EQ(adapter.SetGradientVector(&map, {10, 40, 20, 60}, &gradient, start, end, &angle,
                                      &before, &after),
            0);
  EXPECT_EQ(map.matrix.m[0][0], 30.0);
  EXPECT_EQ(map.matrix.m[0][2], 10.0);
  EXPECT_EQ(map.matrix.m[1][1], 40.0);
  EXPECT_EQ(map.matrix.m[1][2], 20.0);
  gradient.gradientUnits = 7;
  EXPECT_EQ(adapter.SetGradientVector(&map, {10, 40, 20, 60}, &gradient, start, end, &angle,
                                      &before, &after),
            -1);
}

TEST(GradientDefinitions, SlotsByTheirUnits) {
  const auto read = [](const std::string& attributes,
                       const std::function<void(const _svg_gradient&)>& look) {
    test::TextReader reader("<svg><linearGradient id=\"a\" " + attributes +
                            "><stop offset=\"0.5\"/></linearGradient></svg>");
    reader->ParseStyleSheetsAndReferences();
    const _svg_gradient* gradient = reader->gradients.find("#a");
    ASSERT_NE(gradient, nullptr);
    look(*gradient);
    reader->DestroyGradientTable();
  };
  read("", [](const _svg_gradient& g) {
    EXPECT_EQ(g.parms.linear.x2.value, 1.0);
    EXPECT_EQ(g.parms.linear.x2.unit, kUnitBoundingBox);
    EXPECT_EQ(g.parms.linear.x1.value, 0.0);
    EXPECT_EQ(g.parms.linear.y2.unit, kUnitBoundingBox);
    ASSERT_EQ(g.stopCount, 1);
    EXPECT_EQ(g.stops[0].offset.value, 50.0);
    EXPECT_EQ(g.stops[0].offset.unit, kUnitPercent);
  });
  for (const char* x1 : {"x1=\"0.25\"", "x1=\"25%\""}) {
    read(x1, [](const _svg_gradient& g) {
      EXPECT_EQ(g.parms.linear.x1.value, 0.25);
      EXPECT_EQ(g.parms.linear.x1.unit, kUnitBoundingBox);
    });
  }
  read("gradientUnits=\"userSpaceOnUse\" x1=\"25%\"", [](const _svg_gradient& g) {
    EXPECT_EQ(g.parms.linear.x1.value, 25.0);
    EXPECT_EQ(g.parms.linear.x1.unit, kUnitPercent);
    EXPECT_EQ(g.parms.linear.x1.axis, kAxisWidth);
  });
  read("gradientTransform=\"translate(3,4)\"", [](const _svg_gradient& g) {
    ASSERT_EQ(g.head.transformCount, 1);
    EXPECT_EQ(g.head.transforms[0].args[0].unit, kUnitBoundingBox);
    EXPECT_EQ(g.head.transforms[0].args[1].unit, kUnitPixel);
  });
}

TEST(GradientDefinitions, MalformedOnesAreDroppedAndLaterOnesReplace) {
  test::TextReader reader(
      "<linearGradient id=\"bad\" x1=5><stop offset=\"0\"/></linearGradient>"
      "<linearGradient id=\"a\" ><stop offset=\"0\"/></linearGradient>"
      "<linearGradient ><stop offset=\"0\"/></linearGradient>"
      "<radialGradient id=\"A\" ><stop offset=\"0\"/><stop offset=\"1\"/></radialGradient>");
  reader->ParseStyleSheetsAndReferences();
  EXPECT_EQ(reader->gradients.count, 1);
  EXPECT_EQ(reader->gradients.find("#bad"), nullptr);
  const _svg_gradient* gradient = reader->gradients.find("#a");
  ASSERT_NE(gradient, nullptr);
  EXPECT_EQ(gradient->head.type, kTagRadialGradient);
  EXPECT_EQ(gradient->stopCount, 2);
  reader->DestroyGradientTable();
}

TEST(GradientDefinitions, StopsInheritFromTheirGradientWhenAsked) {
  test::TextReader reader(
      "<linearGradient id=\"a\" stop-color=\"red\"><stop offset=\"0\" stop-color=\"inherit\"/>"
      "</linearGradient>");
  reader->ParseStyleSheetsAndReferences();
  const _svg_gradient* gradient = reader->gradients.find("#a");
  ASSERT_NE(gradient, nullptr);
  ASSERT_EQ(gradient->stopCount, 1);
  const _svg_color& colour = gradient->stops[0].gradients.stopColor;
  EXPECT_EQ(colour.red, 255);
  EXPECT_EQ(colour.green, 0);
  reader->DestroyGradientTable();
}

}  // namespace
}  // namespace egfsvg
