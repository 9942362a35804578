// Lines, polylines and arrow lines as written, with the rules that their pens are pooled as.

#include <gtest/gtest.h>

#include <limits>

#include "host/egf_templates.h"
#include "tests/support/written_rows.h"

namespace egfsvg {
namespace {

using namespace test;

constexpr LinePen kBlue{
    .width = 2.0, .stroke = 0x0000ff, .capStyle = kCapButt, .joinStyle = kJoinRound};

LinePen blue(void (*change)(LinePen&)) {
  LinePen pen = kBlue;
  change(pen);
  return pen;
}

_egf_obj* slope(const LinePen& pen = kBlue) { return line({0, 0}, {100, 50}, pen); }

_egf_obj* measured(double width, std::uint32_t unit) {
  return edit<EgfLine>(slope(), [&](EgfLine& record) { record.pen.lineWidth = {unit, width}; });
}

/// A line whose end lies that many space units beside its start.
_egf_obj* shortLine(float dx, float dy = 0.0F) {
  return edit<EgfLine>(slope(), [&](EgfLine& record) { record.endPt = {dx, dy}; });
}

/// A line with extended parameters.
_egf_obj* withParms(DrawingWriter& drawing, std::uint8_t alpha) {
  _egf_gdiplus_stroke_parms_tag parms = kStrokeParms;
  parms.strokeAlpha = alpha;
  LinePen pen = kBlue;
  pen.strokeParmsNo = appendStyle(drawing.document(), kStyleStroke, parms);
  return slope(pen);
}

_egf_obj* dashed(std::uint32_t style) {
  LinePen pen = kBlue;
  pen.lineStyle = style;
  return slope(pen);
}

/// A dash record whose number is the third.
std::uint32_t thirdDash(DrawingWriter& drawing, std::uint32_t unit) {
  drawing.tree.dash({1.0});
  drawing.tree.dash({2.0});
  return drawing.tree.dash({5.0, -3.0}, unit);
}

Points zigzag(int count) {
  Points points;
  for (int i = 0; i < count; ++i) points.push_back({10.0 * i, i % 2 == 0 ? 0.0 : 5.0});
  return points;
}

const WrittenRow kLineRows[] = {
    {"a line",
     [](DrawingWriter&) { return slope(); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"round caps",
     [](DrawingWriter&) { return slope(blue([](LinePen& p) { p.capStyle = kCapRound; })); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000; stroke-linecap:round }"}},
    {"square caps",
     [](DrawingWriter&) { return slope(blue([](LinePen& p) { p.capStyle = kCapSquare; })); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000; stroke-linecap:square }"}},
    {"the host's black",
     [](DrawingWriter&) { return slope(blue([](LinePen& p) { p.stroke = 0xffffff; })); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"},
     {"      .strk1 { fill:none; stroke:#000000; stroke-width:2.000000 }"}},
    {"the host's white",
     [](DrawingWriter&) { return slope(blue([](LinePen& p) { p.stroke = 0; })); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"},
     {"      .strk1 { fill:none; stroke:#ffffff; stroke-width:2.000000 }"}},
    {"see-through",
     [](DrawingWriter&) { return slope(blue([](LinePen& p) { p.rasterOp = kRasterPartial; })); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-opacity:0.50; stroke-width:2.000000 }"}},
    {"a hair",
     [](DrawingWriter&) { return measured(0.0, kMeasureDevice); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:0.000100 }"}},
    {"inches",
     [](DrawingWriter&) { return measured(0.1, kMeasureInch); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="48.00" y2="24.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:9.600000 }"},
     200.0},
    {"millimetres",
     [](DrawingWriter&) { return measured(10.0, kMeasureMillimetre); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:37.795276 }"}},
    {"twips",
     [](DrawingWriter&) { return measured(30.0, kMeasureTwip); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"no alpha",
     [](DrawingWriter& d) { return withParms(d, 0); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" stroke="none" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"half alpha is the class's to tell",
     [](DrawingWriter& d) { return withParms(d, 128); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"too short", [](DrawingWriter&) { return shortLine(4.0F); }, {}, {}},
    {"too short on both axes", [](DrawingWriter&) { return shortLine(-4.0F, 4.0F); }, {}, {}},
    {"an end that is nowhere",
     [](DrawingWriter&) { return shortLine(std::numeric_limits<float>::quiet_NaN()); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="nan" y2="0.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"just long enough",
     [](DrawingWriter&) { return shortLine(5.0F); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="0.00" y2="0.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"just long enough upright",
     [](DrawingWriter&) { return shortLine(0.0F, -5.0F); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="0.00" y2="-0.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"dashes",
     [](DrawingWriter& d) { return dashed(thirdDash(d, kMeasureDevice)); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" stroke-dasharray="5.000000,3.000000" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"dashes in host pixels",
     [](DrawingWriter& d) { return dashed(thirdDash(d, kMeasurePixel200)); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" stroke-dasharray="39.370079,23.622047" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"dashes in millimetres",
     [](DrawingWriter& d) { return dashed(thirdDash(d, kMeasureMillimetre)); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" stroke-dasharray="18.897638,11.338583" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"dashes that are not there",
     [](DrawingWriter& d) {
       thirdDash(d, 0);
       return dashed(4);
     },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"dashes without a list",
     [](DrawingWriter&) { return dashed(3); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"both axes scaled",
     [](DrawingWriter&) { return slope(); },
     {R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="48.00" y2="48.00" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:1.440000 }"},
     200.0,
     100.0},
};

INSTANTIATE_TEST_SUITE_P(Lines, WrittenObject, testing::ValuesIn(kLineRows), rowName);

constexpr const char* kPlainRule =
    "      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000; stroke-linejoin:round }";

/// A polyline with a miter join whose extended parameters tell its limit and its cap.
_egf_obj* mitred(DrawingWriter& drawing, std::uint8_t join, float limit, std::uint8_t cap) {
  _egf_gdiplus_stroke_parms_tag parms = kStrokeParms;
  parms.miterLimit = limit;
  parms.capStyle = cap;
  LinePen pen = kBlue;
  pen.joinStyle = join;
  pen.strokeParmsNo = appendStyle(drawing.document(), kStyleStroke, parms);
  return polyline(zigzag(2), pen);
}

const WrittenRow kPolylineRows[] = {
    {"four points",
     [](DrawingWriter&) { return polyline(zigzag(4), kBlue); },
     {R"~(   <polyline class="strk1" points="0.0,0.0 10.0,5.0 20.0,0.0 30.0,5.0 " />)~"},
     {kPlainRule}},
    {"five points",
     [](DrawingWriter&) { return polyline(zigzag(5), kBlue); },
     {R"~(   <polyline class="strk1" points="0.0,0.0 10.0,5.0 20.0,0.0 30.0,5.0 40.0,0.0 )~",
      R"~(    " />)~"},
     {kPlainRule}},
    {"ten points",
     [](DrawingWriter&) { return polyline(zigzag(10), kBlue); },
     {R"~(   <polyline class="strk1" points="0.0,0.0 10.0,5.0 20.0,0.0 30.0,5.0 40.0,0.0 )~",
      "    50.0,5.0 60.0,0.0 70.0,5.0 80.0,0.0 90.0,5.0 ", R"~(    " />)~"},
     {kPlainRule}},
    {"no points", [](DrawingWriter&) { return polyline({}, kBlue); }, {}, {}},
    {"points without a count",
     [](DrawingWriter&) {
       return edit<EgfPolyline>(polyline(zigzag(3), kBlue),
                                [](EgfPolyline& r) { r.pointCount = 0; });
     },
     {},
     {}},
    {"a miter of its own",
     [](DrawingWriter& d) { return mitred(d, kJoinMiter, 7.9F, kCapSquare); },
     {R"~(   <polyline class="strk1" points="0.0,0.0 10.0,5.0 " stroke-linejoin="miter" stroke-miterlimit="7" stroke-linecap="square" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"the default miter",
     [](DrawingWriter& d) { return mitred(d, kJoinMiter, 4.9F, kCapUnset); },
     {R"~(   <polyline class="strk1" points="0.0,0.0 10.0,5.0 " />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"a join that is not set",
     [](DrawingWriter& d) { return mitred(d, kJoinUnset, 7.9F, kCapRound); },
     {R"~(   <polyline class="strk1" points="0.0,0.0 10.0,5.0 " stroke-linecap="round" />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"a bevel is the class's",
     [](DrawingWriter& d) { return mitred(d, kJoinBevel, 7.9F, kCapButt); },
     {R"~(   <polyline class="strk1" points="0.0,0.0 10.0,5.0 " />)~"},
     {"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000; stroke-linejoin:bevel }"}},
    {"the object's own cap",
     [](DrawingWriter&) {
       return polyline(zigzag(2), blue([](LinePen& p) { p.capStyle = kCapRound; }));
     },
     {R"~(   <polyline class="strk1" points="0.0,0.0 10.0,5.0 " stroke-linecap="round" />)~"},
     {kPlainRule}},
};

INSTANTIATE_TEST_SUITE_P(Polylines, WrittenObject, testing::ValuesIn(kPolylineRows), rowName);

const Points kHeads = {{90, 5}, {90, -5}, {10, 5}, {10, -5}};

_egf_obj* arrow(std::uint8_t headFlags, std::uint8_t rasterOp = kRasterOpaque, Px from = {0, 0},
                std::uint32_t stroke = 0x0000ff) {
  LinePen pen = kBlue;
  pen.rasterOp = rasterOp;
  pen.stroke = stroke;
  return edit<EgfArrowLine>(arrowLine(from, {100, 0}, {.points = kHeads}, pen),
                            [&](EgfArrowLine& r) { r.pen.headFlags = headFlags; });
}

const WrittenRow kArrowRows[] = {
    {"closed",
     [](DrawingWriter&) { return arrow(0x04); },
     {"  <g  >",
      R"~(   <line x1="0.00"  y1="0.00" x2="100.00" y2="0.00" stroke="#0000ff" stroke-width="2.000000" stroke-linecap="round" />)~",
      R"~(   <polygon points="90.000,-5.000 100.000,0.000 90.000,5.000 90.000,-5.000 " fill="#0000ff" stroke="#0000ff" stroke-width="2.000000" />)~",
      "  </g>"},
     {}},
    {"open",
     [](DrawingWriter&) { return arrow(0x00); },
     {"  <g  >",
      R"~(   <line x1="0.00"  y1="0.00" x2="100.00" y2="0.00" stroke="#0000ff" stroke-width="2.000000" stroke-linecap="round" />)~",
      R"~(   <polyline points="90.0,-5.0 100.0,0.0 90.0,5.0 " fill="none" stroke="none" />)~",
      "  </g>"},
     {}},
    {"closed at both ends",
     [](DrawingWriter&) { return arrow(0x34); },
     {"  <g  >",
      R"~(   <line x1="0.00"  y1="0.00" x2="100.00" y2="0.00" stroke="#0000ff" stroke-width="2.000000" stroke-linecap="round" />)~",
      R"~(   <polygon points="90.000,-5.000 100.000,0.000 90.000,5.000 90.000,-5.000 " fill="#0000ff" stroke="#0000ff" stroke-width="2.000000" />)~",
      R"~(   <polygon points="10.000,5.000 0.000,0.000 10.000,-5.000 10.000,5.000 " fill="#0000ff" stroke="#0000ff" stroke-width="2.000000" />)~",
      "  </g>"},
     {}},
    {"one of the two bits",
     [](DrawingWriter&) { return arrow(0x14); },
     {"  <g  >",
      R"~(   <line x1="0.00"  y1="0.00" x2="100.00" y2="0.00" stroke="#0000ff" stroke-width="2.000000" stroke-linecap="round" />)~",
      R"~(   <polygon points="90.000,-5.000 100.000,0.000 90.000,5.000 90.000,-5.000 " fill="#0000ff" stroke="#0000ff" stroke-width="2.000000" />)~",
      "  </g>"},
     {}},
    {"without length",
     [](DrawingWriter&) {
       return arrow(0x04, kRasterOpaque, {100, 0});
     },
     {"  <g  >",
      R"~(   <polygon points="90.000,-5.000 100.000,0.000 90.000,5.000 90.000,-5.000 " fill="#0000ff" stroke="#0000ff" stroke-width="2.000000" />)~",
      "  </g>"},
     {}},
    {"see-through",
     [](DrawingWriter&) { return arrow(0x04, kRasterPartial); },
     {"  <g  >",
      R"~(   <line x1="10.00"  y1="0.00" x2="90.00" y2="0.00" stroke="#0000ff" stroke-opacity="0.50" stroke-width="2.000000" stroke-linecap="round" />)~",
      R"~(   <polygon points="90.000,-5.000 100.000,0.000 90.000,5.000 90.000,-5.000 " fill="#0000ff" stroke="#0000ff" stroke-width="2.000000" opacity="0.50" />)~",
      "  </g>"},
     {}},
    {"see-through and open",
     [](DrawingWriter&) { return arrow(0x30, kRasterPartial); },
     {"  <g  >",
      R"~(   <line x1="0.00"  y1="0.00" x2="100.00" y2="0.00" stroke="#0000ff" stroke-opacity="0.50" stroke-width="2.000000" stroke-linecap="round" />)~",
      R"~(   <polyline points="90.0,-5.0 100.0,0.0 90.0,5.0 " fill="none" stroke="none" />)~",
      R"~(   <polyline points="10.0,5.0 0.0,0.0 10.0,-5.0 " fill="none" stroke="none" />)~",
      "  </g>"},
     {}},
    {"a black head is filled white",
     [](DrawingWriter&) {
       return arrow(0x04, kRasterOpaque, {100, 0}, 0xffffff);
     },
     {"  <g  >",
      R"~(   <polygon points="90.000,-5.000 100.000,0.000 90.000,5.000 90.000,-5.000 " fill="#ffffff" stroke="#000000" stroke-width="2.000000" />)~",
      "  </g>"},
     {}},
};

INSTANTIATE_TEST_SUITE_P(Arrows, WrittenObject, testing::ValuesIn(kArrowRows), rowName);

TEST(WrittenLines, EqualPensShareARule) {
  DrawingWriter drawing;
  drawing.tree.add(slope());
  drawing.tree.add(line({1, 2}, {3, 4}, kBlue));
  drawing.tree.add(slope(blue([](LinePen& p) { p.width = 3.0; })));
  ASSERT_EQ(drawing.write(), 0);
  EXPECT_EQ(drawing.body(),
            (Lines{R"~(   <line class="strk1" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~",
                   R"~(   <line class="strk1" x1="1.00"  y1="2.00" x2="3.00" y2="4.00" />)~",
                   R"~(   <line class="strk2" x1="0.00"  y1="0.00" x2="100.00" y2="50.00" />)~"}));
  EXPECT_EQ(drawing.rules(),
            (Lines{"      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }",
                   "      .strk2 { fill:none; stroke:#0000ff; stroke-width:3.000000 }"}));
}

}  // namespace
}  // namespace egfsvg
