#include <gtest/gtest.h>

#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

struct Row {
  const char* name;
  double a, b, c, d;  // as matrix(a b c d 0 0) has them
  int result;
  double shear, scaleX, scaleY, rotation;
};

constexpr double kPi = 3.14159265358979323846;
constexpr double kTan30 = 0.57735026918962576451;

constexpr Row kRows[] = {
    {"identity", 1, 0, 0, 1, 0, 0, 1, 1, 0},
    {"half a turn", -1, 0, 0, -1, 0, 0, 1, 1, kPi},
    {"mirror in y", 1, 0, 0, -1, 0, 0, -1, 1, 3.1415926534},
    {"mirror in x", -1, 0, 0, 1, 0, 0, -1, 1, kPi + 3.1415926534},
    {"singular", 1, 2, 2, 4, -1, 0, 0, 0, 0},
    {"zero", 0, 0, 0, 0, -1, 0, 0, 0, 0},
    {"nearly singular", 1e-10, 0, 0, 0.9e-10, -1, 0, 0, 0, 0},
    {"tiny", 1e-9, 0, 0, 1e-9, 0, 0, 1e-9, 1e-9, 0},
    {"skewX(30)", 1, 0, kTan30, 1, 0, kTan30, 1, 1, 0},
    {"skewX(-30)", 1, 0, -kTan30, 1, 0, -kTan30, 1, 1, 0},
    // rotation 30 degrees; 1 / cos 30, cos 30
    {"skewY(30)", 1, kTan30, 0, 1, 0, kTan30, 1.15470053837925152902, 0.86602540378443864676,
     kPi / 6},
    {"scale(2, 3)", 2, 0, 0, 3, 0, 0, 2, 3, 0},
    {"no shear to speak of", 1, 0, 0.9e-6, 1, 0, 0, 1, 1, 0},
    {"hardly a shear", 1, 0, 1.1e-6, 1, 0, 1.1e-6, 1, 1, 0},
    {"rotate(30) scale(2, 3)", 1.7320508075688772, 1, -1.5, 2.598076211353316, 0, 0, 2, 3, kPi / 6},
};

TEST(Decompose, Matrices) {
  AdapterPage page;
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    double matrix[3][3] = {{row.a, row.c, 5}, {row.b, row.d, 6}, {0, 0, 1}};
    double shear = 9, scaleX = 9, scaleY = 9, rotation = 9;
    EXPECT_EQ(page->svg_DecomposeMatrix(matrix, &shear, &scaleX, &scaleY, &rotation), row.result);
    EXPECT_NEAR(shear, row.shear, 1e-9);
    EXPECT_NEAR(scaleX, row.scaleX, 1e-9);
    EXPECT_NEAR(scaleY, row.scaleY, 1e-9);
    EXPECT_NEAR(rotation, row.rotation, 1e-9);
  }
}

// Rounded rectangles ask whether shear and rotation are exactly 0.
TEST(Decompose, UprightMatricesAreExactlyUpright) {
  AdapterPage page;
  for (const double scale : {0.1, 1.0 / 3.0, 1.0, 7.0, 1e6}) {
    double matrix[3][3] = {{scale, 0, 1}, {0, 3 * scale, 2}, {0, 0, 1}};
    double shear = 9, scaleX = 9, scaleY = 9, rotation = 9;
    page->svg_DecomposeMatrix(matrix, &shear, &scaleX, &scaleY, &rotation);
    EXPECT_EQ(shear, 0.0);
    EXPECT_EQ(rotation, 0.0);
    EXPECT_EQ(scaleX, scale);
    EXPECT_EQ(scaleY, 3 * scale);
  }
}

}  // namespace
}  // namespace egfsvg::test
