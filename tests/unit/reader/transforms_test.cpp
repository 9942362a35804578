#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "attribute_support.h"
#include "embedded_host/host_faults.h"
#include "embedded_host/host_messages.h"
#include "frame/result_codes.h"
#include "host/diagnostics.h"

namespace egfsvg::test {
namespace {

struct Entry {
  int kind;
  std::vector<double> args;
};

struct TransformCase {
  std::string text;
  std::vector<Entry> entries;
};

bool isAngle(int kind, std::size_t position) {
  return position == 0 && (kind == kRotate || kind == kSkewX || kind == kSkewY);
}

void expectEntries(const _svg_common& head, const std::vector<Entry>& entries) {
  ASSERT_EQ(head.transformCount, static_cast<int>(entries.size()));
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const transformEntry& entry = head.transforms[i];
    EXPECT_EQ(entry.kind, entries[i].kind);
    ASSERT_EQ(entry.argCount, static_cast<int>(entries[i].args.size()));
    for (std::size_t k = 0; k < entries[i].args.size(); ++k) {
      const int unit = isAngle(entry.kind, k) ? kUnitDegree : kUnitPixel;
      EXPECT_TRUE(isValue(entry.args[k], entries[i].args[k], unit)) << "argument " << k;
      EXPECT_EQ(entry.args[k].axis, 0);
    }
  }
}

const TransformCase kPlain[] = {
    {"translate(10)", {{5, {10, 0}}}},
    {"scale(2)", {{6, {2, 2}}}},
    {"scale()", {{6, {1, 1}}}},
    {"scale(2 3)", {{6, {2, 3}}}},
    {"rotate(45 10 20)", {{1, {45, 10, 20}}}},
    {"rotate(45,10)", {{1, {45, 10, 0}}}},
    {"matrix(1 0 0 1 5)", {{4, {1, 0, 0, 1, 5, 0}}}},
    {"matrix(7)", {{4, {7, 0, 0, 1, 0, 0}}}},
    {"ROTATE(1)", {{1, {1, 0, 0}}}},
    {"rotate(1)", {{1, {1, 0, 0}}}},
    {"skewx(3)", {{2, {3}}}},
    {"skewX(3)", {{2, {3}}}},
    {"skewY(4)", {{3, {4}}}},
    {"translate(1,2) rotate(3)", {{5, {1, 2}}, {1, {3, 0, 0}}}},
    {"translate(1,2)rotate(3)", {{5, {1, 2}}, {1, {3, 0, 0}}}},
    {"foo(1) rotate(3)", {}},
    {"scale(1e1)", {{6, {10, 10}}}},
    {"scale(1E1)", {{6, {1, 1}}}},
    {"scale(2-1)", {{6, {2, 2}}}},
    {"", {}},
    {"rotate(3) foo(1) scale(2)", {{1, {3, 0, 0}}}},
    {"matrix(1,2,3,4,5,6) , scale(2)", {{4, {1, 2, 3, 4, 5, 6}}, {6, {2, 2}}}},
    {"matrix()", {{4, {1, 0, 0, 1, 0, 0}}}},
    {"rotate()", {{1, {0, 0, 0}}}},
    {"skewX()", {{2, {0}}}},
    {"scale(1e-1)", {{6, {0.1, 0.1}}}},
    {"scale(1e)", {{6, {1, 1}}}},
    {"scale(2e1e1)", {{6, {20, 1}}}},
    {"scale(e1)", {{6, {1, 1}}}},
    {"translate(1", {{5, {1, 0}}}},
    {"translate(1,", {{5, {1, 0}}}},
    {"translate(", {{5, {0, 0}}}},
    {"translate(1 2", {{5, {1, 2}}}},
    {"translate", {}},
    {"translate scale(3)", {{5, {3, 0}}}},
    {"xyzscale(3)", {{6, {3, 3}}}},
    {", scale(3)", {{6, {3, 3}}}},
    {"translate(10px,20px)", {{5, {10, 20}}}},
    {"translate( 1 , 2 )", {{5, {1, 2}}}},
    {"translate(,,1,,2)", {{5, {1, 2}}}},
    {"translate(1,2,3) scale(2)", {{5, {1, 2}}, {6, {2, 2}}}},
    {"translate(\n1\t2\r)", {{5, {1, 2}}}},
    {"translate(inf,nan)", {{5, {0, 0}}}},
    {"scale(1e400)", {{6, {HUGE_VAL, HUGE_VAL}}}},
    {"((((", {}},
    {")(", {}},
    {"scale(2))rotate(3)", {{6, {2, 2}}, {1, {3, 0, 0}}}}};

TEST(Transforms, functionsOfAText) {
  CHandlerReader reader;
  for (const TransformCase& row : kPlain) {
    SCOPED_TRACE(row.text);
    Rect rect;
    Pair pair(row.text);
    EXPECT_EQ(reader.SetTransformAtt(&rect->head, pair), 0);
    EXPECT_EQ(pair.text(), row.text);
    expectEntries(rect->head, row.entries);
    Rect other;
    EXPECT_EQ(reader.SetTransformAtt(&other->head, Pair(withRoomBehind(row.text))), 0);
    expectEntries(other->head, row.entries);
  }
}

std::vector<Entry> entriesOf(const _svg_common& head) {
  std::vector<Entry> entries;
  for (int i = 0; i < head.transformCount; ++i) {
    const transformEntry& entry = head.transforms[i];
    entries.push_back({entry.kind, {}});
    for (int k = 0; k < entry.argCount; ++k) entries.back().args.push_back(entry.args[k].value);
  }
  return entries;
}

// Functions of the usual form are read another way where there is room to look ahead.
TEST(Transforms, roomBehindTheTextChangesNothing) {
  constexpr const char* kNames[] = {"matrix(", "translate(", "scale(",  "rotate(", "skewX(",
                                    "skewY(",  "skewx(",     "rotate ", "(",       " scale("};
  constexpr const char* kNumbers[] = {"1",   "-2.5", "0.125",      "71.6", "-0",
                                      "1e1", "+3",   "12345678.5", "x",    "1.2.3"};
  constexpr const char* kBetween[] = {",", " ", ", ", "  ", "\n", "", "-", ",,", " ,"};
  std::mt19937 random(3);
  const auto pick = [&](const auto& texts, unsigned usual) {
    return texts[random() % (random() % 6 == 0 ? std::size(texts) : usual)];
  };
  for (int i = 0; i < 4000; ++i) {
    std::string text;
    for (unsigned functions = random() % 4; functions > 0; --functions) {
      text += pick(kNames, 6);
      for (unsigned numbers = random() % 8; numbers > 0; --numbers) {
        text += pick(kNumbers, 5);
        if (numbers > 1) text += pick(kBetween, 5);
      }
      text += random() % 8 == 0 ? "" : random() % 2 == 0 ? ")" : ") ";
    }
    SCOPED_TRACE(text);
    CHandlerReader reader;
    reader.state.settings.compactNumbers = i % 2 == 1;
    Rect plain;
    Rect roomy;
    reader.SetTransformAtt(&plain->head, Pair(text));
    reader.SetTransformAtt(&roomy->head, Pair(withRoomBehind(text)));
    ASSERT_NO_FATAL_FAILURE(expectEntries(roomy->head, entriesOf(plain->head)));
  }
}

TEST(Transforms, callsAddToTheList) {
  CHandlerReader reader;
  Rect rect;
  reader.SetTransformAtt(&rect->head, Pair("translate(1,0)"));
  reader.SetTransformAtt(&rect->head, Pair("scale(2)"));
  expectEntries(rect->head, {{5, {1, 0}}, {6, {2, 2}}});
}

TEST(Transforms, nullDoesNothing) {
  CHandlerReader reader;
  Rect rect;
  EXPECT_EQ(reader.SetTransformAtt(&rect->head, nullptr), 0);
  EXPECT_EQ(reader.SetTransformAtt(nullptr, Pair("scale(2)")), 0);
  EXPECT_EQ(rect->head.transforms, nullptr);
}

// Of a mantissa and an exponent 63 bytes count, and the rest is passed over.
TEST(Transforms, longNumbersAreBounded) {
  CHandlerReader reader;
  Rect rect;
  reader.SetTransformAtt(&rect->head, Pair("scale(0." + std::string(61, '0') + "5)"));
  reader.SetTransformAtt(&rect->head, Pair("scale(0." + std::string(60, '0') + "5)"));
  reader.SetTransformAtt(&rect->head, Pair("scale(1e" + std::string(63, '0') + "9)"));
  reader.SetTransformAtt(&rect->head, Pair("scale(1e" + std::string(62, '0') + "2)"));
  expectEntries(rect->head, {{6, {0, 0}}, {6, {5e-61, 5e-61}}, {6, {1, 1}}, {6, {100, 100}}});
}

TEST(Transforms, aListHoldsAsManyAsItsBound) {
  CHandlerReader reader;
  Rect rect;
  std::string text;
  for (int i = 0; i < 300; ++i) text += "scale(" + std::to_string(i) + ")";
  egfhost::clearMessages();
  EXPECT_EQ(reader.SetTransformAtt(&rect->head, Pair(text)), 0);
  ASSERT_EQ(rect->head.transformCount, 256);
  EXPECT_TRUE(isValue(rect->head.transforms[255].args[0], 255, kUnitPixel));
  EXPECT_EQ(reader.SetTransformAtt(&rect->head, Pair("rotate(1)")), 0);
  EXPECT_EQ(rect->head.transformCount, 256);
  // Told once a read, however many more there are.
  EXPECT_EQ(egfhost::countMessages(static_cast<int>(Diagnostic::kTransformListLimit)), 1U);
}

TEST(Transforms, withoutMemoryTheListStaysWhole) {
  const std::string functions = "scale(2) rotate(3) skewX(1) matrix(1,2,3,4,5,6)";
  const std::vector<Entry> whole = {
      {kScale, {2, 2}}, {kRotate, {3, 0, 0}}, {kSkewX, {1}}, {kMatrix, {1, 2, 3, 4, 5, 6}}};
  CHandlerReader reader;
  std::uint64_t failing = 1;
  for (int result = kOutOfMemory; result == kOutOfMemory; ++failing) {
    Rect rect;
    egfhost::failAllocation(failing);
    result = reader.SetTransformAtt(&rect->head, Pair(functions));
    egfhost::clearFaults();
    const auto count = static_cast<std::size_t>(rect->head.transformCount);
    ASSERT_TRUE(result == kOutOfMemory ? count < whole.size() : count == whole.size());
    expectEntries(rect->head, {whole.begin(), whole.begin() + rect->head.transformCount});
  }
  EXPECT_GT(failing, 2U);
}

TEST(Transforms, compactNumbersFollowTheGrammar) {
  const TransformCase cases[] = {{"scale(2-1)", {{6, {2, -1}}}},
                                 {"scale(1E1)", {{6, {10, 10}}}},
                                 {"scale(1e1-2)", {{6, {10, -2}}}},
                                 {"translate(.5.5)", {{5, {0.5, 0.5}}}},
                                 {"translate(10px,20px)", {{5, {10, 20}}}},
                                 {"matrix(1-2-3-4-5-6)", {{4, {1, -2, -3, -4, -5, -6}}}},
                                 {"translate( 1 , 2 ) scale(3)", {{5, {1, 2}}, {6, {3, 3}}}},
                                 {"translate(1", {{5, {1, 0}}}},
                                 {"translate(--1)", {{5, {0, 0}}}}};
  CHandlerReader reader;
  reader.state.settings.compactNumbers = true;
  for (const TransformCase& row : cases) {
    SCOPED_TRACE(row.text);
    Rect rect;
    EXPECT_EQ(reader.SetTransformAtt(&rect->head, Pair(row.text)), 0);
    expectEntries(rect->head, row.entries);
  }
}

}  // namespace
}  // namespace egfsvg::test
