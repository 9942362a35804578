// Random arcs against points that arithmetic of its own gives.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "adapter_reader/owners.h"
#include "tests/support/adapter_page.h"

namespace egfsvg::test {
namespace {

constexpr int kArcs = 3000;
constexpr double kPi = 3.1415926534;
constexpr double kRadians = 0.01745329251888889;  // in a degree

using Arc = RmmOwner<_mpl_spacept_tag>;

struct Place {
  double x, y;
};

/// An arc of whole and of broken degrees, sizes from a fraction of a pixel to many pages.
struct RandomArc {
  explicit RandomArc(unsigned seed) : engine(seed) {
    center = {static_cast<float>(real(-4e6, 4e6)), static_cast<float>(real(-4e6, 4e6))};
    rx = size();
    ry = engine() % 3 == 0 ? rx : size();
    start = angle();
    end = engine() % 8 == 0 ? start : angle();
    rotation = real(-7.0, 7.0);
  }
  double real(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(engine);
  }
  float size() {
    constexpr double kSizes[] = {1e3, 1e5, 1e6, 4e8};
    return static_cast<float>(real(0.001, kSizes[engine() % 4]));
  }
  std::int32_t angle() {
    const double degrees = real(-800.0, 800.0);
    return static_cast<std::int32_t>((engine() % 2 == 0 ? std::round(degrees) : degrees) * 1e6);
  }
  double sweep() const {  // degrees, above 0
    std::int64_t turn = (std::int64_t{end} - start) % 360000000;
    if (turn <= 0) turn += 360000000;
    return static_cast<double>(turn) / 1e6;
  }

  std::mt19937 engine;
  _mpl_spacept_tag center;
  float rx, ry;
  std::int32_t start, end;
  double rotation;
};

/// Segments by the larger of two counts, each cut to a whole one, and at least 1.
int segments(double bySize, double byAngle) {
  return std::max({static_cast<int>(bySize), static_cast<int>(byAngle), 1});
}

std::vector<Place> turnedArc(const RandomArc& arc) {
  const double radians = arc.sweep() * kRadians;
  const double pixels = static_cast<double>(arc.rx) / 4096.0;
  const int n = segments(radians / std::sqrt(4.0 / (pixels + pixels)), arc.sweep() / 1.5);
  std::vector<Place> places;
  for (int i = 0; i <= n; ++i) {
    const double a = arc.start / 1e6 * kRadians + i * (radians / n);
    const double u = std::cos(a) * static_cast<double>(arc.rx);
    const double v = -std::sin(a) * static_cast<double>(arc.ry);
    places.push_back({std::cos(arc.rotation) * u - std::sin(arc.rotation) * v + +arc.center.x,
                      std::sin(arc.rotation) * u + std::cos(arc.rotation) * v + +arc.center.y});
  }
  return places;
}

std::vector<Place> circleArc(const RandomArc& arc) {
  const double radians = arc.sweep() * kRadians;
  const double pixels = static_cast<double>(arc.rx) / 4096.0;
  const int n = segments(radians / std::sqrt(4.0 / (pixels + pixels)), radians / 36.0);
  std::vector<Place> places;
  for (int i = 0; i <= n; ++i) {
    const double a = arc.start / 1e6 * kRadians + i * (radians / n);
    places.push_back({+arc.center.x + std::cos(a) * static_cast<double>(arc.rx),
                      +arc.center.y - std::sin(a) * static_cast<double>(arc.rx)});
  }
  return places;
}

std::vector<Place> polarArc(const RandomArc& arc) {
  const double rx = arc.rx;
  const double ry = arc.ry;
  double a0 = 0.0;
  double a1 = 6.2831853068;
  if ((std::int64_t{arc.end} - arc.start) % 360000000 != 0) {
    a0 = arc.start / 1e6 * kPi / 180.0;
    a1 = arc.end / 1e6 * kPi / 180.0;
    if (a1 < a0) a1 += 6.2831853068;
  }
  const double spread = ry / 4096.0 + rx / 4096.0 + 2.0;
  const double step =
      std::max(360.0 / (spread * 3.1415927) * 0.017453292 * 0.5, 0.03490658503777778);
  std::vector<Place> places;
  const auto add = [&](double a) {
    const double s = std::sin(a);
    const double c = std::cos(a);
    const double reach = std::sqrt(rx * rx * ry * ry / (ry * ry * c * c + rx * rx * s * s));
    places.push_back(
        {std::trunc(c * reach) + +arc.center.x, +arc.center.y - std::trunc(s * reach)});
  };
  for (double a = a0; a < a1; a += step) add(a);
  add(a1);
  return places;
}

/// Within a unit, or what a float can hold of places so far out.
void expectPlaces(const Arc& arc, unsigned int count, const std::vector<Place>& expected) {
  ASSERT_NE(arc, nullptr);
  ASSERT_EQ(count, expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const auto [x, y] = expected[i];
    const double within = 1.0 + 1e-6 * std::max(std::fabs(x), std::fabs(y));
    ASSERT_NEAR(+arc.get()[i].x, x, within) << i;
    ASSERT_NEAR(+arc.get()[i].y, y, within) << i;
  }
}

TEST(RandomArcs, AreCutIntoPoints) {
  AdapterPage page;
  for (int n = 0; n < kArcs && !HasFatalFailure(); ++n) {
    SCOPED_TRACE(n);
    RandomArc arc(static_cast<unsigned>(n));
    unsigned int count = 0;
    const Arc turned(page->svg_discretizeArc(&arc.center, arc.rx, arc.ry, arc.rotation, arc.start,
                                             arc.end, &count));
    expectPlaces(turned, count, turnedArc(arc));
    const Arc plain(
        page->svg_eel_discretizeArc(&arc.center, arc.rx, arc.ry, arc.start, arc.end, &count));
    expectPlaces(plain, count, arc.rx == arc.ry ? circleArc(arc) : polarArc(arc));
  }
}

/// The control points of an arc as curves, the first one left to the caller.
std::vector<Place> curves(const RandomArc& arc, double from, double to, bool reverse, bool large) {
  double sweep = std::fabs(from - to);
  if (large && sweep < 180.0) sweep = 360.0 - sweep;
  const int n = sweep <= 90.0 ? 1 : sweep <= 180.0 ? 4 : sweep <= 270.0 ? 6 : 16;
  double half = sweep * kPi / 360.0 / n;
  double reach = (1.0 - std::cos(half)) / std::sin(half);
  if (reverse) {
    half = -half;
    reach = -reach;
    from = to;
  }
  std::vector<Place> places{{0.0, 0.0}};
  const auto add = [&](double a, double along) {
    const double x = (std::cos(a) - along * std::sin(a)) * static_cast<double>(arc.rx);
    const double y = -(std::sin(a) + along * std::cos(a)) * static_cast<double>(arc.ry);
    places.push_back({std::cos(arc.rotation) * x - std::sin(arc.rotation) * y + +arc.center.x,
                      std::sin(arc.rotation) * x + std::cos(arc.rotation) * y + +arc.center.y});
  };
  for (int i = 0; i < n; ++i) {
    const double a = from * kPi / 180.0 + 2.0 * half * i;
    const double b = a + 2.0 * half;
    add(a, reach);
    add(b, -reach);
    add(b, 0.0);
  }
  return places;
}

TEST(RandomArcs, BecomeCurves) {
  AdapterPage page;
  for (int n = 0; n < kArcs && !HasFatalFailure(); ++n) {
    SCOPED_TRACE(n);
    RandomArc arc(static_cast<unsigned>(n));
    const double from = arc.real(-360.0, 360.0);
    const double to = from + arc.real(0.01, 360.0) * (n % 2 == 0 ? 1.0 : -1.0);
    const bool reverse = n % 3 == 0;
    const bool large = n % 5 == 0;
    _mpl_spacept_tag* points = nullptr;
    int count = 0;
    ASSERT_EQ(page->ArcToBezierCurve(arc.rotation, arc.center, from, to,
                                     static_cast<double>(arc.rx), static_cast<double>(arc.ry),
                                     reverse ? 1 : 0, large ? 1 : 0, points, &count),
              0);
    const Arc curve(points);
    expectPlaces(curve, static_cast<unsigned int>(count), curves(arc, from, to, reverse, large));
  }
}

}  // namespace
}  // namespace egfsvg::test
