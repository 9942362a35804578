#include "attribute_support.h"

namespace egfsvg::test {
namespace {

struct AngleCase {
  const char* text;
  double value;
  int unit;
};

TEST(Angles, numberAndWholeRestAsUnit) {
  const AngleCase cases[] = {{"90", 90, 10},       {"90deg", 90, 10},    {"90 deg", 90, 10},
                             {"2rad", 2, 11},      {"2RAD", 2, 11},      {"2rad ", 2, 10},
                             {"2 rad", 2, 10},     {"100grad", 100, 12}, {"1e1", 1, 10},
                             {"50%", 50, 9},       {" 90", 0, 10},       {"", 0, 10},
                             {"-45.5", -45.5, 10}, {"2radians", 2, 10}};
  CHandlerReader reader;
  for (const AngleCase& row : cases) {
    SCOPED_TRACE(row.text);
    _svg_angle angle{kUnitUnset, -1.0};
    EXPECT_EQ(reader.ParseAngle(&angle, row.text), 0);
    EXPECT_TRUE(sameNumber(row.value, angle.value)) << angle.value;
    EXPECT_EQ(angle.unit, row.unit);
  }
}

TEST(Angles, nullDoesNothing) {
  CHandlerReader reader;
  _svg_angle angle{kUnitGrad, 3.0};
  EXPECT_EQ(reader.ParseAngle(&angle, nullptr), 0);
  EXPECT_EQ(reader.ParseAngle(nullptr, "5"), 0);
  EXPECT_EQ(reader.SetAngleAtt(&angle, nullptr), 0);
  EXPECT_EQ(reader.SetAngleAtt(nullptr, Pair("5")), 0);
  EXPECT_EQ(angle.unit, kUnitGrad);
  EXPECT_EQ(angle.value, 3.0);
  EXPECT_EQ(reader.SetAngleAtt(&angle, Pair("5rad")), 0);
  EXPECT_EQ(angle.unit, kUnitRadian);
  EXPECT_EQ(angle.value, 5.0);
}

}  // namespace
}  // namespace egfsvg::test
