#include <vector>

#include "attribute_support.h"

namespace egfsvg::test {
namespace {

struct DashCase {
  const char* text;
  std::vector<_svg_value> dashes;
};

TEST(Dashes, twoOrMoreLengths) {
  const auto px = [](double number) { return pixels(number); };
  const DashCase cases[] = {{"5", {}},
                            {"5 3", {px(5), px(3)}},
                            {"5, 3", {px(5), px(3)}},
                            {"5,3", {px(5), px(3)}},
                            {"none", {}},
                            {"none,3", {}},
                            {"NONE 3", {}},
                            {"inherit", {}},
                            {"", {}},
                            {"1px 2px", {px(1), px(2)}},
                            {"1mm,2%", {{kUnitMillimetre, 1, 0}, {kUnitPercent, 2, 0}}},
                            {"5  3", {px(5), px(0), px(3)}},
                            {"5 3 ", {px(5), px(3), px(0)}},
                            {"5,,3", {px(5), px(0), px(3)}},
                            {",", {px(0), px(0)}},
                            {"5 3,1", {{kUnitPixel, 5, 0}, px(1)}},
                            {"5\t3", {}},
                            {"1 2 3 4 5", {px(1), px(2), px(3), px(4), px(5)}}};
  CHandlerReader reader;
  for (const DashCase& row : cases) {
    SCOPED_TRACE(row.text);
    Rect rect;
    EXPECT_EQ(reader.SetStrokeDasharrayPatt(&rect->stroke, Pair(row.text)), 0);
    ASSERT_EQ(rect->stroke.strokeDashCount, static_cast<int>(row.dashes.size()));
    EXPECT_EQ(rect->stroke.strokeDashArray == nullptr, row.dashes.empty());
    for (std::size_t i = 0; i < row.dashes.size(); ++i) {
      EXPECT_TRUE(
          isValue(rect->stroke.strokeDashArray[i], row.dashes[i].value, row.dashes[i].unit));
      EXPECT_EQ(rect->stroke.strokeDashArray[i].axis, 0);
    }
  }
}

TEST(Dashes, beyond1024ArePassedOver) {
  CHandlerReader reader;
  for (const int written : {1023, 1024, 1025, 50000}) {
    std::string text = "7";
    for (int i = 1; i < written; ++i) text += i == 1023 ? ",9" : ",5";
    Rect rect;
    reader.SetStrokeDasharrayPatt(&rect->stroke, Pair(text));
    const int count = rect->stroke.strokeDashCount;
    ASSERT_EQ(count, written < 1024 ? written : 1024);
    EXPECT_TRUE(isValue(rect->stroke.strokeDashArray[0], 7, kUnitPixel));
    EXPECT_TRUE(isValue(rect->stroke.strokeDashArray[count - 1], count < 1024 ? 5 : 9, kUnitPixel));
  }
}

TEST(Dashes, aLaterArrayReplacesButNoneDoesNot) {
  CHandlerReader reader;
  Rect rect;
  reader.SetStrokeDasharrayPatt(&rect->stroke, Pair("1 2 3"));
  reader.SetStrokeDasharrayPatt(&rect->stroke, Pair("4 5"));
  ASSERT_EQ(rect->stroke.strokeDashCount, 2);
  EXPECT_TRUE(isValue(rect->stroke.strokeDashArray[0], 4, kUnitPixel));
  for (const char* text : {"none", "7", "none,1", "inherit"}) {
    reader.SetStrokeDasharrayPatt(&rect->stroke, Pair(text));
    EXPECT_EQ(rect->stroke.strokeDashCount, 2);
  }
  EXPECT_EQ(reader.SetStrokeDasharrayPatt(nullptr, Pair("1 2")), 0);
  EXPECT_EQ(reader.SetStrokeDasharrayPatt(&rect->stroke, nullptr), 0);
}

TEST(Miter, wholeLimitsAboveOne) {
  struct {
    const char* text;
    int limit;
  } const cases[] = {{"1", 4},  {"0.5", 4},     {"7.9", 7},   {"2", 2},
                     {"", 4},   {"x7", 4},      {"-7", 4},    {"+7", 4},
                     {" 7", 4}, {"inherit", 4}, {"10px", 10}, {"99999999999", 2147483647}};
  CHandlerReader reader;
  for (const auto& row : cases) {
    SCOPED_TRACE(row.text);
    Rect rect;
    EXPECT_EQ(reader.SetStrokeMiterlimitPatt(&rect->stroke, Pair(row.text)), 0);
    EXPECT_EQ(rect->stroke.strokeMiterlimit, row.limit);
  }
  Rect rect;
  reader.SetStrokeMiterlimitPatt(&rect->stroke, Pair("7"));
  reader.SetStrokeMiterlimitPatt(&rect->stroke, Pair("1"));
  EXPECT_EQ(rect->stroke.strokeMiterlimit, 7);
}

}  // namespace
}  // namespace egfsvg::test
