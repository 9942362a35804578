#include "model/value_parser.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

struct ValueRow {
  const char* text;
  double value;
  int unit;
};

TEST(ValueParser, Rows) {
  const ValueRow rows[] = {
      {"2em", 2, 1},     {"2EM", 2, 1},  {"3ex", 3, 2},     {"  7 ", 0, 3},   {"12pt ", 12, 3},
      {"12pt", 12, 4},   {"em", 0, 1},   {"1e3", 1, 3},     {"50%", 50, 9},   {"50 %", 50, 3},
      {"-3", -3, 3},     {"1-2", 1, 3},  {"2cm", 2, 6},     {"2mm", 2, 7},    {"2in", 2, 8},
      {"2pc", 2, 5},     {"2px", 2, 3},  {"45deg", 45, 10}, {"1rad", 1, 11},  {"100grad", 100, 12},
      {"", 0, 3},        {"%", 0, 9},    {"%x", 0, 3},      {"5Q", 5, 3},     {"0x1F", 0, 3},
      {"1.5PX", 1.5, 3}, {"5pxx", 5, 3}, {"7grad12", 7, 3}, {"7gradx", 7, 3}, {"+5", 5, 3},
      {"1,5", 1, 3},     {"1\t2", 1, 3}};
  for (const ValueRow& row : rows) {
    _svg_value value{99, 99.0, 2};
    EXPECT_EQ(ParseValue(&value, row.text), 0) << row.text;
    EXPECT_EQ(value.value, row.value) << row.text;
    EXPECT_EQ(value.unit, row.unit) << row.text;
    EXPECT_EQ(value.axis, 2) << row.text;
  }
}

TEST(ValueParser, NullChangesNothing) {
  _svg_value value{9, 5.0, 1};
  EXPECT_EQ(ParseValue(&value, nullptr), 0);
  EXPECT_EQ(value.unit, 9);
  EXPECT_EQ(value.value, 5.0);
  EXPECT_EQ(ParseValue(nullptr, "5"), 0);
}

// 4095 bytes of the number count, the unit is still the one behind all of it.
TEST(ValueParser, LongNumbers) {
  _svg_value value{0, 0, 0};
  ParseValue(&value, ("1." + std::string(6000, '0') + "mm").c_str());
  EXPECT_EQ(value.value, 1.0);
  EXPECT_EQ(value.unit, 7);
  ParseValue(&value, (std::string(4095, '0') + "5mm").c_str());
  EXPECT_EQ(value.value, 0.0);
  ParseValue(&value, (std::string(4094, '0') + "5mm").c_str());
  EXPECT_EQ(value.value, 5.0);
  ParseValue(&value, std::string(6000, '1').c_str());
  EXPECT_EQ(value.value, HUGE_VAL);
}

}  // namespace
