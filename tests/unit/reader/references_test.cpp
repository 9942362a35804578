#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <string>
#include <vector>

#include "embedded_host/host_messages.h"
#include "embedded_host/host_settings.h"
#include "host/diagnostics.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

std::size_t messagesOf(Diagnostic diagnostic) {
  return egfhost::countMessages(static_cast<int>(diagnostic));
}

struct Row {
  std::string text;
  ReadOutcome outcome;
};

const std::string kUse = "<use xlink:href=\"#t\"/>";

std::string inDefs(const std::string& content, const std::string& after = kUse) {
  return "<svg><defs>" + content + "</defs>" + after + "<line></svg>";
}

TEST(Use, Sequences) {
  const Row rows[] = {
      {"<svg><use xlink:href=\"#zz\"/><rect x=\"1\"/></svg>", {{3, 6, 1000}, 0}},
      {"<svg><use /><rect x=\"1\"/></svg>", {{3, 6, 1000}, 0}},
      {"<svg><use ><rect x=\"1\"/></use></svg>", {{3, 6, 1000}, 0}},
      {"<svg><use xlink:href=5><rect></svg>", {{3}, 0}},
      {inDefs("<rect id=\"t\"/>"), {{3, 6, 9, 1000}, 0}},
      {inDefs("<rect ID=\"T\"/>"), {{3, 6, 9, 1000}, 0}},
      {inDefs("<rect id=\"t\"/>", kUse + kUse), {{3, 6, 6, 9, 1000}, 0}},
      {inDefs("<path id=\"t\"/>"), {{3, 5, 9, 1000}, 0}},
      {inDefs("<circle id=\"t\"/>"), {{3, 7, 9, 1000}, 0}},
      {inDefs("<ellipse id=\"t\"/>"), {{3, 8, 9, 1000}, 0}},
      {inDefs("<polyline id=\"t\"/>"), {{3, 10, 9, 1000}, 0}},
      {inDefs("<polygon id=\"t\"/>"), {{3, 11, 9, 1000}, 0}},
      {inDefs("<image id=\"t\"/>"), {{3, 16, 9, 1000}, 0}},
      {inDefs("<g id=\"t\"><rect><g ><circle></g></g><path>"),
       {{3, 14, 6, 14, 7, 1001, 1001, 9, 1000}, 0}},
      {inDefs("<g id=\"t\" />"), {{3, 14, 1001, 9, 1000}, 0}},
      {inDefs("<g id=\"t\"><g /><rect></g>"), {{3, 14, 14, 1001, 6, 1001, 9, 1000}, 0}},
      {inDefs("<svg id=\"t\"><rect></svg>"), {{3, 3, 6, 1000, 9, 1000}, 0}},
      {inDefs("<symbol id=\"t\"><rect></symbol>"), {{3, 3, 6, 1000, 9, 1000}, 0}},
      {"<svg><symbol id=\"t\"><rect></symbol>" + kUse + "</svg>", {{3, 3, 6, 1000, 1000}, 0}},
      {"<svg><symbol id=\"t\"><rect id=\"u\"></symbol><use xlink:href=\"#u\"/></svg>",
       {{3, 1000}, 0}},
      {"<svg><rect id=\"t\"/>" + kUse + "</svg>", {{3, 6, 1000}, 0}},
      {"<svg>" + kUse + "<defs><rect id=\"t\"/></defs></svg>", {{3, 1000}, 0}},
      {inDefs("<rect id=\"r\"/><use id=\"t\" xlink:href=\"#r\"/>"), {{3, 6, 9, 1000}, 0}},
      {inDefs("<rect id=\"r\"/><g id=\"t\"><use xlink:href=\"#r\"/><circle></g>"),
       {{3, 14, 6, 7, 1001, 9, 1000}, 0}},
      {inDefs("<g id=\"t\"><marker ><rect></marker><marker /><circle></g>"),
       {{3, 14, 7, 1001, 9, 1000}, 0}},
      {inDefs("<marker id=\"t\"><rect></marker>"), {{3, 9, 1000}, 0}},
      {inDefs("<g id=\"t\"><a ><circle></a><foo><rect></foo></g>"),
       {{3, 14, 7, 6, 1001, 9, 1000}, 0}},
      {inDefs("<g id=\"t\"><rect x=5><circle></g>"), {{3, 14, 1001, 9, 1000}, 0}},
      {inDefs("<rect id=\"t\" x=5>"), {{3, 9, 1000}, 0}},
      {inDefs("<g id=\"t\"><g x=5><circle></g></g>"), {{3, 7, 1001}, 0}},
      {"<svg><symbol id=\"t\"><g x=5><circle></g></symbol>" + kUse + "<line></svg>",
       {{3, 3, 1000, 9, 1000}, 0}},
      {inDefs("<g id=\"t\"><g class=\"QV7.5_Cloud\"><polyline></g><rect></g>"),
       {{3, 14, 101, 6, 1001, 9, 1000}, 0}},
      {inDefs("<symbol id=\"t\"><g><rect></symbol></g>"), {{3, 3, 14, 6, 1000, 1001, 9, 1000}, 0}},
  };
  for (const Row& row : rows) EXPECT_EQ(readText(row.text), row.outcome) << row.text;
}

TEST(Use, ATargetStandsInItsPlace) {
  lookAtEach<_svg_rect>(
      "<svg><defs><g fill=\"lime\" transform=\"scale(9)\"><rect id=\"t\" x=\"7\" "
      "transform=\"rotate(1)\"/></g></defs><g transform=\"scale(2)\"><use fill=\"red\" x=\"5\" "
      "transform=\"scale(3)\" xlink:href=\"#t\"/></g></svg>",
      6, [](const _svg_rect& rect) {
        EXPECT_EQ(rect.x.value, 7.0);
        EXPECT_EQ(rect.fill.fillColor.red, 255);
        EXPECT_EQ(rect.fill.fillColor.green, 0);
        EXPECT_EQ(rect.head.parent->type, 24);
        ASSERT_EQ(rect.head.transformCount, 4);
        EXPECT_EQ(rect.head.transforms[0].args[0].value, 2.0);
        EXPECT_EQ(rect.head.transforms[1].kind, 5);
        EXPECT_EQ(rect.head.transforms[1].args[0].value, 5.0);
        EXPECT_EQ(rect.head.transforms[2].args[0].value, 3.0);
        EXPECT_EQ(rect.head.transforms[3].kind, 1);
      });
}

TEST(Use, GivesItsSizeToASymbol) {
  const std::string symbol =
      "<svg width=\"100\" height=\"100\"><symbol id=\"t\" width=\"10\" height=\"10\"></symbol>";
  const _svg_svg sized = nthRecord<_svg_svg>(
      symbol + "<use xlink:href=\"#t\" width=\"30\" height=\"40\"/></svg>", 3, 1);
  EXPECT_EQ(sized.width.value, 30.0);
  EXPECT_EQ(sized.height.value, 40.0);
  EXPECT_EQ(sized.head.type, 25);
  const _svg_svg half =
      nthRecord<_svg_svg>(symbol + "<use xlink:href=\"#t\" height=\"40\"/></svg>", 3, 1);
  EXPECT_EQ(half.width.value, 10.0);
  EXPECT_EQ(half.height.value, 40.0);
}

TEST(Use, AfterASymbolOnlyXmlSpaceIsBack) {
  TextSource source(
      "<svg width=\"100\" height=\"50\"><symbol id=\"t\" width=\"10\" height=\"5\">"
      "<svg ></svg></symbol><use xlink:href=\"#t\"/><rect><svg></svg><rect></svg>");
  CHandlerReader reader;
  std::vector<double> widths;
  readWith(reader, source.stream(), "Page 1", [&](_handlerObject& object) {
    if (object.type == 6) widths.push_back(reader.viewportWidth);
    return std::int32_t{kGoOn};
  });
  EXPECT_EQ(widths, (std::vector<double>{10.0, 100.0}));
}

TEST(Use, TheCallbackMayEndIt) {
  const std::string text = inDefs("<g id=\"t\"><rect><circle></g>");
  for (const std::int32_t given : {0, 5, -9}) {
    for (const int last : {14, 6, 7, 1001}) {
      const ReadOutcome outcome = readText(text, "Page 1", [&](_handlerObject& object) {
        return object.type == last ? given : std::int32_t{kGoOn};
      });
      EXPECT_EQ(outcome.types.back(), last);
      EXPECT_EQ(outcome.result, given);
    }
  }
}

TEST(Use, CyclesEndAtTheDepthLimit) {
  const struct {
    std::string text;
    std::size_t sent;  // through references
  } rows[] = {
      {inDefs("<use id=\"t\" xlink:href=\"#t\"/>"), 0},
      {inDefs("<use id=\"t\" xlink:href=\"#u\"/><use id=\"u\" xlink:href=\"#t\"/>"), 0},
      {inDefs("<g id=\"t\"><rect>" + kUse + "</g>"), 64 * 3},
      {"<svg><symbol id=\"t\"><rect>" + kUse + "</symbol>" + kUse + "<line></svg>", 64 * 3},
  };
  for (const auto& row : rows) {
    egfhost::clearMessages();
    const ReadOutcome outcome = readText(row.text);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.types.size(), row.sent + 3) << row.text;
    EXPECT_EQ(outcome.types[outcome.types.size() - 2], 9);
    EXPECT_EQ(outcome.types.back(), 1000);
    EXPECT_EQ(messagesOf(Diagnostic::kReferenceDepthLimit), 1U);
  }
}

TEST(Use, TheDepthLimitIsASetting) {
  const std::string text = inDefs("<g id=\"t\"><rect>" + kUse + "</g>");
  for (const std::uint32_t depth : {1U, 2U, 100U}) {
    ASSERT_TRUE(egfhost::setSetting("maxReferenceDepth", depth));
    EXPECT_EQ(readText(text).types.size(), depth * 3 + 3);
  }
  ASSERT_TRUE(egfhost::setSetting("maxReferenceDepth", 0xffffffff));
  EXPECT_EQ(readText(text).types.size(), 1023U * 3 + 3) << "the nesting limit comes first";
}

/// Each level holds ten of the level before.
std::string tenfold(int levels) {
  std::string text = "<svg><defs><rect id=\"l0\"/>";
  for (int level = 1; level <= levels; ++level) {
    text += "<g id=\"l" + std::to_string(level) + "\">";
    for (int i = 0; i < 10; ++i)
      text += "<use xlink:href=\"#l" + std::to_string(level - 1) + "\"/>";
    text += "</g>";
  }
  return text + "</defs><use xlink:href=\"#l" + std::to_string(levels) + "\"/><line></svg>";
}

TEST(Use, ObjectsThroughReferencesAreBounded) {
  // Groups of every level and the rectangles at the bottom.
  EXPECT_EQ(readText(tenfold(2)).types.size(), 3U + 2 * (1 + 10) + 100);
  ASSERT_TRUE(egfhost::setSetting("maxReferencedObjects", 50));
  egfhost::clearMessages();
  const ReadOutcome outcome = readText(tenfold(6));
  std::size_t opened = 0;
  std::size_t closed = 0;
  std::size_t leaves = 0;
  for (const int type : outcome.types) {
    opened += type == 14;
    closed += type == 1001;
    leaves += type == 6;
  }
  EXPECT_EQ(opened + leaves, 50U);
  EXPECT_EQ(closed, opened);
  EXPECT_EQ(outcome.types.back(), 1000);
  EXPECT_EQ(outcome.types[outcome.types.size() - 2], 9);
  EXPECT_EQ(messagesOf(Diagnostic::kReferencedObjectsLimit), 1U);
}

TEST(Use, TheSourceReadAgainIsBounded) {
  // Each drawing of the group passes over 1000 tags that hold nothing.
  std::string text = "<svg><defs><g id=\"a\"><rect />";
  for (int i = 0; i < 1000; ++i) text += "<nothing>";
  text += "</g></defs>";
  for (int i = 0; i < 10; ++i) text += "<use xlink:href=\"#a\"/>";
  text += "<line></svg>";
  const auto drawn = [&text] {
    const std::vector<int> types = readText(text).types;
    EXPECT_EQ(types.back(), 1000);
    EXPECT_EQ(types[types.size() - 2], 9);
    EXPECT_EQ(std::count(types.begin(), types.end(), 14),
              std::count(types.begin(), types.end(), 1001));
    return std::count(types.begin(), types.end(), 6);
  };
  EXPECT_EQ(drawn(), 10);
  // Three times some 9000 bytes are more than 20 KiB.
  ASSERT_TRUE(egfhost::setSetting("maxReferencedObjects", 20));
  egfhost::clearMessages();
  EXPECT_EQ(drawn(), 3);
  EXPECT_EQ(messagesOf(Diagnostic::kReferencedObjectsLimit), 1U);
}

TEST(Use, TheBuiltInBudgetIsAMillion) {
#ifdef EGFSVG_SANITIZED
  GTEST_SKIP() << "takes long under the sanitizers";
#endif
  std::size_t sent = 0;
  readText(tenfold(9), "Page 1", [&](_handlerObject& object) {
    sent += object.type == 14 || object.type == 6;
    return std::int32_t{kGoOn};
  });
  EXPECT_EQ(sent, 1000000U);
}

TEST(UseAnywhere, FindsTargetsInTheFlowAndBehind) {
  const struct {
    std::string text;
    std::vector<int> bare, anywhere;
  } rows[] = {
      {"<svg><rect id=\"t\"/>" + kUse + "</svg>", {3, 6, 1000}, {3, 6, 6, 1000}},
      {"<svg>" + kUse + "<circle><rect id=\"t\"/></svg>", {3, 7, 6, 1000}, {3, 6, 7, 6, 1000}},
      {"<svg>" + kUse + "<defs><g id=\"t\"><rect></g></defs></svg>",
       {3, 1000},
       {3, 14, 6, 1001, 1000}},
      {"<svg>" + kUse + "<symbol id=\"t\"><rect></symbol></svg>", {3, 1000}, {3, 3, 6, 1000, 1000}},
      {"<svg><!-- <rect id=\"t\"/> --><circle id=\"t\"/>" + kUse + "<line id=\"t\"/></svg>",
       {3, 7, 9, 1000},
       {3, 7, 7, 9, 1000}},
      {"<svg><g id=\"t\"><rect>" + kUse + "</g></svg>", {3, 14, 6, 1001, 1000}, {}},
  };
  for (const auto& row : rows) {
    egfhost::resetSettings();
    EXPECT_EQ(readText(row.text).types, row.bare) << row.text;
    ASSERT_TRUE(egfhost::setSetting("useAnywhere", 1));
    const std::vector<int> types = readText(row.text).types;
    if (row.anywhere.empty()) {
      EXPECT_EQ(types.size(), 5U + 64 * 3) << row.text;
    } else {
      EXPECT_EQ(types, row.anywhere) << row.text;
    }
  }
}

TEST(Use, ReadsInLinearTime) {
  const auto drawing = [](int count) {
    std::string text = "<svg><defs>";
    for (int i = 0; i < count; ++i) text += "<rect id=\"r" + std::to_string(i) + "\"/>";
    text += "</defs>";
    for (int i = 0; i < count; ++i) text += "<use xlink:href=\"#r" + std::to_string(i) + "\"/>";
    return text + "</svg>";
  };
  const auto seconds = [&](int count) {
    const std::string text = drawing(count);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(readText(text).types.size(), static_cast<std::size_t>(count) + 2);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  };
  const double few = std::max(seconds(10000), 0.005);
  EXPECT_LT(seconds(100000), 40 * few);
}

TEST(LocalRefs, DefsTellWhereTargetsLie) {
  const std::string text =
      "<svg><use xlink:href=\"#a\"/><use xlink:href=\"#b\"/><use xlink:href=\"#c\"/>"
      "<defs><g id=\"a\"><rect id=\"b\" / ></g><linearGradient id=\"c\"/></defs><line></svg>";
  TextSource source(text);
  CHandlerReader reader;
  readWith(reader, source.stream(), "Page 1", [&](_handlerObject& object) {
    if (object.type != 9) return std::int32_t{kGoOn};
    EXPECT_EQ(reader.localRefCount, 3);
    EXPECT_EQ(reader.localRefs.find("#a")->fileIndex, static_cast<int>(text.find("<g ")));
    EXPECT_EQ(reader.localRefs.find("#a")->tagType, 14);
    EXPECT_EQ(reader.localRefs.find("#b")->fileIndex, static_cast<int>(text.find("<rect")));
    EXPECT_EQ(reader.localRefs.find("#c")->fileIndex, 0);
    return std::int32_t{kGoOn};
  });
}

TEST(LocalRefs, NamesAreCountedOverAllReads) {
  TextSource source("<svg><use xlink:href=\"#a\"/><use xlink:href=\"#b\"/></svg>");
  CHandlerReader reader;
  readWith(reader, source.stream());
  EXPECT_EQ(reader.localRefs.count, 0);
  EXPECT_EQ(reader.localRefCount, 2);
  readWith(reader, source.stream());
  EXPECT_EQ(reader.localRefCount, 4);
}

TEST(LocalRefs, LongNamesAreKeptWhole) {
  const std::string id(6000, 'i');
  EXPECT_EQ(
      readText("<svg><defs><rect id=\"" + id + "\"/></defs><use xlink:href=\"#" + id + "\"/></svg>")
          .types,
      (std::vector<int>{3, 6, 1000}));
}

TEST(Entities, Sequences) {
  const auto declared = [](const std::string& entities, const std::string& content) {
    return "<!DOCTYPE svg [" + entities + "]><svg>" + content + "</svg>";
  };
  const Row rows[] = {
      {declared("<!ENTITY s \"<rect x='1'/>\">", "&s;<circle>&s;"), {{3, 6, 7, 6, 1000}, 0}},
      {declared("<!ENTITY s '<rect x=\"1\"/>'>", "&s;"), {{3, 6, 1000}, 0}},
      {declared("<!ENTITY  s\n \"<rect /><line />\">", "&s;"), {{3, 6, 9, 1000}, 0}},
      {declared("<!ENTITY s \"<g ><rect /></g>\">", "&s;"), {{3, 14, 6, 1001, 1000}, 0}},
      {declared("<!ENTITY s \"<g /><rect />\">", "&s;"), {{3, 14, 1001, 6, 1000}, 0}},
      {declared("<!ENTITY s \"<g ><rect />\">", "&s;<line>"), {{3, 14, 6, 1001, 9, 1000}, 0}},
      {declared("<!ENTITY s \"<marker ><rect /></marker><line />\">", "&s;"), {{3, 9, 1000}, 0}},
      {declared("<!ENTITY s \"<rect /><use /><line />\">", "&s;"), {{9, 3, 6, 1000}, 0}},
      {declared("<!ENTITY s \"fill:red\">", "&s;<rect>"), {{3, 6, 1000}, 0}},
      {declared("<!ENTITY s \"<rect /></g><line />\">", "&s;"), {{3, 6, 1000}, 0}},
      {declared("<!ENTITY s \"<rect /><!-- c --><line />\">", "&s;"), {{3, 6, 1000}, 0}},
      {declared("<!ENTITY a \"x\"><!ENTITY s \"<rect />\"><!ENTITY t \"<line />\">", "&t;&s;"),
       {{3, 9, 6, 1000}, 0}},
      {declared("<!ENTITY s \"<rect />\"><!ENTITY s \"<line />\">", "&s;"), {{3, 9, 1000}, 0}},
      {declared("<!ENTITY \"<rect />\">", "&s;"), {{3, 1000}, 0}},
      {declared("<!ENTITY s \"<rect x=5/>\">", "&s;<line>"), {{3, 9, 1000}, 0}},
      {declared("", "&amp;<line>"), {{3, 9, 1000}, 0}},
  };
  for (const Row& row : rows) EXPECT_EQ(readText(row.text), row.outcome) << row.text;
}

TEST(Entities, InheritWhereTheyStand) {
  const _svg_rect rect = nthRecord<_svg_rect>(
      "<!DOCTYPE svg [<!ENTITY s \"<rect x='4'/>\">]><svg><g fill=\"red\">&s;</g></svg>", 6);
  EXPECT_EQ(rect.x.value, 4.0);
  EXPECT_EQ(rect.fill.fillColor.green, 0);
}

TEST(Entities, LongNamesAreBounded) {
  const std::string name(400, 'n');
  EXPECT_EQ(readText("<!ENTITY " + name + " \"<rect />\"><svg>&" + name + ";</svg>").types,
            (std::vector<int>{3, 1000}));
}

TEST(Entities, CountAgainstTheBudget) {
  ASSERT_TRUE(egfhost::setSetting("maxReferencedObjects", 3));
  EXPECT_EQ(readText("<!ENTITY s \"<rect /><line />\"><svg>&s;&s;&s;</svg>").types,
            (std::vector<int>{3, 6, 9, 6, 1000}));
}

TEST(EnumerateTemplateData, OtherTagsDoNothing) {
  TextReader reader("<rect><svg>");
  for (const int tag : {0, 3, 14, 16, 24, 34, 40, 1000, -1}) {
    EXPECT_EQ(reader->EnumerateTemplateData(nullptr, 0, tag), 0);
    EXPECT_EQ(reader->buffer.getFileIndex(), 0) << tag;
  }
}

}  // namespace
}  // namespace egfsvg::test
