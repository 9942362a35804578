#include "render/drawing.h"

#include <gtest/gtest.h>

#include <vector>

#include "host/egf_templates.h"
#include "render/object_walk.h"
#include "tests/unit/render/test_page.h"

namespace egfrender {
namespace {

using namespace egfsvg;        // NOLINT(google-build-using-namespace)
using namespace egfsvg::test;  // NOLINT(google-build-using-namespace)

constexpr std::uint32_t kClear = 0;
constexpr std::uint32_t kRed = 0xff0000ff;
constexpr std::uint32_t kBlue = 0x0000ffff;
constexpr std::uint32_t kBlack = 0x000000ff;

// A page of 100 x 100 pixels.
class Drawing : public testing::Test {
 protected:
  Drawing() { page_.viewport(0, 0, 100, 100); }

  std::uint32_t styleOf(double width, std::uint32_t stroke, std::uint32_t fill,
                        std::uint8_t fillStyle, bool evenOdd = false) {
    auto pen = kPolygonPen;
    pen.lineWidth = {kMeasureDevice, width};
    pen.strokeColor = colourOf(stroke);
    pen.fillColor = colourOf(fill);
    pen.fillStyle = fillStyle;
    pen.modeFlags = evenOdd ? 1 : 0;
    return page_.style(kStylePen, pen);
  }

  struct Dot {
    unsigned x, y;
    std::uint32_t colour;
  };
  void expectDots(const std::vector<Dot>& dots) {
    const Picture picture = page_.picture();
    ASSERT_EQ(picture.width, 100U);
    ASSERT_EQ(picture.height, 100U);
    for (const Dot& dot : dots) {
      EXPECT_EQ(colourAt(picture, dot.x, dot.y), dot.colour) << dot.x << "," << dot.y;
    }
  }

  TestPage page_;
};

TEST_F(Drawing, FillsAndStrokesABox) {
  page_.add(box(20, 30, 40, 20, {.width = 4, .stroke = 0x0000ff, .fill = 0xff0000}));
  expectDots({{40, 40, kRed},
              {20, 40, kBlue},
              {18, 40, kBlue},
              {21, 40, kBlue},
              {17, 40, kClear},
              {22, 40, kRed},
              {40, 28, kBlue},
              {40, 27, kClear},
              {61, 51, kBlue}});
}

TEST_F(Drawing, ShowsBlackAsBlackAndWhiteAsWhite) {
  page_.add(box(0, 0, 50, 100, {.fill = 0xffffff}));
  page_.add(box(50, 0, 50, 100, {.fill = 0x000000}));
  expectDots({{10, 10, kBlack}, {60, 10, 0xffffffff}});
}

TEST_F(Drawing, KeepsTheFillRule) {
  const std::vector<Points> squares = {{{10, 10}, {90, 10}, {90, 90}, {10, 90}},
                                       {{30, 30}, {70, 30}, {70, 70}, {30, 70}}};
  page_.add(polyPath(squares, {.fill = 0xff0000, .evenOdd = true}));
  expectDots({{20, 20, kRed}, {50, 50, kClear}});
  page_.add(polyPath(squares, {.fill = 0x0000ff}));
  expectDots({{20, 20, kBlue}, {50, 50, kBlue}});
}

// An open figure is filled as if it were closed, and its last side is not stroked.
TEST_F(Drawing, LeavesAnOpenFigureOpen) {
  page_.add(polygon({{10, 10}, {90, 10}, {90, 90}},
                    {.width = 2, .stroke = 0x0000ff, .fill = 0xff0000, .closed = false}));
  expectDots({{70, 30, kRed}, {50, 10, kBlue}, {52, 50, kRed}, {48, 52, kClear}});
}

TEST_F(Drawing, DrawsLinesWithTheirCaps) {
  page_.add(line({20, 20}, {80, 20}, {.width = 10, .stroke = 0xff0000, .capStyle = kCapButt}));
  page_.add(line({20, 50}, {80, 50}, {.width = 10, .stroke = 0xff0000, .capStyle = kCapSquare}));
  page_.add(line({20, 80}, {80, 80}, {.width = 10, .stroke = 0xff0000, .capStyle = kCapRound}));
  expectDots({{50, 20, kRed},
              {18, 20, kClear},
              {16, 50, kRed},
              {16, 46, kRed},
              {14, 50, kClear},
              {16, 80, kRed},
              {15, 75, kClear},
              {84, 50, kRed}});
}

TEST_F(Drawing, DrawsPolylinesWithTheirJoins) {
  struct Row {
    std::uint8_t join;
    std::uint32_t corner;  // of the outer corner at (88, 12)
  };
  for (const Row& row : {Row{kJoinMiter, kRed}, Row{kJoinBevel, kClear}, Row{kJoinRound, kClear}}) {
    TestPage page;
    page.viewport(0, 0, 100, 100);
    page.add(polyline({{20, 20}, {80, 20}, {80, 80}},
                      {.width = 20, .stroke = 0xff0000, .joinStyle = row.join}));
    const Picture picture = page.picture();
    EXPECT_EQ(colourAt(picture, 50, 20), kRed);
    EXPECT_EQ(colourAt(picture, 88, 11), row.corner) << int{row.join};
    EXPECT_EQ(colourAt(picture, 50, 50), kClear);
  }
}

TEST_F(Drawing, CutsAMiterAtItsLimit) {
  for (const float limit : {1.0F, 10.0F}) {
    TestPage page;
    page.viewport(0, 0, 100, 100);
    auto record = kStrokeParms;
    record.miterLimit = limit;
    page.add(polyline({{20, 20}, {80, 20}, {80, 80}},
                      {.width = 20,
                       .stroke = 0xff0000,
                       .joinStyle = kJoinMiter,
                       .strokeParmsNo = page.style(kStyleStroke, record)}));
    EXPECT_EQ(colourAt(page.picture(), 88, 11), limit > 2 ? kRed : kClear) << limit;
  }
}

TEST_F(Drawing, DrawsDashes) {
  const std::uint32_t dash = page_.tree().dash({10, -10});
  page_.add(line({0, 50}, {100, 50}, {.width = 4, .stroke = 0xff0000, .lineStyle = dash}));
  expectDots({{5, 50, kRed}, {15, 50, kClear}, {25, 50, kRed}, {35, 50, kClear}});
}

TEST_F(Drawing, MixesOpacity) {
  auto record = kFillParms;
  record.fillAlpha = 51;
  page_.add(box(0, 0, 100, 100, {.fill = 0x000000}));
  page_.add(box(0, 0, 50, 100,
                {.fill = 0xffffff,
                 .fillStyle = kFillPartial,
                 .fillParmsNo = page_.style(kStyleFill, record)}));
  expectDots({{20, 50, 0xccccccff}, {70, 50, 0xffffffff}});
}

TEST_F(Drawing, DrawsEllipses) {
  page_.add(ellipse(50, 50, 40, 20, {.fill = 0xff0000}));
  expectDots({{50, 50, kRed}, {12, 50, kRed}, {50, 32, kRed}, {20, 35, kClear}, {50, 28, kClear}});
}

// Rotations run counter-clockwise.
TEST_F(Drawing, TurnsEllipses) {
  page_.add(ellipse(50, 50, 40, 10, {.fill = 0xff0000}, 45));
  expectDots({{75, 25, kRed}, {25, 75, kRed}, {25, 25, kClear}, {75, 75, kClear}});
}

TEST_F(Drawing, DrawsPartsOfEllipses) {
  page_.add(ellipse(50, 50, 40, 40, {.fill = 0xff0000}, 0, 0, 90));
  expectDots({{75, 25, kRed}, {55, 45, kClear}, {25, 25, kClear}, {25, 75, kClear}});
}

// The straight sides between the corners of a rounded rectangle are no objects.
TEST_F(Drawing, JoinsTheArcsOfARoundedRectangle) {
  page_.add(path({arc(30, 30, 20, 20, 90, 180), arc(30, 70, 20, 20, 180, 270),
                  arc(70, 70, 20, 20, 270, 360), arc(70, 30, 20, 20, 0, 90)},
                 {.pathKind = kPathClosedFigure,
                  .gdiFillStyleNo = styleOf(2, 0x0000ff, 0xff0000, kFillOpaque)}));
  expectDots({{50, 50, kRed},
              {11, 11, kClear},
              {16, 15, kBlue},
              {50, 9, kBlue},
              {50, 90, kBlue},
              {9, 50, kBlue},
              {90, 50, kBlue},
              {88, 88, kClear}});
}

TEST_F(Drawing, JoinsLinesCurvesAndArcsOfAPath) {
  page_.add(path(
      {line({10, 50}, {50, 50}), curve({{50, 50}, {60, 50}, {70, 60}, {70, 70}}),
       polyline({{70, 70}, {70, 90}, {10, 90}})},
      {.pathKind = kPathClosedFigure, .gdiFillStyleNo = styleOf(0, 0, 0xff0000, kFillOpaque)}));
  expectDots({{20, 70, kRed}, {60, 85, kRed}, {68, 52, kClear}, {40, 48, kClear}, {60, 60, kRed}});
}

// Clockwise arcs are drawn from their end to their start, so that the figure stays in one piece.
TEST_F(Drawing, DrawsAClockwiseArcBackwards) {
  page_.add(
      path({line({10, 50}, {30, 50}), arc(50, 50, 20, 20, 0, 180, true), line({70, 50}, {90, 50})},
           {.gdiFillStyleNo = styleOf(4, 0xff0000, 0, kFillNone)}));
  expectDots({{20, 50, kRed}, {50, 30, kRed}, {80, 50, kRed}, {50, 50, kClear}, {50, 70, kClear}});
}

TEST_F(Drawing, KeepsNestedPathsApart) {
  const std::uint32_t style = styleOf(0, 0, 0xff0000, kFillOpaque, true);
  page_.add(path({path({polyline({{10, 10}, {90, 10}, {90, 90}, {10, 90}})}, {.pathKind = 1}),
                  path({polyline({{30, 30}, {70, 30}, {70, 70}, {30, 70}})}, {.pathKind = 1})},
                 {.gdiFillStyleNo = style}));
  expectDots({{20, 20, kRed}, {50, 50, kClear}, {80, 80, kRed}, {25, 20, kRed}});
}

TEST_F(Drawing, ClosesAPathOnlyWhenItSaysSo) {
  for (const std::uint32_t kind : {0U, kPathClosedFigure}) {
    TestPage page;
    page.viewport(0, 0, 100, 100);
    auto pen = kPolygonPen;
    pen.lineWidth = {kMeasureDevice, 4.0};
    pen.strokeColor = colourOf(0xff0000);
    pen.fillStyle = kFillNone;
    page.add(path({polyline({{10, 10}, {90, 10}, {90, 90}})},
                  {.pathKind = kind, .gdiFillStyleNo = page.style(kStylePen, pen)}));
    EXPECT_EQ(colourAt(page.picture(), 50, 50), kind == 0 ? kClear : kRed);
  }
}

TEST_F(Drawing, DrawsByLayoutNotByMark) {
  page_.add(edit<EgfEllipse>(ellipse(50, 50, 40, 40, {.fill = 0xff0000}),
                             [](EgfEllipse& object) { object.head.objClass = kMarkEllipse; }));
  page_.add(edit<EgfPolygon>(box(0, 0, 10, 10, {.fill = 0x0000ff}),
                             [](EgfPolygon& object) { object.head.objClass = kMarkRect; }));
  expectDots({{50, 50, kRed}, {5, 5, kBlue}});
}

TEST_F(Drawing, GoesDownIntoGroupsInOrder) {
  page_.add(group({box(0, 0, 60, 60, {.fill = 0xff0000}),
                   group({box(20, 20, 60, 60, {.fill = 0x0000ff})}, "inner")}));
  page_.add(box(40, 40, 10, 10, {.fill = 0xffffff}));
  expectDots({{10, 10, kRed}, {30, 30, kBlue}, {70, 70, kBlue}, {45, 45, kBlack}});
}

TEST_F(Drawing, LeavesOutWhatIsNotShown) {
  const int hidden = page_.tree().layer("hidden", false);
  const int suppressed = page_.tree().layer("suppressed", true, true);
  const int shown = page_.tree().layer("shown");
  const AreaPen red{.fill = 0xff0000};
  page_.add(onLayer(box(0, 0, 10, 10, red), hidden));
  page_.add(onLayer(box(20, 0, 10, 10, red), suppressed));
  page_.add(onLayer(box(40, 0, 10, 10, red), shown));
  page_.add(edit<EgfPolygon>(box(60, 0, 10, 10, red),
                             [](EgfPolygon& object) { object.head.objAttr = 0; }));
  page_.add(edit<EgfPolygon>(box(80, 0, 10, 10, red),
                             [](EgfPolygon& object) { object.head.objAttr2 = 1; }));
  page_.add(onLayer(group({box(0, 50, 10, 10, red)}), hidden));
  page_.add(onLayer(box(20, 50, 10, 10, red), 4711));
  expectDots({{5, 5, kClear},
              {25, 5, kClear},
              {45, 5, kRed},
              {65, 5, kClear},
              {85, 5, kClear},
              {5, 55, kClear},
              {25, 55, kRed}});
}

TEST_F(Drawing, SurvivesEmptyAndWildShapes) {
  page_.add(polygon({}, {.width = 1}));
  page_.add(polyline({}, {.width = 1}));
  page_.add(path({}, {.gdiFillStyleNo = styleOf(1, 0, 0, kFillOpaque)}));
  page_.add(group({}));
  page_.add(polygon({{1e12, 1e12}, {-1e12, 5}, {3, 1e12}}, {.width = 1e9, .fill = 0xff0000}));
  page_.add(line({0, 0}, {0, 0}, {.width = 1e300}));
  EXPECT_EQ(page_.picture().width, 100U);
}

TEST_F(Drawing, GoesDownAnyDepth) {
  _egf_obj* nest = box(10, 10, 50, 50, {.fill = 0xff0000});
  for (int i = 0; i < 20000; ++i) nest = group({nest});
  page_.add(nest);
  expectDots({{20, 20, kRed}, {80, 80, kClear}});
}

TEST(ObjectWalk, VisitsChildrenBetweenTheirParent) {
  const OwnedObject root(group({group({box(0, 0, 1, 1), group({})}), line({0, 0}, {1, 1})}));
  std::vector<int> seen;
  walkObjects(
      *root,
      [&](const _egf_obj& object) {
        seen.push_back(object.layoutClass);
        return true;
      },
      [&](const _egf_obj& object) { seen.push_back(-object.layoutClass); });
  EXPECT_EQ(seen, (std::vector<int>{1, 1, 3, -3, 1, -1, -1, 5, -5, -1}));
}

TEST(ObjectWalk, LeavesOutChildrenOnRequest) {
  const OwnedObject root(group({group({box(0, 0, 1, 1)}), line({0, 0}, {1, 1})}));
  int count = 0;
  walkObjects(*root, [&](const _egf_obj& object) {
    ++count;
    return &object == root.get();
  });
  EXPECT_EQ(count, 3);
}

}  // namespace
}  // namespace egfrender
