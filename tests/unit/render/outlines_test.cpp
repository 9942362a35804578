#include "render/outlines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "render/cairo_owners.h"

namespace egfrender {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180;
constexpr std::int32_t kMillion = 1000000;

// A context whose path can be looked at.
class PathProbe {
 public:
  PathProbe()
      : surface_(cairo_recording_surface_create(CAIRO_CONTENT_COLOR_ALPHA, nullptr)),
        context_(cairo_create(surface_.get())) {}

  cairo_t* context() { return context_.get(); }

  // The path as letters and coordinates: "M0,0 L10,0 Z".
  std::string text() {
    std::string text;
    visit(cairo_copy_path(context()), [&](cairo_path_data_type_t type, const Point* points) {
      static constexpr char kLetters[] = "MLCZ";
      static constexpr int kCounts[] = {1, 1, 3, 0};
      if (!text.empty()) text += ' ';
      text += kLetters[type];
      for (int i = 0; i < kCounts[type]; ++i) {
        text += (i > 0 ? " " : "") + digits(points[i].x) + "," + digits(points[i].y);
      }
    });
    return text;
  }

  // The points of the path turned into short straight lines.
  std::vector<Point> flat() {
    std::vector<Point> found;
    cairo_set_tolerance(context(), 0.001);
    visit(cairo_copy_path_flat(context()), [&](cairo_path_data_type_t type, const Point* points) {
      if (type == CAIRO_PATH_MOVE_TO || type == CAIRO_PATH_LINE_TO) found.push_back(points[0]);
    });
    return found;
  }

 private:
  static std::string digits(double number) {
    const double rounded = std::round(number * 100) / 100;
    std::string text = std::to_string(rounded == 0 ? 0.0 : rounded);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
  }

  template <class Visit>
  void visit(cairo_path_t* path, Visit visitor) {
    for (int i = 0; i < path->num_data; i += path->data[i].header.length) {
      Point points[3];
      for (int p = 1; p < path->data[i].header.length; ++p) {
        points[p - 1] = {path->data[i + p].point.x, path->data[i + p].point.y};
      }
      visitor(path->data[i].header.type, points);
    }
    cairo_path_destroy(path);
  }

  Surface surface_;
  Context context_;
};

std::vector<_mpl_spacept_tag> spacePoints(const std::vector<Point>& pixels) {
  std::vector<_mpl_spacept_tag> points;
  for (const Point& point : pixels) {
    points.push_back({static_cast<float>(point.x * 4096), static_cast<float>(point.y * 4096)});
  }
  return points;
}

TEST(Outline, JoinsOnlyWhatIsApart) {
  PathProbe probe;
  Outline outline(probe.context(), {});
  outline.joinTo({1, 1});
  outline.lineTo({5, 1});
  outline.joinTo({5.004, 1.004});  // the same point
  outline.joinTo({5, 1.1});
  outline.close();
  outline.joinTo({9, 9});  // a new figure
  outline.lineTo({9, 10});
  outline.startFigure();
  outline.joinTo({20, 20});
  outline.lineTo({21, 20});
  EXPECT_EQ(probe.text(), "M1,1 L5,1 L5,1.1 Z M9,9 L9,10 M20,20 L21,20");
}

TEST(Outline, PlacesPointsOnTheDevice) {
  PathProbe probe;
  Outline outline(probe.context(), {{10, 20}, 2});
  outline.moveTo({10, 20});
  outline.lineTo({15, 21});
  EXPECT_EQ(probe.text(), "M0,0 L10,2");
}

TEST(Outline, KeepsWildPointsWithinReach) {
  PathProbe probe;
  Outline outline(probe.context(), {});
  outline.moveTo({1e30, -1e30});
  outline.lineTo({std::nan(""), INFINITY});
  EXPECT_EQ(probe.text(), "M4000000,-4000000 L0,4000000");
}

TEST(Outline, AddsPointsAndCurves) {
  PathProbe probe;
  Outline outline(probe.context(), {});
  addPoints(outline, spacePoints({{0, 0}, {10, 0}}));
  addCurves(outline, spacePoints({{10, 0}, {12, 0}, {14, 2}, {14, 4}, {99, 99}}));
  addPoints(outline, {});
  addCurves(outline, {});
  EXPECT_EQ(probe.text(), "M0,0 L10,0 C12,0 14,2 14,4");
}

// Where an arc begins and ends; y runs downwards, angles run counter-clockwise.
TEST(Arc, BeginsAndEndsAtItsAngles) {
  struct Row {
    std::int32_t start, end;
    bool backwards;
    Point first, last;
  };
  const std::vector<Row> rows = {
      {0, 90, false, {60, 50}, {50, 40}},
      {0, 90, true, {50, 40}, {60, 50}},
      {90, 180, false, {50, 40}, {40, 50}},
      {180, 270, false, {40, 50}, {50, 60}},
      {270, 360, false, {50, 60}, {60, 50}},
      {270, 90, false, {50, 60}, {50, 40}},
      {-90, 0, false, {50, 60}, {60, 50}},
      {0, 360, false, {60, 50}, {60, 50}},
      {45, 45, false, {57.0711, 42.9289}, {57.0711, 42.9289}},
  };
  for (const Row& row : rows) {
    PathProbe probe;
    Outline outline(probe.context(), {});
    addArc(outline, {.center = {50, 50},
                     .rx = 10,
                     .ry = 10,
                     .start = row.start * kMillion,
                     .end = row.end * kMillion,
                     .backwards = row.backwards});
    const std::vector<Point> points = probe.flat();
    ASSERT_GE(points.size(), 2U);
    EXPECT_NEAR(points.front().x, row.first.x, 0.01) << row.start << " " << row.end;
    EXPECT_NEAR(points.front().y, row.first.y, 0.01) << row.start << " " << row.end;
    EXPECT_NEAR(points.back().x, row.last.x, 0.01) << row.start << " " << row.end;
    EXPECT_NEAR(points.back().y, row.last.y, 0.01) << row.start << " " << row.end;
  }
}

// Every point lies on the ellipse, and the ends are where the angles are seen from the centre.
TEST(Arc, LiesOnItsEllipse) {
  std::uint32_t seed = 12345;
  const auto random = [&](int from, int to) {
    seed = seed * 1664525U + 1013904223U;
    return from + static_cast<int>((seed >> 8U) % static_cast<unsigned>(to - from + 1));
  };
  for (int i = 0; i < 2000; ++i) {
    const double rx = random(1, 200);
    const double ry = random(1, 200);
    const int start = random(-360, 360);
    const int end = start + random(1, 359);
    const int rotation = random(-180, 180);
    PathProbe probe;
    Outline outline(probe.context(), {});
    addArc(outline, {.center = {300, 200},
                     .rx = rx,
                     .ry = ry,
                     .start = start * kMillion,
                     .end = end * kMillion,
                     .rotation = rotation * kMillion});
    const std::vector<Point> points = probe.flat();
    const double turn = rotation * kDegree;
    for (const Point& point : points) {
      // Back into the ellipse's own axes, y upwards.
      const double dx = point.x - 300;
      const double dy = 200 - point.y;
      const double x = std::cos(turn) * dx + std::sin(turn) * dy;
      const double y = -std::sin(turn) * dx + std::cos(turn) * dy;
      ASSERT_NEAR(std::hypot(x / rx, y / ry), 1.0, 0.02) << rx << " " << ry << " " << rotation;
    }
    for (const auto& [point, degrees] : {std::pair{points.front(), start}, {points.back(), end}}) {
      const double seen = std::atan2(200 - point.y, point.x - 300);
      const double off = std::remainder(seen - (degrees + rotation) * kDegree, 360 * kDegree);
      ASSERT_NEAR(off * std::min(rx, ry), 0.0, 0.02) << rx << " " << ry << " " << degrees;
    }
    // Counter-clockwise: the swept angle is the difference of the ends.
    double swept = 0;
    for (std::size_t p = 1; p < points.size(); ++p) {
      const double a = std::atan2(200 - points[p - 1].y, points[p - 1].x - 300);
      const double b = std::atan2(200 - points[p].y, points[p].x - 300);
      swept += std::remainder(b - a, 360 * kDegree);
    }
    ASSERT_NEAR(swept / kDegree, end - start, 1.0 + 60 / std::min(rx, ry)) << rx << " " << ry;
  }
}

TEST(Arc, MayHaveNoRadius) {
  PathProbe probe;
  Outline outline(probe.context(), {});
  addArc(outline, {.center = {5, 5}, .rx = 0, .ry = 10, .start = 0, .end = 90 * kMillion});
  for (const Point& point : probe.flat()) EXPECT_NEAR(point.x, 5, 1e-6);
}

}  // namespace
}  // namespace egfrender
