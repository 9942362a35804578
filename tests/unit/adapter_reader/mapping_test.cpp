#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "adapter_reader/owners.h"
#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

using Rows = std::array<std::array<double, 3>, 3>;

constexpr Rows kIdentity{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

Rows rowsOf(const _transformMatrix& matrix) {
  Rows rows;
  for (int i = 0; i < 3; ++i) {
    for (int k = 0; k < 3; ++k) rows[i][k] = matrix.m[i][k];
  }
  return rows;
}

void expectRows(const _transformMatrix& matrix, const Rows& expected) {
  for (int i = 0; i < 3; ++i) {
    for (int k = 0; k < 3; ++k) EXPECT_NEAR(matrix.m[i][k], expected[i][k], 1e-9) << i << k;
  }
}

Rows mapOf(AdapterPage& page, Transforms& transforms) {
  _svg_common head;
  initSVGCommon(&head);
  transforms.put(head);
  const MapOwner map(page.adapter(), page->_findMapMatrix(&head, nullptr, nullptr));
  return rowsOf(map.get()->matrix);
}

TEST(Mapping, EachFunctionIsOneMatrix) {
  struct Row {
    const char* name;
    Transforms transforms;
    double dotsPerInch;
    Rows expected;
  };
  // sin and cos of 30 degrees, tan of 30 degrees
  constexpr double s = 0.5;
  constexpr double c = 0.86602540378443864676;
  constexpr double t = 0.57735026918962576451;
  Row rows[] = {
      {"none", Transforms(), 96, kIdentity},
      {"translate", Transforms().translate(10, 5), 96, {{{1, 0, 10}, {0, 1, 5}, {0, 0, 1}}}},
      {"at 192", Transforms().translate(10), 192, {{{1, 0, 20}, {0, 1, 0}, {0, 0, 1}}}},
      {"scale", Transforms().scale(2, 3), 192, {{{2, 0, 0}, {0, 3, 0}, {0, 0, 1}}}},
      {"rotate", Transforms().rotate(30), 96, {{{c, -s, 0}, {s, c, 0}, {0, 0, 1}}}},
      {"about", Transforms().rotate(90, 50, 50), 96, {{{0, -1, 100}, {1, 0, 0}, {0, 0, 1}}}},
      {"skewX", Transforms().skewX(30), 96, {{{1, t, 0}, {0, 1, 0}, {0, 0, 1}}}},
      {"skewY", Transforms().skewY(30), 96, {{{1, 0, 0}, {t, 1, 0}, {0, 0, 1}}}},
      {"matrix", Transforms().matrix(1, 2, 3, 4, 5, 6), 96, {{{1, 3, 5}, {2, 4, 6}, {0, 0, 1}}}},
      {"matrix at 192",
       Transforms().matrix(1, 2, 3, 4, 5, 6),
       192,
       {{{1, 3, 10}, {2, 4, 12}, {0, 0, 1}}}},
      {"left to right",
       Transforms().translate(10, 20).scale(2, 3),
       96,
       {{{2, 0, 10}, {0, 3, 20}, {0, 0, 1}}}},
      {"right to left",
       Transforms().scale(2, 3).translate(10, 20),
       96,
       {{{2, 0, 20}, {0, 3, 60}, {0, 0, 1}}}},
      {"unknown kind",
       Transforms().scale(2, 3).add(7, {pixels(9)}),
       96,
       {{{2, 0, 0}, {0, 3, 0}, {0, 0, 1}}}},
      {"no arguments", Transforms().add(kScale, {}).add(kMatrix, {pixels(9)}), 96, kIdentity},
  };
  for (Row& row : rows) {
    SCOPED_TRACE(row.name);
    AdapterPage page(row.dotsPerInch);
    const Rows got = mapOf(page, row.transforms);
    for (int i = 0; i < 3; ++i) {
      for (int k = 0; k < 3; ++k) EXPECT_NEAR(got[i][k], row.expected[i][k], 1e-7) << i << k;
    }
  }
}

TEST(Mapping, PercentagesOfATranslationTakeTheirPlacesAxis) {
  AdapterPage page;
  page->viewportWidth = 200.0F * 4096.0F;
  page->viewportHeight = 100.0F * 4096.0F;
  Transforms moved;
  moved.add(kTranslate, {percent(10), percent(10)});
  EXPECT_EQ(mapOf(page, moved)[0][2], 20.0);
  EXPECT_EQ(mapOf(page, moved)[1][2], 10.0);
  Transforms turned;  // half a turn about (20, 10)
  turned.add(kRotate, {{kUnitDegree, 180, 0}, percent(10), percent(10)});
  EXPECT_NEAR(mapOf(page, turned)[0][2], 40.0, 1e-7);
  EXPECT_NEAR(mapOf(page, turned)[1][2], 20.0, 1e-7);
  page->viewportWidth = 400.0F * 4096.0F;  // what was kept for the same list holds no more
  EXPECT_EQ(mapOf(page, moved)[0][2], 40.0);
}

// Lists that share their head with the one before, shorter ones, longer ones, equal ones.
TEST(Mapping, TheProductDoesNotDependOnTheListBefore) {
  Transforms lists[] = {
      Transforms().translate(1, 2).rotate(30).scale(2, 2),
      Transforms().translate(1, 2).rotate(30).scale(2, 3),
      Transforms().translate(1, 2),
      Transforms().translate(1, 2).rotate(30).scale(2, 2).skewX(10),
      Transforms().translate(1, 2).rotate(31).scale(2, 2).skewX(10),
      Transforms().rotate(30),
      Transforms().translate(1, 2).rotate(30, 0, 1),
      Transforms().add(kTranslate, {pixels(1), {kUnitPoint, 2, 0}}),
      Transforms(),
      Transforms().add(
          kScale, {pixels(1), pixels(2), pixels(3), pixels(4), pixels(5), pixels(6), pixels(7)}),
      Transforms().matrix(1, 2, 3, 4, 5, 6).matrix(1, 2, 3, 4, 5, 7),
  };
  AdapterPage page;
  for (Transforms& before : lists) {
    for (Transforms& list : lists) {
      mapOf(page, before);
      const Rows kept = mapOf(page, list);
      AdapterPage fresh;
      EXPECT_EQ(kept, mapOf(fresh, list));
    }
  }
}

// An element's paint may multiply into its map, or go through a list of its own; the next element
// finds its matrices all the same.
TEST(Mapping, TheNextElementFindsItsOwnMatrices) {
  Transforms lists[] = {Transforms(), Transforms().translate(1, 2).rotate(30),
                        Transforms().translate(1, 3).rotate(30), Transforms().translate(0, 0),
                        Transforms().translate(-0.0, 0).scale(-1, 1)};
  for (Transforms& list : lists) {
    for (Transforms& between : lists) {
      AdapterPage page;
      const Rows expected = mapOf(page, list);
      _svg_common head;
      initSVGCommon(&head);
      list.put(head);
      {
        const MapOwner map(page.adapter(), page->_findMapMatrix(&head, nullptr, nullptr));
        _transformMatrix box{{{7, 0, 1}, {0, 9, 2}, {0, 0, 1}}};
        page->MultMatrix(&map.get()->matrix, &box);
      }
      EXPECT_EQ(mapOf(page, list), expected);
      _svg_common other;
      initSVGCommon(&other);
      between.put(other);
      _userSpace space{};
      space.transforms = other.transforms;
      space.transformCount = other.transformCount;
      page->_svgUserSpaceMatrix(&space);
      EXPECT_EQ(mapOf(page, list), expected);
      AdapterPage fresh;
      EXPECT_EQ(mapOf(page, between), mapOf(fresh, between));
    }
  }
}

TEST(Mapping, ListsOfInfiniteNumbersSpoilTheWholeMatrix) {
  AdapterPage page;
  Transforms list;
  list.translate(std::numeric_limits<double>::infinity(), 0).scale(2, 3);
  for (int round = 0; round < 2; ++round) {
    for (const auto& row : mapOf(page, list)) {
      for (const double number : row) EXPECT_TRUE(std::isnan(number));
    }
  }
}

TEST(Mapping, PointsAreMappedInSpaceUnits) {
  struct Row {
    Transforms transforms;
    _mpl_spacept_tag point;
    _mpl_spacept_tag expected;
  };
  Row rows[] = {
      {Transforms().matrix(1, 2, 3, 4, 5, 6), {4096, 8192}, {49152, 65536}},
      {Transforms().rotate(90, 50, 50), {0, 0}, {409600, 0}},
      {Transforms().rotate(90, 50, 50), {409600, 0}, {409600, 409600}},
      {Transforms(), {-3, 7}, {-3, 7}},
  };
  AdapterPage page;
  for (Row& row : rows) {
    _svg_common head;
    initSVGCommon(&head);
    row.transforms.put(head);
    const MapOwner map(page.adapter(), page->_findMapMatrix(&head, nullptr, nullptr));
    page->_transformPoint(&row.point, map.get());
    EXPECT_NEAR(+row.point.x, +row.expected.x, 0.01);
    EXPECT_NEAR(+row.point.y, +row.expected.y, 0.01);
  }
}

TEST(Mapping, AMapKeepsItsParts) {
  AdapterPage page;
  _svg_common head;
  initSVGCommon(&head);
  Transforms transforms;
  transforms.scale(2, 3);
  transforms.put(head);
  _svg_viewbox box = svgViewBox(1, 2, 3, 4);
  const MapOwner map(page.adapter(), page->_findMapMatrix(&head, &box, nullptr));
  ASSERT_TRUE(map);
  EXPECT_EQ(map.get()->viewBox->box, &box);
  EXPECT_EQ(rowsOf(map.get()->viewBox->matrix), kIdentity);
  EXPECT_EQ(map.get()->userSpace->transforms, transforms.entries());
  EXPECT_EQ(map.get()->userSpace->transformCount, 1);
  expectRows(map.get()->userSpace->matrix, {{{2, 0, 0}, {0, 3, 0}, {0, 0, 1}}});
  expectRows(map.get()->matrix, {{{2, 0, 0}, {0, 3, 0}, {0, 0, 1}}});
}

TEST(Mapping, ANamedViewportLeavesTheMatrixZero) {
  AdapterPage page;
  _svg_common head;
  initSVGCommon(&head);
  _svg_pa_viewports ports;
  initViewports(&ports);
  Transforms transforms;
  transforms.scale(2, 3);
  transforms.put(head);
  const MapOwner map(page.adapter(), page->_findMapMatrix(&head, nullptr, &ports));
  EXPECT_EQ(rowsOf(map.get()->matrix), Rows{});
}

TEST(Mapping, MatricesMultiplyInOrder) {
  AdapterPage page;
  _transformMatrix a{{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};
  _transformMatrix b{{{1, 0, 2}, {0, 3, 0}, {4, 0, 1}}};
  page->MultMatrix(&a, &b);
  EXPECT_EQ(rowsOf(a), (Rows{{{13, 6, 5}, {28, 15, 14}, {43, 24, 23}}}));
  page->InitMatrix(a);
  EXPECT_EQ(rowsOf(a), Rows{});
}

// The adapter's own block serves one map; a second one at the same time is memory of the host.
TEST(Mapping, SeveralMapsAtATime) {
  AdapterPage page;
  _svg_common head;
  initSVGCommon(&head);
  const std::uint64_t before = egfhost::memoryCounters().liveBlocks;
  _viewPortMap* first = page->_findMapMatrix(&head, nullptr, nullptr);
  EXPECT_EQ(egfhost::memoryCounters().liveBlocks, before);
  _viewPortMap* second = page->_findMapMatrix(&head, nullptr, nullptr);
  EXPECT_EQ(egfhost::memoryCounters().liveBlocks, before + 3);
  EXPECT_NE(first, second);
  page->_freeMapMatrix(first);
  page->_freeMapMatrix(second);
  page->_freeMapMatrix(nullptr);
  EXPECT_EQ(egfhost::memoryCounters().liveBlocks, before);
  EXPECT_EQ(page->_findMapMatrix(&head, nullptr, nullptr), first);
  for (int failing = 1; failing <= 3; ++failing) {
    egfhost::failAllocation(static_cast<std::uint64_t>(failing));
    EXPECT_EQ(page->_findMapMatrix(&head, nullptr, nullptr), nullptr) << failing;
    egfhost::clearFaults();
  }
  page->_freeMapMatrix(first);
}

// Without memory for what is kept between lists, the products are the same.
TEST(Mapping, WorksWithoutMemory) {
  AdapterPage page;
  Transforms transforms;
  transforms.translate(1, 2).scale(2, 3);
  egfhost::failAllocation(1, egfhost::FaultSpan::kForEver);
  const Rows first = mapOf(page, transforms);
  const Rows second = mapOf(page, transforms);
  egfhost::clearFaults();
  EXPECT_EQ(first, (Rows{{{2, 0, 1}, {0, 3, 2}, {0, 0, 1}}}));
  EXPECT_EQ(second, first);
}

// While the adapter's own block is out, a map is memory of the host: without it boxes, lines and
// polygons are drawn where they stand, and an ellipse is not drawn.
TEST(Mapping, ShapesWithoutAMapStayWhereTheyAre) {
  AdapterPage page;
  _svg_common head;
  initSVGCommon(&head);
  const MapOwner taken(page.adapter(), page->_findMapMatrix(&head, nullptr, nullptr));
  Transforms scaled = Transforms().scale(2, 3);
  std::vector<_svg_point> points = svgPoints({1, 1, 2, 1});
  _svg_viewbox box = svgViewBox(1, 1, 2, 2);
  _svg_rect rect = scaled.on(svgRect(1, 1, 4, 4));
  _svg_rect round = scaled.on(svgRect(0, 0, 4, 4, 1, 1));
  _svg_line line = scaled.on(svgLine(1, 1, 2, 2));
  _svg_polyline polyline = scaled.on(svgPolyline(points));
  _svg_polygon polygon = scaled.on(svgPolygon(points));
  _svg_circle circle = scaled.on(svgCircle(1, 1, 1));
  _svg_svg svg = scaled.on(svgElement(9, 9, &box));
  // The place that is drawn, (1, 1) or nothing, when the n-th allocation fails.
  const auto placeOf = [&](std::uint64_t failing, auto format) -> PointPair {
    egfhost::failAllocation(failing);
    const OwnedObject object(format());
    EXPECT_EQ(egfhost::faultsStruck(), 1U);
    egfhost::clearFaults();
    if (object == nullptr) return {};
    if (object->objClass == kClassLine) return pairOf(as<EgfLine>(object.get())->startPt);
    if (object->objClass == kClassPolyline) {
      return pairOf(as<EgfPolyline>(object.get())->points[0]);
    }
    if (object->objClass == kClassPath) {
      return pairOf(as<EgfArc>(AdapterPage::children(object.get())[0])->radiusPt);
    }
    return pairOf(as<EgfPolygon>(object.get())->points[0]);
  };
  const PointPair here(4096.0F, 4096.0F);
  for (std::uint64_t part = 1; part <= 3; ++part) {  // of a map
    SCOPED_TRACE(part);
    EXPECT_EQ(placeOf(part, [&] { return page->SVG_formatEGFRect(&rect); }), here);
    EXPECT_EQ(placeOf(part, [&] { return page->SVG_formatEGFRect(&round); }), here);
    EXPECT_EQ(placeOf(part, [&] { return page->SVG_formatEGFPolyline(&polyline); }), here);
    EXPECT_EQ(placeOf(part, [&] { return page->SVG_formatEGFPolygon(&polygon); }), here);
    EXPECT_EQ(placeOf(part + 1, [&] { return page->SVG_formatEGFLine(&line); }), here);
    EXPECT_EQ(placeOf(part + 2, [&] { return page->SVG_ViewPortCreate(&svg, 0); }), here);
    EXPECT_EQ(placeOf(part + 1, [&] { return page->SVG_formatEGFCircle(&circle); }), PointPair());
  }
}

}  // namespace
}  // namespace egfsvg::test
