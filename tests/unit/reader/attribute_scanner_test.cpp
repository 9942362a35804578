#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "embedded_host/host_faults.h"
#include "model/rmm_allocator.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

/// A result of the scanner with its value; the two that end a run have none.
using Pair = std::pair<int, std::string>;

/// Pair results up to 0 or -2.
struct Pairs {
  std::vector<Pair> pairs;
  int last;

  bool operator==(const Pairs&) const = default;
};

void PrintTo(const Pairs& pairs, std::ostream* out) {
  *out << testing::PrintToString(pairs.pairs) << ", " << pairs.last;
}

template <class Next>
Pairs collect(CHandlerReader& reader, Next next) {
  Pairs seen{};
  ScratchPair scratch(reader.state);
  for (;;) {
    scratch.clear();
    const int code = next(scratch.pair);
    if (code == kAttNoMore || code == kAttSyntaxError) {
      seen.last = code;
      return seen;
    }
    seen.pairs.emplace_back(code, scratch.pair.value);
  }
}

Pairs pairsOf(const std::string& text) {
  TextReader reader(text);
  return collect(*reader, [&](_svg_attrib_pair& pair) { return reader->GetNextAttribPair(&pair); });
}

/// The pairs of a style text, with the separators before each skipped.
Pairs stylePairsOf(std::string text) {
  CHandlerReader reader;
  char* at = text.data();
  return collect(reader, [&](_svg_attrib_pair& pair) {
    at += reader.SkipSeparators(at, 0);
    return reader.GetNextAttribPair(&at, &pair);
  });
}

struct Row {
  std::string text;
  Pairs pairs;
};

TEST(GetNextAttribPair, Rows) {
  const std::string longName(256, 'n');
  const Row rows[] = {
      {"a='b\"c'>", {{{-1, "b\"c"}}, 0}},
      {"a=\"b'c\">", {{{-1, "b'c"}}, 0}},
      {"a = \"b\">", {{{-1, "b"}}, 0}},
      {"a\n=\r\n\t\"b\">", {{{-1, "b"}}, 0}},
      {"a=b>", {{}, -2}},
      {"a=>", {{}, -2}},
      {"a/b=\"1\">", {{{-1, "1"}}, 0}},
      {"x=\"12", {{{11, "1"}}, 0}},
      {"x=\"12  ", {{{11, "12"}}, 0}},
      {"x=\"1 2", {{{11, "1 "}}, 0}},
      {"x=\"", {{{11, ""}}, 0}},
      {"x=", {{{11, ""}}, 0}},
      {"x=  ", {{{11, ""}}, 0}},
      {"x", {{}, 0}},
      {"x>", {{}, 0}},
      {"x/>", {{}, 0}},
      {"/>", {{}, 0}},
      {" \n/>", {{}, 0}},
      {">", {{}, 0}},
      {"", {{}, 0}},
      {"x=\"1\"y='2'/>", {{{11, "1"}, {12, "2"}}, 0}},
      {"x=\"1\" / y=\"2\">", {{{11, "1"}, {-1, "2"}}, 0}},
      {"X=\"1\" FILL=\"red\"/>", {{{11, "1"}, {135, "red"}}, 0}},
      {"x=\"  1  \">", {{{11, "1  "}}, 0}},
      {"x=\"\t1\">", {{{11, "\t1"}}, 0}},
      {"x=\"   \">", {{{11, ""}}, 0}},
      {"x=\"\" y=\"\">", {{{11, ""}, {12, ""}}, 0}},
      {"valueless x=\"1\" y=\"2\">", {{{-1, "1"}, {12, "2"}}, 0}},
      {"fi\nll=\"red\">", {{{135, "red"}}, 0}},
      {"fi\tll=\"red\">", {{{135, "red"}}, 0}},
      {"=\"v\">", {{{-1, "v"}}, 0}},
      {"x==\"v\">", {{}, -2}},
      {"clip-rule=\"a\" clip_rule=\"b\">", {{{-1, "a"}, {121, "b"}}, 0}},
      {"xlink:href=\"#a\" href=\"b\">", {{{32, "#a"}, {35, "b"}}, 0}},
      {"id=\"a>b<c/>\">", {{{1, "a>b<c/>"}}, 0}},
      {std::string("x\0y=\"1\">", 8), {{{11, "1"}}, 0}},
      {longName + "=\"v\">", {{}, -2}},
      {longName + " \"v\">", {{{-1, "v"}}, 0}},
      {std::string(255, 'n') + "=\"v\">", {{{-1, "v"}}, 0}},
      {std::string(254, 'n') + "=\"v\">", {{{-1, "v"}}, 0}},
      {std::string(400, 'n') + "=\"v\">", {{}, -2}},
  };
  for (const Row& row : rows) EXPECT_EQ(pairsOf(row.text), row.pairs) << row.text;
}

TEST(GetNextAttribPair, LongNamesKeep255Bytes) {
  TextReader reader(std::string(256, 'n') + " \"v\">");
  ScratchPair scratch(reader->state);
  EXPECT_EQ(reader->GetNextAttribPair(&scratch.pair), -1);
  EXPECT_EQ(std::string(scratch.pair.name), std::string(255, 'n'));
}

TEST(GetNextAttribPair, NamesAreTrimmed) {
  TextReader reader("  a b \t = \"v\">");
  ScratchPair scratch(reader->state);
  EXPECT_EQ(reader->GetNextAttribPair(&scratch.pair), -1);
  EXPECT_STREQ(scratch.pair.name, "a b");
}

TEST(GetNextAttribPair, LongValuesComeWhole) {
  for (const std::size_t length : {4094UL, 4095UL, 4096UL, 4097UL, 5000UL, 20000UL, 300000UL}) {
    const std::string value(length, '1');
    TextReader reader("d=\"" + value + "\">");
    ScratchPair scratch(reader->state);
    EXPECT_EQ(reader->GetNextAttribPair(&scratch.pair), 27);
    EXPECT_EQ(scratch.pair.value, value);
    EXPECT_GT(scratch.pair.valueSize, static_cast<int>(length));
    EXPECT_EQ(reader->GetNextAttribPair(&scratch.pair), 0);
  }
}

TEST(GetNextAttribPair, PairsMayCrossABlock) {
  for (std::size_t before = 4070; before < 4100; ++before) {
    const std::string text = std::string(before, ' ') + "fill = 'red' x=\"12\" />";
    EXPECT_EQ(pairsOf(text), (Pairs{{{135, "red"}, {11, "12"}}, 0})) << before;
  }
}

TEST(GetNextAttribPair, StandsBehindWhatItTook) {
  const struct {
    const char* text;
    int fileIndex;
  } rows[] = {{"x=\"1\" y", 5}, {"x = '1' y", 7}, {"/>zz", 2}, {">zz", 1}, {"x=1 y", 3}};
  for (const auto& row : rows) {
    TextReader reader(row.text);
    ScratchPair scratch(reader->state);
    reader->GetNextAttribPair(&scratch.pair);
    EXPECT_EQ(reader->buffer.getFileIndex(), row.fileIndex) << row.text;
  }
}

TEST(GetNextAttribPair, WithoutMemoryForTheValue) {
  TextReader reader("d=\"" + std::string(9000, '1') + "\">");
  {
    ScratchPair scratch(reader->state);
    ASSERT_TRUE(egfhost::failAllocation(1));
    EXPECT_EQ(reader->GetNextAttribPair(&scratch.pair), -2);
    EXPECT_TRUE(reader->state.outOfMemory);
  }
}

TEST(GetNextStylePair, Rows) {
  const Row rows[] = {
      {"fill:red", {{{135, "red"}}, 0}},
      {"fill:red;", {{{135, "red"}}, 0}},
      {"fill", {{}, -2}},
      {"fill;", {{}, -2}},
      {"", {{}, 0}},
      {" ; , ", {{}, 0}},
      {"font-variant:small-caps;font:12px a", {{{107, "small-caps"}, {-1, "12px a"}}, 0}},
      {"clip-rule:hidden;clip_rule:hidden", {{{-1, "hidden"}, {121, "hidden"}}, 0}},
      {"fill : red ;stroke:blue", {{{135, "red"}, {144, "blue"}}, 0}},
      {"fill:;x:1", {{{135, ""}, {11, "1"}}, 0}},
      {"fill:   ", {{{135, ""}}, 0}},
      {"fill:  a b  ", {{{135, "a b"}}, 0}},
      {"fill:url(a:b)", {{{135, "url(a:b)"}}, 0}},
      {"fi\nll:red\n;", {{{135, "red\n"}}, 0}},
      {"fill=red:x", {{{-1, "x"}}, 0}},
      {"a/b:1", {{{-1, "1"}}, 0}},
      {"a/>b:1", {{}, -2}},
      {":v", {{{-1, "v"}}, 0}},
      {std::string(256, 'n') + ":v", {{}, -2}},
      {std::string(255, 'n') + ":v", {{{-1, "v"}}, 0}},
  };
  for (const Row& row : rows) EXPECT_EQ(stylePairsOf(row.text), row.pairs) << row.text;
}

TEST(GetNextStylePair, LongValuesComeWhole) {
  const std::string value(20000, 'v');
  EXPECT_EQ(stylePairsOf("fill:" + value + ";x:1"), (Pairs{{{135, value}, {11, "1"}}, 0}));
}

TEST(GetNextStylePair, NoTextNoPair) {
  CHandlerReader reader;
  ScratchPair scratch(reader.state);
  char* none = nullptr;
  EXPECT_EQ(reader.GetNextAttribPair(&none, &scratch.pair), 0);
  EXPECT_EQ(reader.GetNextAttribPair(nullptr, &scratch.pair), 0);
}

TEST(ScratchPair, BlocksAreUsedAgain) {
  CHandlerReader reader;
  char* first = nullptr;
  {
    ScratchPair scratch(reader.state);
    first = scratch.pair.value;
    EXPECT_EQ(scratch.pair.valueSize, 4097);
    ScratchPair inner(reader.state);
    EXPECT_NE(inner.pair.value, first);
  }
  ScratchPair again(reader.state);
  EXPECT_EQ(again.pair.value, first);
}

}  // namespace
}  // namespace egfsvg::test
