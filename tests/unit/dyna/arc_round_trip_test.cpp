// Arcs that are read, written and read again keep their shape, as far as two decimals tell it. All
// geometry here is worked out apart from the code under test.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <random>

#include "embedded_host/host_settings.h"
#include "host/egf_bits.h"
#include "tests/support/drawn_page.h"
#include "tests/support/saved_document.h"
#include "tests/unit/dyna/whole_files.h"

namespace egfsvg::test {
namespace {

constexpr double kUnits = 4096.0;  // space units in a pixel

struct Place {
  double x, y;
};
using Curve = std::vector<Place>;

double distance(Place a, Place b) { return std::hypot(a.x - b.x, a.y - b.y); }

double distanceToSegment(Place p, Place a, Place b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double square = dx * dx + dy * dy;
  const double t =
      square == 0.0 ? 0.0 : std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0);
  return distance(p, {a.x + t * dx, a.y + t * dy});
}

/// How far a place lies off the segments [first, last) of a curve.
double offSegments(Place place, const Curve& curve, std::size_t first, std::size_t last,
                   std::size_t* nearest) {
  double least = std::numeric_limits<double>::infinity();
  for (std::size_t i = first; i < last; ++i) {
    const double off = distanceToSegment(place, curve[i], curve[i + 1]);
    if (off < least) *nearest = i;
    least = std::min(least, off);
  }
  return least;
}

/// How far the places of one curve lie off the other at the most. Both run alike, so a place is
/// looked for near the one before it, and everywhere when it is far from there.
double farthest(const Curve& places, const Curve& from) {
  constexpr std::size_t kNear = 24;
  constexpr double kFar = 1.0;
  const std::size_t segments = from.size() - 1;
  std::size_t nearest = 0;
  double most = 0.0;
  for (const Place& place : places) {
    const std::size_t first = nearest > kNear ? nearest - kNear : 0;
    const std::size_t last = std::min(segments, nearest + kNear);
    double least = offSegments(place, from, first, last, &nearest);
    if (least > kFar) least = offSegments(place, from, 0, segments, &nearest);
    most = std::max(most, least);
  }
  return most;
}

/// The same both ways and at the ends, which tell the direction.
double apart(const Curve& a, const Curve& b) {
  if (a.size() < 2 || b.size() < 2) return std::numeric_limits<double>::infinity();
  return std::max({farthest(a, b), farthest(b, a), distance(a.front(), b.front()),
                   distance(a.back(), b.back())});
}

/// One arc as a path gives it, absolute, in pixels and degrees.
struct Arc {
  Place from, to;
  double rx, ry;
  double turn;
  bool large, sweep;
};

constexpr int kSteps = 480;

/// SVG 1.1, appendix F.6.5. The radii grow where they are too small, in `arc` too.
Curve placesOf(Arc& arc) {
  const double phi = arc.turn * std::numbers::pi / 180.0;
  const double c = std::cos(phi);
  const double s = std::sin(phi);
  const double hx = (arc.from.x - arc.to.x) / 2.0;
  const double hy = (arc.from.y - arc.to.y) / 2.0;
  const double x = c * hx + s * hy;
  const double y = c * hy - s * hx;
  const double reach = std::sqrt(x * x / (arc.rx * arc.rx) + y * y / (arc.ry * arc.ry));
  if (reach > 1.0) {
    arc.rx *= reach;
    arc.ry *= reach;
  }
  // On the unit circle: the chord is 2 * half long, the centre lies off its middle.
  const double u = x / arc.rx;
  const double v = y / arc.ry;
  const double half = std::hypot(u, v);
  const double off = std::sqrt(std::max(0.0, 1.0 - half * half)) / half;
  const double side = arc.large == arc.sweep ? -1.0 : 1.0;
  const double cu = side * off * v;
  const double cv = -side * off * u;
  const double first = std::atan2(v - cv, u - cu);
  double swept = std::atan2(-v - cv, -u - cu) - first;
  if (arc.sweep && swept < 0.0) swept += 2.0 * std::numbers::pi;
  if (!arc.sweep && swept > 0.0) swept -= 2.0 * std::numbers::pi;
  Curve places;
  for (int i = 0; i <= kSteps; ++i) {
    const double t = first + swept * i / kSteps;
    const double px = arc.rx * (cu + std::cos(t));
    const double py = arc.ry * (cv + std::sin(t));
    places.push_back({c * px - s * py + (arc.from.x + arc.to.x) / 2.0,
                      s * px + c * py + (arc.from.y + arc.to.y) / 2.0});
  }
  return places;
}

/// The arc with its ends and radii moved by what is lost in print: along the chord or across it.
Arc disturbed(const Arc& arc, double along, double across) {
  constexpr double kLost = 0.0075;  // a half of the last decimal, and a little
  const double chord = distance(arc.from, arc.to);
  const Place way{(arc.to.x - arc.from.x) / chord, (arc.to.y - arc.from.y) / chord};
  const Place step{kLost * (along * way.x - across * way.y),
                   kLost * (along * way.y + across * way.x)};
  Arc moved = arc;
  moved.from = {arc.from.x - step.x, arc.from.y - step.y};
  moved.to = {arc.to.x + step.x, arc.to.y + step.y};
  moved.rx -= kLost * along;
  moved.ry -= kLost * along;
  return moved;
}

/// How far the shape can move when its numbers are printed with two decimals.
double lostInPrint(const Arc& arc, const Curve& shape) {
  const auto moved = [&](double along, double across) {
    Arc other = disturbed(arc, along, across);
    const Curve places = placesOf(other);
    double most = 0.0;
    for (std::size_t i = 0; i < shape.size(); ++i) {
      most = std::max(most, distance(shape[i], places[i]));
    }
    return most;
  };
  return std::max(moved(1, 0), moved(-1, 0)) + std::max(moved(0, 1), moved(0, -1));
}

Place placeOf(const _mpl_spacept_tag& point) { return {point.x / kUnits, point.y / kUnits}; }

/// A child's arc runs counter-clockwise by polar angles, on a page whose y grows downwards, and is
/// drawn from its end when its direction says so.
void addArc(const EgfArc& arc, Curve* curve) {
  Curve places;
  const Place center = placeOf(arc.center);
  const Place radii = placeOf(arc.radiusPt);
  // The ellipse's parameter at a polar angle, in the same turn.
  const auto parameterAt = [&](double degrees) {
    const double polar = degrees * std::numbers::pi / 180.0;
    const double t = std::atan2(radii.x * std::sin(polar), radii.y * std::cos(polar));
    return t + 2.0 * std::numbers::pi * std::round((polar - t) / (2.0 * std::numbers::pi));
  };
  const double first = parameterAt(arc.startAngle / 1e6);
  const double swept = parameterAt(arc.endAngle / 1e6) - first;
  for (int i = 0; i <= kSteps; ++i) {
    const double t = first + swept * i / kSteps;
    places.push_back({center.x + radii.x * std::cos(t), center.y - radii.y * std::sin(t)});
  }
  if (ArcDirectionBits::get(arc.pen.arcFlags) != 0) std::reverse(places.begin(), places.end());
  curve->insert(curve->end(), places.begin(), places.end());
}

void addCurves(const EgfPolygon& chain, Curve* curve) {
  constexpr int kCurveSteps = 64;
  const _mpl_spacept_tag* points = chain.points.get();
  for (std::int32_t first = 0; first + 3 < static_cast<std::int32_t>(chain.pointCount);
       first += 3) {
    for (int i = 0; i <= kCurveSteps; ++i) {
      const double t = static_cast<double>(i) / kCurveSteps;
      const double weights[] = {(1 - t) * (1 - t) * (1 - t), 3 * t * (1 - t) * (1 - t),
                                3 * t * t * (1 - t), t * t * t};
      Place place{0.0, 0.0};
      for (int k = 0; k < 4; ++k) {
        const Place control = placeOf(points[first + k]);
        place.x += weights[k] * control.x;
        place.y += weights[k] * control.y;
      }
      curve->push_back(place);
    }
  }
}

/// What a path object draws, in drawing order.
Curve drawnBy(_egf_obj* path) {
  Curve curve;
  for (_egf_obj* child : DrawnPage::children(path)) {
    switch (child->layoutClass) {
      case kClassArc:
        addArc(*as<EgfArc>(child), &curve);
        break;
      case kClassPolygon:
        addCurves(*as<EgfPolygon>(child), &curve);
        break;
      case kClassLine:
        curve.push_back(placeOf(as<EgfLine>(child)->startPt));
        curve.push_back(placeOf(as<EgfLine>(child)->endPt));
        break;
      case kClassPolyline: {
        const EgfPolyline* run = as<EgfPolyline>(child);
        for (std::uint32_t i = 0; i < run->pointCount; ++i) {
          curve.push_back(placeOf(run->points.get()[i]));
        }
        break;
      }
      default:
        ADD_FAILURE() << "class " << static_cast<int>(child->layoutClass);
    }
  }
  return curve;
}

std::string text(double value) {
  char digits[40];
  std::snprintf(digits, sizeof digits, "%.3f", value);
  return digits;
}

/// A drawn arc with the ways it can be written down.
struct Sample {
  Arc arc;
  bool relative = false;
  bool closed = false;
  double scaleX = 1.0, scaleY = 1.0, shiftX = 0.0, shiftY = 0.0;
  double rotation = 0.0;  // of the element

  bool moved() const { return scaleX != 1.0 || scaleY != 1.0 || shiftX != 0.0 || shiftY != 0.0; }
  /// Whether the object holds the arc itself and not curves.
  bool plain() const { return rotation == 0.0 && (arc.turn == 0.0 || arc.rx == arc.ry); }

  std::string element() const {
    const Place origin = relative ? arc.from : Place{0.0, 0.0};
    std::string path = "<path fill=\"none\" stroke=\"blue\"";
    if (rotation != 0.0) {
      path += " transform=\"rotate(" + text(rotation) + ")\"";
    } else if (moved()) {
      path += " transform=\"translate(" + text(shiftX) + "," + text(shiftY) + ") scale(" +
              text(scaleX) + "," + text(scaleY) + ")\"";
    }
    path += " d=\"M" + text(arc.from.x) + "," + text(arc.from.y) + (relative ? " a" : " A") +
            text(arc.rx) + "," + text(arc.ry) + " " + text(arc.turn) + " " +
            (arc.large ? "1 " : "0 ") + (arc.sweep ? "1 " : "0 ") + text(arc.to.x - origin.x) +
            "," + text(arc.to.y - origin.y) + (closed ? " Z" : "") + "\"/>";
    return path;
  }

  /// The arc as it lies on the page; of a plain sample.
  Arc onPage() const {
    Arc mapped = arc;
    for (Place* place : {&mapped.from, &mapped.to}) {
      *place = {place->x * scaleX + shiftX, place->y * scaleY + shiftY};
    }
    mapped.rx *= scaleX;
    mapped.ry *= scaleY;
    mapped.turn = 0.0;
    return mapped;
  }
};

/// Arcs by their ends, whose radii are often too small; and arcs by their angles, small, nearly
/// half and nearly whole ones among them, of ellipses that may be flat.
class Samples {
 public:
  Sample next() {
    Sample sample;
    sample.arc = one(2) ? byEnds() : byAngles();
    sample.relative = one(2);
    sample.closed = one(3);
    if (one(4)) {
      sample.scaleX = between(0.3, 3.0);
      sample.scaleY = sample.arc.turn != 0.0 || one(2) ? sample.scaleX : between(0.3, 3.0);
      sample.shiftX = between(-50.0, 50.0);
      sample.shiftY = between(-50.0, 50.0);
    } else if (one(6)) {
      sample.rotation = between(1.0, 359.0);
    }
    return sample;
  }

 private:
  Arc byEnds() {
    Arc arc{};
    arc.from = {between(20.0, 400.0), between(20.0, 400.0)};
    arc.to = {between(20.0, 400.0), between(20.0, 400.0)};
    const double chord = distance(arc.from, arc.to);
    arc.rx = thousandths(chord * between(0.2, 1.5));
    arc.ry = one(3) ? arc.rx : thousandths(chord * between(0.2, 1.5));
    if (one(3)) arc.turn = between(-180.0, 180.0);
    arc.large = one(2);
    arc.sweep = one(2);
    return arc;
  }

  Arc byAngles() {
    Arc arc{};
    const Place center{between(100.0, 300.0), between(100.0, 300.0)};
    arc.rx = between(20.0, 300.0);
    arc.ry = one(2) ? arc.rx : thousandths(arc.rx * between(0.05, 1.0));
    const double start = between(0.0, 360.0);
    const double swept = sweptBy();
    arc.large = swept > 180.0;
    arc.sweep = one(2);
    const auto at = [&](double degrees) {
      const double t = (arc.sweep ? degrees : -degrees) * std::numbers::pi / 180.0;
      return Place{thousandths(center.x + arc.rx * std::cos(t)),
                   thousandths(center.y + arc.ry * std::sin(t))};
    };
    arc.from = at(start);
    arc.to = at(start + swept);
    return arc;
  }

  double sweptBy() {
    if (one(3)) return between(178.8, 181.2);
    if (one(3)) return between(0.5, 5.0);
    return one(3) ? between(350.0, 359.9) : between(5.0, 355.0);
  }

  static double thousandths(double value) { return std::round(value * 1000.0) / 1000.0; }
  double between(double low, double high) {
    return thousandths(std::uniform_real_distribution<double>(low, high)(random_));
  }
  bool one(int in) { return std::uniform_int_distribution<int>(1, in)(random_) == 1; }

  std::mt19937 random_{20260823};
};

class ArcRoundTrip : public WholeFileTest {
 protected:
  static constexpr int kInDrawing = 50;
  static constexpr int kDrawings = 30;

  /// What the paths of a drawing draw, one by one.
  static std::vector<Curve> read(const std::string& drawing) {
    DrawnPage page(drawing);
    EXPECT_EQ(0, page.result());
    std::vector<Curve> curves;
    for (_egf_obj* object : page.objects()) {
      EXPECT_EQ(kClassPath, object->layoutClass);
      curves.push_back(drawnBy(object));
    }
    return curves;
  }
  static std::string written(const std::string& drawing) {
    SavedDocument document;
    EXPECT_EQ(0, document.read(drawing));
    return document.text();
  }

  void expectKept(const std::vector<Sample>& samples) {
    std::string drawing = "<svg width=\"500\" height=\"500\">";
    for (const Sample& sample : samples) drawing += sample.element();
    drawing += "</svg>";
    const std::vector<Curve> first = read(drawing);
    const std::vector<Curve> second = read(written(drawing));
    ASSERT_EQ(samples.size(), first.size());
    ASSERT_EQ(samples.size(), second.size());
    for (std::size_t i = 0; i < samples.size(); ++i) compare(samples[i], first[i], second[i]);
  }

  void compare(const Sample& sample, const Curve& first, const Curve& second) {
    constexpr double kPrecision = 0.02;
    double allowed = kPrecision;
    if (sample.plain()) {
      Arc exact = sample.arc;
      placesOf(exact);  // settles the radii before the scale changes them
      Sample settled = sample;
      settled.arc = exact;
      Arc onPage = settled.onPage();
      Curve ideal = placesOf(onPage);
      allowed += lostInPrint(onPage, ideal);
      if (sample.closed) ideal.push_back(ideal.front());
      EXPECT_LT(apart(ideal, first), kPrecision) << sample.element();
    }
    EXPECT_LT(apart(first, second), allowed) << sample.element();
    ++compared_;
    if (allowed < 2.0 * kPrecision) ++tight_;
  }

  int compared_ = 0;
  int tight_ = 0;
};

TEST_F(ArcRoundTrip, ShapesStay) {
  for (const bool trueCurves : {false, true}) {
    egfhost::setSetting("trueCurves", trueCurves ? 1 : 0);
    Samples samples;
    for (int drawing = 0; drawing < kDrawings; ++drawing) {
      std::vector<Sample> some;
      while (some.size() < kInDrawing) some.push_back(samples.next());
      expectKept(some);
    }
  }
  EXPECT_EQ(2 * kDrawings * kInDrawing, compared_);
  EXPECT_GT(tight_, compared_ / 3);
}

}  // namespace
}  // namespace egfsvg::test
