#include "cli/json_writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace egfsvg {
namespace {

template <class Write>
std::string written(Write write) {
  TextSink sink;
  JsonWriter json(sink);
  write(json);
  json.finish();
  return sink.text();
}

TEST(JsonWriter, WritesScalars) {
  const auto scalar = [](auto value) {
    return written([&](JsonWriter& json) { json.value(value); });
  };
  EXPECT_EQ(scalar(true), "true");
  EXPECT_EQ(scalar(false), "false");
  EXPECT_EQ(scalar(0), "0");
  EXPECT_EQ(scalar(-2147483647 - 1), "-2147483648");
  EXPECT_EQ(scalar(4294967295U), "4294967295");
  EXPECT_EQ(scalar(std::uint8_t{255}), "255");
  EXPECT_EQ(scalar(static_cast<const char*>(nullptr)), "null");
  EXPECT_EQ(scalar("text"), "\"text\"");
  EXPECT_EQ(written([](JsonWriter& json) { json.null(); }), "null");
}

TEST(JsonWriter, WritesShortestDigitsOfEachWidth) {
  struct Row {
    std::string text;
    std::string expected;
  };
  const auto ofFloat = [](float number) {
    return written([&](JsonWriter& json) { json.value(number); });
  };
  const auto ofDouble = [](double number) {
    return written([&](JsonWriter& json) { json.value(number); });
  };
  const std::vector<Row> rows = {
      {ofFloat(0.1F), "0.1"},
      {ofDouble(0.1), "0.1"},
      {ofDouble(static_cast<double>(0.1F)), "0.10000000149011612"},
      {ofFloat(16777216.0F), "16777216"},
      {ofFloat(409600.0F), "409600"},
      {ofDouble(5461.3335), "5461.3335"},
      {ofDouble(1e300), "1e+300"},
      {ofDouble(-0.0), "-0"},
      {ofDouble(3.0), "3"},
      {ofFloat(std::numeric_limits<float>::infinity()), "null"},
      {ofDouble(-std::numeric_limits<double>::infinity()), "null"},
      {ofDouble(std::nan("")), "null"},
      {ofFloat(std::nanf("")), "null"},
  };
  for (const Row& row : rows) EXPECT_EQ(row.text, row.expected);
}

TEST(JsonWriter, EscapesTexts) {
  struct Row {
    std::string text;
    std::string expected;
  };
  const std::vector<Row> rows = {
      {"", "\"\""},
      {"a\"b\\c", R"("a\"b\\c")"},
      {"\n\r\t", R"("\n\r\t")"},
      {std::string("\x01\x1f", 2), R"("\u0001\u001f")"},
      {std::string("a\0b", 3), R"("a\u0000b")"},
      {"\x7f/", "\"\x7f/\""},
      {"\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80", "\"\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80\""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(written([&](JsonWriter& json) { json.value(row.text); }), row.expected);
  }
}

TEST(JsonWriter, ReplacesBytesThatAreNotUtf8) {
  const std::string bad = "\xEF\xBF\xBD";
  struct Row {
    std::string text;
    std::string expected;
  };
  const std::vector<Row> rows = {
      {"\xe9", bad},                                // Latin 1
      {"a\x80z", "a" + bad + "z"},                  // a continuation alone
      {"\xc0\xaf", bad + bad},                      // overlong
      {"\xed\xa0\x80", bad + bad + bad},            // a surrogate
      {"\xf4\x90\x80\x80", bad + bad + bad + bad},  // beyond U+10FFFF
      {"\xe2\x82", bad + bad},                      // cut off
      {"\xf0\x9f\x98", bad + bad + bad},
      {"\xff", bad},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(written([&](JsonWriter& json) { json.value(row.text); }), "\"" + row.expected + "\"");
  }
}

TEST(JsonWriter, PutsCommasAndBrackets) {
  EXPECT_EQ(written([](JsonWriter& json) {
              json.beginObject();
              json.member("a", 1);
              json.key("b");
              json.beginArray();
              json.value(1);
              json.null();
              json.beginArray();
              json.endArray();
              json.beginObject();
              json.endObject();
              json.endArray();
              json.member("c", "x");
              json.endObject();
            }),
            R"({"a":1,"b":[1,null,[],{}],"c":"x"})");
}

TEST(JsonWriter, PutsMembersOnLinesOfTheirOwn) {
  EXPECT_EQ(written([](JsonWriter& json) {
              json.beginObject(JsonLayout::kLines);
              json.key("list");
              json.beginArray(JsonLayout::kLines);
              json.value(1);
              json.beginObject();
              json.member("x", 2);
              json.member("y", 3);
              json.endObject();
              json.endArray();
              json.key("none");
              json.beginArray(JsonLayout::kLines);
              json.endArray();
              json.endObject();
              json.endDocument();
            }),
            "{\n"
            " \"list\":[\n"
            "  1,\n"
            "  {\"x\":2,\"y\":3}\n"
            " ],\n"
            " \"none\":[]\n"
            "}\n");
}

TEST(JsonWriter, WritesDocumentsOneALine) {
  EXPECT_EQ(written([](JsonWriter& json) {
              for (int i = 0; i < 3; ++i) {
                json.beginObject();
                json.member("i", i);
                json.endObject();
                json.endDocument();
              }
            }),
            "{\"i\":0}\n{\"i\":1}\n{\"i\":2}\n");
}

// The writer holds back a block, not the document, and its indent stops growing.
TEST(JsonWriter, HoldsBackLittle) {
  class CountingSink : public ByteSink {
   public:
    void write(std::string_view bytes) override {
      largest = std::max(largest, bytes.size());
      total += bytes.size();
    }
    std::size_t largest = 0;
    std::size_t total = 0;
  };
  constexpr int kDepth = 100000;
  CountingSink sink;
  JsonWriter json(sink);
  for (int i = 0; i < kDepth; ++i) json.beginArray(JsonLayout::kLines);
  json.value(std::string(300000, 'x'));
  for (int i = 0; i < kDepth; ++i) json.endArray();
  json.finish();
  EXPECT_LT(sink.largest, 70000U);
  EXPECT_LT(sink.total, 300000U + kDepth * 100U);
}

}  // namespace
}  // namespace egfsvg
