#include "reader/class_memo.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "embedded_host/host_faults.h"
#include "model/lifecycle.h"

namespace egfsvg {
namespace {

using Former = ClassMemo::Former;

ShapeStyle styleOf(int red) {
  _svg_rect rect;
  initRect(&rect);
  ShapeStyle style = *shapeStyleOf(&rect, kTagRect);
  style.fill.fillColor.red = red;
  return style;
}

// What the memo makes of a style with that colour: -1 when it knows nothing.
int redAfter(const ClassMemo& memo, const std::string& name, int red) {
  ShapeStyle style = styleOf(red);
  return memo.replay(name, style) ? style.fill.fillColor.red : -1;
}

TEST(ClassMemo, AResultStandsForEqualStylesAlone) {
  ClassMemo memo;
  EXPECT_EQ(redAfter(memo, "c", 1), -1);
  memo.keep("c", styleOf(1), styleOf(2), Former::kGoes);
  EXPECT_EQ(redAfter(memo, "c", 1), 2);
  EXPECT_EQ(redAfter(memo, "c", 3), -1);
  EXPECT_EQ(redAfter(memo, "C", 1), -1);
  EXPECT_EQ(redAfter(memo, "cc", 1), -1);
  memo.forget();
  EXPECT_EQ(redAfter(memo, "c", 1), -1);
}

TEST(ClassMemo, AnotherResultTakesThePlaceWhenItMay) {
  ClassMemo memo;
  memo.keep("c", styleOf(1), styleOf(2), Former::kStays);
  memo.keep("c", styleOf(3), styleOf(4), Former::kStays);
  EXPECT_EQ(redAfter(memo, "c", 1), 2);
  memo.keep("c", styleOf(3), styleOf(4), Former::kGoes);
  EXPECT_EQ(redAfter(memo, "c", 1), -1);
  EXPECT_EQ(redAfter(memo, "c", 3), 4);
}

TEST(ClassMemo, HasItsCapacity) {
  ClassMemo memo;
  int known = 0;
  for (int i = 0; i < 2000; ++i)
    memo.keep(std::to_string(i), styleOf(i), styleOf(i), Former::kGoes);
  for (int i = 0; i < 2000; ++i) known += redAfter(memo, std::to_string(i), i) == i ? 1 : 0;
  EXPECT_EQ(known, 512);
  const std::string longName(57, 'x');
  ClassMemo other;
  other.keep(longName, styleOf(1), styleOf(2), Former::kGoes);
  EXPECT_EQ(redAfter(other, longName, 1), -1);
}

TEST(ClassMemo, WithoutMemoryNothingIsKept) {
  ClassMemo memo;
  egfhost::failAllocation(1);
  memo.keep("c", styleOf(1), styleOf(2), Former::kGoes);
  egfhost::clearFaults();
  EXPECT_EQ(redAfter(memo, "c", 1), -1);
}

TEST(ShapeStyle, OfShapesAlone) {
  _svg_group group;
  initGroupObj(&group);
  EXPECT_EQ(shapeStyleOf(&group, kTagGroup), nullptr);
  EXPECT_EQ(shapeStyleOf(&group, kTagText), nullptr);
  _svg_polygon polygon;
  initPolygon(&polygon);
  ShapeStyle* style = shapeStyleOf(&polygon, kTagPolygon);
  EXPECT_EQ(static_cast<void*>(&style->graphics), &polygon.graphics);
  EXPECT_TRUE(style->ownsNothing());
  char url[] = "url";
  polygon.graphics.mask = url;
  EXPECT_FALSE(style->ownsNothing());
}

}  // namespace
}  // namespace egfsvg
