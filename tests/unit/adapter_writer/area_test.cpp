// Rectangles, circles, ellipses and polygons as written, with the rules that their pens are pooled
// as.

#include <gtest/gtest.h>

#include <limits>

#include "host/egf_templates.h"
#include "tests/support/written_rows.h"

namespace egfsvg {
namespace {

using namespace test;

constexpr AreaPen kPen{.width = 2.0,
                       .stroke = 0x0000ff,
                       .fill = 0xff0000,
                       .fillStyle = kFillOpaque,
                       .joinStyle = kJoinRound};

AreaPen pen(void (*change)(AreaPen&)) {
  AreaPen changed = kPen;
  change(changed);
  return changed;
}

/// A pen with extended parameters.
AreaPen withParms(DrawingWriter& drawing, void (*change)(_egf_gdiplus_fillparms_tag&),
                  AreaPen base = kPen) {
  _egf_gdiplus_fillparms_tag parms = kFillParms;
  change(parms);
  base.fillParmsNo = appendStyle(drawing.document(), kStyleFill, parms);
  return base;
}

_egf_obj* boxOf(const Points& corners, const AreaPen& pen = kPen) {
  _egf_obj* object = polygon(corners, pen);
  object->objClass = kClassBox;
  return object;
}

const Points kCorners = {{0, 0}, {0, 50}, {100, 50}, {100, 0}};
const Points kTriangle = {{0, 0}, {100, 0}, {50, 50}};

_egf_obj* rect(const AreaPen& pen = kPen) { return boxOf(kCorners, pen); }

std::string rectLine(const std::string& attributes) {
  return R"~(   <rect x="0" y="0" width="100" height="50" )~" + attributes + "  />";
}

const WrittenRow kRectRows[] = {
    {"a rectangle",
     [](DrawingWriter&) { return rect(); },
     {R"~(   <rect x="0" y="0" width="100" height="50" fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"},
     {}},
    {"corners the other way",
     [](DrawingWriter&) {
       return boxOf({{100, 50}, {100, 0}, {0, 0}, {0, 50}});
     },
     {R"~(   <rect x="0" y="0" width="100" height="50" fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"},
     {}},
    {"across first",
     [](DrawingWriter&) {
       return boxOf({{0, 0}, {100, 0}, {100, 50}, {0, 50}});
     },
     {R"~(   <rect x="0" y="0" width="100" height="50" fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"},
     {}},
    {"fractions are cut",
     [](DrawingWriter&) {
       return boxOf({{-0.9, 0}, {-0.9, 50}, {99.9, 50}, {99.9, 0}});
     },
     {R"~(   <rect x="0" y="0" width="100" height="50" fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"},
     {}},
    {"corners that are nowhere",
     [](DrawingWriter&) {
       return edit<EgfPolygon>(rect(), [](EgfPolygon& r) {
         const PointArray points = r.points;
         const float nowhere = std::numeric_limits<float>::infinity();
         points[2] = points[3] = {nowhere, 0.0F};
         points[2].y = points[1].y;
       });
     },
     {R"~(   <rect x="0" y="0" width="2147483647" height="50" fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"},
     {}},
    {"the height scales like the width",
     [](DrawingWriter&) {
       return boxOf({{0, 100}, {0, 150}, {100, 150}, {100, 100}});
     },
     {R"~(   <rect x="0" y="96" width="48" height="24" fill="#ff0000" stroke="#0000ff" stroke-width="1.440000" stroke-linejoin="round"  />)~"},
     {},
     200.0,
     100.0},
    {"a fill of the host's",
     [](DrawingWriter&) { return rect(pen([](AreaPen& p) { p.fillStyle = kFillDefault; })); },
     {R"~(   <rect x="0" y="0" width="100" height="50" fill="none" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"},
     {}},
    {"no fill",
     [](DrawingWriter&) { return rect(pen([](AreaPen& p) { p.fillStyle = kFillNone; })); },
     {R"~(   <rect x="0" y="0" width="100" height="50" fill="none" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"},
     {}},
    {"black",
     [](DrawingWriter&) {
       return rect(pen([](AreaPen& p) {
         p.fill = 0xffffff;
         p.stroke = 0xffffff;
       }));
     },
     {rectLine(R"~(stroke="#000000" stroke-width="2.000000" stroke-linejoin="round")~")},
     {}},
    {"white",
     [](DrawingWriter&) {
       return rect(pen([](AreaPen& p) {
         p.fill = 0;
         p.stroke = 0;
       }));
     },
     {rectLine(
         R"~(fill="#ffffff" stroke="#ffffff" stroke-width="2.000000" stroke-linejoin="round")~")},
     {}},
    {"half a fill",
     [](DrawingWriter&) { return rect(pen([](AreaPen& p) { p.fillStyle = kFillPartial; })); },
     {rectLine(
         R"~(fill="#ff0000" fill-opacity="0.50" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round")~")},
     {}},
    {"a gradient fill without its gradient",
     [](DrawingWriter&) { return rect(pen([](AreaPen& p) { p.fillStyle = kFillLinear; })); },
     {rectLine(R"~(stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round")~")},
     {}},
    {"a stroke without alpha",
     [](DrawingWriter& d) { return rect(withParms(d, [](auto& p) { p.strokeAlpha = 0; })); },
     {R"~(   <rect x="0" y="0" width="100" height="50" fill="#ff0000" stroke="none" stroke-linejoin="round"  />)~"},
     {}},
    {"half a stroke",
     [](DrawingWriter& d) { return rect(withParms(d, [](auto& p) { p.strokeAlpha = 128; })); },
     {R"~(   <rect x="0" y="0" width="100" height="50" fill="#ff0000" stroke="#0000ff" stroke-opacity="0.50" stroke-width="2.000000" stroke-linejoin="round"  />)~"},
     {}},
    {"bevel",
     [](DrawingWriter&) { return rect(pen([](AreaPen& p) { p.joinStyle = kJoinBevel; })); },
     {R"~(   <rect x="0" y="0" width="100" height="50" fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="bevel"  />)~"},
     {}},
    {"miter",
     [](DrawingWriter&) { return rect(pen([](AreaPen& p) { p.joinStyle = kJoinMiter; })); },
     {R"~(   <rect x="0" y="0" width="100" height="50" fill="#ff0000" stroke="#0000ff" stroke-width="2.000000"  />)~"},
     {}},
    {"miter with a limit",
     [](DrawingWriter& d) {
       return rect(withParms(
           d, [](auto& p) { p.miterLimit = 10.0F; },
           pen([](AreaPen& p) { p.joinStyle = kJoinMiter; })));
     },
     {R"~(   <rect x="0" y="0" width="100" height="50" fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="miter" stroke-miterlimit="10"  />)~"},
     {}},
    {"evenodd is not told",
     [](DrawingWriter&) { return rect(pen([](AreaPen& p) { p.evenOdd = true; })); },
     {R"~(   <rect x="0" y="0" width="100" height="50" fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-linejoin="round"  />)~"},
     {}},
    {"open",
     [](DrawingWriter&) { return rect(pen([](AreaPen& p) { p.closed = false; })); },
     {R"~(   <polyline class="stl1" points="0.0,0.0 0.0,50.0 100.0,50.0 100.0,0.0 " stroke-linecap="round" />)~"},
     {"      .stl1 { fill:#ff0000; stroke:#0000ff; stroke-width:2.000000; stroke-linejoin:round "
      "}"}},
    {"dashes",
     [](DrawingWriter& d) {
       AreaPen dashed = kPen;
       dashed.lineStyle = d.tree.dash({4, -2});
       return rect(dashed);
     },
     {rectLine(
         R"~(fill="#ff0000" stroke="#0000ff" stroke-width="2.000000" stroke-dasharray="4.000000,2.000000" stroke-linejoin="round")~")},
     {}},
    {"a skewed box",
     [](DrawingWriter&) {
       return boxOf({{0, 0}, {10, 50}, {110, 50}, {100, 0}});
     },
     {R"~(   <polygon class="stl1" points="0.000,0.000 10.000,50.000 110.000,50.000 100.000,0.000 " />)~"},
     {"      .stl1 { fill:#ff0000; stroke:#0000ff; stroke-width:2.000000; stroke-linejoin:round "
      "}"}},
    {"three corners",
     [](DrawingWriter&) {
       return boxOf({{0, 0}, {0, 50}, {100, 50}});
     },
     {R"~(   <polygon class="stl1" points="0.000,0.000 0.000,50.000 100.000,50.000 " />)~"},
     {"      .stl1 { fill:#ff0000; stroke:#0000ff; stroke-width:2.000000; stroke-linejoin:round "
      "}"}},
    {"a polygon of four corners is none",
     [](DrawingWriter&) { return polygon(kCorners, kPen); },
     {R"~(   <polygon class="stl1" points="0.000,0.000 0.000,50.000 100.000,50.000 100.000,0.000 " />)~"},
     {"      .stl1 { fill:#ff0000; stroke:#0000ff; stroke-width:2.000000; stroke-linejoin:round "
      "}"}},
};

INSTANTIATE_TEST_SUITE_P(Rectangles, WrittenObject, testing::ValuesIn(kRectRows), rowName);

_egf_obj* circle(const AreaPen& pen = kPen) { return ellipse(50, 50, 10, 10, pen); }

_egf_obj* turned(std::int32_t millionths) {
  return edit<EgfEllipse>(ellipse(50, 50, 20, 10, kPen),
                          [&](EgfEllipse& r) { r.pen.ellipseRotation = millionths; });
}

_egf_obj* ending(std::int32_t millionths) {
  return edit<EgfEllipse>(circle(), [&](EgfEllipse& r) { r.endAngle = millionths; });
}

_egf_obj* sized(float width, float height) {
  return edit<EgfEllipse>(circle(), [&](EgfEllipse& r) {
    const _mpl_spacept_tag center = r.center;
    r.radiusPt = {center.x + width, center.y + height};
  });
}

const Lines kEllipseRule = {
    "      .stl1 { fill:#ff0000; stroke:#0000ff; stroke-width:2.000000; stroke-linejoin:round }"};
const Lines kPartialRule = {
    "      .stl1 { fill:#ff0000; fill-opacity:0.50; stroke:#0000ff; stroke-width:2.000000; "
    "stroke-linejoin:round }"};

const WrittenRow kEllipseRows[] = {
    {"a circle",
     [](DrawingWriter&) { return circle(); },
     {R"~(   <circle class="stl1" cx="50.000"  cy="50.000" r="10.000" stroke-width="2.000000"  />)~"},
     kEllipseRule},
    {"an end of 0",
     [](DrawingWriter&) { return ending(0); },
     {R"~(   <circle class="stl1" cx="50.000"  cy="50.000" r="10.000" stroke-width="2.000000"  />)~"},
     kEllipseRule},
    {"a turn backwards",
     [](DrawingWriter&) { return ending(-kFullTurn); },
     {R"~(   <circle class="stl1" cx="50.000"  cy="50.000" r="10.000" stroke-width="2.000000"  />)~"},
     kEllipseRule},
    {"a unit more",
     [](DrawingWriter&) { return sized(40960.0F, 40961.0F); },
     {R"~(   <ellipse class="stl1" cx="50.000"  cy="50.000" rx="10.000" ry="10.000" stroke-width="2.000000"  />)~"},
     kEllipseRule},
    {"less than half a unit more",
     [](DrawingWriter&) { return sized(40960.0F, 40960.25F); },
     {R"~(   <circle class="stl1" cx="50.000"  cy="50.000" r="10.000" stroke-width="2.000000"  />)~"},
     kEllipseRule},
    {"to the left and up",
     [](DrawingWriter&) { return sized(-40960.0F, -40960.0F); },
     {R"~(   <circle class="stl1" cx="50.000"  cy="50.000" r="10.000" stroke-width="2.000000"  />)~"},
     kEllipseRule},
    {"a radius for both axes",
     [](DrawingWriter&) { return circle(); },
     {R"~(   <circle class="stl1" cx="24.000"  cy="48.000" r="7.200" stroke-width="1.440000"  />)~"},
     {"      .stl1 { fill:#ff0000; stroke:#0000ff; stroke-width:1.440000; stroke-linejoin:round }"},
     200.0,
     100.0},
    {"part of the alpha",
     [](DrawingWriter& d) {
       return circle(withParms(
           d, [](auto& p) { p.fillAlpha = 51; },
           pen([](AreaPen& p) { p.fillStyle = kFillPartial; })));
     },
     {R"~(   <circle class="stl1" cx="50.000"  cy="50.000" r="10.000" fill-opacity="0.20" stroke-width="2.000000"  />)~"},
     kPartialRule},
    {"a stroke without alpha",
     [](DrawingWriter& d) { return circle(withParms(d, [](auto& p) { p.strokeAlpha = 0; })); },
     {R"~(   <circle class="stl1" cx="50.000"  cy="50.000" r="10.000" stroke="none"  />)~"},
     kEllipseRule},
    {"half a stroke is lost",
     [](DrawingWriter& d) { return circle(withParms(d, [](auto& p) { p.strokeAlpha = 128; })); },
     {R"~(   <circle class="stl1" cx="50.000"  cy="50.000" r="10.000" stroke-width="2.000000"  />)~"},
     kEllipseRule},
    {"an ellipse",
     [](DrawingWriter&) { return turned(0); },
     {R"~(   <ellipse class="stl1" cx="50.000"  cy="50.000" rx="20.000" ry="10.000" stroke-width="2.000000"  />)~"},
     kEllipseRule},
    {"turned by 45 degrees",
     [](DrawingWriter&) { return turned(45000000); },
     {R"~(   <ellipse class="stl1" cx="50.000"  cy="50.000" rx="20.000" ry="10.000" stroke-width="2.000000"   transform="rotate(-45.000000 50 50)"/>)~"},
     kEllipseRule},
    {"turned by minus 30 and a fraction",
     [](DrawingWriter&) { return turned(-30999999); },
     {R"~(   <ellipse class="stl1" cx="50.000"  cy="50.000" rx="20.000" ry="10.000" stroke-width="2.000000"   transform="rotate(30.000000 50 50)"/>)~"},
     kEllipseRule},
    {"turned by half a degree",
     [](DrawingWriter&) { return turned(500000); },
     {R"~(   <ellipse class="stl1" cx="50.000"  cy="50.000" rx="20.000" ry="10.000" stroke-width="2.000000"   transform="rotate(0.000000 50 50)"/>)~"},
     kEllipseRule},
    {"a turn about a cut centre",
     [](DrawingWriter&) { return ellipse(50.9, -50.9, 20, 10, kPen, 90.0); },
     {R"~(   <ellipse class="stl1" cx="50.900"  cy="-50.900" rx="20.000" ry="10.000" stroke-width="2.000000"   transform="rotate(-90.000000 50 -50)"/>)~"},
     kEllipseRule},
};

INSTANTIATE_TEST_SUITE_P(Ellipses, WrittenObject, testing::ValuesIn(kEllipseRows), rowName);

const Lines kPolygonRule = {
    "      .stl1 { fill:#ff0000; stroke:#0000ff; stroke-width:2.000000; stroke-linejoin:round }"};

const WrittenRow kPolygonRows[] = {
    {"a triangle",
     [](DrawingWriter&) { return polygon(kTriangle, kPen); },
     {R"~(   <polygon class="stl1" points="0.000,0.000 100.000,0.000 50.000,50.000 " />)~"},
     kPolygonRule},
    {"seven points",
     [](DrawingWriter&) {
       return polygon({{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}, {6, 1}}, kPen);
     },
     {"   <polygon class=\"stl1\" points=\"0.00,0.00 1.00,0.00 2.00,0.00 3.00,0.00 4.00,0.00 ",
      "    5.000,0.000 6.000,1.000 \" />"},
     kPolygonRule},
    {"open with parameters",
     [](DrawingWriter& d) {
       return polygon(kTriangle, withParms(
                                     d, [](auto&) {}, pen([](AreaPen& p) { p.closed = false; })));
     },
     {R"~(   <polyline class="stl1" points="0.0,0.0 100.0,0.0 50.0,50.0 " />)~"},
     kPolygonRule},
    {"open with square caps",
     [](DrawingWriter& d) {
       return polygon(kTriangle, withParms(
                                     d, [](auto& p) { p.startCap = kCapSquare; },
                                     pen([](AreaPen& p) { p.closed = false; })));
     },
     {R"~(   <polyline class="stl1" points="0.0,0.0 100.0,0.0 50.0,50.0 " stroke-linecap="square" />)~"},
     kPolygonRule},
    {"half a fill",
     [](DrawingWriter&) {
       return polygon(kTriangle, pen([](AreaPen& p) { p.fillStyle = kFillPartial; }));
     },
     {R"~(   <polygon class="stl1" points="0.000,0.000 100.000,0.000 50.000,50.000 " fill-opacity="0.50" />)~"},
     {"      .stl1 { fill:#ff0000; fill-opacity:0.50; stroke:#0000ff; stroke-width:2.000000; "
      "stroke-linejoin:round }"}},
    {"dashes",
     [](DrawingWriter& d) {
       AreaPen dashed = kPen;
       dashed.lineStyle = d.tree.dash({4, -2, 1, -2});
       return polygon(kTriangle, dashed);
     },
     {R"~(   <polygon class="stl1" points="0.000,0.000 100.000,0.000 50.000,50.000 " stroke-dasharray="4.000000,2.000000,1.000000,2.000000" />)~"},
     kPolygonRule},
    {"a flag byte in the colour",
     [](DrawingWriter&) {
       return polygon(kTriangle, pen([](AreaPen& p) { p.fill = 0x80ff0000; }));
     },
     {R"~(   <polygon class="stl1" points="0.000,0.000 100.000,0.000 50.000,50.000 " />)~"},
     kPolygonRule},
    {"evenodd is the class's",
     [](DrawingWriter&) { return polygon(kTriangle, pen([](AreaPen& p) { p.evenOdd = true; })); },
     {R"~(   <polygon class="stl1" points="0.000,0.000 100.000,0.000 50.000,50.000 " />)~"},
     {"      .stl1 { fill:#ff0000; stroke:#0000ff; stroke-width:2.000000; fill-rule:evenodd; "
      "stroke-linejoin:round }"}},
    {"a miter of its own",
     [](DrawingWriter& d) {
       return polygon(kTriangle, withParms(
                                     d, [](auto& p) { p.miterLimit = 7.9F; },
                                     pen([](AreaPen& p) { p.joinStyle = kJoinMiter; })));
     },
     {R"~(   <polygon class="stl1" points="0.000,0.000 100.000,0.000 50.000,50.000 " stroke-linejoin="miter" stroke-miterlimit="7" />)~"},
     {"      .stl1 { fill:#ff0000; stroke:#0000ff; stroke-width:2.000000 }"}},
    {"no points", [](DrawingWriter&) { return polygon({}, kPen); }, {}, kPolygonRule},
};

INSTANTIATE_TEST_SUITE_P(Polygons, WrittenObject, testing::ValuesIn(kPolygonRows), rowName);

/// The class that the body's line names.
std::string classOf(const std::string& line) {
  const std::size_t start = line.find("class=\"") + 7;
  return line.substr(start, line.find('"', start) - start);
}

Lines classesOf(std::initializer_list<_egf_obj*> objects) {
  DrawingWriter drawing;
  for (_egf_obj* object : objects) drawing.tree.add(object);
  EXPECT_EQ(drawing.write(), 0);
  Lines classes;
  for (const std::string& line : drawing.body()) classes.push_back(classOf(line));
  return classes;
}

TEST(PooledPens, EllipsesShareThemWithTheirRotation) {
  EXPECT_EQ(classesOf({turned(0), turned(0)}), (Lines{"stl1", "stl1"}));
  EXPECT_EQ(classesOf({turned(0), turned(45000000)}), (Lines{"stl1", "stl2"}));
  EXPECT_EQ(classesOf({circle(), polygon(kTriangle, kPen)}), (Lines{"stl1", "stl2"}));
  EXPECT_EQ(classesOf({polygon(kTriangle, kPen), polygon({{1, 1}, {2, 2}, {3, 1}}, kPen)}),
            (Lines{"stl1", "stl1"}));
}

}  // namespace
}  // namespace egfsvg
