#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "tests/support/egf_builder.h"

namespace egfsvg::test {
namespace {

constexpr double kWithin = 1e-3;  // pixels

void expectPoint(_mpl_spacept_tag point, Px expected, const std::string& name) {
  EXPECT_NEAR(point.x / 4096.0, expected.x, kWithin) << name;
  EXPECT_NEAR(point.y / 4096.0, expected.y, kWithin) << name;
}

void expectMer(_egf_obj* object, double left, double top, double right, double bottom,
               const char* name) {
  _mpl_spacerect_tag mer;
  ASSERT_EQ(EEL_GetObjectMer(object, &mer, 0), 0) << name;
  EXPECT_NEAR(mer.left / 4096.0, left, kWithin) << name;
  EXPECT_NEAR(mer.top / 4096.0, top, kWithin) << name;
  EXPECT_NEAR(mer.right / 4096.0, right, kWithin) << name;
  EXPECT_NEAR(mer.bottom / 4096.0, bottom, kWithin) << name;
}

_egf_obj* firstChild(_egf_obj* object) {
  _egf_obj* cursor = nullptr;
  return EEL_GetNextObject(object, &cursor, kWalkMask);
}

// Each row's object fills the rectangle 0, 0, 10, 6; a turn is about the origin.
struct MoveRow {
  const char* name;
  _egf_obj* object;
};

std::vector<MoveRow> everyClass() {
  return {
      {"box", box(0, 0, 10, 6)},
      {"polygon", polygon({{0, 0}, {10, 6}, {0, 6}})},
      {"line", line({0, 0}, {10, 6})},
      {"arrow line", arrowLine({0, 3}, {10, 3}, {.points = {{9, 0}, {9, 6}, {1, 0}, {1, 6}}})},
      {"polyline", polyline({{0, 0}, {10, 0}, {10, 6}})},
      {"ellipse", ellipse(5, 3, 5, 3)},
      {"arc", arc(5, 3, 5, 3, 0, 360)},
      {"image", image(0, 0, 10, 6)},
      {"cloud", cloud({{0, 0}, {10, 0}, {10, 6}, {0, 6}}, {{0, 0}, {10, 6}})},
      {"diamond", diamond({{0, 3}, {5, 0}, {10, 3}, {5, 6}})},
      {"crossout", crossout({0, 0}, {10, 6}, {0, 6}, {10, 0})},
      {"metafile", opaqueObject(kClassMetafile, 0, 0, 10, 6)},
      {"group", group({box(0, 0, 1, 1), group({box(9, 5, 1, 1)})})},
      {"path", path({line({0, 0}, {10, 0}), arc(5, 3, 5, 3, 0, 90), line({0, 0}, {0, 6})})},
  };
}

TEST(Move, TakesEveryClassAlong) {
  for (const MoveRow& row : everyClass()) {
    const OwnedObject object(row.object);
    expectMer(row.object, 0, 0, 10, 6, row.name);
    ASSERT_EQ(EEL_MoveObject(0, row.object, 100 * 4096.0F, -50 * 4096.0F), 0);
    expectMer(row.object, 100, -50, 110, -44, row.name);
  }
}

TEST(Rotate, TakesEveryClassAQuarterCounterClockwise) {
  const _mpl_spacept_tag origin{0, 0};
  for (const MoveRow& row : everyClass()) {
    const OwnedObject object(row.object);
    ASSERT_EQ(EEL_RotateObject(0, row.object, &origin, 90000000, 0), 0);
    expectMer(row.object, 0, -10, 6, 0, row.name);
  }
}

TEST(Rotate, AboutAPoint) {
  const OwnedObject object(line({10, 10}, {20, 10}));
  const _mpl_spacept_tag pivot = spacePoint({10, 10});
  ASSERT_EQ(EEL_RotateObject(0, object.get(), &pivot, 30000000, 0), 0);
  expectPoint(as<EgfLine>(object.get())->startPt, {10, 10}, "pivot");
  expectPoint(as<EgfLine>(object.get())->endPt,
              {10 + 10 * std::cos(M_PI / 6), 10 - 10 * std::sin(M_PI / 6)}, "end");
}

TEST(Rotate, KeepsTheRadiiOfAnEllipseAndTurnsIt) {
  const OwnedObject object(ellipse(10, 0, 5, 3, {}, 20));
  const _mpl_spacept_tag origin{0, 0};
  ASSERT_EQ(EEL_RotateObject(0, object.get(), &origin, 30000000, 0), 0);
  const auto* record = as<EgfEllipse>(object.get());
  const Px center{10 * std::cos(M_PI / 6), -10 * std::sin(M_PI / 6)};
  expectPoint(record->center, center, "centre");
  expectPoint(record->radiusPt, {center.x + 5, center.y + 3}, "radii");
  EXPECT_EQ(record->pen.ellipseRotation, 50000000);
}

TEST(Rotate, TurnsTheAnglesOfACircularArc) {
  const OwnedObject object(arc(0, 0, 5, 5, 300, 380));
  const _mpl_spacept_tag origin{0, 0};
  ASSERT_EQ(EEL_RotateObject(0, object.get(), &origin, 70000000, 0), 0);
  const auto* record = as<EgfArc>(object.get());
  EXPECT_EQ(record->startAngle, 10000000);
  EXPECT_EQ(record->endAngle, 90000000);
  expectPoint(record->radiusPt, {5, 5}, "radii");
}

TEST(Rotate, SwapsTheRadiiOfAnArcAtAQuarter) {
  const OwnedObject object(arc(0, 0, 8, 5, 0, 90));
  const _mpl_spacept_tag origin{0, 0};
  ASSERT_EQ(EEL_RotateObject(0, object.get(), &origin, -90000000, 0), 0);
  const auto* record = as<EgfArc>(object.get());
  EXPECT_EQ(record->startAngle, 270000000);
  EXPECT_EQ(record->endAngle, 360000000);
  expectPoint(record->radiusPt, {5, 8}, "radii");
}

TEST(Rotate, MakesAnUnevenArcOfAPathACurve) {
  for (const bool reversed : {false, true}) {
    const OwnedObject object(path({arc(0, 0, 8, 5, 0, 180, reversed), line({-8, 0}, {8, 0})}));
    const _mpl_spacept_tag origin{0, 0};
    ASSERT_EQ(EEL_RotateObject(0, object.get(), &origin, 45000000, 0), 0);
    _egf_obj* child = firstChild(object.get());
    ASSERT_EQ(child->layoutClass, kClassPolygon);
    EXPECT_EQ(child->next->layoutClass, kClassLine);
    const auto* record = as<EgfPolygon>(child);
    EXPECT_EQ(record->pen.modeFlags, 0x08);
    ASSERT_EQ(record->pointCount, 7);
    const double c = std::cos(M_PI / 4);
    const Px from{8 * c, -8 * c}, to{-8 * c, 8 * c};
    expectPoint(record->points.get()[0], reversed ? to : from, "first");
    expectPoint(record->points.get()[3], {-5 * c, -5 * c}, "top");
    expectPoint(record->points.get()[6], reversed ? from : to, "last");
    // Half extents of the turned ellipse: sqrt(8^2/2 + 5^2/2).
    const double half = std::sqrt(44.5);
    _mpl_spacerect_tag mer;
    ASSERT_EQ(EEL_GetObjectMer(child, &mer, 0), 0);
    EXPECT_NEAR(mer.top / 4096.0, -half, 0.01);
    EXPECT_NEAR(mer.left / 4096.0, -half, 0.01);
  }
}

TEST(Rotate, RefusesALooseUnevenArc) {
  const OwnedObject object(arc(0, 0, 8, 5, 0, 180));
  const _mpl_spacept_tag origin{0, 0};
  EXPECT_NE(EEL_RotateObject(0, object.get(), &origin, 45000000, 0), 0);
  expectPoint(as<EgfArc>(object.get())->radiusPt, {8, 5}, "radii");
}

TEST(Rotate, AddsToTheAnglesThatObjectsKeep) {
  const _mpl_spacept_tag origin{0, 0};
  const OwnedObject letters(text({10, 0}, "letters", {.rotation = 5}));
  ASSERT_EQ(EEL_RotateObject(0, letters.get(), &origin, 90000000, 0), 0);
  EXPECT_EQ(as<EgfTextObject>(letters.get())->parms.textRotation, 950);
  expectPoint(as<EgfTextObject>(letters.get())->text.origin, {0, -10}, "origin");

  const OwnedObject note(annotation({10, 0}, "a note"));
  ASSERT_EQ(EEL_RotateObject(0, note.get(), &origin, 45000000, 0), 0);
  EXPECT_EQ(as<EgfAnnotation>(note.get())->parms.textRotation, 450);

  const OwnedObject stock(stockObject(1, {10, 0}, 350));
  ASSERT_EQ(EEL_RotateObject(0, stock.get(), &origin, 30000000, 0), 0);
  EXPECT_EQ(as<EgfStockObject>(stock.get())->angle, 20000000);
  expectPoint(as<EgfStockObject>(stock.get())->place,
              {10 * std::cos(M_PI / 6), -10 * std::sin(M_PI / 6)}, "place");

  const OwnedObject picture(image(0, 0, 10, 6));
  ASSERT_EQ(EEL_RotateObject(0, picture.get(), &origin, 270000000, 0), 0);
  EXPECT_EQ(QuarterTurnBits::get(as<EgfImage>(picture.get())->rotation), 3U);
}

TEST(Move, TakesGradientPointsAlong) {
  const OwnedObject object(box(0, 0, 10, 6, {.gradPts = {{0, 0}, {10, 0}}}));
  ASSERT_EQ(EEL_MoveObject(0, object.get(), 4096.0F, 8192.0F), 0);
  expectPoint(as<EgfPolygon>(object.get())->gradPts.get()[1], {11, 2}, "gradient");
}

TEST(Move, NeedsAnObject) {
  const _mpl_spacept_tag origin{0, 0};
  EXPECT_NE(EEL_MoveObject(0, nullptr, 1, 1), 0);
  EXPECT_NE(EEL_RotateObject(0, nullptr, &origin, 1, 0), 0);
  const OwnedObject object(box(0, 0, 1, 1));
  EXPECT_NE(EEL_RotateObject(0, object.get(), nullptr, 1, 0), 0);
}

}  // namespace
}  // namespace egfsvg::test
