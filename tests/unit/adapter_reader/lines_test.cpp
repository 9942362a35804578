#include <gtest/gtest.h>

#include <cstring>

#include "host/egf_templates.h"
#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

OwnedObject formatted(AdapterPage& page, _svg_line element) {
  return OwnedObject(page->SVG_formatEGFLine(&element));
}
OwnedObject formatted(AdapterPage& page, _svg_polyline element) {
  return OwnedObject(page->SVG_formatEGFPolyline(&element));
}
OwnedObject formatted(AdapterPage& page, _svg_polygon element) {
  return OwnedObject(page->SVG_formatEGFPolygon(&element));
}

template <class Element>
Element capped(Element element, int cap) {
  element.stroke.strokeLinecap = cap;
  return element;
}

TEST(Line, ButtCapsStandInTheRecord) {
  AdapterPage page;
  const OwnedObject object = formatted(page, stroked(svgLine(0, 0, 10, 0), kRed));
  const auto* line = as<EgfLine>(object.get());
  EXPECT_EQ(object->objClass, 5);
  EXPECT_EQ(pairOf(line->startPt), PointPair(0, 0));
  EXPECT_EQ(pairOf(line->endPt), PointPair(40960, 0));
  EXPECT_EQ(line->pen.rasterOp, 0);
  EXPECT_EQ(line->pen.capStyle, 10);
  EXPECT_EQ(colourWord(line->pen.strokeColor), 0x00FF0000U);
  EXPECT_EQ(+line->pen.lineWidth.value, 1.0);
  EXPECT_EQ(+line->pen.hostWord22, 0xffffU);
  EXPECT_EQ(+line->pen.scaleFactor, 1.0);
  const auto parms = page.style<_egf_gdiplus_stroke_parms_tag>(kStyleStroke, line->strokeParmsNo);
  _egf_gdiplus_stroke_parms_tag expected = kStrokeParms;
  expected.capStyle = 10;
  EXPECT_EQ(std::memcmp(&parms, &expected, sizeof parms), 0);
  EXPECT_EQ(parms.strokeAlpha, 255);
  EXPECT_EQ(+parms.miterLimit, 10.0F);
  EXPECT_EQ(+line->strokeGradientNo, 0U);
}

TEST(Line, OtherCapsNeedNoRecord) {
  struct Row {
    int linecap;
    int capStyle;
  };
  for (const Row& row : {Row{2, 0}, Row{3, 1}}) {
    AdapterPage page;
    const OwnedObject object =
        formatted(page, capped(stroked(svgLine(0, 0, 10, 0), kRed), row.linecap));
    EXPECT_EQ(as<EgfLine>(object.get())->pen.capStyle, row.capStyle);
    EXPECT_EQ(+as<EgfLine>(object.get())->strokeParmsNo, 0U);
  }
}

struct OpacityRow {
  double strokeOpacity, opacity;
  int rasterOp;
  int strokeFillStyle;  // in the record
  int strokeAlpha;
};

TEST(Line, OpacitiesGiveRasterCodesAndAlphas) {
  constexpr OpacityRow kRows[] = {
      {1, 1, 0, 1, 255}, {0.5, 1, 1, 3, 127}, {0.5, 0.5, 1, 3, 63}, {0, 1, 7, 0, 0},
      {1, 0, 7, 0, 0},   {1.5, 1, 7, 1, 255}};  // made by the cap: the template's code
  for (const OpacityRow& row : kRows) {
    AdapterPage page;
    _svg_line element = stroked(svgLine(0, 0, 10, 0), kRed);
    element.stroke.strokeOpacity = row.strokeOpacity;
    element.graphics.opacity = row.opacity;
    const OwnedObject object = formatted(page, element);
    const auto* line = as<EgfLine>(object.get());
    EXPECT_EQ(line->pen.rasterOp, row.rasterOp) << row.strokeOpacity;
    const auto parms = page.style<_egf_gdiplus_stroke_parms_tag>(kStyleStroke, line->strokeParmsNo);
    EXPECT_EQ(parms.strokeFillStyle, row.strokeFillStyle) << row.strokeOpacity;
    EXPECT_EQ(parms.strokeAlpha, row.strokeAlpha) << row.strokeOpacity;
  }
}

// An unstroked line is built all the same; its alpha tells.
TEST(Line, UnstrokedLinesHaveNoAlpha) {
  AdapterPage page;
  const OwnedObject object = formatted(page, svgLine(0, 0, 10, 0));
  const auto* line = as<EgfLine>(object.get());
  EXPECT_EQ(line->pen.rasterOp, 0);
  EXPECT_EQ(colourWord(line->pen.strokeColor), 0U);
  const auto parms = page.style<_egf_gdiplus_stroke_parms_tag>(kStyleStroke, line->strokeParmsNo);
  EXPECT_EQ(parms.strokeAlpha, 0);
}

TEST(Line, EndsAreMapped) {
  AdapterPage page;
  Transforms turned = Transforms().rotate(90);
  const OwnedObject object = formatted(page, turned.on(svgLine(1, 0, 2, 0)));
  EXPECT_NEAR(as<EgfLine>(object.get())->startPt.x, 0.0, 0.01);
  EXPECT_NEAR(as<EgfLine>(object.get())->startPt.y, 4096.0, 0.01);
  EXPECT_NEAR(as<EgfLine>(object.get())->endPt.y, 8192.0, 0.01);
}

TEST(Line, HiddenOnesAreNotBuilt) {
  AdapterPage page;
  _svg_line element = svgLine(0, 0, 1, 1);
  element.graphics.visibility = kHidden;
  EXPECT_EQ(formatted(page, element), nullptr);
}

TEST(Polyline, UnfilledOnesAreStrokes) {
  AdapterPage page;
  std::vector<_svg_point> points = svgPoints({0, 0, 10, 0, 10, 10});
  const OwnedObject object = formatted(page, stroked(svgPolyline(points), kRed));
  const auto* polyline = as<EgfPolyline>(object.get());
  EXPECT_EQ(object->objClass, 8);
  ASSERT_EQ(+polyline->pointCount, 3U);
  EXPECT_EQ(pointsOf(polyline->points, 3),
            (std::vector<PointPair>{{0, 0}, {40960, 0}, {40960, 40960}}));
  EXPECT_EQ(polyline->pen.capStyle, 10);
  EXPECT_EQ(polyline->pen.joinStyle, 13);
  EXPECT_EQ(polyline->pen.rasterOp, 0);
  EXPECT_EQ(+polyline->pen.layerMask, 0xffffU);
  EXPECT_EQ(+polyline->pen.scaleFactor, 1.0);
  EXPECT_EQ(+polyline->pen.hostDouble36, 10.0);
  EXPECT_EQ(+polyline->pen.hostWord44, 2884U);
  const auto parms =
      page.style<_egf_gdiplus_stroke_parms_tag>(kStyleStroke, polyline->strokeParmsNo);
  EXPECT_EQ(+parms.miterLimit, 4.0F);
  EXPECT_EQ(parms.capStyle, 10);
  EXPECT_EQ(parms.strokeAlpha, 255);
  const _mpl_spacerect_tag mer = polyline->bounds;
  EXPECT_EQ(+mer.right, 40960.0F);
  EXPECT_EQ(+mer.bottom, 40960.0F);
}

TEST(Polyline, ARoundPenNeedsNoRecord) {
  AdapterPage page;
  std::vector<_svg_point> points = svgPoints({0, 0, 10, 0});
  _svg_polyline element = capped(stroked(svgPolyline(points), kRed), 2);
  element.stroke.strokeLinejoin = 2;
  const OwnedObject object = formatted(page, element);
  EXPECT_EQ(+as<EgfPolyline>(object.get())->strokeParmsNo, 0U);
  EXPECT_EQ(as<EgfPolyline>(object.get())->pen.joinStyle, 0);
}

TEST(Polyline, WithoutPointsThereIsNone) {
  AdapterPage page;
  std::vector<_svg_point> none;
  std::vector<_svg_point> one = svgPoints({3, 4});
  EXPECT_EQ(formatted(page, svgPolyline(none)), nullptr);
  EXPECT_EQ(formatted(page, svgPolygon(none)), nullptr);
  _svg_polyline counted = svgPolyline(none);
  counted.points = nullptr;
  counted.pointCount = 5;
  EXPECT_EQ(formatted(page, counted), nullptr);
  const OwnedObject dot = formatted(page, svgPolyline(one));
  EXPECT_EQ(+as<EgfPolyline>(dot.get())->pointCount, 1U);
}

TEST(Polygon, PointsModeAndFill) {
  AdapterPage page;
  std::vector<_svg_point> points = svgPoints({0, 0, 10, 0, 10, 10});
  Transforms moved = Transforms().translate(1, 1);
  _svg_polygon element = moved.on(unstroked(filled(svgPolygon(points), kRed)));
  element.fill.fillRule = 2;
  const OwnedObject object = formatted(page, element);
  const auto* polygon = as<EgfPolygon>(object.get());
  EXPECT_EQ(object->objClass, 9);
  EXPECT_EQ(pointsOf(polygon),
            (std::vector<PointPair>{{4096, 4096}, {45056, 4096}, {45056, 45056}}));
  EXPECT_EQ(polygon->pen.modeFlags, 0x03);
  EXPECT_EQ(polygon->pen.fillStyle, 1);
  EXPECT_EQ(polygon->pen.joinStyle, 13);
  EXPECT_EQ(+polygon->trailingWord, 1000U);
  EXPECT_EQ(+polygon->subPathCount, 0U);
  EXPECT_FALSE(polygon->subPathSizes);
  const auto parms = page.style<_egf_gdiplus_fillparms_tag>(kStyleFill, polygon->fillParmsNo);
  EXPECT_EQ(parms.startCap, 3);  // closed: caps are not asked for
}

TEST(Polygon, OnePointIsLegal) {
  AdapterPage page;
  std::vector<_svg_point> points = svgPoints({3, 4});
  const OwnedObject object = formatted(page, unstroked(svgPolygon(points)));
  EXPECT_EQ(as<EgfPolygon>(object.get())->pen.modeFlags, 0x02);
  EXPECT_EQ(+as<EgfPolygon>(object.get())->pointCount, 1);
}

TEST(Polygon, OpenFiguresHaveCapsUnlessDashed) {
  struct Row {
    bool closed, dashed;
    int startCap;
  };
  for (const Row& row : {Row{false, false, 1}, Row{false, true, 3}, Row{true, false, 3}}) {
    AdapterPage page;
    std::vector<_svg_point> points = svgPoints({0, 0, 10, 0, 10, 10});
    _svg_polygon element = capped(stroked(svgPolygon(points), kRed), 3);
    element.isClosed = row.closed ? 1 : 0;
    _svg_value dash = pixels(2);
    element.stroke.strokeDashArray = row.dashed ? &dash : nullptr;
    element.stroke.strokeDashCount = row.dashed ? 1 : 0;
    const OwnedObject object = formatted(page, element);
    const auto* polygon = as<EgfPolygon>(object.get());
    EXPECT_EQ(FigureBits::get(polygon->pen.modeFlags), row.closed ? 1U : 0U);
    const auto parms = page.style<_egf_gdiplus_fillparms_tag>(kStyleFill, polygon->fillParmsNo);
    EXPECT_EQ(parms.startCap, row.startCap);
    EXPECT_EQ(parms.endCap, row.startCap);
  }
}

TEST(Points, BoundsStartFromTheRectangle) {
  AdapterPage page;
  _mpl_spacerect_tag box{1, 2, 3, 4};  // left, right, top, bottom
  _mpl_spacept_tag points[] = {{5, -1}, {0, 9}, {1.5F, 3.5F}};
  page->svg_UpdateObjBoundingBox(box, points, 3);
  EXPECT_EQ(+box.left, 0.0F);
  EXPECT_EQ(+box.right, 5.0F);
  EXPECT_EQ(+box.top, -1.0F);
  EXPECT_EQ(+box.bottom, 9.0F);
  page->svg_UpdateObjBoundingBox(box, points, 0);
  EXPECT_EQ(+box.left, 0.0F);
}

TEST(Points, ArraysGrow) {
  AdapterPage page;
  unsigned int count = 0;
  _mpl_spacept_tag some[] = {{1, 2}, {3, 4}};
  _mpl_spacept_tag* points = page->AddNewPointData(nullptr, &count, some, 2);
  ASSERT_NE(points, nullptr);
  points = page->AddNewPointData(points, &count, some, 1);
  EXPECT_EQ(count, 3U);
  EXPECT_EQ(pairOf(points[2]), PointPair(1, 2));
  egfhost::failAllocation(1);
  EXPECT_EQ(page->AddNewPointData(points, &count, some, 1000000), nullptr);
  egfhost::clearFaults();
  EXPECT_EQ(count, 3U);
  EXPECT_EQ(pairOf(points[1]), PointPair(3, 4));
  _mpl_spacept_tag* grown = page->AddNewPointData(points, &count, nullptr, 2);
  ASSERT_NE(grown, nullptr);
  EXPECT_EQ(count, 5U);
  RMM_Free(grown);
}

TEST(Lines, FailuresLeaveNothing) {
  std::vector<_svg_point> points = svgPoints({0, 0, 10, 0, 10, 10});
  const auto sweep = [](auto element) {
    int failures = 0;
    for (std::uint64_t failing = 1; failing < 100; ++failing) {
      AdapterPage page;
      egfhost::failAllocation(failing);
      const OwnedObject object = formatted(page, element);
      const bool struck = egfhost::faultsStruck() != 0;
      egfhost::clearFaults();
      if (object == nullptr) ++failures;
      if (!struck) break;
    }
    return failures;
  };
  EXPECT_EQ(sweep(svgLine(0, 0, 1, 1)), 1);
  EXPECT_EQ(sweep(svgPolyline(points)), 2);
  EXPECT_EQ(sweep(svgPolygon(points)), 2);
}

}  // namespace
}  // namespace egfsvg::test
