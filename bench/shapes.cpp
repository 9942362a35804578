#include "bench/shapes.h"

#include <algorithm>
#include <map>
#include <random>
#include <utility>

#include "bench/pens.h"
#include "host/objects.h"

namespace egfsvg::bench {
namespace {

constexpr std::size_t kGroupSize = 10;
constexpr int kLargestTick = 1 << 22;  // 1024 pixels
constexpr int kFewestPoints = 3;
constexpr int kMostPoints = 13;

using Kind = ShapeKind;

bool isPooledAsStroke(Kind kind) { return kind == Kind::kLine || kind == Kind::kPolyline; }

/// Pens are pooled in the order of their first use, strokes and fills apart; each kind's bytes
/// differ from those of the others.
class StyleNumbers {
 public:
  long of(Kind kind, std::size_t pen) {
    if (kind == Kind::kRect || kind == Kind::kGroup) return 0;
    long& last = isPooledAsStroke(kind) ? strokes_ : fills_;
    const auto [at, added] = numbers_.try_emplace({kind, pen}, last + 1);
    if (added) ++last;
    return at->second;
  }

 private:
  std::map<std::pair<Kind, std::size_t>, long> numbers_;
  long fills_ = 0;
  long strokes_ = 0;
};

class ShapeMaker {
 public:
  Shape make(Kind kind) {
    Shape shape;
    shape.kind = kind;
    if (kind == Kind::kGroup) return shape;
    shape.pen = random_() % kPens;
    shape.style = styles_.of(kind, shape.pen);
    for (int left = pointsOf(kind); left > 0; --left) shape.points.push_back(point());
    return shape;
  }

 private:
  int pointsOf(Kind kind) {
    if (kind != Kind::kPolyline && kind != Kind::kPolygon) return 2;
    return std::uniform_int_distribution<int>(kFewestPoints, kMostPoints)(random_);
  }
  double pixels() {
    return std::uniform_int_distribution<int>(1, kLargestTick)(random_) / kSpaceUnits;
  }
  test::Px point() {
    const double x = pixels();
    return {x, pixels()};
  }

  std::mt19937 random_{5};
  StyleNumbers styles_;
};

_egf_obj* objectOf(const Shape& shape) {
  const test::Px first = shape.points[0];
  const test::Px second = shape.points[1];
  switch (shape.kind) {
    case Kind::kRect:
      return test::box(first.x, first.y, second.x, second.y, areaPen(shape.pen));
    case Kind::kLine:
      return test::line(first, second, linePen(shape.pen));
    case Kind::kEllipse:
      return test::ellipse(first.x, first.y, second.x, second.y, areaPen(shape.pen));
    case Kind::kPolyline:
      return test::polyline(shape.points, linePen(shape.pen));
    default:
      return test::polygon(shape.points, areaPen(shape.pen));
  }
}

}  // namespace

const std::vector<Family>& families() {
  static const std::vector<Family> all = {
      {"rects", {Kind::kRect}},
      {"lines", {Kind::kLine}},
      {"ellipses", {Kind::kEllipse}},
      {"polylines", {Kind::kPolyline}},
      {"polygons", {Kind::kPolygon}},
      {"groups", {Kind::kGroup}},
      {"mixed",
       {Kind::kRect, Kind::kLine, Kind::kEllipse, Kind::kPolyline, Kind::kPolygon, Kind::kGroup}},
  };
  return all;
}

std::vector<Shape> makeShapes(const Family& family, std::size_t count) {
  ShapeMaker maker;
  std::vector<Shape> shapes;
  std::size_t open = 0;  // shapes that the last group still takes
  for (std::size_t turn = 0; shapes.size() < count; ++turn) {
    const Kind kind = family.kinds[turn % family.kinds.size()];
    const bool nests = kind == Kind::kGroup && family.kinds.size() > 1;
    if (nests && open > 0) continue;
    shapes.push_back(maker.make(kind));
    if (open > 0) --open;
    if (!nests) continue;
    open = std::min(kGroupSize, count - shapes.size());
    shapes.back().children = open;
  }
  return shapes;
}

void giveTo(HostHandle document, const std::vector<Shape>& shapes) {
  test::TreeBuilder tree;
  _egf_obj* group = nullptr;
  std::size_t open = 0;
  for (const Shape& shape : shapes) {
    _egf_obj* object = shape.kind == Kind::kGroup ? test::group({}) : objectOf(shape);
    if (open > 0) {
      EEL_AppendObject(group, object);
      --open;
    } else {
      tree.add(object);
    }
    if (shape.children == 0) continue;
    group = object;
    open = shape.children;
  }
  ISL_SetProperty(document, kDocumentObjectTree, tree.release());
}

}  // namespace egfsvg::bench
