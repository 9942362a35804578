#include "cli/background.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli/failure.h"

namespace egfsvg {
namespace {

TEST(Background, ReadsColours) {
  struct Row {
    std::string text;
    int red, green, blue, alpha;
  };
  const std::vector<Row> rows = {
      {"#fff", 255, 255, 255, 255},    {"#1a2", 0x11, 0xaa, 0x22, 255},
      {"#102030", 16, 32, 48, 255},    {"#ABCDEF", 0xab, 0xcd, 0xef, 255},
      {"#10203080", 16, 32, 48, 0x80}, {"white", 255, 255, 255, 255},
      {"black", 0, 0, 0, 255},         {"teal", 0, 128, 128, 255},
  };
  for (const Row& row : rows) {
    const auto colour = backgroundColour(row.text);
    ASSERT_TRUE(colour.has_value()) << row.text;
    EXPECT_DOUBLE_EQ(colour->red, row.red / 255.0) << row.text;
    EXPECT_DOUBLE_EQ(colour->green, row.green / 255.0) << row.text;
    EXPECT_DOUBLE_EQ(colour->blue, row.blue / 255.0) << row.text;
    EXPECT_DOUBLE_EQ(colour->alpha, row.alpha / 255.0) << row.text;
  }
}

TEST(Background, KnowsNoBackground) {
  EXPECT_FALSE(backgroundColour("").has_value());
  EXPECT_FALSE(backgroundColour("transparent").has_value());
}

TEST(Background, RefusesTheRest) {
  for (const char* text :
       {"#", "#12", "#12345", "#1234567", "#ggg", "#-12", "#+1f", "blau", " red", "#123456789"}) {
    try {
      backgroundColour(text);
      FAIL() << text;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.code(), ExitCode::kUsage);
      EXPECT_NE(std::string(failure.what()).find(text), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace egfsvg
