#include "adapter_reader/transform_list.h"

#include <cmath>

#include "geometry/angles.h"

namespace egfsvg {
namespace {

[[gnu::always_inline]] inline void multiplyBy(PlaneColumns& running, const PlaneColumns& right) {
  multiplyPlane(running, right);
}

void multiplyBy(MatrixRows& running, const PlaneColumns& right) {
  MatrixRows whole;
  setMatrix(right, whole);
  multiplyMatrix(running, whole);
}

template <class Rows>
[[gnu::always_inline]] inline void translate(double x, double y, Rows& running) {
  multiplyBy(running, {{1.0, 0.0}, {0.0, 1.0}, {x, y}});
}

template <class Rows>
void rotate(const PixelScale& scale, const _svg_value* args, Rows& running) {
  const double x = scale.pixels(args[1], kAxisWidth);
  const double y = scale.pixels(args[2], kAxisHeight);
  const double angle = radiansOf(args[0].value);
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  translate(x, y, running);
  multiplyBy(running, {{c, s}, {-s, c}, {0.0, 0.0}});
  translate(-x, -y, running);
}

/// Arguments that a function reads; 0 for a kind that is unknown.
std::int32_t argumentsOf(std::int32_t kind) {
  switch (kind) {
    case kSkewX:
    case kSkewY:
      return 1;
    case kTranslate:
    case kScale:
      return 2;
    case kRotate:
      return 3;
    case kMatrix:
      return 6;
    default:
      return 0;
  }
}

template <class Rows>
void multiply(const PixelScale& scale, const transformEntry& entry, Rows& running) {
  const _svg_value* args = entry.args;
  if (args == nullptr || entry.argCount < argumentsOf(entry.kind)) return;
  switch (entry.kind) {
    case kTranslate:
      return translate(scale.pixels(args[0], kAxisWidth), scale.pixels(args[1], kAxisHeight),
                       running);
    case kRotate:
      return rotate(scale, args, running);
    case kScale:
      return multiplyBy(running, {{args[0].value, 0.0}, {0.0, args[1].value}, {0.0, 0.0}});
    case kMatrix:
      return multiplyBy(running, {{args[0].value, args[1].value},
                                  {args[2].value, args[3].value},
                                  {scale.pixels(args[4]), scale.pixels(args[5])}});
    case kSkewX:
      return multiplyBy(running,
                        {{1.0, 0.0}, {std::tan(radiansOf(args[0].value)), 1.0}, {0.0, 0.0}});
    case kSkewY:
      return multiplyBy(running,
                        {{1.0, std::tan(radiansOf(args[0].value))}, {0.0, 1.0}, {0.0, 0.0}});
    default:
      return;
  }
}

}  // namespace

void multiplyEntry(const PixelScale& scale, const transformEntry& entry, PlaneColumns& running) {
  multiply(scale, entry, running);
}

void multiplyEntry(const PixelScale& scale, const transformEntry& entry, MatrixRows& running) {
  multiply(scale, entry, running);
}

}  // namespace egfsvg
