#include <gtest/gtest.h>

#include <cmath>

#include "host/egf_templates.h"
#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

constexpr double kPx = 4096.0;

OwnedObject formatted(AdapterPage& page, _svg_circle element) {
  return OwnedObject(page->SVG_formatEGFCircle(&element));
}
OwnedObject formatted(AdapterPage& page, _svg_ellipse element) {
  return OwnedObject(page->SVG_formatEGFEllipse(&element));
}

_svg_circle redCircle() { return unstroked(filled(svgCircle(50, 50, 10), kRed)); }

TEST(Ellipse, Circles) {
  AdapterPage page;
  const OwnedObject object = formatted(page, redCircle());
  const auto* ellipse = as<EgfEllipse>(object.get());
  EXPECT_EQ(object->objClass, 6);
  EXPECT_EQ(pairOf(ellipse->center), PointPair(204800, 204800));
  EXPECT_EQ(pairOf(ellipse->radiusPt), PointPair(245760, 245760));
  EXPECT_EQ(+ellipse->startAngle, 0);
  EXPECT_EQ(+ellipse->endAngle, 360000000);
  EXPECT_EQ(+ellipse->pen.ellipseRotation, 0);
  EXPECT_EQ(+ellipse->pen.scaleFactor, 1.0);
  EXPECT_EQ(ellipse->pen.fillStyle, 1);
  EXPECT_EQ(ellipse->pen.joinStyle, 0);
  EXPECT_EQ(ellipse->pen.modeFlags, 0);
  EXPECT_EQ(+ellipse->pen.styleMask, 0x12fU);
  EXPECT_EQ(+ellipse->pen.layerMask, 0xffffU);
  EXPECT_EQ(colourWord(ellipse->pen.fillColor), 0xFF0000U);
  EXPECT_EQ(colourWord(ellipse->pen.strokeColor), 0xFF0000U);
  ASSERT_NE(+ellipse->fillParmsNo, 0U);
  const auto parms = page.style<_egf_gdiplus_fillparms_tag>(kStyleFill, ellipse->fillParmsNo);
  EXPECT_EQ(parms.strokeAlpha, 0);
  EXPECT_EQ(+parms.miterLimit, 10.0F);  // ellipses have no joins
  EXPECT_EQ(+parms.strokeFillStyle, 0U);
}

TEST(Ellipse, RadiiOfTheirOwn) {
  AdapterPage page;
  const OwnedObject object = formatted(page, svgEllipse(50, 50, 20, 10));
  EXPECT_EQ(pairOf(as<EgfEllipse>(object.get())->radiusPt), PointPair(286720, 245760));
}

struct MapRow {
  const char* name;
  Transforms transforms;
  int objClass;
  PointPair center;  // space units
  PointPair radii;   // off the centre
  int rotation;      // millionths of a degree
};

TEST(Ellipse, MapsMoveScaleAndTurnIt) {
  MapRow rows[] = {
      {"scale", Transforms().scale(2, 3), 6, {409600, 614400}, {81920, 122880}, 0},
      {"rotate", Transforms().rotate(30), 6, {74962, 279762}, {40960, 40960}, -30000000},
      {"back", Transforms().rotate(-30), 6, {279762, 74962}, {40960, 40960}, 30000000},
      {"45", Transforms().rotate(45), 6, {0, 289630.9F}, {40960, 40960}, -45000000},
      {"skewX(-30)", Transforms().skewX(-30), 6, {86558.67F, 204800}, {40960, 40960}, 0},
      {"half a turn",
       Transforms().matrix(-1, 0, 0, -1, 0, 0),
       6,
       {-204800, -204800},
       {40960, 40960},
       -180000000},
      // a mirror in y: half a turn and a negative scale in x
      {"mirror", Transforms().scale(1, -1), 6, {204800, -204800}, {-40960, 40960}, -180000000},
      {"singular", Transforms().matrix(1, 2, 2, 4, 0, 0), 6, {614400, 1228800}, {0, 0}, 0},
  };
  for (MapRow& row : rows) {
    SCOPED_TRACE(row.name);
    AdapterPage page;
    const OwnedObject object = formatted(page, row.transforms.on(redCircle()));
    ASSERT_EQ(object->objClass, row.objClass);
    const auto* ellipse = as<EgfEllipse>(object.get());
    EXPECT_NEAR(+ellipse->center.x, row.center.first, 1.0);
    EXPECT_NEAR(+ellipse->center.y, row.center.second, 1.0);
    EXPECT_NEAR(ellipse->radiusPt.x - ellipse->center.x, row.radii.first, 0.1);
    EXPECT_NEAR(ellipse->radiusPt.y - ellipse->center.y, row.radii.second, 0.1);
    // Half a turn by atan2 is the true pi, a little off the adapter's own.
    EXPECT_NEAR(+ellipse->pen.ellipseRotation, row.rotation, row.rotation == -180000000 ? 1 : 0);
  }
}

TEST(Ellipse, WholeDegreesStayWhole) {
  for (int degrees = -179; degrees < 180; ++degrees) {
    AdapterPage page;
    Transforms turned = Transforms().rotate(degrees);
    const OwnedObject object = formatted(page, turned.on(redCircle()));
    EXPECT_EQ(+as<EgfEllipse>(object.get())->pen.ellipseRotation, -degrees * 1000000);
  }
}

TEST(Ellipse, APositiveShearMakesAPolygon) {
  Transforms shears[] = {Transforms().skewX(30), Transforms().skewY(30)};
  for (Transforms& shear : shears) {
    AdapterPage page;
    const OwnedObject object = formatted(page, shear.on(redCircle()));
    ASSERT_EQ(object->objClass, 9);
    const auto* polygon = as<EgfPolygon>(object.get());
    EXPECT_GE(+polygon->pointCount, 16);
    EXPECT_EQ(FigureBits::get(polygon->pen.modeFlags), 1U);
    EXPECT_EQ(polygon->pen.fillStyle, 1);
    EXPECT_EQ(colourWord(polygon->pen.fillColor), 0xFF0000U);
    EXPECT_EQ(+polygon->pen.scaleFactor, 1.0);
    EXPECT_NE(+polygon->fillParmsNo, 0U);
    EXPECT_EQ(+polygon->strokeGradientNo, 0U);
    // Each point, taken back through the shear, lies on the circle.
    const double t = 0.57735026918962576451;
    const bool alongX = &shear == &shears[0];
    for (const auto& [x, y] : pointsOf(polygon)) {
      const double ux = alongX ? x - t * y : x;
      const double uy = alongX ? y : y - t * x;
      EXPECT_NEAR(std::hypot(ux - 50 * kPx, uy - 50 * kPx), 10 * kPx, 2.0);
    }
    const _mpl_spacerect_tag mer = polygon->bounds;
    EXPECT_GT(mer.right - mer.left, 80000.0F);
  }
}

TEST(Ellipse, BoundsFollowTheMappedEllipse) {
  AdapterPage page;
  Transforms turned = Transforms().translate(100, 0).rotate(90);
  _svg_ellipse element = unstroked(svgEllipse(0, 0, 20, 10));
  const OwnedObject object = formatted(page, turned.on(element));
  _mpl_spacerect_tag mer{};
  ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, page->map), 0);
  EXPECT_NEAR(+mer.left, 90 * kPx, 5);
  EXPECT_NEAR(+mer.right, 110 * kPx, 5);
  EXPECT_NEAR(+mer.top, -20 * kPx, 5);
  EXPECT_NEAR(+mer.bottom, 20 * kPx, 5);
}

TEST(Ellipse, HiddenOnesAreNotBuilt) {
  AdapterPage page;
  _svg_circle element = redCircle();
  element.graphics.visibility = kHidden;
  EXPECT_EQ(formatted(page, element), nullptr);
}

TEST(Ellipse, PercentRadiiTakeTheDiagonal) {
  AdapterPage page;
  page->viewportWidth = 200.0F * 4096.0F;
  page->viewportHeight = 100.0F * 4096.0F;
  _svg_circle element = redCircle();
  element.r = percent(10);
  const OwnedObject object = formatted(page, element);
  // sqrt((200² + 100²) / 2) / 10 = 15.8113883 pixels
  EXPECT_NEAR(as<EgfEllipse>(object.get())->radiusPt.x, (50 + 15.8113883) * kPx, 0.1);
}

TEST(Ellipse, FailuresLeaveNothing) {
  Transforms sheared = Transforms().skewX(30);
  for (const bool shear : {false, true}) {
    int failures = 0;
    for (std::uint64_t failing = 1; failing < 100; ++failing) {
      AdapterPage page;
      egfhost::failAllocation(failing);
      const OwnedObject object = formatted(page, shear ? sheared.on(redCircle()) : redCircle());
      const bool struck = egfhost::faultsStruck() != 0;
      egfhost::clearFaults();
      if (object == nullptr) ++failures;
      if (!struck) break;
    }
    EXPECT_GE(failures, shear ? 3 : 1);
  }
}

}  // namespace
}  // namespace egfsvg::test
