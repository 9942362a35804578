// What the records of shapes must hold, byte for byte: offsets, templates and arithmetic of this
// header's own.
#pragma once

#include <array>
#include <cmath>
#include <cstring>
#include <optional>
#include <vector>

#include "model/elements.h"

namespace egfsvg::test {

/// A record by its bytes.
class Image {
 public:
  explicit Image(std::size_t size) : bytes_(size) {}
  template <class T>
  Image& put(std::size_t offset, T value) {
    std::memcpy(&bytes_[offset], &value, sizeof value);
    return *this;
  }
  Image& byte(std::size_t offset, int value) {
    bytes_[offset] = static_cast<unsigned char>(value);
    return *this;
  }
  Image& word(std::size_t offset, std::uint32_t value) { return put(offset, value); }
  const std::vector<unsigned char>& bytes() const { return bytes_; }

 private:
  std::vector<unsigned char> bytes_;
};

struct ShapePoint {
  float x, y;
};

/// A style record that an object names by its number at an offset.
struct NamedStyle {
  std::size_t offset;
  int styleClass;
  std::optional<Image> record;  // none: the number is 0
};

struct DrawnRecord {
  explicit DrawnRecord(int objClass, std::size_t size) : image(size) {
    image.put(0, objClass).byte(4, 1).put<std::uint16_t>(20, 65535);
  }
  Image image;
  std::size_t pointsAt = 0;  // the offset of the pointer to them; 0: the object has none
  std::vector<ShapePoint> points;
  bool outline = false;  // the points are the host's own cut of an ellipse
  std::size_t dashAt = 0;
  std::vector<double> dashes;
  std::vector<NamedStyle> styles;
  std::vector<DrawnRecord> children;
};

using Matrix9 = std::array<double, 9>;

/// Shapes as they come out in a drawing of a resolution and a viewport in space units.
class ShapeRecords {
 public:
  ShapeRecords(double resolution, float viewportWidth, float viewportHeight)
      : res_(resolution), width_(viewportWidth), height_(viewportHeight) {}

  DrawnRecord rect(const _svg_rect& element) const;
  DrawnRecord circle(const _svg_circle& element) const;
  DrawnRecord ellipse(const _svg_ellipse& element) const;
  DrawnRecord line(const _svg_line& element) const;
  DrawnRecord polyline(const _svg_polyline& element) const;
  DrawnRecord polygon(const _svg_polygon& element) const;

 private:
  /// shear, scales and rotation of a matrix
  struct Parts {
    double shear, scaleX, scaleY, rotation;
  };
  struct Paint {
    const _svg_pa_fill& fill;
    const _svg_pa_stroke& stroke;
    const _svg_pa_graphics& graphics;
    double fillAlpha() const { return fill.fillOpacity * graphics.opacity; }
    double strokeAlpha() const {
      return stroke.strokePresent == 1 ? stroke.strokeOpacity * graphics.opacity : 0.0;
    }
    int strokeCode() const { return code(stroke.strokeOpacity * graphics.opacity); }
    int fillCode() const { return code(fillAlpha()); }
    int join() const {
      return stroke.strokeLinejoin == 2 ? 0 : stroke.strokeLinejoin == 3 ? 11 : 13;
    }
    int cap() const { return stroke.strokeLinecap == 1 ? 10 : stroke.strokeLinecap == 3 ? 1 : 0; }
    static int code(double p) { return p == 1.0 ? 1 : p == 0.0 ? 0 : p > 0.0 && p < 1.0 ? 3 : 7; }
  };

  DrawnRecord round(const _svg_common& head, const Paint& paint,
                    const _svg_value (&values)[4]) const;
  double pixels(const _svg_value& value) const;
  float units(const _svg_value& value) const { return static_cast<float>(pixels(value) * 4096.0); }
  ShapePoint point(const _svg_value& x, const _svg_value& y) const { return {units(x), units(y)}; }
  ShapePoint point(const _svg_value& x, const _svg_value& y, const _svg_value& dx,
                   const _svg_value& dy) const;
  Matrix9 matrix(const _svg_common& head) const;
  void multiplyEntry(Matrix9& m, const transformEntry& entry) const;
  static Parts partsOf(const Matrix9& m);
  static ShapePoint mapped(ShapePoint point, const Matrix9& m);
  static std::vector<ShapePoint> mapped(std::vector<ShapePoint> points, const Matrix9& m);
  std::vector<double> dashes(const _svg_pa_stroke& stroke) const;

  static std::uint32_t word(const _svg_color& colour);
  static Image fillParms();
  static Image strokeParms();
  Image polygonPen(const Paint& paint, int figure) const;
  static std::optional<Image> extended(const Paint& paint, bool always, bool join, bool openCaps);
  void putPolygon(DrawnRecord& drawn, const Paint& paint, int figure, bool openCaps) const;
  void putStroked(DrawnRecord& drawn, const Paint& paint, std::size_t pen, std::size_t number,
                  double alpha, bool joins) const;
  DrawnRecord roundRect(const _svg_rect& element, const std::array<ShapePoint, 4>& corners,
                        float rx, float ry) const;
  static DrawnRecord cornerArc(ShapePoint center, ShapePoint radii, int degrees);
  static DrawnRecord cornerCurve(ShapePoint corner, ShapePoint center, ShapePoint radii,
                                 int degrees, const Matrix9& m);
  std::vector<ShapePoint> pointsOf(const _svg_point* points, int count, const Matrix9& m) const;

  double res_;
  double width_;
  double height_;
};

}  // namespace egfsvg::test
