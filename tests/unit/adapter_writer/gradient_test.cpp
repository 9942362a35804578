// Gradients of objects, and the elements of their pool.

#include <gtest/gtest.h>

#include <array>

#include "host/egf_templates.h"
#include "tests/support/written_rows.h"

namespace egfsvg {
namespace {

using namespace test;

struct Stop {
  std::uint32_t colour;
  int position;
  int alpha = 255;
};

/// What a gradient test changes; the rest is a red to blue ramp from (10, 20) to (110, 20).
struct GradientCase {
  std::vector<Stop> stops = {{0xff0000, 0}, {0xff0000, 0}, {0x0000ff, 1000}, {0x0000ff, 1000}};
  _egf_matrix_tag matrix = kIdentityMatrix;
  int reflect = 0;
  Points points = {{10, 20}, {110, 20}};
  _egf_gdiplus_fillparms_tag parms = kFillParms;
  Px viewport = {0, 0};  // of a root with a viewport of its own
  double x = 96.0;
  double y = 0.0;
};

std::uint32_t rampNumber(HostHandle document, const GradientCase& setup) {
  _egf_gdiplus_gradientparms_tag ramp = kGradientParms;
  ramp.gradMatrix = setup.matrix;
  ramp.gradReflect = static_cast<std::uint8_t>(setup.reflect);
  ramp.stopCount = static_cast<std::uint8_t>(setup.stops.size());
  for (std::size_t i = 0; i < setup.stops.size(); ++i) {
    ramp.stopColors[i] = colourOf(setup.stops[i].colour);
    ramp.stopAlpha[i] = static_cast<std::uint8_t>(setup.stops[i].alpha);
    writePacked<std::int16_t>(ramp.stopPositions, i * 2,
                              static_cast<std::int16_t>(setup.stops[i].position));
  }
  return appendStyle(document, kStyleGradient, ramp);
}

AreaPen gradientPen(HostHandle document, const GradientCase& setup) {
  return {.width = 2.0,
          .stroke = 0x0000ff,
          .fillStyle = kFillLinear,
          .joinStyle = kJoinRound,
          .fillParmsNo = appendStyle(document, kStyleFill, setup.parms),
          .fillGradientNo = rampNumber(document, setup),
          .gradPts = setup.points};
}

const Points kTriangle = {{0, 0}, {100, 0}, {50, 50}};

/// A first child that makes the root's viewport of its own.
void setViewport(DrawingWriter& drawing, Px size) {
  if (size.x == 0) return;
  drawing.tree.nameRoot("setInitialViewPort");
  drawing.tree.add(
      edit<EgfPolygon>(box(0, 0, size.x, size.y), [](EgfPolygon& r) { r.head.objAttr = 0; }));
}

Lines gradientLines(const GradientCase& setup) {
  DrawingWriter drawing(setup.x, setup.y);
  setViewport(drawing, setup.viewport);
  drawing.tree.add(polygon(kTriangle, gradientPen(drawing.document(), setup)));
  EXPECT_EQ(drawing.write(), 0);
  EXPECT_EQ(
      drawing.body(),
      (Lines{
          R"~(   <polygon class="stl1" points="0.000,0.000 100.000,0.000 50.000,50.000 " fill="url(#grad1)" />)~"}));
  return drawing.gradients();
}

struct GradientRow {
  const char* name;
  void (*change)(GradientCase&);
  Lines expected;
  bool bodyScales = false;
};

void turn(GradientCase& setup, Points points, std::int32_t angle) {
  setup.points = std::move(points);
  setup.parms.angleIsSet = 1;
  setup.parms.gradientAngle = angle;
}

void makeRadial(GradientCase& setup, std::vector<Stop> stops) {
  setup.parms.gradientKind = 1;
  setup.parms.wrapMode = _egf_wrapmode_tag::kRadial;
  setup.points = {{30, 40}};
  setup.stops = std::move(stops);
}

const std::vector<Stop> kThreeOfRadial = {{1, 0}, {1, 0}, {2, 250}, {3, 1000}, {3, 1000}};

std::string linear(const std::string& rest) {
  return R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" )~" + rest + " >";
}
std::string radial(const std::string& rest) {
  return R"~(       <radialGradient id="grad1" gradientUnits="userSpaceOnUse" fx="30.0" fy="40.0" cx="50.0%" cy="50.0%" r="50.0%" )~" +
         rest + ">";
}
const std::string kRedStop = R"~(          <stop offset="0%" stop-color="rgb(255,0,0)" />)~";
const std::string kBlueStop = R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" />)~";
const std::string kEndLinear = "       </linearGradient>";
const std::string kEndRadial = "       </radialGradient>";

const GradientRow kRows[] = {
    {"linear",
     [](GradientCase&) {},
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="10.0" y1="20.0" x2="110.0" y2="20.0" spreadMethod="repeat" >)~",
      R"~(          <stop offset="0%" stop-color="rgb(255,0,0)" />)~",
      R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" />)~",
      "       </linearGradient>"}},
    {"reflect",
     [](GradientCase& s) { s.parms.wrapMode = _egf_wrapmode_tag::kFlip; },
     {linear(R"~(x1="10.0" y1="20.0" x2="110.0" y2="20.0" spreadMethod="reflect")~"), kRedStop,
      kBlueStop, kEndLinear}},
    {"percent",
     [](GradientCase& s) {
       s.viewport = {200, 100};
     },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="5.0%" y1="20.0%" x2="55.0%" y2="20.0%" spreadMethod="repeat" >)~",
      R"~(          <stop offset="0%" stop-color="rgb(255,0,0)" />)~",
      R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" />)~",
      "       </linearGradient>"}},
    {"percent without its sign",
     [](GradientCase& s) {
       s.viewport = {200, 100};
       s.points[0] = {-10, -20};
     },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="5.0%" y1="20.0%" x2="55.0%" y2="20.0%" spreadMethod="repeat" >)~",
      R"~(          <stop offset="0%" stop-color="rgb(255,0,0)" />)~",
      R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" />)~",
      "       </linearGradient>"}},
    {"two entries",
     [](GradientCase& s) {
       s.stops.resize(2);
       s.matrix.dx = 1.0F;
     },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="10.0" y1="20.0" x2="110.0" y2="20.0" spreadMethod="repeat" >)~",
      "       </linearGradient>"}},
    {"one entry",
     [](GradientCase& s) { s.stops.resize(1); },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="10.0" y1="20.0" x2="110.0" y2="20.0" spreadMethod="repeat" >)~",
      "       </linearGradient>"}},
    {"alpha",
     [](GradientCase& s) {
       s.stops[1].alpha = 128;
       s.stops[2].alpha = 0;
     },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="10.0" y1="20.0" x2="110.0" y2="20.0" spreadMethod="repeat" >)~",
      R"~(          <stop offset="0%" stop-color="rgb(255,0,0)" stop-opacity="0.50" />)~",
      R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" stop-opacity="0.00" />)~",
      "       </linearGradient>"}},
    {"black and white",
     [](GradientCase& s) {
       s.stops[1].colour = 0xffffff;
       s.stops[2].colour = 0;
     },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="10.0" y1="20.0" x2="110.0" y2="20.0" spreadMethod="repeat" >)~",
      R"~(          <stop offset="0%" stop-color="rgb(0,0,0)" />)~",
      R"~(          <stop offset="100%" stop-color="rgb(255,255,255)" />)~",
      "       </linearGradient>"}},
    {"offsets are cut",
     [](GradientCase& s) {
       s.stops[1].position = 9;
       s.stops[2].position = 999;
     },
     {linear(R"~(x1="10.0" y1="20.0" x2="110.0" y2="20.0" spreadMethod="repeat")~"), kRedStop,
      R"~(          <stop offset="99%" stop-color="rgb(0,0,255)" />)~", kEndLinear}},
    {"matrix",
     [](GradientCase& s) { s.matrix = {1, 0, 0, -1, -40960, -81920}; },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="10.0" y1="20.0" x2="110.0" y2="20.0" spreadMethod="repeat" gradientTransform="matrix(1.0000,0.0000,0.0000,-1.0000,-10.0000,-20.0000)" >)~",
      R"~(          <stop offset="0%" stop-color="rgb(255,0,0)" />)~",
      R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" />)~",
      "       </linearGradient>"}},
    {"the vector's own angle",
     [](GradientCase& s) {
       turn(s, {{0, 0}, {100, 100}}, 45000000);
     },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="0.0" y1="0.0" x2="100.0" y2="100.0" spreadMethod="repeat" >)~",
      R"~(          <stop offset="0%" stop-color="rgb(255,0,0)" />)~",
      R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" />)~",
      "       </linearGradient>"}},
    {"another angle",
     [](GradientCase& s) {
       turn(s, {{0, 0}, {100, 100}}, 30000000);
     },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="0.0" y1="0.0" x2="118.3" y2="68.3" spreadMethod="repeat" >)~",
      R"~(          <stop offset="0%" stop-color="rgb(255,0,0)" />)~",
      R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" />)~",
      "       </linearGradient>"}},
    {"a quarter turn",
     [](GradientCase& s) {
       turn(s, {{0, 0}, {100, 100}}, 90000000);
     },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="0.0" y1="0.0" x2="100.0" y2="100.0" spreadMethod="repeat" >)~",
      kRedStop, kBlueStop, kEndLinear}},
    {"no turn",
     [](GradientCase& s) {
       turn(s, {{0, 0}, {100, 100}}, 999999);
     },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="0.0" y1="0.0" x2="100.0" y2="100.0" spreadMethod="repeat" >)~",
      kRedStop, kBlueStop, kEndLinear}},
    {"an angle that is not set",
     [](GradientCase& s) {
       turn(s, {{0, 0}, {100, 100}}, 30000000);
       s.parms.angleIsSet = 2;
     },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="0.0" y1="0.0" x2="100.0" y2="100.0" spreadMethod="repeat" >)~",
      kRedStop, kBlueStop, kEndLinear}},
    {"a level vector",
     [](GradientCase& s) {
       turn(s, {{0, 0}, {100, 0}}, 45000000);
     },
     {R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="0.0" y1="0.0" x2="100.0" y2="0.0" spreadMethod="repeat" >)~",
      R"~(          <stop offset="0%" stop-color="rgb(255,0,0)" />)~",
      R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" />)~",
      "       </linearGradient>"}},
    {"a vector without end",
     [](GradientCase& s) {
       turn(s, {{0, 0}, {1e39, 100}}, 45000000);
     },
     {linear(R"~(x1="0.0" y1="0.0" x2="inf" y2="100.0" spreadMethod="repeat")~"), kRedStop,
      kBlueStop, kEndLinear}},
    {"an upright vector",
     [](GradientCase& s) {
       turn(s, {{0, 0}, {0, 100}}, 45000000);
     },
     {linear(R"~(x1="0.0" y1="0.0" x2="50.0" y2="50.0" spreadMethod="repeat")~"), kRedStop,
      kBlueStop, kEndLinear}},
    {"one point",
     [](GradientCase& s) { s.points.resize(1); },
     {linear(R"~(x1="10.0" y1="20.0" x2="0.0" y2="0.0" spreadMethod="repeat")~"), kRedStop,
      kBlueStop, kEndLinear}},
    {"no points",
     [](GradientCase& s) { s.points.clear(); },
     {linear(R"~(x1="0.0" y1="0.0" x2="0.0" y2="0.0" spreadMethod="repeat")~"), kRedStop, kBlueStop,
      kEndLinear}},
    {"radial",
     [](GradientCase& s) {
       makeRadial(
           s, {{0x0000ff, 0}, {0x0000ff, 0}, {0x0000ff, 0}, {0xff0000, 1000}, {0xff0000, 1000}});
     },
     {R"~(       <radialGradient id="grad1" gradientUnits="userSpaceOnUse" fx="30.0" fy="40.0" cx="50.0%" cy="50.0%" r="50.0%" >)~",
      R"~(          <stop offset="0%" stop-color="rgb(255,0,0)" />)~",
      R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" />)~",
      R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" />)~",
      "       </radialGradient>"}},
    {"radial is mirrored",
     [](GradientCase& s) { makeRadial(s, kThreeOfRadial); },
     {R"~(       <radialGradient id="grad1" gradientUnits="userSpaceOnUse" fx="30.0" fy="40.0" cx="50.0%" cy="50.0%" r="50.0%" >)~",
      R"~(          <stop offset="0%" stop-color="rgb(0,0,3)" />)~",
      R"~(          <stop offset="75%" stop-color="rgb(0,0,2)" />)~",
      R"~(          <stop offset="100%" stop-color="rgb(0,0,1)" />)~", "       </radialGradient>"}},
    {"radial that reflects",
     [](GradientCase& s) {
       makeRadial(s, kThreeOfRadial);
       s.reflect = 2;
     },
     {radial(R"~(spreadMethod="repeat" )~"),
      R"~(          <stop offset="300%" stop-color="rgb(0,0,3)" />)~",
      R"~(          <stop offset="75%" stop-color="rgb(0,0,2)" />)~",
      R"~(          <stop offset="0%" stop-color="rgb(0,0,1)" />)~", kEndRadial}},
};

TEST(Gradients, ElementsOfTheirPool) {
  for (const GradientRow& row : kRows) {
    GradientCase setup;
    row.change(setup);
    EXPECT_EQ(gradientLines(setup), row.expected) << row.name;
  }
}

/// Like gradientLines, for a view of another resolution.
Lines scaledGradient(void (*change)(GradientCase&)) {
  GradientCase setup;
  change(setup);
  DrawingWriter drawing(200.0, 100.0);
  drawing.tree.add(polygon(kTriangle, gradientPen(drawing.document(), setup)));
  EXPECT_EQ(drawing.write(), 0);
  return drawing.gradients();
}

TEST(Gradients, ScaleWithTheView) {
  EXPECT_EQ(
      scaledGradient([](GradientCase&) {}),
      (Lines{
          R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="4.8" y1="19.2" x2="52.8" y2="19.2" spreadMethod="repeat" >)~",
          R"~(          <stop offset="0%" stop-color="rgb(255,0,0)" />)~",
          R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" />)~",
          "       </linearGradient>"}));
  EXPECT_EQ(
      scaledGradient([](GradientCase& s) { s.matrix = {1, 0, 0, -1, -40960, -81920}; }),
      (Lines{
          R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="4.8" y1="19.2" x2="52.8" y2="19.2" spreadMethod="repeat" gradientTransform="matrix(1.0000,0.0000,0.0000,-1.0000,-4.8000,-9.6000)" >)~",
          R"~(          <stop offset="0%" stop-color="rgb(255,0,0)" />)~",
          R"~(          <stop offset="100%" stop-color="rgb(0,0,255)" />)~",
          "       </linearGradient>"}));
  const Lines radialLines = scaledGradient([](GradientCase& s) { makeRadial(s, kThreeOfRadial); });
  ASSERT_FALSE(radialLines.empty());
  EXPECT_NE(radialLines[0].find(R"~(fx="14.4" fy="19.2")~"), std::string::npos) << radialLines[0];
}

TEST(Gradients, OneElementForEachGeometry) {
  DrawingWriter drawing;
  const GradientCase setup;
  GradientCase other;
  other.points[1] = {110, 30};
  drawing.tree.add(polygon(kTriangle, gradientPen(drawing.document(), setup)));
  drawing.tree.add(polygon(kTriangle, gradientPen(drawing.document(), setup)));
  drawing.tree.add(polygon(kTriangle, gradientPen(drawing.document(), other)));
  ASSERT_EQ(drawing.write(), 0);
  const Lines body = drawing.body();
  ASSERT_EQ(body.size(), 3U);
  EXPECT_EQ(body[0], body[1]);
  EXPECT_NE(body[0].find("url(#grad1)"), std::string::npos);
  EXPECT_NE(body[2].find("url(#grad2)"), std::string::npos);
  const Lines gradients = drawing.gradients();
  ASSERT_EQ(gradients.size(), 8U);
  EXPECT_EQ(
      gradients[0],
      R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="10.0" y1="20.0" x2="110.0" y2="20.0" spreadMethod="repeat" >)~");
  EXPECT_EQ(
      gradients[4],
      R"~(       <linearGradient id="grad2" gradientUnits="userSpaceOnUse" x1="10.0" y1="20.0" x2="110.0" y2="30.0" spreadMethod="repeat" >)~");
  EXPECT_EQ(gradients[1], gradients[5]);
}

TEST(Gradients, FillAndStrokeOfOneObject) {
  DrawingWriter drawing;
  AreaPen pen = gradientPen(drawing.document(), GradientCase());
  pen.strokeGradientNo = pen.fillGradientNo;
  drawing.tree.add(polygon(kTriangle, pen));
  drawing.tree.add(box(0, 0, 100, 50, pen));
  drawing.tree.add(ellipse(50, 50, 10, 10, pen));
  ASSERT_EQ(drawing.write(), 0);
  for (const std::string& line : drawing.body()) {
    EXPECT_NE(line.find(R"~(fill="url(#grad1)" stroke="url(#grad1)")~"), std::string::npos) << line;
  }
  EXPECT_EQ(drawing.gradients().size(), 4U);
}

TEST(Gradients, WithoutParametersHaveNoElement) {
  DrawingWriter drawing;
  AreaPen pen = gradientPen(drawing.document(), GradientCase());
  pen.fillParmsNo = 0;
  drawing.tree.add(polygon(kTriangle, pen));
  ASSERT_EQ(drawing.write(), 0);
  EXPECT_NE(drawing.body().at(0).find(R"~(fill="url(#grad-1)")~"), std::string::npos);
  EXPECT_TRUE(drawing.gradients().empty());
}

TEST(Gradients, WithoutARampHaveNoStops) {
  DrawingWriter drawing;
  AreaPen pen = gradientPen(drawing.document(), GradientCase());
  pen.fillGradientNo = 9;
  drawing.tree.add(polygon(kTriangle, pen));
  ASSERT_EQ(drawing.write(), 0);
  EXPECT_EQ(
      drawing.gradients(),
      (Lines{
          R"~(       <linearGradient id="grad1" gradientUnits="userSpaceOnUse" x1="10.0" y1="20.0" x2="110.0" y2="20.0" spreadMethod="repeat" >)~",
          "       </linearGradient>"}));
}

/// The gradient lines of a line with those stroke parameters.
Lines strokeGradient(void (*change)(_egf_gdiplus_stroke_parms_tag&)) {
  DrawingWriter drawing;
  _egf_gdiplus_stroke_parms_tag parms = kStrokeParms;
  change(parms);
  LinePen pen;
  pen.strokeParmsNo = appendStyle(drawing.document(), kStyleStroke, parms);
  pen.strokeGradientNo = rampNumber(drawing.document(), GradientCase());
  pen.gradPts = {{0, 0}, {100, 100}};
  drawing.tree.add(line({0, 0}, {100, 50}, pen));
  EXPECT_EQ(drawing.write(), 0);
  EXPECT_EQ(
      drawing.body(),
      (Lines{
          R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" stroke="url(#grad1)" />)~"}));
  return drawing.gradients();
}

TEST(Gradients, OfStrokesHaveWordsOfTheirOwn) {
  EXPECT_EQ(strokeGradient([](auto&) {}).at(0),
            linear(R"~(x1="0.0" y1="0.0" x2="100.0" y2="100.0" spreadMethod="repeat")~"));
  EXPECT_EQ(strokeGradient([](auto& p) { p.wrapMode = _egf_wrapmode_tag::kFlip; }).at(0),
            linear(R"~(x1="0.0" y1="0.0" x2="100.0" y2="100.0" spreadMethod="reflect")~"));
  EXPECT_EQ(strokeGradient([](auto& p) {
              p.angleIsSet = 1;
              p.gradientAngle = 30000000;
            }).at(0),
            linear(R"~(x1="0.0" y1="0.0" x2="118.3" y2="68.3" spreadMethod="repeat")~"));
  EXPECT_EQ(
      strokeGradient([](auto& p) { p.gradientKind = 1; }).at(0),
      R"~(       <radialGradient id="grad1" gradientUnits="userSpaceOnUse" fx="0.0" fy="0.0" cx="50.0%" cy="50.0%" r="50.0%" >)~");
}

}  // namespace
}  // namespace egfsvg
