// Path data: what each text becomes, sub-path by sub-path.

#include <gtest/gtest.h>

#include <charconv>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "model/lifecycle.h"
#include "model/path_commands.h"
#include "reader/path_text.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {
namespace {

std::string shortest(double number) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

constexpr std::string_view kLetters = "..ZMmLlCcQqAaHhVvSsTt";

int argumentCount(std::int32_t command) {
  constexpr int kCounts[] = {0, 0, 0, 2, 2, 2, 2, 6, 6, 4, 4, 2, 2, 1, 1, 1, 1, 4, 4, 2, 2};
  return kCounts[command];
}

/// "M(0,0)", and an arc as "A(x,y,rx,ry,rotation,large,sweep)".
std::string textOf(const _svg_path_data& d) {
  std::string text(1, kLetters[static_cast<std::size_t>(d.command)]);
  const _svg_value* args[] = {&d.arg0, &d.arg1, &d.arg2, &d.arg3, &d.arg4, &d.arg5};
  const int count = argumentCount(d.command);
  const bool isArc = d.command == kPathArcAbs || d.command == kPathArcRel;
  for (int i = 0; i < 6 && !isArc; ++i) {
    EXPECT_EQ(args[i]->unit, i < count ? kUnitPixel : 0);
    EXPECT_EQ(args[i]->axis, kAxisNone);
    EXPECT_TRUE(i < count || args[i]->value == 0.0);
  }
  if (count == 0) return text;
  text += '(';
  for (int i = 0; i < count; ++i) text += (i > 0 ? "," : "") + shortest(args[i]->value);
  if (isArc) {
    text += "," + shortest(d.arg2.value) + "," + shortest(d.arg3.value) + "," +
            shortest(d.arg4.value) + "," + std::to_string(d.arg4.axis) + "," +
            std::to_string(d.arg5.unit);
  }
  return text + ")";
}

/// "0; [M(0,0) L(1,1)] c0 f0; ..." of a text behind which `room` bytes may be looked at.
std::string parsedWithRoom(const std::string& text, std::size_t room, bool compact) {
  CHandlerReader reader;
  reader.state.settings.compactNumbers = compact;
  _svg_path path;
  initPath(&path);
  path.pathFlag = 1;
  std::vector<char> block(text.begin(), text.end());
  block.push_back('\0');
  block.insert(block.end(), room, '7');  // a byte that must not be taken for the number's
  const char* const first = block.data();
  const ValueText d{first, first + text.size(), first + block.size()};
  std::string result = std::to_string(readPathData(reader, &path, d));
  for (std::int32_t i = 0; i < path.pathCount; ++i) {
    const _svg_singlepath& sub = path.paths[i];
    result += "; [";
    for (std::int32_t j = 0; j < sub.dataCount; ++j) {
      result += (j > 0 ? " " : "") + textOf(sub.data[j]);
    }
    result += "] c" + std::to_string(sub.closed) + " f" + std::to_string(sub.subFlag);
  }
  DestroyPathElements(&path);
  return result;
}

/// The usual commands are read another way where there is room to look ahead.
std::string parsed(const std::string& text, bool compact = false) {
  const std::string result = parsedWithRoom(text, 0, compact);
  EXPECT_EQ(parsedWithRoom(text, 64, compact), result) << text;
  return result;
}

struct PathRow {
  const char* text;
  const char* expected;
};

TEST(PathData, BecomesSubPaths) {
  const PathRow rows[] = {
      {"M 0 0 L 10 0 L 0 0", "0; [M(0,0) L(10,0) L(0,0)] c1 f0"},
      {"M0 0 L10 0 Z M5 5 L6 6", "0; [M(0,0) L(10,0) Z] c1 f0; [M(5,5) L(6,6)] c0 f0"},
      {"M0 0 10 0 20 0", "0; [M(0,0) L(10,0) L(20,0)] c0 f0"},
      {"M0 0 L30000 0 L10 10", "0; [M(0,0) L(10,10)] c0 f0"},
      {"M1e2 0", "0; [M(100,0)] c1 f0"},
      {"M1E2 0", "0; [M(1,2) L(0,0)] c0 f0"},
      {"", "-1"},
      {"   ", "-1"},
      {"A 5 5 0 1 0 10 10", "0; [A(10,10,5,5,0,1,0)] c1 f0"},
      {"M0 0 L25000 0", "0; [M(0,0) L(25000,0)] c0 f0"},
      {"M0 0 L25000.1 0", "0; [M(0,0)] c1 f0"},
      {"M0 0 L-25000.1 0", "0; [M(0,0)] c1 f0"},
      {"M0 0 l30000 0", "0; [M(0,0) l(30000,0)] c0 f0"},
      {"M0 0 30000 0 5 5", "0; [M(0,0) L(5,5)] c0 f0"},
      {"m0 0 l10 0 l0 0", "0; [m(0,0) l(10,0) l(0,0)] c1 f0"},
      {"M0 0 L1 1 M5 5 L6 6", "0; [M(0,0) L(1,1)] c0 f0; [M(5,5) L(6,6)] c0 f1"},
      {"M0 0 L10 0 Z M5 5 L0 0", "0; [M(0,0) L(10,0) Z] c1 f0; [M(5,5) L(0,0)] c1 f0"},
      {"M0 0a1 1 0 01 5 5", "0; [M(0,0) a(5,0,1,1,0,1,5)] c0 f0"},
      {"M0 0 e 5 5", "0; [M(0,0)] c1 f0"},
      {"M1 2E3 4L5 5", "0; [M(1,2) L(5,5)] c0 f0"},
      {"M0 0 Hx", "0; [M(0,0) H(0)] c1 f0"},
      {"M0 0 h5 v5 H0 V0", "0; [M(0,0) h(5) v(5) H(0) V(0)] c1 f0"},
      {"M0,0C1,2,3,4,5,6S7,8,9,10", "0; [M(0,0) C(1,2,3,4,5,6) S(7,8,9,10)] c0 f0"},
      {"M0 0q1 2 3 4t5 6", "0; [M(0,0) q(1,2,3,4) t(5,6)] c0 f0"},
      {"M0 0L1 1,", "0; [M(0,0) L(1,1) L(0,0)] c1 f0"},  // a trailing comma is one more command
      {"M0 0L.5.5 9 9", "0; [M(0,0) L(0.5,9) L(9,0)] c0 f0"},
      {"M1+2 3", "0; [M(1,3)] c1 f0"},
      {"M0 0,L5 5", "0; [M(0,0) L(5,5)] c0 f0"},
      {"M0 0,H5", "0; [M(0,0) L(5,0)] c0 f0"},  // the letter behind the comma goes unseen
      {"L5 5", "0; [L(5,5)] c1 f0"},
      {"M0 0l3 4zm1 1 2 2", "0; [M(0,0) l(3,4) Z] c1 f0; [m(1,1) l(2,2)] c0 f0"},
      {"M0 0ZZ", "0; [M(0,0) Z] c1 f0; [Z] c1 f0"},
      {"M1 1M1 1", "0; [M(1,1)] c1 f0; [M(1,1)] c1 f1"},
      {"x5 5M1 1", "0; [M(1,1)] c1 f0"},
      {"M0 0A5 5 0 0.4 0.6 9 9", "0; [M(0,0) A(9,9,5,5,0,0,1)] c0 f0"},
      {"M0 0A5 5 0 -1 2 9 9", "0; [M(0,0) A(9,9,5,5,0,-1,2)] c0 f0"},
      {"M0 0 L 1e-2-1e2", "0; [M(0,0) L(0.01,-100)] c0 f0"},
      {"M-0 0 L0 0", "0; [M(-0,0) L(0,0)] c1 f0"},
      {"M0 0Z3", "0; [M(0,0) Z] c1 f0; [Z] c1 f0"},  // each byte closes once more
  };
  for (const PathRow& row : rows) EXPECT_EQ(parsed(row.text), row.expected) << row.text;
}

TEST(PathData, ReadsCompactNumbersWhenAsked) {
  const PathRow rows[] = {
      {"M.5.5 1", "0; [M(0.5,0.5) L(1,0)] c0 f0"},
      {"M1+2-3+4", "0; [M(1,2) L(-3,4)] c0 f0"},
      {"M1E2 0", "0; [M(100,0)] c1 f0"},
      {"M0 0a1 1 0 0110 5", "0; [M(0,0) a(10,5,1,1,0,0,1)] c0 f0"},
      {"M0 0a1 1 0 1 0-3.5.5", "0; [M(0,0) a(-3.5,0.5,1,1,0,1,0)] c0 f0"},
      {"M0 0L1 1,", "0; [M(0,0) L(1,1) L(0,0)] c1 f0"},
  };
  for (const PathRow& row : rows) EXPECT_EQ(parsed(row.text, true), row.expected) << row.text;
}

// Mostly the usual forms, some others between them.
std::string randomPath(std::mt19937& random) {
  const auto below = [&](unsigned n) { return random() % n; };
  const auto one = [&](const char* const(&texts)[16]) { return texts[below(16)]; };
  constexpr const char* kCommands[16] = {"M", "m", "L", "L", "l", "C", "C", "c",
                                         "V", "Q", "h", "Z", "H", "a", "",  ","};
  constexpr const char* kBetween[16] = {",", ",", ",", ",", ",", " ",  " ",  " ",
                                        " ", " ", "",  "",  "-", "\n", ", ", ".5"};
  constexpr const char* kNumbers[16] = {"0",      "7",     "12.5",    "-3.25",   "100.01", "-0",
                                        "640.75", "-.5",   "30000.5", "1e2",     "+4",     "1.5.5",
                                        "5.",     "25000", ".",       "123456.7"};
  std::string text = "M1,2";
  for (unsigned commands = below(12); commands > 0; --commands) {
    text += below(3) == 0 ? " " : "";
    text += one(kCommands);
    for (unsigned numbers = 2 * below(5); numbers > 0; --numbers) {
      text += one(kNumbers);
      text += below(8) == 0 ? one(kBetween) : numbers % 2 == 0 ? "," : " ";
    }
  }
  return text;
}

TEST(PathData, RoomBehindTheTextChangesNothing) {
  std::mt19937 random(11);
  for (int i = 0; i < 4000; ++i) {
    const std::string text = randomPath(random);
    parsed(text, i % 2 == 1);
    if (HasFailure()) break;
  }
}

TEST(PathData, LinesAlongAnAxisKeepTheOtherCoordinate) {
  EXPECT_EQ(parsed("M1,2h5v-3H1V2"), "0; [M(1,2) h(5) v(-3) H(1) V(2)] c1 f0");
  EXPECT_EQ(parsed("M1,2L3,4H1L7,2H1"), "0; [M(1,2) L(3,4) H(1) L(7,2) H(1)] c1 f0");
  EXPECT_EQ(parsed("M1,2L3,4H1"), "0; [M(1,2) L(3,4) H(1)] c0 f0");
  EXPECT_EQ(parsed("H1V2H1L5,2H1"), "0; [H(1) V(2) H(1) L(5,2) H(1)] c0 f0");
}

TEST(PathData, ManyRecordsInARow) {
  for (int lines : {62, 63, 64, 65, 255, 256, 257, 1000}) {
    std::string text = "M0,0";
    std::string wanted = "0; [M(0,0)";
    for (int i = 0; i < lines; ++i) {
      text += " L" + std::to_string(i) + ".5,-1";
      wanted += " L(" + std::to_string(i) + ".5,-1)";
    }
    EXPECT_EQ(parsed(text + "Z"), wanted + " Z] c1 f0");
  }
}

TEST(PathData, ValuesCarryTheirUnits) {
  CHandlerReader reader;
  _svg_path path;
  initPath(&path);
  ASSERT_EQ(reader.SetPathAtt(&path, "M1 2A5 6 7 1 0 10 11"), 0);
  const _svg_path_data& move = path.paths[0].data[0];
  EXPECT_EQ(move.arg0.unit, kUnitPixel);
  EXPECT_EQ(move.arg0.axis, kAxisNone);
  const _svg_path_data& arc = path.paths[0].data[1];
  EXPECT_EQ(arc.arg2.unit, kUnitPixel);
  EXPECT_EQ(arc.arg4.unit, kUnitDegree);
  EXPECT_EQ(arc.arg4.value, 7.0);
  DestroyPathElements(&path);
}

// Of a number so many bytes count; the rest is passed over.
TEST(PathData, LongNumbersAreBounded) {
  CHandlerReader reader;
  for (const std::size_t zeros : {4094UL, 4095UL, 9000UL}) {
    const std::string text = std::string(zeros, '0') + "7 5";
    int index = 0;
    EXPECT_EQ(reader.GetNextPathCoord(text.c_str(), index), zeros == 4094 ? 7.0 : 0.0) << zeros;
    EXPECT_EQ(reader.GetNextPathCoord(text.c_str(), index), 5.0) << zeros;
  }
}

TEST(PathData, NumbersRunToTheirEnd) {
  CHandlerReader reader;
  int index = 0;
  EXPECT_EQ(reader.GetNextPathCoord("1-2", index), 1.0);
  EXPECT_EQ(reader.GetNextPathCoord("1-2", index), -2.0);
  EXPECT_EQ(reader.GetNextPathCoord("1-2", index), 0.0);
}

// The rule of plain numbers, told once more: skip white space, commas and letters but "e"; take
// what stands up to white space, a comma, the end, a letter but "e", or a "-" that is not the first
// character and does not follow an "e".
double nextByTheRule(const std::string& text, std::size_t& index) {
  const auto at = [&](std::size_t i) { return i < text.size() ? text[i] : '\0'; };
  const auto white = [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; };
  const auto letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  while (white(at(index)) || at(index) == ',' || (letter(at(index)) && at(index) != 'e')) ++index;
  std::string number;
  for (char c = at(index); c != '\0' && !white(c) && c != ','; c = at(++index)) {
    if (letter(c) && c != 'e') break;
    if (c == '-' && !number.empty() && number.back() != 'e') break;
    number += c;
  }
  return std::strtod(number.c_str(), nullptr);
}

TEST(PathData, NumbersFollowTheRule) {
  std::mt19937 random(20260824);
  const std::string alphabet = "0123456789012345..--ee+, \n\tLMzE";
  std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
  CHandlerReader reader;
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    while (text.size() < 24) text += alphabet[pick(random)];
    int index = 0;
    std::size_t expectedIndex = 0;
    for (int number = 0; number < 6; ++number) {
      const double expected = nextByTheRule(text, expectedIndex);
      ASSERT_EQ(reader.GetNextPathCoord(text.c_str(), index), expected) << text;
      ASSERT_EQ(static_cast<std::size_t>(index), expectedIndex) << text;
    }
  }
}

TEST(PathData, ASecondAttributeStartsAgain) {
  CHandlerReader reader;
  _svg_path path;
  initPath(&path);
  ASSERT_EQ(reader.SetPathAtt(&path, "M0 0 L1 1"), 0);
  ASSERT_EQ(reader.SetPathAtt(&path, "M5 5"), 0);
  EXPECT_EQ(path.pathCount, 1);
  EXPECT_EQ(path.paths[0].dataCount, 1);
  DestroyPathElements(&path);
}

}  // namespace
}  // namespace egfsvg
