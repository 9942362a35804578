// Random element records against the bytes that arithmetic of its own makes of them.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "tests/support/adapter_page.h"
#include "tests/support/shape_records.h"

namespace egfsvg::test {
namespace {

constexpr int kShapes = 6000;

/// Element records of every kind, with values that files seldom have.
class RandomElements {
 public:
  explicit RandomElements(unsigned seed) : engine_(seed) {
    constexpr double kResolutions[] = {96, 200, 72, 300.5};
    resolution = kResolutions[pick(4)];
    width = static_cast<float>(pick(3) * 4096 * 100);
    height = static_cast<float>(pick(3) * 4096 * 70);
  }

  std::size_t pick(std::size_t count) { return engine_() % count; }
  double number() {
    std::uniform_real_distribution<double> any(-1.0, 1.0);
    constexpr double kSizes[] = {100, 100, 100, 10, 1e-6, 1e6, 0};
    const double value = any(engine_) * kSizes[pick(7)];
    return pick(4) == 0 ? std::trunc(value) : value;
  }
  _svg_value length() {
    constexpr std::int32_t kUnits[] = {3, 3, 3, 3, 4, 5, 6, 7, 8, 9, 9, 14, 1, 2, 13, -1, 0};
    return {kUnits[pick(17)], number(), static_cast<std::int32_t>(pick(4))};
  }
  template <class Element>
  Element dressed(Element element) {
    transforms_ = Transforms();
    for (std::size_t count = pick(3); count > 0; --count) addTransform();
    if (pick(4) == 0) transforms_ = Transforms();
    transforms_.put(element.head);
    dressFill(element.fill);
    dressStroke(element.stroke);
    element.graphics.opacity = opacity();
    return element;
  }
  _svg_rect rect() {
    _svg_rect element = svgRect(0, 0, 0, 0);
    for (_svg_value* value : {&element.x, &element.y, &element.width, &element.height}) {
      *value = length();
    }
    if (pick(2) == 0) element.rx = length();
    if (pick(2) == 0) element.ry = length();
    return dressed(element);
  }
  _svg_circle circle() {
    _svg_circle element = svgCircle(0, 0, 0);
    for (_svg_value* value : {&element.cx, &element.cy, &element.r}) *value = length();
    return dressed(element);
  }
  _svg_ellipse ellipse() {
    _svg_ellipse element = svgEllipse(0, 0, 0, 0);
    for (_svg_value* value : {&element.cx, &element.cy, &element.rx, &element.ry}) {
      *value = length();
    }
    return dressed(element);
  }
  _svg_line line() {
    _svg_line element = svgLine(0, 0, 0, 0);
    for (_svg_value* value : {&element.x1, &element.y1, &element.x2, &element.y2}) {
      *value = length();
    }
    return dressed(element);
  }
  _svg_polyline polyline() { return dressed(svgPolyline(points())); }
  _svg_polygon polygon() {
    _svg_polygon element = svgPolygon(points());
    element.isClosed = static_cast<std::int32_t>(pick(3));
    return dressed(element);
  }

  double resolution;
  float width;
  float height;

 private:
  std::vector<_svg_point>& points() {
    points_.clear();
    for (std::size_t count = 1 + pick(6); count > 0; --count)
      points_.push_back({length(), length()});
    return points_;
  }
  double opacity() {
    constexpr double kOpacities[] = {1, 1, 1, 0.5, 0.25, 0.999, 0, 1.5, -0.1};
    return kOpacities[pick(9)];
  }
  _svg_color colour() {
    const auto channel = [&] { return static_cast<std::int32_t>(pick(256)); };
    return {channel(), channel(), channel(), pick(4) == 0 ? channel() : 0};
  }
  void dressFill(_svg_pa_fill& fill) {
    fill.fillColor = colour();
    fill.fillOpacity = opacity();
    fill.fillRule = static_cast<std::int32_t>(pick(4));
  }
  void dressStroke(_svg_pa_stroke& stroke) {
    stroke.strokeColor = colour();
    stroke.strokePresent = static_cast<std::uint8_t>(pick(3));
    stroke.strokeWidth = length();
    stroke.strokeLinecap = static_cast<std::int32_t>(pick(5));
    stroke.strokeLinejoin = static_cast<std::int32_t>(pick(5));
    stroke.strokeMiterlimit = static_cast<std::int32_t>(2 + pick(20));
    stroke.strokeOpacity = opacity();
    constexpr std::size_t kCounts[] = {0, 0, 0, 1, 2, 3, 4, 19, 21, 40, 42};
    dashes_.clear();
    for (std::size_t count = kCounts[pick(11)]; count > 0; --count) dashes_.push_back(length());
    stroke.strokeDashArray = dashes_.empty() ? nullptr : dashes_.data();
    stroke.strokeDashCount = static_cast<std::int32_t>(dashes_.size());
  }
  void addTransform() {
    const _svg_value angle{10, pick(2) == 0 ? 30.0 * static_cast<double>(pick(13)) : number(), 0};
    const auto factor = [&] { return pixels(pick(3) == 0 ? -1.0 : number() / 50); };
    switch (pick(8)) {
      case 1:
        transforms_.add(kRotate, {angle, length(), length()});
        break;
      case 2:
        transforms_.add(kSkewX, {angle});
        break;
      case 3:
        transforms_.add(kSkewY, {angle});
        break;
      case 4:
        transforms_.add(kMatrix, {factor(), factor(), factor(), factor(), length(), length()});
        break;
      case 5:
        transforms_.add(kTranslate, {length(), length()});
        break;
      case 6:
        transforms_.add(kScale, {factor(), factor()});
        break;
      case 7:
        transforms_.matrix(1, 2, 2, 4, 0, 0);
        break;
      default:
        transforms_.add(7, {pixels(1)});
    }
  }

  std::mt19937 engine_;
  Transforms transforms_;
  std::vector<_svg_point> points_;
  std::vector<_svg_value> dashes_;
};

/// The bytes that only the host knows: links and its own head bytes, pointers, kept rectangles.
bool isTheHosts(int objClass, std::size_t at) {
  if ((at >= 6 && at < 20) || at == 22 || at == 23) return true;
  const auto in = [&](std::size_t from, std::size_t to) { return at >= from && at < to; };
  switch (objClass) {
    case 8:
      return in(24, 44);
    case 33:
      return in(24, 60) || in(84, 128);
    case 3:
    case 9:
      return in(24, 44);
    default:
      return false;
  }
}

constexpr std::size_t kPenDashAt = 20;  // in the pen record of a path

/// One shape of a page against what it must hold.
class Comparison {
 public:
  explicit Comparison(AdapterPage& page) : page_(page) {}

  void compare(const DrawnRecord& expected, const _egf_obj* got) {
    ASSERT_NE(got, nullptr);
    const int objClass = readPacked<int>(expected.image.bytes().data());
    ASSERT_EQ(got->objClass, objClass);
    compareBytes(expected, got, objClass);
    if (!expected.outline) comparePoints(expected, got);
    for (const NamedStyle& style : expected.styles) compareStyle(style, got);
    if (expected.dashAt != 0) {
      const void* holder = objClass == kClassPath ? penOf(got) : got;
      ASSERT_NE(holder, nullptr);
      compareDashes(expected.dashes, readPacked<std::uint32_t>(holder, expected.dashAt));
    }
    const auto children = AdapterPage::children(const_cast<_egf_obj*>(got));
    ASSERT_EQ(children.size(), expected.children.size());
    for (std::size_t i = 0; i < children.size(); ++i) compare(expected.children[i], children[i]);
  }

 private:
  /// Numbers of styles, dashes and cut points are compared by what they stand for.
  static bool isNumber(const DrawnRecord& expected, std::size_t at) {
    const auto in = [at](std::size_t from) { return from != 0 && at >= from && at < from + 4; };
    const auto styleAt = [&](const NamedStyle& style) { return in(style.offset); };
    constexpr std::size_t kPointCountAt = 100;
    return std::any_of(expected.styles.begin(), expected.styles.end(), styleAt) ||
           in(expected.dashAt) || (expected.outline && in(kPointCountAt));
  }
  static void compareBytes(const DrawnRecord& expected, const _egf_obj* got, int objClass) {
    const std::vector<unsigned char>& bytes = expected.image.bytes();
    for (std::size_t at = 0; at < bytes.size(); ++at) {
      if (isTheHosts(objClass, at) || isNumber(expected, at)) continue;
      ASSERT_EQ(readPacked<unsigned char>(got, at), bytes[at])
          << "byte " << at << " of class " << objClass;
    }
  }
  static void comparePoints(const DrawnRecord& expected, const _egf_obj* got) {
    if (expected.pointsAt == 0) return;
    const auto points = readPacked<PointArray>(got, expected.pointsAt);
    for (std::size_t i = 0; i < expected.points.size(); ++i) {
      const _mpl_spacept_tag point = points[i];
      ASSERT_EQ(+point.x, expected.points[i].x) << "point " << i;
      ASSERT_EQ(+point.y, expected.points[i].y) << "point " << i;
    }
  }
  /// The bytes of a style record; none for the number 0.
  std::vector<unsigned char> styleBytes(int styleClass, std::uint32_t number) const {
    void* record = nullptr;
    std::uint32_t size = 0;
    const HostHandle table =
        ISL_GetProperty(page_.document(), static_cast<std::uint32_t>(styleClass));
    if (STYLE_QueryData(table, number, &size, &record) != 0) return {};
    const auto* bytes = static_cast<const unsigned char*>(record);
    return {bytes, bytes + size};
  }
  void compareStyle(const NamedStyle& style, const _egf_obj* got) const {
    const auto number = readPacked<std::uint32_t>(got, style.offset);
    std::vector<unsigned char> bytes = styleBytes(style.styleClass, number);
    ASSERT_EQ(number != 0, style.record.has_value()) << "style " << style.styleClass;
    if (!style.record) return;
    if (style.styleClass == kStylePen) std::fill_n(&bytes[kPenDashAt], 4, 0);
    ASSERT_EQ(bytes, style.record->bytes()) << "style " << style.styleClass;
  }
  /// The pen of a path, in a copy.
  const void* penOf(const _egf_obj* path) {
    constexpr std::size_t kPenNumberAt = 68;
    pen_ = styleBytes(kStylePen, readPacked<std::uint32_t>(path, kPenNumberAt));
    return pen_.empty() ? nullptr : pen_.data();
  }
  void compareDashes(const std::vector<double>& segments, std::uint32_t number) const {
    ASSERT_EQ(number != 0, !segments.empty());
    if (number == 0) return;
    const void* record = EGF_GetDashRecordByStyle(page_.pageHeader()->firstDash.offset, number);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(readPacked<std::uint32_t>(record, 360), 0U);
    ASSERT_EQ(readPacked<std::uint8_t>(record, 364), segments.size());
    for (std::size_t i = 0; i < segments.size(); ++i) {
      ASSERT_EQ(readPacked<double>(record, 32 + 8 * i), segments[i]) << "segment " << i;
    }
  }

  AdapterPage& page_;
  std::vector<unsigned char> pen_;
};

/// Draws the n-th random shape and compares it.
void compareShape(int n) {
  RandomElements random(static_cast<unsigned>(n));
  AdapterPage page(random.resolution);
  page->viewportWidth = random.width;
  page->viewportHeight = random.height;
  const ShapeRecords records(random.resolution, random.width, random.height);
  const auto compare = [&](const DrawnRecord& expected, _egf_obj* got) {
    const OwnedObject object(got);
    Comparison(page).compare(expected, got);
  };
  switch (n % 6) {
    case 0: {
      _svg_rect rect = random.rect();
      return compare(records.rect(rect), page->SVG_formatEGFRect(&rect));
    }
    case 1: {
      _svg_circle circle = random.circle();
      return compare(records.circle(circle), page->SVG_formatEGFCircle(&circle));
    }
    case 2: {
      _svg_ellipse ellipse = random.ellipse();
      return compare(records.ellipse(ellipse), page->SVG_formatEGFEllipse(&ellipse));
    }
    case 3: {
      _svg_line line = random.line();
      return compare(records.line(line), page->SVG_formatEGFLine(&line));
    }
    case 4: {
      _svg_polyline polyline = random.polyline();
      return compare(records.polyline(polyline), page->SVG_formatEGFPolyline(&polyline));
    }
    default: {
      _svg_polygon polygon = random.polygon();
      return compare(records.polygon(polygon), page->SVG_formatEGFPolygon(&polygon));
    }
  }
}

TEST(RandomShapes, HoldTheBytesThatTheirElementsSay) {
  for (int n = 0; n < kShapes && !testing::Test::HasFatalFailure(); ++n) {
    SCOPED_TRACE(n);
    compareShape(n);
  }
}

}  // namespace
}  // namespace egfsvg::test
