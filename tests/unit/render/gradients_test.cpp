// Gradients of the records as cairo patterns: colours along a vector and around a focus, and rings
// that have no inside.
#include "render/gradients.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <initializer_list>
#include <numbers>
#include <vector>

#include "host/egf_templates.h"

namespace egfrender {
namespace {

constexpr double kUnits = 4096.0;  // space units in a pixel
constexpr int kSide = 101;         // pixels

_mpl_spacept_tag place(double x, double y) {
  return {static_cast<float>(x * kUnits), static_cast<float>(y * kUnits)};
}

// Red at the first position, blue at the last.
GradientUse redToBlue(std::initializer_list<int> positions, const std::vector<_mpl_spacept_tag>& at,
                      bool radial) {
  GradientUse gradient;
  gradient.ramp = egfsvg::kGradientParms;
  for (int position : positions) {
    const int i = gradient.ramp.stopCount++;
    const bool last = i + 1 == static_cast<int>(positions.size());
    gradient.ramp.stopPositions[i] = static_cast<std::int16_t>(position);
    gradient.ramp.stopColors[i] = egfsvg::colourOf(last ? 0x0000ff : 0xff0000);
    gradient.ramp.stopAlpha[i] = 255;
  }
  gradient.points = at.data();
  gradient.pointCount = static_cast<unsigned>(at.size());
  gradient.radial = radial;
  if (radial) gradient.wrapMode = _egf_wrapmode_tag::kRadial;
  return gradient;
}

// A focus and a ring of 60 parts about (50.5,50.5), counter-clockwise; its last point is its first.
std::vector<_mpl_spacept_tag> ring(double rx, double ry) {
  constexpr double kMiddle = kSide / 2.0;
  std::vector<_mpl_spacept_tag> points{place(kMiddle, kMiddle)};
  for (int i = 0; i <= 60; ++i) {
    const double t = 2.0 * std::numbers::pi * i / 60;
    points.push_back(place(kMiddle + rx * std::cos(t), kMiddle - ry * std::sin(t)));
  }
  return points;
}

// A page of that side, painted with a pattern.
class Painted {
 public:
  explicit Painted(cairo_pattern_t* pattern)
      : surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kSide, kSide)) {
    const Context context(cairo_create(surface_.get()));
    cairo_set_source(context.get(), pattern);
    cairo_rectangle(context.get(), 0, 0, kSide, kSide);
    cairo_fill(context.get());
    cairo_set_line_width(context.get(), 9);
    cairo_move_to(context.get(), 1, 2);
    cairo_line_to(context.get(), kSide, kSide);
    cairo_stroke(context.get());
    status_ = cairo_status(context.get());
    cairo_surface_flush(surface_.get());
  }
  cairo_status_t status() const { return status_; }
  int channel(int x, int y, int shift) const {
    const unsigned char* data = cairo_image_surface_get_data(surface_.get());
    const int row = y * cairo_image_surface_get_stride(surface_.get());
    std::uint32_t word = 0;
    std::memcpy(&word, data + row + 4 * x, sizeof word);
    return static_cast<int>(word >> shift & 0xff);
  }
  int red(int x, int y) const { return channel(x, y, 16); }
  int blue(int x, int y) const { return channel(x, y, 0); }

 private:
  Surface surface_;
  cairo_status_t status_;
};

Pattern patternOf(const GradientUse& gradient) {
  Box area;
  area.left = area.top = 0;
  area.right = area.bottom = kSide;
  area.empty = false;
  return gradientPattern(gradient, 1.0, {}, area);
}

TEST(GradientPatterns, RunAlongTheirVector) {
  const std::vector<_mpl_spacept_tag> ends{place(0, 0), place(kSide, 0)};
  const Pattern pattern = patternOf(redToBlue({0, 1000}, ends, false));
  ASSERT_TRUE(pattern);
  const Painted page(pattern.get());
  EXPECT_GT(page.red(1, 90), 245);
  EXPECT_NEAR(page.red(50, 90), 128, 4);
  EXPECT_NEAR(page.blue(50, 90), 128, 4);
  EXPECT_GT(page.blue(99, 10), 245);
}

// Positions rise from the ring to the focus.
TEST(GradientPatterns, RunFromTheirRingInwards) {
  const std::vector<_mpl_spacept_tag> points = ring(40, 40);
  const Pattern pattern = patternOf(redToBlue({0, 1000}, points, true));
  ASSERT_TRUE(pattern);
  const Painted page(pattern.get());
  EXPECT_GT(page.blue(50, 50), 240);
  EXPECT_NEAR(page.red(30, 50), 128, 6);  // half the way to the ring
  EXPECT_NEAR(page.red(50, 70), 128, 6);
  EXPECT_EQ(page.red(5, 50), 255);
}

// A ring that is a place or a line, or nearly so, is no pattern; what is one can be painted.
TEST(GradientPatterns, OfThinRings) {
  struct Row {
    double rx, ry;
    bool pattern;
  };
  const Row rows[] = {{0, 0, false},       {1e-9, 1e-9, false}, {1e-4, 1e-4, false},
                      {40, 0, false},      {0, 40, false},      {40, 1e-9, false},
                      {1e-7, 40, false},   {40, 1e-2, true},    {1e-2, 40, true},
                      {1e-2, 1e-2, true},  {1, 1, true},        {30000, 30000, true},
                      {30000, 1e-2, true}, {1e30, 1e30, true}};
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << row.rx << " " << row.ry);
    const std::vector<_mpl_spacept_tag> points = ring(row.rx, row.ry);
    for (const auto& positions : {std::initializer_list<int>{0, 1000}, {500, 0}}) {
      const Pattern pattern = patternOf(redToBlue(positions, points, true));
      EXPECT_EQ(row.pattern, pattern != nullptr);
      if (pattern) {
        EXPECT_EQ(CAIRO_STATUS_SUCCESS, Painted(pattern.get()).status());
      }
    }
  }
}

}  // namespace
}  // namespace egfrender
