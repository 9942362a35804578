// Texts are laid out by their own widths: `charWidth` for each character, nine tenths of the size
// above the baseline, a quarter below, and 1.15 of it from line to line.

#include <gtest/gtest.h>

#include <string>

#include "tests/support/egf_builder.h"

namespace egfsvg::test {
namespace {

constexpr std::uint8_t kBaseline = 0x18;
constexpr double kWithin = 1e-3;  // pixels

void expectMer(_mpl_spacerect_tag mer, double left, double top, double right, double bottom,
               const char* name) {
  EXPECT_NEAR(mer.left / 4096.0, left, kWithin) << name;
  EXPECT_NEAR(mer.top / 4096.0, top, kWithin) << name;
  EXPECT_NEAR(mer.right / 4096.0, right, kWithin) << name;
  EXPECT_NEAR(mer.bottom / 4096.0, bottom, kWithin) << name;
}

TextStyle justified(int justification) {
  TextStyle style;
  style.justification = static_cast<std::uint8_t>(justification);
  return style;
}

// Size 20 and width 10 unless told: 18 above the baseline, 5 below, 23 from line to line.
TEST(TextMer, FollowsAnchorWidthAndTurn) {
  const struct {
    const char* name;
    _egf_obj* object;
    double left, top, right, bottom;
  } rows[] = {
      {"left", text({100, 50}, "abcd"), 100, 32, 140, 55},
      {"centre is 4", text({100, 50}, "abcd", justified(kBaseline | 4)), 80, 32, 120, 55},
      {"right is 2", text({100, 50}, "abcd", justified(kBaseline | 2)), 60, 32, 100, 55},
      {"top", text({100, 50}, "abcd", justified(0)), 100, 50, 140, 73},
      {"bottom", text({100, 50}, "abcd", justified(0x08)), 100, 27, 140, 50},
      {"middle", text({100, 50}, "abcd", justified(0x10)), 100, 38.5, 140, 61.5},
      {"empty", text({100, 50}, ""), 100, 32, 100, 55},
      {"a larger size", text({0, 0}, "ab", {.size = 40, .charWidth = 12}), 0, -36, 24, 10},
      {"natural width", text({0, 0}, "ab", {.charWidth = 0}), 0, -18, 20, 5},
      {"two lines", text({0, 0}, "ab\nabcd"), 0, -18, 40, 28},
      {"carriage returns", text({0, 0}, "ab\r\nabcd"), 0, -18, 40, 28},
      {"quarter counter-clockwise", text({100, 50}, "abcd", {.rotation = 90}), 82, 10, 105, 50},
      {"half", text({100, 50}, "abcd", {.rotation = 180}), 60, 45, 100, 68},
      {"annotation", annotation({100, 50}, "abcd\nab"), 100, 32, 140, 78},
  };
  for (const auto& row : rows) {
    const OwnedObject object(row.object);
    _mpl_spacerect_tag mer;
    ASSERT_EQ(EEL_GetObjectMer(row.object, &mer, 0), 0) << row.name;
    expectMer(mer, row.left, row.top, row.right, row.bottom, row.name);
    expectMer(readPacked<_mpl_spacerect_tag>(row.object, 32), row.left, row.top, row.right,
              row.bottom, row.name);
  }
}

TEST(TextMer, AddsOrientationAndLetterSpacing) {
  const OwnedObject object(edit<EgfTextObject>(text({100, 50}, "abcd"), [](EgfTextObject& record) {
    record.parms.orientation = 900;
    record.parms.letterSpacing = 2.5;
  }));
  ASSERT_EQ(EGF_CalcTextMer(object.get(), 0), 0);
  _mpl_spacerect_tag mer;
  ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, 0), 0);
  expectMer(mer, 82, 0, 105, 50, "turned by its orientation");
}

TEST(TextMer, TakesTheSizeInItsUnit) {
  const struct {
    std::uint32_t unit;
    double value;
  } rows[] = {// each 96 pixels at 96 dots per inch
              {0, 96}, {1, 1},    {2, 2.54}, {3, 25.4},   {4, 0.0254}, {5, 1 / 12.0},
              {6, 72}, {7, 1440}, {13, 96},  {14, 46.08}, {99, 96}};
  for (const auto& row : rows) {
    const OwnedObject object(edit<EgfTextObject>(text({0, 0}, "a"), [&](EgfTextObject& record) {
      record.parms.fontSize = {row.unit, row.value};
    }));
    ASSERT_EQ(EGF_CalcTextMer(object.get(), 0), 0);
    expectMer(readPacked<_mpl_spacerect_tag>(object.get(), 32), 0, -86.4, 10, 24,
              std::to_string(row.unit).c_str());
  }
}

TEST(TextMer, StaysAsKeptUntilItIsRecomputed) {
  const OwnedObject object(text({0, 0}, "ab"));
  as<EgfTextObject>(object.get())->text.origin = spacePoint({100, 0});
  _mpl_spacerect_tag mer;
  ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, 0), 0);
  expectMer(mer, 0, -18, 20, 5, "kept");
  ASSERT_EQ(EGF_CalcTextMer(object.get(), 0), 0);
  ASSERT_EQ(EEL_GetObjectMer(object.get(), &mer, 0), 0);
  expectMer(mer, 100, -18, 120, 5, "recomputed");
}

}  // namespace
}  // namespace egfsvg::test
