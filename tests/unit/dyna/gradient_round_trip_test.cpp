// Gradients that are read, written and read again: what comes back is worked out here from what was
// read first and from what is known to be lost.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>
#include <string>

#include "host/egf_bits.h"
#include "tests/support/drawn_page.h"
#include "tests/support/saved_document.h"
#include "tests/unit/dyna/whole_files.h"

namespace egfsvg::test {
namespace {

constexpr double kUnits = 4096.0;     // space units in a pixel
constexpr double kPi = 3.1415926534;  // as angles are told
constexpr double kRootWidth = 200.0;  // of the drawings with a size
constexpr double kRootHeight = 100.0;

struct Place {
  double x, y;
};

struct Entry {
  std::uint32_t colour;
  int alpha;
  int position;

  bool operator==(const Entry&) const = default;
};
using Ramp = std::vector<Entry>;

void PrintTo(const Entry& entry, std::ostream* out) {
  char text[40];
  std::snprintf(text, sizeof text, "%06x/%d@%d", entry.colour, entry.alpha, entry.position);
  *out << text;
}

/// A gradient as an object of the host carries it.
struct Gradient {
  bool radial = false;
  bool reflects = false;     // of a vector
  int turns = 0;             // gradReflect
  std::optional<int> angle;  // whole degrees
  std::vector<Place> points;
  Ramp ramp;
  double matrix[6] = {1, 0, 0, 1, 0, 0};
};

template <class Record>
std::vector<Place> placesOf(const Record& record) {
  std::vector<Place> places;
  for (int i = 0; i < record.gradPtCount; ++i) {
    const _mpl_spacept_tag point = record.gradPts[static_cast<std::size_t>(i)];
    places.push_back({point.x / kUnits, point.y / kUnits});
  }
  return places;
}

void addRamp(const _egf_gdiplus_gradientparms_tag& record, Gradient* gradient) {
  for (int i = 0; i < record.stopCount; ++i) {
    gradient->ramp.push_back({colourWord(record.stopColors[i]) & 0xffffff, record.stopAlpha[i],
                              record.stopPositions[i]});
  }
  gradient->turns = record.gradReflect;
  const _egf_matrix_tag m = record.gradMatrix;
  const double values[] = {m.m11, m.m12, m.m21, m.m22, m.dx / kUnits, m.dy / kUnits};
  std::copy(std::begin(values), std::end(values), gradient->matrix);
}

template <class Parms>
void addForm(const Parms& parms, bool radial, Gradient* gradient) {
  gradient->radial = radial;
  gradient->reflects = parms.wrapMode == _egf_wrapmode_tag::kFlip;
  if (!radial && parms.angleIsSet == 1) gradient->angle = parms.gradientAngle / 1000000;
}

/// Of a figure: its fill's, else its stroke's.
template <class Record>
std::optional<Gradient> ofFigure(const DrawnPage& page, const Record& record) {
  const std::uint32_t number =
      record.fillGradientNo != 0 ? record.fillGradientNo : record.strokeGradientNo;
  if (number == 0) return std::nullopt;
  Gradient gradient;
  const auto parms = page.style<_egf_gdiplus_fillparms_tag>(kStyleFill, record.fillParmsNo);
  addForm(parms, PathGradientBits::get(parms.gradientKind) != 0, &gradient);
  addRamp(page.style<_egf_gdiplus_gradientparms_tag>(kStyleGradient, number), &gradient);
  gradient.points = placesOf(record);
  return gradient;
}

template <class Record>
std::optional<Gradient> ofStroke(const DrawnPage& page, const Record& record) {
  if (record.strokeGradientNo == 0) return std::nullopt;
  Gradient gradient;
  const auto parms = page.style<_egf_gdiplus_stroke_parms_tag>(kStyleStroke, record.strokeParmsNo);
  addForm(parms, parms.gradientKind != 0, &gradient);
  addRamp(page.style<_egf_gdiplus_gradientparms_tag>(kStyleGradient, record.strokeGradientNo),
          &gradient);
  gradient.points = placesOf(record);
  return gradient;
}

/// Of the only object that is drawn.
std::optional<Gradient> gradientOf(const std::string& drawing) {
  const DrawnPage page(drawing);
  EXPECT_EQ(0, page.result());
  const std::vector<_egf_obj*> objects = page.objects();
  EXPECT_EQ(1U, objects.size()) << drawing;
  if (objects.size() != 1) return std::nullopt;
  _egf_obj* object = objects[0];
  switch (object->layoutClass) {
    case kClassEllipse:
      return ofFigure(page, *as<EgfEllipse>(object));
    case kClassLine:
      return ofStroke(page, *as<EgfLine>(object));
    case kClassPolyline:
      return ofStroke(page, *as<EgfPolyline>(object));
    case kClassPath:
      return ofFigure(page, *as<EgfPath>(object));
    default:
      return ofFigure(page, *as<EgfPolygon>(object));
  }
}

// What is printed.

double decimals(double value, int count) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", count, value);
  return std::stod(text);
}
double oneDecimal(double value) { return decimals(value, 1); }

/// What an opacity of 255 comes back as: two decimals, and truncated.
int opacityAgain(int alpha) { return static_cast<int>(decimals(alpha / 255.0, 2) * 255.0); }

/// A coordinate of a vector. In a root with a size it is a percentage of it, without its sign.
double printed(double value, double whole, bool sized) {
  return sized ? oneDecimal(std::fabs(value / whole) * 100.0) * whole / 100.0 : oneDecimal(value);
}

/// The stops as written, in percent.
Ramp writtenStops(const Gradient& gradient) {
  Ramp stops;
  const int count = static_cast<int>(gradient.ramp.size()) - 2;
  for (int i = 0; i < count; ++i) {
    const Entry& entry =
        gradient.ramp[static_cast<std::size_t>(gradient.radial ? count - i : i + 1)];
    int offset = entry.position / 10;
    if (gradient.radial && gradient.turns == 0) offset = 100 - offset;
    if (gradient.radial && gradient.turns != 0) offset *= gradient.turns + 1;
    stops.push_back({entry.colour, opacityAgain(entry.alpha), offset});
  }
  return stops;
}

/// Where there are more stops than room, those that equal their neighbour go first.
void dropEqual(Ramp* stops, std::size_t most) {
  if (stops->size() > most) stops->erase(std::unique(stops->begin(), stops->end()), stops->end());
}

/// The ramp of a vector: ends doubled, positions in thousandths that never fall.
Ramp vectorRamp(Ramp stops) {
  dropEqual(&stops, 14);
  Ramp ramp{stops.front()};
  ramp.front().position = 0;
  for (Entry stop : stops) {
    stop.position = std::max(stop.position * 10, ramp.back().position);
    ramp.push_back(stop);
  }
  ramp.push_back(stops.back());
  ramp.back().position = 1000;
  return ramp;
}

/// The ramp of a padded ring, from the ring inwards.
Ramp padRamp(Ramp stops) {
  dropEqual(&stops, 13);
  Ramp inner;
  for (auto stop = stops.rbegin(); stop != stops.rend(); ++stop) {
    inner.push_back({stop->colour, stop->alpha, stop->position * 10});
  }
  inner.insert(inner.begin(), {inner.front().colour, inner.front().alpha, 1000});
  inner.push_back({inner.back().colour, inner.back().alpha, 0});
  Ramp ramp{inner.front()};
  ramp.front().position = 0;
  for (Entry entry : inner) {
    entry.position = 1000 - entry.position;
    ramp.push_back(entry);
  }
  return ramp;
}

/// A vector that is turned to its whole degrees keeps its projection on them.
Place turnedEnd(Place from, Place to, int degrees) {
  const double angle = degrees * kPi / 180.0;
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  if (degrees == 0 || degrees == 90 || dy == 0.0) return to;
  const double base = std::fabs(std::atan(dy / dx));
  if (angle == base) return to;
  const double length = std::cos(std::fabs(angle - base)) * dy / std::sin(base);
  return {from.x + std::cos(angle) * length, from.y + std::sin(angle) * length};
}

/// The two points that a vector comes back with.
std::vector<Place> vectorAgain(const Gradient& first, bool sized) {
  Place ends[2] = {first.points[0], first.points[1]};
  if (first.angle) ends[1] = turnedEnd(ends[0], ends[1], *first.angle);
  std::vector<Place> again;
  for (const Place& end : ends) {
    const Place shown{printed(end.x, kRootWidth, sized), printed(end.y, kRootHeight, sized)};
    double m[6];
    for (int i = 0; i < 6; ++i) m[i] = decimals(first.matrix[i], 4);
    again.push_back(
        {m[0] * shown.x + m[2] * shown.y + m[4], m[1] * shown.x + m[3] * shown.y + m[5]});
  }
  return again;
}

/// A vector to the left has its ramp turned end for end; the alphas stay.
Ramp reversed(const Ramp& ramp) {
  Ramp turned = ramp;
  const std::size_t count = ramp.size();
  for (std::size_t i = 0; i < count; ++i) {
    turned[i].colour = ramp[count - 1 - i].colour;
    if (2 * i + 1 != count) turned[i].position = 1000 - ramp[count - 1 - i].position;
  }
  return turned;
}

void expectPoint(Place expected, Place actual) {
  constexpr double kClose = 0.01;
  EXPECT_NEAR(expected.x, actual.x, kClose);
  EXPECT_NEAR(expected.y, actual.y, kClose);
}

void expectVector(const Gradient& first, const Gradient& second, bool sized) {
  ASSERT_EQ(2U, second.points.size());
  const std::vector<Place> points = vectorAgain(first, sized);
  expectPoint(points[0], second.points[0]);
  expectPoint(points[1], second.points[1]);
  const double dx = points[1].x - points[0].x;
  const double dy = points[1].y - points[0].y;
  const bool sloped = std::fabs(dx) > 0.01 && std::fabs(dy) > 0.01;
  const Ramp ramp = vectorRamp(writtenStops(first));
  EXPECT_EQ(sloped && dx < 0.0 ? reversed(ramp) : ramp, second.ramp);
  EXPECT_EQ(first.reflects, second.reflects);
  EXPECT_EQ(sloped, second.angle.has_value());
  if (!sloped || !second.angle) return;
  // Truncated to a whole degree.
  EXPECT_NEAR(std::fabs(std::atan(dy / dx)) * 180.0 / kPi - 0.5, std::abs(*second.angle), 0.52);
}

/// Around the middle of the page, as far from its focus as the ramp is doubled.
void expectRing(const Gradient& first, const Gradient& second) {
  ASSERT_LT(2U, second.points.size());
  const Place focus{oneDecimal(first.points[0].x), oneDecimal(first.points[0].y)};
  expectPoint(focus, second.points[0]);
  const Place center{kRootWidth / 2.0, kRootHeight / 2.0};
  const double radius = std::hypot(kRootWidth, kRootHeight) / std::sqrt(2.0) / 2.0;
  for (std::size_t i = 1; i < second.points.size(); ++i) {
    const Place point = second.points[i];
    ASSERT_NEAR(radius, std::hypot(point.x - center.x, point.y - center.y), 0.05) << i;
  }
}

// All inside of (60,20)-(140,80), which the ring about the middle covers.
constexpr const char* kFilled[] = {
    "<rect x=\"60\" y=\"20\" width=\"80\" height=\"40\" fill=\"url(#a)\"/>",
    "<rect x=\"60\" y=\"20\" width=\"80\" height=\"40\" rx=\"5\" fill=\"url(#a)\"/>",
    "<circle cx=\"100\" cy=\"50\" r=\"30\" fill=\"url(#a)\"/>",
    "<ellipse cx=\"100\" cy=\"50\" rx=\"40\" ry=\"20\" fill=\"url(#a)\"/>",
    "<polygon points=\"60,20 140,30 100,80\" fill=\"url(#a)\"/>",
    "<path d=\"M60 20 L140 30 L100 80 Z\" fill=\"url(#a)\"/>",
    "<path d=\"M60 20 C140 20 140 30 100 80\" fill=\"url(#a)\" stroke=\"red\"/>"};
constexpr const char* kStroked[] = {
    "<line x1=\"60\" y1=\"20\" x2=\"140\" y2=\"80\" stroke=\"url(#a)\"/>",
    "<polyline points=\"60,20 140,30 100,80\" fill=\"none\" stroke=\"url(#a)\"/>",
    "<circle cx=\"100\" cy=\"50\" r=\"30\" fill=\"none\" stroke=\"url(#a)\"/>",
    "<ellipse cx=\"100\" cy=\"50\" rx=\"40\" ry=\"20\" fill=\"none\" stroke=\"url(#a)\"/>",
    "<rect x=\"60\" y=\"20\" width=\"80\" height=\"40\" fill=\"none\" stroke=\"url(#a)\"/>",
    "<path d=\"M60 20 L140 30 L100 80\" fill=\"none\" stroke=\"url(#a)\"/>"};

std::vector<std::string> shapes() {
  std::vector<std::string> all(std::begin(kFilled), std::end(kFilled));
  all.insert(all.end(), std::begin(kStroked), std::end(kStroked));
  return all;
}

/// So many different stops, from 0 to 100 percent, some of them partly clear.
std::string stops(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    char stop[120];
    const double offset = count == 1 ? 40.0 : 100.0 * i / (count - 1);
    std::snprintf(stop, sizeof stop,
                  "<stop offset=\"%.2f%%\" stop-color=\"rgb(%d,%d,%d)\" stop-opacity=\"%.3f\"/>",
                  offset, 10 + i * 4, 200 - i * 3, (i * 37) % 200, i % 3 == 0 ? 0.503 : 1.0);
    text += stop;
  }
  return text;
}

class GradientRoundTrip : public WholeFileTest {
 protected:
  static std::string drawing(const std::string& tag, const std::string& attributes, int count,
                             const std::string& shape, bool sized) {
    return std::string(sized ? "<svg width=\"200\" height=\"100\">"
                             : "<svg viewBox=\"0 0 200 100\">") +
           "<defs><" + tag + " id=\"a\" " + attributes + ">" + stops(count) + "</" + tag +
           "></defs>" + shape + "</svg>";
  }
  /// Without stops nothing is filled; one stop is a colour.
  static void expectPlain(const std::string& text, int stopCount) {
    EXPECT_EQ(std::string::npos, text.find("Gradient"));
    const char* fill = stopCount == 0 ? "fill=\"none\"" : "fill=\"#0ac800\" fill-opacity=\"0.50\"";
    EXPECT_NE(std::string::npos, text.find(fill)) << text;
  }
  static std::string written(const std::string& drawing) {
    SavedDocument document;
    EXPECT_EQ(0, document.read(drawing));
    return document.text();
  }
};

TEST_F(GradientRoundTrip, VectorsOnEveryShape) {
  const char* const vectors[] = {
      "",  // from edge to edge of the shape
      "x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\"",
      "gradientUnits=\"userSpaceOnUse\" x1=\"70\" x2=\"110\"",
      "gradientUnits=\"userSpaceOnUse\" x1=\"110\" x2=\"70\"",
      "gradientUnits=\"userSpaceOnUse\" x1=\"70\" y1=\"60\" x2=\"70\" y2=\"30\"",
      "gradientUnits=\"userSpaceOnUse\" x1=\"70.26\" y1=\"20\" x2=\"100\" y2=\"40\"",
      "gradientUnits=\"userSpaceOnUse\" x1=\"100\" y1=\"50\" x2=\"70\" y2=\"30\"",
      "gradientUnits=\"userSpaceOnUse\" x1=\"70\" y1=\"60\" x2=\"110\" y2=\"30\"",
      "gradientUnits=\"userSpaceOnUse\" x1=\"110\" y1=\"30\" x2=\"70\" y2=\"60\"",
      "gradientUnits=\"userSpaceOnUse\" x1=\"70\" x2=\"110\" gradientTransform=\"translate(3,4)\"",
      "gradientUnits=\"userSpaceOnUse\" x1=\"70\" x2=\"110\" gradientTransform=\"scale(.5,2)\"",
      "x1=\"0.2\" x2=\"0.6\" gradientTransform=\"scale(1.5)\""};
  for (const std::string& shape : shapes()) {
    for (const char* vector : vectors) {
      for (const char* spread : {"pad", "reflect", "repeat"}) {
        const std::string text =
            drawing("linearGradient", std::string(vector) + " spreadMethod=\"" + spread + "\"", 3,
                    shape, false);
        SCOPED_TRACE(text);
        const auto first = gradientOf(text);
        const auto second = gradientOf(written(text));
        ASSERT_TRUE(first && second);
        EXPECT_EQ(spread == std::string("reflect"), first->reflects);
        expectVector(*first, *second, false);
      }
    }
  }
}

TEST_F(GradientRoundTrip, VectorsInARootWithASizeArePercentages) {
  for (const char* vector : {"x1=\"70\" x2=\"110.33\"", "x1=\"-30\" x2=\"110\"",
                             "x1=\"70\" y1=\"10\" x2=\"70\" y2=\"55.55\""}) {
    const std::string text =
        drawing("linearGradient",
                std::string("gradientUnits=\"userSpaceOnUse\" spreadMethod=\"repeat\" ") + vector,
                2, kFilled[0], true);
    SCOPED_TRACE(text);
    const std::string again = written(text);
    EXPECT_NE(std::string::npos, again.find("%\" x2=")) << again;
    const auto first = gradientOf(text);
    const auto second = gradientOf(again);
    ASSERT_TRUE(first && second);
    expectVector(*first, *second, true);
  }
}

TEST_F(GradientRoundTrip, StopsOfVectors) {
  for (int count : {0, 1, 2, 13, 14, 15, 50}) {
    const std::string text =
        drawing("linearGradient", "spreadMethod=\"repeat\"", count, kFilled[0], false);
    SCOPED_TRACE(count);
    const auto first = gradientOf(text);
    const std::string again = written(text);
    const auto second = gradientOf(again);
    ASSERT_EQ(count > 1, first.has_value());
    ASSERT_EQ(count > 1, second.has_value());
    if (count < 2) {
      expectPlain(again, count);
      continue;
    }
    EXPECT_EQ(static_cast<std::size_t>(std::min(count, 14) + 2), first->ramp.size());
    expectVector(*first, *second, false);
    // From then on nothing changes but the opacity.
    const auto third = gradientOf(written(again));
    ASSERT_TRUE(third);
    EXPECT_EQ(vectorRamp(writtenStops(*second)), third->ramp);
    EXPECT_EQ(second->ramp.size(), third->ramp.size());
  }
}

TEST_F(GradientRoundTrip, RingsLoseTheirCentreAndRadius) {
  const char* const circles[] = {
      "gradientUnits=\"userSpaceOnUse\" cx=\"100\" cy=\"50\" r=\"60\" fx=\"90.04\" fy=\"45\"",
      "gradientUnits=\"userSpaceOnUse\" cx=\"100\" cy=\"50\" r=\"60\" fx=\"100\" fy=\"50\"",
      "gradientUnits=\"userSpaceOnUse\" cx=\"80\" cy=\"60\" r=\"90\" fx=\"95\" fy=\"50\"",
      "r=\"1\"",
      "r=\"1\" fx=\"0.4\" fy=\"0.6\"",
      "r=\"1\" gradientTransform=\"translate(0.01,0.02)\""};
  for (const std::string& shape : shapes()) {
    for (const char* circle : circles) {
      const std::string text = drawing("radialGradient", circle, 3, shape, true);
      SCOPED_TRACE(text);
      const auto first = gradientOf(text);
      const auto second = gradientOf(written(text));
      ASSERT_TRUE(first && second);
      expectRing(*first, *second);
      // One stop more: the last stands twice.
      EXPECT_EQ(6U, first->ramp.size());
      EXPECT_EQ(padRamp(writtenStops(*first)), second->ramp);
      EXPECT_EQ(first->ramp.size() + 1, second->ramp.size());
    }
  }
}

TEST_F(GradientRoundTrip, StopsOfRingsGrowToTheirRoom) {
  for (int count : {0, 1, 2, 12, 13, 14, 15, 50}) {
    SCOPED_TRACE(count);
    std::string text = drawing("radialGradient", "r=\"1\"", count, kFilled[0], true);
    auto former = gradientOf(text);
    ASSERT_EQ(count > 1, former.has_value());
    if (!former) {
      expectPlain(written(text), count);
      continue;
    }
    EXPECT_EQ(static_cast<std::size_t>(std::min(count, 13) + 3), former->ramp.size());
    for (int trip = 0; trip < 3; ++trip) {
      text = written(text);
      const auto after = gradientOf(text);
      ASSERT_TRUE(after);
      EXPECT_EQ(padRamp(writtenStops(*former)), after->ramp);
      EXPECT_GE(16U, after->ramp.size());
      former = after;
    }
  }
}

/// The spread that a ring is written with; nothing is told of pad.
TEST_F(GradientRoundTrip, SpreadsOfRings) {
  struct Row {
    const char* spread;
    const char* radius;  // of the shape's box
    int turns;           // of what is read first
    bool repeats;        // when it is written
  };
  const Row rows[] = {{"pad", "1", 0, false},      {"repeat", "1", 0, false},
                      {"repeat", "0.4", 1, true},  {"repeat", "0.2", 3, true},
                      {"reflect", "1", 0, false},  {"reflect", "0.4", 0, false},
                      {"reflect", "0.2", 1, true}, {"reflect", "0.1", 3, true}};
  for (const Row& row : rows) {
    const std::string text =
        drawing("radialGradient",
                std::string("r=\"") + row.radius + "\" spreadMethod=\"" + row.spread + "\"", 2,
                kFilled[0], true);
    SCOPED_TRACE(text);
    const auto first = gradientOf(text);
    ASSERT_TRUE(first);
    EXPECT_EQ(row.turns, first->turns);
    const std::string again = written(text);
    EXPECT_EQ(row.repeats, again.find("spreadMethod=\"repeat\"") != std::string::npos) << again;
    EXPECT_EQ(std::string::npos, again.find("spreadMethod=\"reflect\""));
    EXPECT_TRUE(gradientOf(again));
  }
}

TEST_F(GradientRoundTrip, AFillsGradientWinsOverTheStrokes) {
  const std::string text =
      drawing("linearGradient", "", 2,
              "<circle cx=\"100\" cy=\"50\" r=\"30\" fill=\"url(#a)\" stroke=\"url(#a)\"/>", false);
  const std::string again = written(text);
  EXPECT_NE(std::string::npos, again.find("fill=\"url(#grad1)\""));
  EXPECT_EQ(std::string::npos, again.find("stroke=\"url(#"));
}

/// Without the record that tells its form, a gradient has no name to be found by.
TEST_F(GradientRoundTrip, AGradientWithoutNameFillsNothing) {
  const auto gradient = gradientOf(drawing(
      "linearGradient", "", 2, "<rect width=\"9\" height=\"9\" fill=\"url(#grad-1)\"/>", false));
  EXPECT_FALSE(gradient);
}

}  // namespace
}  // namespace egfsvg::test
