// Paths, arcs, open ellipses and polygons of many subpaths as written.

#include <gtest/gtest.h>

#include "host/egf_templates.h"
#include "host/memory.h"
#include "tests/support/written_rows.h"

namespace egfsvg {
namespace {

using namespace test;

constexpr AreaPen kPen{.width = 2.0,
                       .stroke = 0x0000ff,
                       .fill = 0xff0000,
                       .fillStyle = kFillOpaque,
                       .joinStyle = kJoinRound};

/// The pen as a style record of the document.
_egf_gdi_fillparms_tag penRecord() {
  _egf_gdi_fillparms_tag pen = kPolygonPen;
  pen.lineWidth = {kMeasureDevice, 2.0};
  pen.strokeColor = colourOf(0x0000ff);
  pen.fillColor = colourOf(0xff0000);
  pen.fillStyle = kFillOpaque;
  pen.modeFlags = 2;
  pen.scaleFactor = 1.0;
  return pen;
}

PathStyle styled(DrawingWriter& drawing, std::uint32_t pathKind = 0) {
  return {.pathKind = pathKind,
          .gdiFillStyleNo = appendStyle(drawing.document(), kStylePen, penRecord())};
}

/// A path of children with the document's pen.
_egf_obj* pathOf(DrawingWriter& drawing, std::initializer_list<_egf_obj*> children,
                 std::uint32_t pathKind = 0) {
  return path(children, styled(drawing, pathKind));
}

_egf_obj* quarterArc(std::uint8_t flags) {
  return edit<EgfArc>(arc(50, 50, 10, 10, 0, 90), [&](EgfArc& r) { r.pen.arcFlags = flags; });
}

std::string pathLine(const std::string& data) {
  return "   <path d=\"" + data + "\" style=\"&st1;\"  />";
}

Points diagonal(int count) {
  Points points;
  for (int i = 0; i < count; ++i) points.push_back({1.0 * i, 100.0 + i});
  return points;
}

const Points kCorner = {{0, 0}, {100, 0}, {100, 50}};

const WrittenRow kPathRows[] = {
    {"a polyline",
     [](DrawingWriter& d) { return pathOf(d, {polyline(kCorner)}); },
     {R"~(   <path d="M0.00,0.00 L100.00,0.00 L100.00,50.00 " style="&st1;"  />)~"},
     {}},
    {"a polyline that closes",
     [](DrawingWriter& d) { return pathOf(d, {polyline(kCorner)}, kPathClosedFigure); },
     {R"~(   <path d="M0.00,0.00 L100.00,0.00 L100.00,50.00 Z " style="&st1;"  />)~"},
     {}},
    {"two lines that meet",
     [](DrawingWriter& d) {
       return pathOf(d, {line({0, 0}, {100, 0}), line({100, 0}, {100, 50})});
     },
     {R"~(   <path d="M0.00,0.00 L100.00,0.00 L100.00,50.00 " style="&st1;"  />)~"},
     {}},
    {"two lines that do not meet",
     [](DrawingWriter& d) {
       return pathOf(d, {line({0, 0}, {100, 0}), line({100, 10}, {100, 50})});
     },
     {pathLine("M0.00,0.00 L100.00,0.00 L100.00,10.00 L100.00,50.00 ")},
     {}},
    {"points that lie together",
     [](DrawingWriter& d) {
       return pathOf(d, {polyline({{0, 0}, {0.004, 0}})});
     },
     {pathLine("M0.00,0.00 ")},
     {}},
    {"points that lie apart",
     [](DrawingWriter& d) {
       return pathOf(d, {polyline({{0, 0}, {0.006, 0}})});
     },
     {pathLine("M0.00,0.00 L0.01,0.00 ")},
     {}},
    {"a line that vanishes",
     [](DrawingWriter& d) {
       return pathOf(d, {edit<EgfLine>(line({0, 0}, {1, 1}),
                                       [](EgfLine& r) {
                                         r.endPt = {0.2F, 0.0F};
                                       }),
                         polyline(kCorner)});
     },
     {R"~(   <path d="M0.00,0.00 L100.00,0.00 L100.00,50.00 " style="&st1;"  />)~"},
     {}},
    {"children that all vanish",
     [](DrawingWriter& d) {
       return pathOf(d,
                     {edit<EgfLine>(line({0, 0}, {1, 1}),
                                    [](EgfLine& r) {
                                      r.endPt = {0.2F, 0.0F};
                                    })},
                     kPathClosedFigure);
     },
     {},
     {}},
    {"no children", [](DrawingWriter& d) { return pathOf(d, {}); }, {}, {}},
    {"children of other classes",
     [](DrawingWriter& d) {
       return pathOf(d, {text({1, 1}, "x"), polyline(kCorner)});
     },
     {R"~(   <path d="M0.00,0.00 L100.00,0.00 L100.00,50.00 " style="&st1;"  />)~"},
     {}},
    {"a polygon",
     [](DrawingWriter& d) {
       return pathOf(d, {polygon({{0, 0}, {100, 0}, {50, 50}})});
     },
     {R"~(   <path d="M0.00,0.00 L100.00,0.00 L50.00,50.00 Z " style="&st1;"  />)~"},
     {}},
    {"a polygon in a path that closes",
     [](DrawingWriter& d) {
       return pathOf(d, {polygon({{0, 0}, {100, 0}, {50, 50}})}, kPathClosedFigure);
     },
     {R"~(   <path d="M0.00,0.00 L100.00,0.00 L50.00,50.00 Z " style="&st1;"  />)~"},
     {}},
    {"an open polygon",
     [](DrawingWriter& d) {
       return pathOf(d, {polygon({{0, 0}, {100, 0}, {50, 50}}, {.closed = false})});
     },
     {pathLine("M0.00,0.00 L100.00,0.00 L50.00,50.00 ")},
     {}},
    {"a polygon of two subpaths",
     [](DrawingWriter& d) {
       return pathOf(d, {polyPath({{{0, 0}, {1, 0}, {1, 1}}, {{5, 0}, {6, 0}, {6, 1}}})});
     },
     {pathLine("M0.00,0.00 L1.00,0.00 L1.00,1.00 Z M5.00,0.00 L6.00,0.00 L6.00,1.00 Z ")},
     {}},
    {"curves",
     [](DrawingWriter& d) {
       return pathOf(d, {curve({{0, 0}, {1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 10}, {11, 12}})});
     },
     {pathLine("M0.00,0.00 C1.00,2.00 3.00,4.00 5.00,6.00 C7.00,8.00 9.00,10.00 11.00,12.00 ")},
     {}},
    {"points beyond the last curve",
     [](DrawingWriter& d) {
       return pathOf(d, {curve({{0, 0}, {1, 2}, {3, 4}, {5, 6}, {7, 8}})});
     },
     {pathLine("M0.00,0.00 C1.00,2.00 3.00,4.00 5.00,6.00 ")},
     {}},
    {"a line behind a curve",
     [](DrawingWriter& d) {
       return pathOf(d, {curve({{0, 0}, {1, 2}, {3, 4}, {5, 6}}), line({5, 6}, {9, 9})});
     },
     {pathLine("M0.00,0.00 C1.00,2.00 3.00,4.00 5.00,6.00 L9.00,9.00 ")},
     {}},
    {"an arc",
     [](DrawingWriter& d) { return pathOf(d, {quarterArc(0)}); },
     {R"~(   <path d="M60.00,50.00 A10.00,10.00 0.00 0,0 50.00,40.00 " style="&st1;"  />)~"},
     {}},
    {"an arc turned round",
     [](DrawingWriter& d) { return pathOf(d, {quarterArc(0x05)}); },
     {pathLine("M50.00,40.00 A10.00,10.00 0.00 0,1 60.00,50.00 ")},
     {}},
    {"an arc with the second direction bit",
     [](DrawingWriter& d) { return pathOf(d, {quarterArc(0x08)}); },
     {R"~(   <path d="M50.00,40.00 A10.00,10.00 0.00 0,2 60.00,50.00 " style="&st1;"  />)~"},
     {}},
    {"an arc with both direction bits",
     [](DrawingWriter& d) { return pathOf(d, {quarterArc(0x0c)}); },
     {R"~(   <path d="M50.00,40.00 A10.00,10.00 0.00 0,1 60.00,50.00 " style="&st1;"  />)~"},
     {}},
    {"an arc of three quarters",
     [](DrawingWriter& d) { return pathOf(d, {arc(50, 50, 10, 10, 0, 270)}); },
     {pathLine("M60.00,50.00 A10.00,10.00 0.00 1,0 50.00,60.00 ")},
     {}},
    {"an arc of a half",
     [](DrawingWriter& d) { return pathOf(d, {arc(50, 50, 10, 10, 0, 180)}); },
     {pathLine("M60.00,50.00 A10.00,10.00 0.00 1,0 40.00,50.00 ")},
     {}},
    {"an arc inside one degree",
     [](DrawingWriter& d) { return pathOf(d, {arc(50, 50, 10, 10, 10.2, 10.9)}); },
     {pathLine("M59.84,48.23 A10.00,10.00 0.00 1,0 59.82,48.11 ")},
     {}},
    {"an arc on two scales",
     [](DrawingWriter& d) { return pathOf(d, {quarterArc(0)}); },
     {pathLine("M28.80,48.00 A4.80,9.60 0.00 0,0 24.00,38.40 ")},
     {},
     200.0,
     100.0},
    {"an ellipse child",
     [](DrawingWriter& d) { return pathOf(d, {ellipse(50, 50, -20, 10, {}, 0, 0, 90)}); },
     {pathLine("M70.00,50.00 A20.00,10.00 0.00 0,0 50.00,40.00 ")},
     {}},
    {"four arcs of a rounded rectangle",
     [](DrawingWriter& d) {
       return pathOf(d,
                     {arc(10, 10, 10, 10, 90, 180), arc(10, 40, 10, 10, 180, 270),
                      arc(90, 40, 10, 10, 270, 360), arc(90, 10, 10, 10, 0, 90)},
                     kPathClosedFigure);
     },
     {R"~(   <path d="M10.00,0.00 A10.00,10.00 0.00 0,0 0.00,10.00 L0.00,40.00 A10.00,10.00 0.00 0,0 10.00,50.00 L90.00,50.00 )~",
      R"~(    A10.00,10.00 0.00 0,0 100.00,40.00 L100.00,10.00 A10.00,10.00 0.00 0,0 90.00,0.00 Z " style="&st1;"  />)~"},
     {}},
    {"twelve points",
     [](DrawingWriter& d) { return pathOf(d, {polyline(diagonal(12))}); },
     {R"~(   <path d="M0.00,100.00 L1.00,101.00 L2.00,102.00 L3.00,103.00 L4.00,104.00 L5.00,105.00 L6.00,106.00 L7.00,107.00 )~",
      R"~(    L8.00,108.00 L9.00,109.00 L10.00,110.00 L11.00,111.00 " style="&st1;"  />)~"},
     {}},
    {"two nested paths",
     [](DrawingWriter& d) {
       return pathOf(
           d, {path({line({0, 0}, {10, 0})}),
               path({polyline({{20, 0}, {30, 0}, {30, 10}})}, {.pathKind = kPathClosedFigure})});
     },
     {pathLine("M0.00,0.00 L10.00,0.00 M20.00,0.00 L30.00,0.00 L30.00,10.00 Z ")},
     {}},
    {"nested paths that go on",
     [](DrawingWriter& d) {
       const auto joined = [](_egf_obj* object) {
         return edit<EgfPath>(object, [](EgfPath& r) { r.joinFlag = 1; });
       };
       return pathOf(d, {joined(path({line({0, 0}, {10, 0})})),
                         joined(path({line({10, 0}, {10, 10})})), line({10, 10}, {0, 10})});
     },
     {pathLine("M0.00,0.00 L10.00,0.00 L10.00,10.00 L0.00,10.00 ")},
     {}},
    {"a pen that is not there",
     [](DrawingWriter& d) {
       PathStyle style = styled(d);
       style.gdiFillStyleNo = 9;
       return path({polyline(kCorner)}, style);
     },
     {},
     {}},
    {"no pen",
     [](DrawingWriter&) { return path({polyline(kCorner)}); },
     {R"~(   <path d="M0.00,0.00 L100.00,0.00 L100.00,50.00 " fill-opacity="0.50"  />)~"},
     {}},
};

INSTANTIATE_TEST_SUITE_P(Paths, WrittenObject, testing::ValuesIn(kPathRows), rowName);

/// A style that is the third gradient of its drawing.
TEST(WrittenPaths, HaveGradientsCapsAndMitersOfTheirOwn) {
  DrawingWriter drawing;
  const HostHandle document = drawing.document();
  _egf_gdiplus_gradientparms_tag ramp = kGradientParms;
  const std::uint32_t gradient = appendStyle(document, kStyleGradient, ramp);
  _egf_gdiplus_fillparms_tag parms = kFillParms;
  parms.miterLimit = 4.0F;
  const std::uint32_t parmsNo = appendStyle(document, kStyleFill, parms);
  _egf_gdi_fillparms_tag pen = penRecord();
  pen.fillStyle = kFillLinear;
  const std::uint32_t penNo = appendStyle(document, kStylePen, pen);
  for (double y : {1.0, 2.0, 3.0}) {
    drawing.tree.add(edit<EgfPath>(
        path({line({0, 0}, {100, 0})},
             {.gdiFillStyleNo = penNo, .fillParmsNo = parmsNo, .fillGradientNo = gradient}),
        [&](EgfPath& r) {
          r.gradPtCount = 1;
          auto* point =
              static_cast<_mpl_spacept_tag*>(RMM_AllocName(1, sizeof(_mpl_spacept_tag), RMM_SITE));
          *point = spacePoint({0, y});
          r.gradPts = point;
        }));
  }
  _egf_gdiplus_fillparms_tag square = kFillParms;
  square.startCap = kCapSquare;
  square.strokeAlpha = 0;
  pen.fillStyle = kFillOpaque;
  pen.joinStyle = kJoinMiter;
  drawing.tree.add(
      path({line({0, 0}, {100, 0})}, {.gdiFillStyleNo = appendStyle(document, kStylePen, pen),
                                      .fillParmsNo = appendStyle(document, kStyleFill, square)}));
  ASSERT_EQ(drawing.write(), 0);
  const Lines body = drawing.body();
  ASSERT_EQ(body.size(), 4U);
  EXPECT_EQ(body[2],
            R"~(   <path d="M0.00,0.00 L100.00,0.00 " style="&st1;" fill="url(#grad3)"  />)~");
  EXPECT_EQ(
      body[3],
      R"~(   <path d="M0.00,0.00 L100.00,0.00 " style="&st2;" stroke="none" stroke-linejoin="miter" stroke-miterlimit="10" stroke-linecap="square"  />)~");
}

_egf_obj* openEllipse(double rotation = 0.0) {
  return ellipse(50, 50, 10, 10, kPen, rotation, 0, 90);
}

_egf_obj* blueArc(std::uint8_t cap, std::uint8_t rasterOp = kRasterOpaque) {
  return edit<EgfArc>(arc(50, 50, 10, 10, 0, 90), [&](EgfArc& r) {
    r.pen.lineWidth = {kMeasureDevice, 2.0};
    r.pen.strokeColor = colourOf(0x0000ff);
    r.pen.capStyle = cap;
    r.pen.rasterOp = rasterOp;
  });
}

_egf_obj* arcWithAlpha(DrawingWriter& drawing, std::uint8_t alpha) {
  _egf_gdiplus_arcparms_tag parms{};
  parms.strokeAlpha = alpha;
  const std::uint32_t number = appendStyle(drawing.document(), kStyleArc, parms);
  return edit<EgfArc>(blueArc(kCapButt), [&](EgfArc& r) { r.arcParmsNo = number; });
}

const WrittenRow kOpenRows[] = {
    {"an open ellipse",
     [](DrawingWriter&) { return openEllipse(); },
     {R"~(   <path d="M60.00,50.00 A10.00,10.00 0.00 0,0 50.00,40.00 " fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"},
     {}},
    {"an open ellipse that is turned",
     [](DrawingWriter&) { return openEllipse(30.0); },
     {R"~(   <path d="M60.00,50.00 A10.00,10.00 0.00 0,0 50.00,40.00 " fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"   transform="rotate(-30.000000 50 50)"/>)~"},
     {}},
    {"an ellipse that starts elsewhere",
     [](DrawingWriter&) { return ellipse(50, 50, 10, 10, kPen, 0, 90, 450); },
     {R"~(   <path d="M50.00,40.00 A10.00,10.00 0.00 1,0 50.00,40.00 " fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"},
     {}},
    {"an arc with round caps",
     [](DrawingWriter&) { return blueArc(kCapRound); },
     {R"~(   <path d="M60.00,50.00 A10.00,10.00 0.00 0,0 50.00,40.00 " fill="none" stroke="#0000ff" stroke-width="2.000000" stroke-linecap="round"  />)~"},
     {}},
    {"a see-through arc",
     [](DrawingWriter&) { return blueArc(kCapButt, kRasterPartial); },
     {R"~(   <path d="M60.00,50.00 A10.00,10.00 0.00 0,0 50.00,40.00 " fill="none" stroke="#0000ff" stroke-opacity="0.50" stroke-width="2.000000"  />)~"},
     {}},
    {"an arc without alpha",
     [](DrawingWriter& d) { return arcWithAlpha(d, 0); },
     {R"~(   <path d="M60.00,50.00 A10.00,10.00 0.00 0,0 50.00,40.00 " fill="none" stroke="none"  />)~"},
     {}},
    {"an arc with half its alpha",
     [](DrawingWriter& d) { return arcWithAlpha(d, 128); },
     {R"~(   <path d="M60.00,50.00 A10.00,10.00 0.00 0,0 50.00,40.00 " fill="none" stroke="#0000ff" stroke-opacity="0.50" stroke-width="2.000000"  />)~"},
     {}},
};

INSTANTIATE_TEST_SUITE_P(OpenFigures, WrittenObject, testing::ValuesIn(kOpenRows), rowName);

_egf_obj* triangles(int count, const AreaPen& pen = kPen) {
  std::vector<Points> subPaths;
  for (int i = 0; i < count; ++i) {
    const double x = 5.0 * i;
    subPaths.push_back({{x, 0}, {x + 4, 0}, {x + 2, 4}});
  }
  return polyPath(subPaths, pen);
}

Lines bodyOf(_egf_obj* object) {
  DrawingWriter drawing;
  drawing.tree.add(object);
  EXPECT_EQ(drawing.write(), 0);
  EXPECT_TRUE(drawing.rules().empty());
  return drawing.body();
}

TEST(ManySubPaths, UpToTwentyAreOnePath) {
  EXPECT_EQ(
      bodyOf(triangles(2)),
      (Lines{
          R"~(   <path d="M0.00,0.00 L4.00,0.00 L2.00,4.00 Z M5.00,0.00 L9.00,0.00 L7.00,4.00 Z " fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"}));
  AreaPen evenOdd = kPen;
  evenOdd.evenOdd = true;
  EXPECT_EQ(
      bodyOf(triangles(2, evenOdd)),
      (Lines{
          R"~(   <path d="M0.00,0.00 L4.00,0.00 L2.00,4.00 Z M5.00,0.00 L9.00,0.00 L7.00,4.00 Z " fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"}));
  const Lines twenty = bodyOf(triangles(20));
  ASSERT_EQ(twenty.size(), 7U);
  EXPECT_EQ(
      twenty.front(),
      R"~(   <path d="M0.00,0.00 L4.00,0.00 L2.00,4.00 Z M5.00,0.00 L9.00,0.00 L7.00,4.00 Z M10.00,0.00 L14.00,0.00 L12.00,4.00 )~");
  EXPECT_EQ(
      twenty.back(),
      R"~(    Z M90.00,0.00 L94.00,0.00 L92.00,4.00 Z M95.00,0.00 L99.00,0.00 L97.00,4.00 Z " fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~");
}

TEST(ManySubPaths, MoreStandInAGroup) {
  const Lines lines = bodyOf(triangles(21));
  ASSERT_EQ(lines.size(), 10U);
  EXPECT_EQ(
      lines.front(),
      R"~(  <g fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  >)~");
  EXPECT_EQ(
      lines[1],
      R"~(   <path d="M0.00,0.00 L4.00,0.00 L2.00,4.00 Z M5.00,0.00 L9.00,0.00 L7.00,4.00 Z M10.00,0.00 L14.00,0.00 L12.00,4.00 )~");
  EXPECT_EQ(lines[7].substr(lines[7].size() - 18), "97.00,4.00 Z \"  />");
  EXPECT_EQ(lines[8], R"~(   <path d="M100.00,0.00 L104.00,0.00 L102.00,4.00 Z "  />)~");
  EXPECT_EQ(lines.back(), "  </g>");
  const Lines many = bodyOf(triangles(41));
  EXPECT_EQ(std::count_if(many.begin(), many.end(),
                          [](const std::string& line) { return line.find("<path") != line.npos; }),
            3);
}

TEST(ManySubPaths, SizesNeverReachBeyondThePoints) {
  const auto sized = [](std::int32_t pointCount) {
    return edit<EgfPolygon>(triangles(2), [&](EgfPolygon& r) { r.pointCount = pointCount; });
  };
  const std::string style =
      R"~(" fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~";
  EXPECT_EQ(bodyOf(sized(4)),
            (Lines{"   <path d=\"M0.00,0.00 L4.00,0.00 L2.00,4.00 Z M5.00,0.00 Z " + style}));
  EXPECT_EQ(bodyOf(sized(0)), Lines());
  EXPECT_EQ(bodyOf(sized(-1)), Lines());
}

TEST(ManySubPaths, WithoutSizesAreOneFigure) {
  EXPECT_EQ(
      bodyOf(edit<EgfPolygon>(triangles(2),
                              [](EgfPolygon& r) {
                                RMM_Free(r.subPathSizes.get());
                                r.subPathSizes = nullptr;
                              })),
      (Lines{
          R"~(   <path d="M0.00,0.00 L4.00,0.00 L2.00,4.00 L5.00,0.00 L9.00,0.00 L7.00,4.00 Z " fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"}));
}

}  // namespace
}  // namespace egfsvg
