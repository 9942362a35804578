#include "model/characters.h"

#include <gtest/gtest.h>

#include <string>

namespace egfsvg {
namespace {

TEST(Characters, ClassesOfEveryByte) {
  const std::string white = " \n\t\r";
  const std::string digits = "0123456789";
  const std::string lowerCase = "abcdefghijklmnopqrstuvwxyz";
  const std::string upperCase = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  const std::string punctuation = "!\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~";
  const auto in = [](const std::string& set, char c) { return set.find(c) != std::string::npos; };
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    EXPECT_EQ(isWhite(c), in(white, c)) << byte;
    EXPECT_EQ(isDigit(c), in(digits, c)) << byte;
    EXPECT_EQ(isLetter(c), in(lowerCase, c) || in(upperCase, c)) << byte;
    EXPECT_EQ(isPunctuation(c), in(punctuation, c)) << byte;
    const auto upperAt = upperCase.find(c);
    EXPECT_EQ(lower(c), upperAt == std::string::npos ? c : lowerCase[upperAt]) << byte;
    const auto lowerAt = lowerCase.find(c);
    EXPECT_EQ(upper(c), lowerAt == std::string::npos ? c : upperCase[lowerAt]) << byte;
  }
}

TEST(Characters, ComparisonFoldsAsciiLettersAlone) {
  const struct {
    const char* first;
    const char* second;
    int sign;
  } rows[] = {{"Ab", "aB", 0},    {"", "", 0},       {"a", "", 1},         {"", "a", -1},
              {"abc", "ABD", -1}, {"Z", "a", 1},     {"\xC4", "\xE4", -1}, {"\xE4", "z", 1},
              {"@", "`", -1},     {nullptr, "", -1}, {"", nullptr, 1},     {nullptr, nullptr, 0},
              {"ab", "abc", -1}};
  for (const auto& row : rows) {
    const int result = compareNoCase(row.first, row.second);
    EXPECT_EQ((result > 0) - (result < 0), row.sign);
  }
}

TEST(Characters, NullEqualsNothing) {
  EXPECT_FALSE(equalsNoCase(nullptr, nullptr));
  EXPECT_FALSE(equalsNoCase("", nullptr));
  EXPECT_FALSE(equalsNoCase(nullptr, ""));
  EXPECT_TRUE(equalsNoCase("", ""));
  EXPECT_TRUE(equalsNoCase("Fill", "fILL"));
  EXPECT_FALSE(equalsNoCase("fill", "fill-rule"));
}

TEST(Characters, EqualityOfAPart) {
  EXPECT_TRUE(equalsNoCase("RECT>", 4, "rect"));
  EXPECT_FALSE(equalsNoCase("RECT>", 3, "rect"));
  EXPECT_FALSE(equalsNoCase("RECT>", 5, "rect"));
  EXPECT_TRUE(equalsNoCase("x", 0, ""));
  EXPECT_FALSE(equalsNoCase("a\0b", 3, "a"));
}

}  // namespace
}  // namespace egfsvg
