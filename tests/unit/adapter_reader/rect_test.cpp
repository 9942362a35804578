#include <gtest/gtest.h>

#include <cstring>

#include "adapter_reader/owners.h"
#include "host/egf_templates.h"
#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

constexpr float kPx = 4096.0F;

using Corners = std::vector<PointPair>;

OwnedObject formatted(AdapterPage& page, _svg_rect element) {
  return OwnedObject(page->SVG_formatEGFRect(&element));
}

void expectPoints(const std::vector<PointPair>& got, const Corners& expected, double within) {
  ASSERT_EQ(got.size(), expected.size());
  for (std::size_t i = 0; i < got.size(); ++i) {
    EXPECT_NEAR(got[i].first, expected[i].first, within) << i;
    EXPECT_NEAR(got[i].second, expected[i].second, within) << i;
  }
}

TEST(Rect, PlainOnesAreBoxes) {
  AdapterPage page;
  const OwnedObject object = formatted(page, unstroked(svgRect(10, 20, 30, 40)));
  ASSERT_NE(object, nullptr);
  const auto* box = as<EgfPolygon>(object.get());
  EXPECT_EQ(object->objClass, 3);
  EXPECT_EQ(pointsOf(box),
            (Corners{{40960, 81920}, {40960, 245760}, {163840, 245760}, {163840, 81920}}));
  EXPECT_EQ(box->pen.fillStyle, 1);
  EXPECT_EQ(box->pen.joinStyle, 13);
  EXPECT_EQ(box->pen.modeFlags, 0x02);
  EXPECT_EQ(box->pen.reserved27, 0);
  EXPECT_EQ(+box->pen.lineStyle, 0U);
  EXPECT_EQ(+box->pen.lineWidth.unit, 0U);
  EXPECT_EQ(+box->pen.lineWidth.value, 0.0);
  EXPECT_EQ(colourWord(box->pen.fillColor), 0x00FFFFFFU);
  EXPECT_EQ(colourWord(box->pen.strokeColor), 0x00FFFFFFU);
  EXPECT_EQ(+box->pen.styleMask, 0x12fU);
  EXPECT_EQ(+box->pen.layerMask, 0xffffU);
  EXPECT_EQ(+box->pen.scaleFactor, 1.0);
  EXPECT_EQ(+box->trailingWord, 1000U);
  EXPECT_FALSE(box->subPathSizes);
  const _mpl_spacerect_tag mer = box->bounds;
  EXPECT_EQ(+mer.left, 40960.0F);
  EXPECT_EQ(+mer.right, 163840.0F);
  EXPECT_EQ(+mer.top, 81920.0F);
  EXPECT_EQ(+mer.bottom, 245760.0F);
  // A shape that is not stroked has a record, for the stroke's alpha.
  const auto parms = page.style<_egf_gdiplus_fillparms_tag>(kStyleFill, box->fillParmsNo);
  EXPECT_EQ(parms.strokeAlpha, 0);
  EXPECT_EQ(parms.fillAlpha, 255);
  EXPECT_EQ(+parms.strokeFillStyle, 0U);
  EXPECT_EQ(+box->fillGradientNo, 0U);
  EXPECT_EQ(+box->strokeGradientNo, 0U);
}

TEST(Rect, APlainObjectWithARoundJoinNeedsNoRecord) {
  AdapterPage page;
  _svg_rect element = stroked(filled(svgRect(0, 0, 1, 1), kRed), kBlue);
  element.stroke.strokeLinejoin = 2;
  const OwnedObject object = formatted(page, element);
  const auto* box = as<EgfPolygon>(object.get());
  EXPECT_EQ(+box->fillParmsNo, 0U);
  EXPECT_EQ(box->pen.joinStyle, 0);
  EXPECT_EQ(+box->pen.lineWidth.value, 1.0);
  EXPECT_EQ(colourWord(box->pen.fillColor), 0x00FF0000U);
  EXPECT_EQ(colourWord(box->pen.strokeColor), 0x000000FFU);
}

TEST(Rect, JoinsPutTheMiterLimitInTheRecord) {
  struct Row {
    int linejoin;
    int joinStyle;
  };
  for (const Row& row : {Row{1, 13}, Row{3, 11}}) {
    AdapterPage page;
    _svg_rect element = stroked(svgRect(0, 0, 1, 1), kBlue);
    element.stroke.strokeLinejoin = row.linejoin;
    element.stroke.strokeMiterlimit = 9;
    const OwnedObject object = formatted(page, element);
    const auto* box = as<EgfPolygon>(object.get());
    EXPECT_EQ(box->pen.joinStyle, row.joinStyle);
    const auto parms = page.style<_egf_gdiplus_fillparms_tag>(kStyleFill, box->fillParmsNo);
    _egf_gdiplus_fillparms_tag expected = kFillParms;
    expected.miterLimit = 9.0F;
    // Made by the join alone, after the stroke's code was stored: the template's code stays.
    EXPECT_EQ(std::memcmp(&parms, &expected, sizeof parms), 0);
  }
}

TEST(Rect, OpacitiesMultiplyIntoTheRecord) {
  AdapterPage page;
  _svg_rect element = unstroked(filled(svgRect(0, 0, 1, 1), kRed));
  element.fill.fillOpacity = 0.5;
  element.graphics.opacity = 0.5;
  const OwnedObject object = formatted(page, element);
  const auto* box = as<EgfPolygon>(object.get());
  EXPECT_EQ(box->pen.fillStyle, 3);
  const auto parms = page.style<_egf_gdiplus_fillparms_tag>(kStyleFill, box->fillParmsNo);
  EXPECT_EQ(parms.fillAlpha, 63);  // 0.25 * 255 = 63.75
  EXPECT_EQ(parms.strokeAlpha, 0);
}

TEST(Rect, TheFillRuleIsTheLowestModeBit) {
  AdapterPage page;
  _svg_rect element = unstroked(svgRect(0, 0, 1, 1));
  element.fill.fillRule = 2;
  EXPECT_EQ(as<EgfPolygon>(formatted(page, element).get())->pen.modeFlags, 0x03);
}

TEST(Rect, BoxesAreMappedPointByPoint) {
  AdapterPage page;
  Transforms moved = Transforms().translate(5, 6);
  const OwnedObject box = formatted(page, moved.on(unstroked(svgRect(10, 20, 30, 40))));
  EXPECT_EQ(pointsOf(as<EgfPolygon>(box.get())),
            (Corners{{61440, 106496}, {61440, 270336}, {184320, 270336}, {184320, 106496}}));
  Transforms turned = Transforms().rotate(90);
  const OwnedObject quad = formatted(page, turned.on(unstroked(svgRect(0, 0, 2, 1))));
  EXPECT_EQ(quad->objClass, 3);
  expectPoints(pointsOf(as<EgfPolygon>(quad.get())),
               {{0, 0}, {-kPx, 0}, {-kPx, 2 * kPx}, {0, 2 * kPx}}, 0.01);
}

TEST(Rect, HiddenOnesAreNotBuilt) {
  AdapterPage page;
  _svg_rect element = svgRect(0, 0, 1, 1);
  element.graphics.visibility = kHidden;
  EXPECT_EQ(formatted(page, element), nullptr);
  element.graphics.visibility = kCollapse;
  EXPECT_NE(formatted(page, element), nullptr);
}

struct ArcRow {
  PointPair center;  // pixels
  int start, end;    // degrees
};

void expectArcs(const _egf_obj* path, const ArcRow (&rows)[4], PointPair radii) {
  EXPECT_EQ(path->objClass, 33);
  EXPECT_EQ(+as<EgfPath>(path)->pathKind, 1U);
  const std::vector<_egf_obj*> arcs = AdapterPage::children(const_cast<_egf_obj*>(path));
  ASSERT_EQ(arcs.size(), 4U);
  for (int i = 0; i < 4; ++i) {
    const auto* arc = as<EgfArc>(arcs[static_cast<std::size_t>(i)]);
    EXPECT_EQ(arc->head.objClass, 4);
    EXPECT_EQ(pairOf(arc->center),
              PointPair(rows[i].center.first * kPx, rows[i].center.second * kPx))
        << i;
    EXPECT_EQ(pairOf(arc->radiusPt), radii) << i;
    EXPECT_EQ(+arc->startAngle, rows[i].start * 1000000) << i;
    EXPECT_EQ(+arc->endAngle, rows[i].end * 1000000) << i;
    EXPECT_EQ(arc->pen.arcFlags & 0x0C, 0) << i;
    EXPECT_EQ(arc->pen.arcFlags & 0x03, 1) << i;
    EXPECT_EQ(+arc->pen.hostWord22, 0xffffU);
    EXPECT_EQ(colourWord(arc->pen.strokeColor), 0xFFFFFFU);
    EXPECT_EQ(+arc->pen.reserved24, 0.0);
  }
}

TEST(Rect, RoundCornersAreArcs) {
  AdapterPage page;
  const OwnedObject path = formatted(page, unstroked(svgRect(0, 0, 100, 50, 10, 10)));
  expectArcs(path.get(),
             {{{10, 10}, 90, 180}, {{10, 40}, 180, 270}, {{90, 40}, 270, 360}, {{90, 10}, 0, 90}},
             {40960, 40960});
}

TEST(Rect, RoundCornersMoveAndScaleAsArcs) {
  AdapterPage page;
  Transforms scaled = Transforms().scale(2, 3);
  const OwnedObject path = formatted(page, scaled.on(unstroked(svgRect(0, 0, 100, 50, 10, 10))));
  expectArcs(
      path.get(),
      {{{20, 30}, 90, 180}, {{20, 120}, 180, 270}, {{180, 120}, 270, 360}, {{180, 30}, 0, 90}},
      {81920, 122880});
  Transforms moved = Transforms().translate(1, 2);
  const OwnedObject other = formatted(page, moved.on(unstroked(svgRect(0, 0, 100, 50, 10, 10))));
  expectArcs(other.get(),
             {{{11, 12}, 90, 180}, {{11, 42}, 180, 270}, {{91, 42}, 270, 360}, {{91, 12}, 0, 90}},
             {40960, 40960});
}

TEST(Rect, RadiiAreClampedEachByItsOwnSide) {
  struct Row {
    double rx, ry;
    PointPair radii;  // space units
  };
  constexpr Row kRows[] = {
      {60, 60, {204800, 40960}}, {60, 5, {204800, 20480}}, {5, 0, {20480, 0}}, {0, 5, {0, 20480}}};
  for (const Row& row : kRows) {
    AdapterPage page;
    const OwnedObject path = formatted(page, unstroked(svgRect(0, 0, 100, 20, row.rx, row.ry)));
    ASSERT_EQ(path->objClass, 33);
    const std::vector<_egf_obj*> arcs = AdapterPage::children(path.get());
    ASSERT_EQ(arcs.size(), 4U);
    EXPECT_EQ(pairOf(as<EgfArc>(arcs[0])->radiusPt), row.radii);
  }
}

TEST(Rect, TurnedRoundCornersAreCurves) {
  struct Row {
    std::uint32_t trueCurves;
    float inner;  // how far the control points stand off the corner's sides
  };
  for (const Row& row : {Row{0, 23993.81F}, Row{1, 18338.42F}}) {
    AdapterPage page;
    egfhost::setSetting("trueCurves", row.trueCurves);
    Transforms turned = Transforms().rotate(90);
    const OwnedObject path = formatted(page, turned.on(unstroked(svgRect(0, 0, 100, 50, 10, 10))));
    ASSERT_EQ(path->objClass, 33);
    EXPECT_EQ(+as<EgfPath>(path.get())->pathKind, 1U);
    const std::vector<_egf_obj*> curves = AdapterPage::children(path.get());
    ASSERT_EQ(curves.size(), 4U);
    for (const _egf_obj* child : curves) {
      const auto* curve = as<EgfPolygon>(child);
      EXPECT_EQ(child->objClass, 9);
      EXPECT_EQ(curve->pen.modeFlags, 0x08);
      EXPECT_EQ(+curve->pointCount, 4);
    }
    expectPoints(pointsOf(as<EgfPolygon>(curves[0])),
                 {{0, 40960}, {0, row.inner}, {-row.inner, 0}, {-40960, 0}}, 0.02);
    // The other three begin where the table says: in pixels before the turn, (0,40), (90,50) and
    // (100,10).
    constexpr PointPair kStarts[] = {{-40 * kPx, 0}, {-50 * kPx, 90 * kPx}, {-10 * kPx, 100 * kPx}};
    for (std::size_t i = 1; i < 4; ++i) {
      const PointPair start = pointsOf(as<EgfPolygon>(curves[i])).front();
      EXPECT_NEAR(start.first, kStarts[i - 1].first, 0.1) << i;
      EXPECT_NEAR(start.second, kStarts[i - 1].second, 0.1) << i;
    }
  }
}

TEST(Rect, ShearedRoundCornersAreCurves) {
  AdapterPage page;
  Transforms sheared = Transforms().skewX(-30);
  const OwnedObject path = formatted(page, sheared.on(unstroked(svgRect(0, 0, 100, 50, 10, 10))));
  EXPECT_EQ(AdapterPage::children(path.get())[0]->objClass, 9);
}

TEST(Rect, APathsPenAndRecordAreAlwaysThere) {
  AdapterPage page;
  _svg_rect element = stroked(filled(svgRect(0, 0, 100, 50, 10, 10), kRed), kBlue, 2.0);
  element.stroke.strokeLinejoin = 2;
  const OwnedObject object = formatted(page, element);
  const auto* path = as<EgfPath>(object.get());
  const auto pen = page.style<_egf_gdi_fillparms_tag>(kStylePen, path->gdiFillStyleNo);
  _egf_gdi_fillparms_tag expected = kPolygonPen;
  expected.lineWidth.value = 2.0;
  expected.strokeColor = colourOf(0x0000FF);
  expected.fillColor = colourOf(0xFF0000);
  expected.fillStyle = 1;
  expected.modeFlags = 2;
  expected.scaleFactor = 1.0;
  EXPECT_EQ(std::memcmp(&pen, &expected, sizeof pen), 0);
  const auto parms = page.style<_egf_gdiplus_fillparms_tag>(kStyleFill, path->fillParmsNo);
  EXPECT_EQ(std::memcmp(&parms, &kFillParms, sizeof parms), 0);  // its stroke code is 1
}

TEST(Rect, EqualPaintsShareTheirNumbers) {
  AdapterPage page;
  std::uint32_t number = 0;
  for (int i = 0; i < 1000; ++i) {
    const OwnedObject object = formatted(page, unstroked(svgRect(i, 0, 1, 1)));
    const std::uint32_t its = as<EgfPolygon>(object.get())->fillParmsNo;
    if (i == 0) number = its;
    ASSERT_EQ(its, number);
  }
  EXPECT_EQ(STYLE_QueryTotalStyleCount(ISL_GetProperty(page.document(), kStyleFill)), 1U);
}

// Two paints in turn: what the page remembers of the last record gives way each time.
TEST(Rect, PaintsInTurnKeepTheirNumbers) {
  AdapterPage page;
  for (int i = 0; i < 10; ++i) {
    _svg_rect element = unstroked(svgRect(0, 0, 1, 1));
    element.fill.fillOpacity = i % 2 == 0 ? 0.5 : 0.25;
    const OwnedObject object = formatted(page, element);
    const auto parms = page.style<_egf_gdiplus_fillparms_tag>(
        kStyleFill, as<EgfPolygon>(object.get())->fillParmsNo);
    EXPECT_EQ(parms.fillAlpha, i % 2 == 0 ? 127 : 63);
  }
  EXPECT_EQ(STYLE_QueryTotalStyleCount(ISL_GetProperty(page.document(), kStyleFill)), 2U);
}

TEST(Rect, DashesAndWidthAtAnotherResolution) {
  AdapterPage page(192.0);
  _svg_rect element = stroked(svgRect(0, 0, 1, 1), kBlue, 3.0);
  _svg_value dashes[] = {pixels(5), pixels(3)};
  element.stroke.strokeDashArray = dashes;
  element.stroke.strokeDashCount = 2;
  const OwnedObject object = formatted(page, element);
  const auto* box = as<EgfPolygon>(object.get());
  EXPECT_EQ(+box->pen.lineWidth.value, 6.0);
  const auto* record =
      EGF_GetDashRecordByStyle(page.pageHeader()->firstDash.offset, box->pen.lineStyle);
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(+record->segments[0], 10.0);
  EXPECT_EQ(pairOf(box->points[2]), PointPair(8192.0F, 8192.0F));
}

// A singular matrix has no scale: the arcs have no size.
TEST(Rect, ASingularMatrixGivesArcsWithoutSize) {
  AdapterPage page;
  Transforms flat = Transforms().matrix(1, 2, 2, 4, 0, 0);
  const OwnedObject path = formatted(page, flat.on(unstroked(svgRect(0, 0, 100, 50, 10, 10))));
  const std::vector<_egf_obj*> arcs = AdapterPage::children(path.get());
  ASSERT_EQ(arcs.size(), 4U);
  EXPECT_EQ(pairOf(as<EgfArc>(arcs[0])->radiusPt), PointPair(0.0F, 0.0F));
}

TEST(Rect, FailuresLeaveNothing) {
  Transforms turned = Transforms().rotate(90);
  for (const bool round : {false, true}) {
    for (const bool turn : {false, true}) {
      int failures = 0;
      for (std::uint64_t failing = 1; failing < 100; ++failing) {
        AdapterPage page;
        _svg_rect element = unstroked(svgRect(0, 0, 100, 50, round ? 10 : 0, round ? 10 : 0));
        if (turn) element = turned.on(element);
        egfhost::failAllocation(failing);
        const OwnedObject object = formatted(page, element);
        const bool struck = egfhost::faultsStruck() != 0;
        egfhost::clearFaults();
        if (object == nullptr) ++failures;
        if (!struck) break;
      }
      EXPECT_GE(failures, round ? 3 : 2);
    }
  }
  EXPECT_GE(egfhost::countMessages(kMessageOutOfMemory), 4U);
}

}  // namespace
}  // namespace egfsvg::test
