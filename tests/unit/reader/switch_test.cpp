#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

struct Row {
  std::string content;  // of the switch
  std::vector<int> types;
};

std::vector<int> typesOf(const std::string& content) {
  return readText("<svg><switch >" + content + "</switch><line></svg>").types;
}

TEST(Switch, TheFirstChildIsSent) {
  const Row rows[] = {
      {"", {3, 9, 1000}},
      {"<rect /><circle /><path />", {3, 6, 9, 1000}},
      {"<rect systemLanguage=\"xx\"/><circle systemLanguage=\"en\"/>", {3, 6, 9, 1000}},
      {"<rect requiredFeatures=\"none\"/><circle />", {3, 6, 9, 1000}},
      {"<foo/><rect />", {3, 6, 9, 1000}},
      {"<foreignObject><circle /></foreignObject><rect />", {3, 7, 9, 1000}},
      {"<g ><rect /><circle /></g><path />", {3, 14, 6, 7, 1001, 9, 1000}},
      {"<g /><rect />", {3, 14, 1001, 9, 1000}},
      {"<g ><g ><rect /></g><g /></g><path />", {3, 14, 14, 6, 1001, 14, 1001, 1001, 9, 1000}},
      {"<svg ><rect /></svg><path />", {3, 3, 6, 1000, 9, 1000}},
      {"<a ><rect /></a><path />", {3, 21, 9, 1000}},
      {"<image /><path />", {3, 16, 9, 1000}},
      {"<!-- <rect /> --><circle /><path />", {3, 7, 9, 1000}},
      {"<defs><rect /></defs><circle />", {3, 7, 9, 1000}},
      {"<symbol ><rect /></symbol><circle />", {3, 7, 9, 1000}},
      {"<switch ><rect /><path /></switch><circle />", {3, 6, 9, 1000}},
      {"<switch ></switch><circle />", {3, 9, 1000}},
      {"<g ><switch ><rect /><path /></switch><circle /></g><path />",
       {3, 14, 6, 7, 1001, 9, 1000}},
      {"<use xlink:href=\"#zz\"/><circle />", {3, 9, 1000}},
      {"</g><rect />", {3, 6, 9, 1000}},
      {"</svg><rect />", {3, 6, 9, 1000}},
      {"<rect x=5/><circle />", {3, 9, 1000}},
      {"<g x=5><rect /></g>", {3, 9, 1000}},
      {"<g ><rect x=5/><circle /></g><path />", {3, 14, 1001, 9, 1000}},
      {"<g ><rect />", {3, 14, 6, 1001, 9, 1000}},
      {"<g class=\"QV7.5_Cloud\"><polyline /></g><rect />", {3, 101, 9, 1000}},
      {"<linearGradient /><style ></style><rect />", {3, 6, 9, 1000}},
  };
  for (const Row& row : rows) EXPECT_EQ(typesOf(row.content), row.types) << row.content;
}

TEST(Switch, OtherSequences) {
  const struct {
    std::string text;
    ReadOutcome outcome;
  } rows[] = {
      {"<svg><switch><rect></switch></svg>", {{3, 6, 1000}, 0}},
      {"<svg><switch/><rect></svg>", {{3, 6, 1000}, 0}},
      {"<svg><switch /><rect><circle></svg>", {{3, 6}, 0}},
      {"<svg><switch x=5><rect></switch><circle></svg>", {{3, 6, 7, 1000}, 0}},
      {"<svg><switch ><rect>", {{3, 6}, 0}},
      {"<svg><switch ><g ><rect>", {{3, 14, 6, 1001}, 0}},
      {"<svg><switch ><!-- a -- b --><rect></switch></svg>", {{3}, 0}},
      {"<switch ><rect></switch><circle>", {{6, 7}, 0}},
      {"<svg></switch><rect></svg>", {{3, 6, 1000}, 0}},
      {"<svg><defs><rect id=\"t\"/></defs><switch ><use xlink:href=\"#t\"/><path></switch></svg>",
       {{3, 6, 1000}, 0}},
  };
  for (const auto& row : rows) EXPECT_EQ(readText(row.text), row.outcome) << row.text;
}

TEST(Switch, ChildrenInheritFromIt) {
  TextSource source("<svg><g fill=\"lime\"><switch fill=\"red\"><rect></switch></g></svg>");
  CHandlerReader reader;
  readWith(reader, source.stream(), "Page 1", [&](_handlerObject& object) {
    if (object.type == 6) {
      const auto* rect = object.payload<_svg_rect>();
      EXPECT_EQ(rect->fill.fillColor.red, 255);
      EXPECT_EQ(rect->fill.fillColor.green, 0);
      EXPECT_EQ(rect->head.parent->type, 35);
      EXPECT_EQ(rect->head.parent->parent->type, 14);
    }
    return std::int32_t{kGoOn};
  });
  EXPECT_EQ(reader.switchCount, 0);
}

TEST(Switch, TheCallbackMayEndIt) {
  const std::string text = "<svg><switch ><g ><rect><circle></g></switch><line></svg>";
  for (const std::int32_t given : {0, 2, -5201}) {
    for (const int last : {14, 6, 7, 1001}) {
      const ReadOutcome outcome = readText(text, "Page 1", [&](_handlerObject& object) {
        return object.type == last ? given : std::int32_t{kGoOn};
      });
      EXPECT_EQ(outcome.types.back(), last);
      EXPECT_EQ(outcome.result, given);
    }
  }
}

TEST(Switch, DeepOnesEnd) {
  std::string text = "<svg>";
  for (int i = 0; i < 5000; ++i) text += "<switch >";
  text += "<rect>";
  for (int i = 0; i < 5000; ++i) text += "</switch>";
  EXPECT_EQ(readText(text + "<line></svg>").types, (std::vector<int>{3, 9, 1000}));
}

TEST(EvaluateTestAtt, EveryTestMustPass) {
  CHandlerReader reader;
  for (int tests = 0; tests < 8; ++tests) {
    _svg_ta ta{};
    ta.requiredFeatures.passes = tests & 1;
    ta.requiredExtensions.passes = tests >> 1 & 1;
    ta.systemLanguage.passes = tests >> 2 & 1;
    EXPECT_EQ(reader._evaluateTestAtt(ta) != 0, tests == 7);
  }
}

}  // namespace
}  // namespace egfsvg::test
