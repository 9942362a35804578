// Children that the builder links and measures itself beside those that the host appends.
#include "adapter_reader/path_children.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "host/egf_bits.h"
#include "tests/support/drawn_page.h"

namespace egfsvg::test {
namespace {

constexpr int kRounds = 4000;

class RandomChildren {
 public:
  unsigned pick(unsigned count) { return engine_() % count; }
  /// Small whole numbers, so that places meet; seldom a zero with its sign, or no number.
  float coordinate() {
    constexpr float kSpecial[] = {-0.0F, std::numeric_limits<float>::infinity(),
                                  std::numeric_limits<float>::quiet_NaN()};
    const unsigned at = pick(80);
    return at < std::size(kSpecial) ? kSpecial[at] : static_cast<float>(pick(21)) - 10.0F;
  }
  std::vector<_mpl_spacept_tag> points(unsigned count) {
    std::vector<_mpl_spacept_tag> places;
    while (places.size() < count) places.push_back({coordinate(), coordinate()});
    return places;
  }

 private:
  std::mt19937 engine_{1};
};

PointBox boxOf(const std::vector<_mpl_spacept_tag>& points) {
  PointBox box;
  for (const _mpl_spacept_tag& point : points) box.include(&point);
  return box;
}

_mpl_spacept_tag* blockOf(const std::vector<_mpl_spacept_tag>& points) {
  void* block = RMM_AllocName(points.size(), sizeof(_mpl_spacept_tag), RMM_SITE);
  std::memcpy(block, points.data(), points.size() * sizeof(_mpl_spacept_tag));
  return static_cast<_mpl_spacept_tag*>(block);
}

ObjectOwner made(int objClass, const std::vector<_mpl_spacept_tag>& points) {
  ObjectOwner object(EEL_AllocObject(objClass, RMM_SITE));
  if (objClass == kClassLine) {
    as<EgfLine>(object.get())->startPt = points[0];
    as<EgfLine>(object.get())->endPt = points[1];
  } else if (objClass == kClassPolyline) {
    as<EgfPolyline>(object.get())->points = blockOf(points);
    as<EgfPolyline>(object.get())->pointCount = static_cast<std::uint32_t>(points.size());
  } else if (objClass == kClassArc) {
    as<EgfArc>(object.get())->center = points[0];
    as<EgfArc>(object.get())->radiusPt = points[1];
    as<EgfArc>(object.get())->endAngle = 90 * kMillionths;
  } else {
    auto* curve = as<EgfPolygon>(object.get());
    curve->points = blockOf(points);
    curve->pointCount = static_cast<std::int32_t>(points.size());
    curve->pen.modeFlags = CurveChildBits::with(0, kCurveChild);
  }
  return object;
}

void addTo(PathChildren& children, int objClass, const std::vector<_mpl_spacept_tag>& points) {
  if (objClass == kClassPolygon) {
    children.addCurve(made(objClass, points), boxOf(points));
  } else if (objClass == kClassArc) {
    children.add(made(objClass, points));
  } else {
    children.addStraight(made(objClass, points), boxOf(points));
  }
}

std::string linksOf(const EgfPath* path) {
  std::string text;
  const _egf_obj* last = nullptr;
  for (const _egf_obj* at = path->firstChild.get(); at != nullptr; at = at->next.get()) {
    text += std::to_string(at->objClass);
    text += at->parent.get() == headOf(const_cast<EgfPath*>(path)) ? " " : " strange ";
    last = at;
  }
  return text + (path->lastChild.get() == last ? "." : "!");
}

TEST(PathChildren, AreThoseOfTheHost) {
  RandomChildren random;
  constexpr int kClasses[] = {kClassLine, kClassPolyline, kClassPolygon, kClassPolygon, kClassArc};
  int boxed = 0;
  for (int round = 0; round < kRounds; ++round) {
    const ObjectOwner hosts(EEL_AllocObject(kClassPath, RMM_SITE));
    const ObjectOwner own(EEL_AllocObject(kClassPath, RMM_SITE));
    PathChildren children;
    children.begin(own.get());
    for (unsigned count = random.pick(6); count > 0; --count) {
      const int objClass = kClasses[random.pick(5)];
      const unsigned places = objClass == kClassPolyline  ? 3 + random.pick(4)
                              : objClass == kClassPolygon ? 4
                                                          : 2;
      const auto points = random.points(places);
      ASSERT_EQ(EEL_AppendObject(hosts.get(), made(objClass, points).release()), 0);
      addTo(children, objClass, points);
    }
    children.finish();
    const auto* expected = as<EgfPath>(hosts.get());
    const auto* got = as<EgfPath>(own.get());
    ASSERT_EQ(linksOf(got), linksOf(expected)) << round;
    ASSERT_EQ(got->hasBounds + 0, expected->hasBounds + 0) << round;
    const _mpl_spacerect_tag a = got->bounds;
    const _mpl_spacerect_tag b = expected->bounds;
    ASSERT_EQ(std::memcmp(&a, &b, sizeof a), 0) << round;
    boxed += got->hasBounds != 0 ? 1 : 0;
  }
  EXPECT_GT(boxed, kRounds / 2);
  EXPECT_LT(boxed, kRounds);
}

void appendBytes(std::string& text, const void* from, std::size_t size) {
  text.append(static_cast<const char*>(from), size);
}

/// Every coordinate of a path's children, and its own box, to the bit.
std::string bytesOf(_egf_obj* path) {
  std::string text;
  const _mpl_spacerect_tag bounds = as<EgfPath>(path)->bounds;
  appendBytes(text, &bounds, sizeof bounds);
  for (_egf_obj* child : DrawnPage::children(path)) {
    if (child->layoutClass == kClassPath) {
      text += bytesOf(child);
    } else if (child->layoutClass == kClassPolyline) {
      const auto* run = as<EgfPolyline>(child);
      appendBytes(text, run->points.get(), run->pointCount * sizeof(_mpl_spacept_tag));
    } else if (child->layoutClass == kClassPolygon) {
      const auto* curve = as<EgfPolygon>(child);
      const auto count = static_cast<std::size_t>(curve->pointCount);
      appendBytes(text, curve->points.get(), count * sizeof(_mpl_spacept_tag));
    } else {
      constexpr std::size_t kEnds = 2 * sizeof(_mpl_spacept_tag);  // of a line, or of an arc
      appendBytes(text, reinterpret_cast<const char*>(child) + sizeof(_egf_obj), kEnds);
    }
  }
  return text;
}

// A list that maps by the numbers of the identity takes the long way.
TEST(PathChildren, StandWhereTheLongWayOfTheIdentityPutsThem) {
  RandomChildren random;
  constexpr const char* kSteps[] = {"M", "L", "l",           "C", "c", "S",
                                    "Q", "t", "A5 5 0 0 1 ", "h", "Z"};
  constexpr unsigned kNumbers[] = {2, 2, 2, 6, 6, 4, 4, 2, 2, 1, 0};
  constexpr const char* kHuge[] = {"1e300", "-1e40", "1e35", "-0", "-1e-60", "7.25"};
  int drawn = 0;
  for (int round = 0; round < 600; ++round) {
    std::string d = "M" + std::to_string(random.pick(9)) + " 1";
    const bool huge = random.pick(2) == 0;
    for (unsigned count = random.pick(7); count > 0; --count) {
      const unsigned step = random.pick(std::size(kSteps));
      d += kSteps[step];
      for (unsigned left = kNumbers[step]; left > 0; --left) {
        d += huge && random.pick(6) == 0 ? kHuge[random.pick(std::size(kHuge))]
                                         : std::to_string(static_cast<int>(random.pick(19)) - 9);
        d += ' ';
      }
    }
    const DrawnPage plain("<svg viewBox='0 0 9 9'><path d='" + d + "'/></svg>");
    const DrawnPage mapped("<svg viewBox='0 0 9 9'><path transform='translate(0)' d='" + d +
                           "'/></svg>");
    const auto one = plain.objects();
    const auto other = mapped.objects();
    ASSERT_EQ(one.size(), other.size()) << d;
    if (one.empty()) continue;
    ++drawn;
    ASSERT_EQ(bytesOf(one[0]), bytesOf(other[0])) << d;
  }
  EXPECT_GT(drawn, 300);
}

}  // namespace
}  // namespace egfsvg::test
