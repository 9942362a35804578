// Points of paths that the identity maps, which the builder keeps as they are, beside the long way.
#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "host/egf_bits.h"
#include "tests/support/drawn_page.h"

namespace egfsvg::test {
namespace {

class RandomSteps {
 public:
  unsigned pick(unsigned count) { return engine_() % count; }

 private:
  std::mt19937 engine_{1};
};

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
TEST(IdentityPaths, StandWhereTheLongWayOfTheIdentityPutsThem) {
  RandomSteps random;
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
