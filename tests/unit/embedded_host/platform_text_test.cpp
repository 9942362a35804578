#include "host/platform_text.h"

#include <climits>
#include <cstring>
#include <string>

#include "tests/unit/embedded_host/host_fixture.h"

namespace egfhost {
namespace {

using PlatformTextTest = HostTest;

int signOf(int value) { return value < 0 ? -1 : value > 0 ? 1 : 0; }

TEST_F(PlatformTextTest, CaseBlindComparison) {
  struct Row {
    const char* left;
    const char* right;
    int sign;
  };
  const Row kRows[] = {{"Ab", "aB", 0},    {"", "", 0},      {"a", "", 1},         {"a", "B", -1},
                       {"[", "a", -1},     {"@", "`", -1},   {"\xC4", "\xE4", -1}, {"\xE4", "a", 1},
                       {"abc", "abd", -1}, {nullptr, "", 0}, {nullptr, "a", -1},   {"Z", "z", 0}};
  for (const Row& row : kRows) {
    EXPECT_EQ(row.sign, signOf(_wu_stricmp(row.left, row.right)));
    EXPECT_EQ(-row.sign, signOf(_wu_stricmp(row.right, row.left)));
  }
}

TEST_F(PlatformTextTest, UpperCase) {
  char text[] = "aZ {\xE4`1z";
  EXPECT_EQ(text, _wu_strupr(text));
  EXPECT_STREQ("AZ {\xE4`1Z", text);
  EXPECT_EQ(nullptr, _wu_strupr(nullptr));
}

TEST_F(PlatformTextTest, Integers) {
  struct Row {
    int value;
    int radix;
    const char* text;
  };
  const Row kRows[] = {
      {0, 10, "0"},    {-15, 10, "-15"},     {INT_MIN, 10, "-2147483648"},
      {255, 16, "ff"}, {-1, 16, "ffffffff"}, {-1, 2, "11111111111111111111111111111111"}};
  for (const Row& row : kRows) {
    char text[40];
    EXPECT_EQ(text, wu_itoa(row.value, text, row.radix));
    EXPECT_STREQ(row.text, text);
  }
}

TEST_F(PlatformTextTest, Formatting) {
  char text[kFormatTextSize];
  EXPECT_EQ(13, wsprintfA(text, "SVG Pattern %d", 7));
  EXPECT_STREQ("SVG Pattern 7", text);
  EXPECT_EQ(12, wsprintfA(text, "HS%010ld", 42L));
  EXPECT_STREQ("HS0000000042", text);
  const std::string many(5000, 'm');
  EXPECT_EQ(kFormatTextSize - 1, wsprintfA(text, "%s", many.c_str()));
  EXPECT_EQ(static_cast<std::size_t>(kFormatTextSize - 1), std::strlen(text));
}

TEST_F(PlatformTextTest, TemporaryFolder) {
  char text[kTempPathSize];
  const std::uint32_t length = GetTempPathA(kTempPathSize, text);
  EXPECT_EQ(length, std::strlen(text));
  EXPECT_EQ('/', text[length - 1]);
  EXPECT_EQ(length + 1, GetTempPathA(length, text));
  EXPECT_EQ(length + 1, GetTempPathA(0, nullptr));
}

struct CodePageCase {
  std::uint32_t codePage;
  std::string bytes;
  std::u16string wide;
};

const CodePageCase kCodePages[] = {
    {65001, "a\xC3\xA4\xE2\x82\xAC", u"a\u00E4\u20AC"},
    {65001, "\xF0\x9F\x98\x80", u"\U0001F600"},
    {1252, "a\xE4\x80", u"a\u00E4\u20AC"},
    {0, "a\xE4\x80", u"a\u00E4\u20AC"},
    {1251, "\xCF\xF0", u"\u041F\u0440"},
    {932, "\x83\x65", u"\u30C6"},
    {28591, "\xE4", u"\u00E4"},
    {437, "\x84", u"\u00E4"},
};

TEST_F(PlatformTextTest, CodePagesBothWays) {
  for (const CodePageCase& row : kCodePages) {
    char16_t wide[16];
    const int bytes = static_cast<int>(row.bytes.size());
    const int units = static_cast<int>(row.wide.size());
    EXPECT_EQ(units, MultiByteToWideChar(row.codePage, 0, row.bytes.data(), bytes, nullptr, 0));
    ASSERT_EQ(units, MultiByteToWideChar(row.codePage, 0, row.bytes.data(), bytes, wide, 16));
    EXPECT_EQ(row.wide, std::u16string(wide, row.wide.size())) << row.codePage;
    char back[16];
    EXPECT_EQ(bytes, WideCharToMultiByte(row.codePage, 0, row.wide.data(), units, nullptr, 0,
                                         nullptr, nullptr));
    ASSERT_EQ(bytes, WideCharToMultiByte(row.codePage, 0, row.wide.data(), units, back, 16, nullptr,
                                         nullptr));
    EXPECT_EQ(row.bytes, std::string(back, row.bytes.size())) << row.codePage;
  }
}

TEST_F(PlatformTextTest, WhatACodePageLacksBecomesTheDefault) {
  const std::u16string wide = u"a\u0416\U0001F600b";
  char text[16];
  int used = 0;
  EXPECT_EQ(4, WideCharToMultiByte(1252, 0, wide.data(), 5, text, 16, nullptr, &used));
  EXPECT_EQ("a??b", std::string(text, 4));
  EXPECT_EQ(1, used);
  EXPECT_EQ(2, WideCharToMultiByte(1252, 0, u"ab", 2, text, 16, "*", &used));
  EXPECT_EQ(0, used);
  EXPECT_EQ(1, WideCharToMultiByte(1252, 0, u"\u0416", 1, text, 16, "*", &used));
  EXPECT_EQ('*', text[0]);
  const char16_t lone[] = {0xD800, u'x', 0};
  EXPECT_EQ(3, WideCharToMultiByte(1252, 0, lone, -1, text, 16, nullptr, nullptr));
}

TEST_F(PlatformTextTest, BytesThatAreNoCharacterAreReplaced) {
  char16_t wide[8];
  ASSERT_EQ(3, MultiByteToWideChar(65001, 0,
                                   "a\xFF"
                                   "b",
                                   3, wide, 8));
  EXPECT_EQ(u"a\uFFFDb", std::u16string(wide, 3));
  ASSERT_EQ(2, MultiByteToWideChar(65001, 0, "a\xC3", 2, wide, 8));
  EXPECT_EQ(u"a\uFFFD", std::u16string(wide, 2));
}

TEST_F(PlatformTextTest, LengthsAndFailures) {
  char16_t wide[8];
  char text[8];
  EXPECT_EQ(3, MultiByteToWideChar(1252, 0, "ab", -1, wide, 8));
  EXPECT_EQ(0, wide[2]);
  EXPECT_EQ(3, WideCharToMultiByte(1252, 0, u"ab", -1, text, 8, nullptr, nullptr));
  EXPECT_STREQ("ab", text);
  EXPECT_EQ(0, MultiByteToWideChar(1252, 0, "abc", 3, wide, 2));
  EXPECT_EQ(0, WideCharToMultiByte(1252, 0, u"abc", 3, text, 2, nullptr, nullptr));
  EXPECT_EQ(0, MultiByteToWideChar(99999, 0, "a", 1, wide, 8));
  EXPECT_EQ(0, MultiByteToWideChar(1252, 0, nullptr, 1, wide, 8));
  EXPECT_EQ(0, MultiByteToWideChar(1252, 0, "a", 0, wide, 8));
  failAt("WideCharToMultiByte", 1);
  EXPECT_EQ(0, WideCharToMultiByte(1252, 0, u"a", 1, text, 8, nullptr, nullptr));
}

TEST_F(PlatformTextTest, LongTextsCrossThePieces) {
  const std::string bytes(3000, '\xE4');
  std::u16string wide(3000, u'\0');
  ASSERT_EQ(3000, MultiByteToWideChar(1252, 0, bytes.data(), 3000, wide.data(), 3000));
  EXPECT_EQ(std::u16string(3000, u'\u00E4'), wide);
  EXPECT_EQ(6000, WideCharToMultiByte(65001, 0, wide.data(), 3000, nullptr, 0, nullptr, nullptr));
}

}  // namespace
}  // namespace egfhost
