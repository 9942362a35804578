#include <gtest/gtest.h>

#include <string>

#include "embedded_host/host_faults.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

TEST(PreprocessSource, Rows) {
  const struct {
    const char* source;
    const char* text;
  } rows[] = {
      {"<!--User agent resolution:96 dpi-->", ""},
      {"<!-- User agent resolution:0 dpi -->", ""},
      {"<svg ><g ><!-- User agent resolution:96 dpi -->", ""},
      {"<!--xUser agent resolution:96 dpi-->", "96"},
      {"<?xml version=\"1.0\"?><!-- v --><!-- User agent resolution:120 dpi --><!DOCTYPE svg [",
       "120"},
      {"<svg><!-- User agent resolution:96 dpi -->", "96"},
      {"<!-- x --><!-- y --><!-- User agent resolution:96 dpi -->", ""},
      {"<!-- User agent resolution:96 dpi --><!-- User agent resolution:72 dpi -->", "72"},
      {"<!-- User agent resolution:96 dpi", ""},
      {"<!-- User agent resolution:-5 dpi -->", "5"},
      {"<!-- User agent resolution: 300-->", "300"},
      {"<!-- User agent resolution:+300dpi-->", "300"},
      {"<!-- x User agent resolution:96-->", ""},
      {"<!-- User agent resolution:99999999999-->", "2147483647"},
      {"<!-- User agent resolution:96 -- dpi-->", ""},
      {"<!-- user agent resolution:96-->", ""},
      {"", ""},
      {"<!--", ""},
  };
  for (const auto& row : rows) {
    TextSource source(row.source);
    CHandlerReader reader;
    _handlerPreprocess record{};
    record.source = source.stream();
    EXPECT_EQ(reader.PreprocessSource(&record), 0);
    EXPECT_STREQ(record.text, row.text) << row.source;
    EXPECT_EQ(reader.buffer.getFileIndex(), 0);
  }
}

TEST(PreprocessSource, LongCommentsKeep127Bytes) {
  // The marker would have to begin behind what is kept.
  const std::string far = "<!-- " + std::string(110, 'x') + "User agent resolution:96-->";
  TextSource source(far);
  CHandlerReader reader;
  _handlerPreprocess record{};
  record.source = source.stream();
  EXPECT_EQ(reader.PreprocessSource(&record), 0);
  EXPECT_STREQ(record.text, "");
}

TEST(GetDPI, TellsWhetherTheCommentEnded) {
  const struct {
    const char* text;
    int status;
    long value;
  } rows[] = {
      {"User agent resolution:96 dpi-->", 0, 96},
      {"no number-->", -1, 0},
      {"User agent resolution:96 dpi", -1, 0},
      {"User agent resolution:96 --x", -1, 96},
      {"-->", -1, 0},
      {"User agent resolution:9-6-->", 0, 96},
  };
  for (const auto& row : rows) {
    TextReader reader(row.text);
    long value = 0;
    EXPECT_EQ(reader->GetDPI(&value), row.status) << row.text;
    EXPECT_EQ(value, row.value) << row.text;
  }
}

int query(const std::string& text, std::int32_t property, std::int32_t& kind, std::int32_t& value) {
  TextSource source(text);
  CHandlerReader reader;
  _handlerQuery record{};
  record.source = source.stream();
  record.property = property;
  record.kind = kind;
  record.value = value;
  const int result = reader.QueryProperty(&record);
  kind = record.kind;
  value = record.value;
  return result;
}

TEST(QueryProperty, CountsPages) {
  const struct {
    const char* text;
    int pages;
  } rows[] = {
      {"<svg></svg>", 0},
      {"", 0},
      {"<svg><g id=\"Page_1\"></g><g id=\"Page_2\"></g></svg>", 2},
      {"<g id=\"page_1\">", 0},
      {"<!-- <g id='Page_1'> -->", 1},
      {"<g class=\"c\" id=\"Page_1\">", 0},
      {"<G ID=\"Page_1\">", 1},
      {"<g id=\"MyPage_x\">", 1},
      {"<g id=\"Page 1\">", 0},
      {"<g> id=\"Page_1\"<g id=\"Page_2\">", 2},
      {"<g/><g id=Page_1>", 0},
  };
  for (const auto& row : rows) {
    std::int32_t kind = 3;
    std::int32_t value = 77;
    EXPECT_EQ(query(row.text, 3, kind, value), 0);
    EXPECT_EQ(kind, 9);
    EXPECT_EQ(value, row.pages) << row.text;
  }
}

TEST(QueryProperty, KnowsNothingElse) {
  for (const std::int32_t property : {0, 1, 4, -1, 1000}) {
    std::int32_t kind = 3;
    std::int32_t value = 77;
    EXPECT_EQ(query("<g id=\"Page_1\">", property, kind, value), -5216);
    EXPECT_EQ(kind, 3);
    EXPECT_EQ(value, 77);
  }
}

TEST(QueryProperty, WithoutMemory) {
  TextSource source("<g id=\"Page_1\">");
  CHandlerReader reader;
  _handlerQuery record{};
  record.source = source.stream();
  record.property = 3;
  ASSERT_TRUE(egfhost::failAllocation(1));
  EXPECT_EQ(reader.QueryProperty(&record), -5203);
}

TEST(FirstPass, CountsTagsAndKeepsNames) {
  TextReader reader(
      "<svg><use xlink:href=\"#a\"/><use xlink:href=\"#A\"/><tref xlink:href='#b'/><use/>"
      "<!-- <use xlink:href=\"#c\"/> --><use href=\"#d\"/><use x=\"1\" xlink:href=\"\"/></svg>");
  EXPECT_EQ(reader->ParseStyleSheetsAndReferences(), 0);
  // svg, use, use, tref, comment, use, use, /svg; the name "use/" is not known.
  EXPECT_EQ(reader->firstPassTags, 8);
  EXPECT_EQ(reader->localRefCount, 3);
  ASSERT_EQ(reader->localRefs.count, 3);
  EXPECT_STREQ(reader->localRefs.entries[0].key, "#a");
  EXPECT_STREQ(reader->localRefs.entries[1].key, "#b");
  EXPECT_STREQ(reader->localRefs.entries[2].key, "");
  EXPECT_EQ(reader->localRefs.at(0)->refCount, 2);
  EXPECT_EQ(reader->localRefs.at(0)->fileIndex, 0);
  EXPECT_EQ(reader->localRefs.at(0)->tagType, 0);
  EXPECT_EQ(reader->localRefs.at(1)->refCount, 1);
}

TEST(FirstPass, ABrokenCommentEndsNothing) {
  TextReader reader("<!-- a -- b --><use xlink:href=\"#a\"/>");
  EXPECT_EQ(reader->ParseStyleSheetsAndReferences(), 0);
  EXPECT_EQ(reader->localRefs.count, 1);
}

TEST(FirstPass, AStyleWithoutATypeIsPassedOver) {
  const _svg_rect rect =
      nthRecord<_svg_rect>("<style><![CDATA[ rect{fill:red} ]]></style><rect x=\"1\"/>", 6);
  EXPECT_EQ(rect.fill.fillColor.red, 255);
  EXPECT_EQ(rect.fill.fillColor.green, 255);
}

TEST(FirstPass, DoesNotFail) {
  const std::string text = "<use xlink:href=\"#a\"/><use xlink:href=\"#b\"/><svg></svg>";
  for (std::uint64_t call = 1; call < 12; ++call) {
    TextSource source(text);
    CHandlerReader reader;
    reader.buffer.setFileHandle(source.stream());
    ASSERT_TRUE(egfhost::failAllocation(call, egfhost::FaultSpan::kForEver));
    EXPECT_EQ(reader.ParseStyleSheetsAndReferences(), 0);
    egfhost::clearFaults();
  }
}

TEST(FirstPass, LinkedStopsBelongToTheirOwnGradient) {
  TextReader reader(
      "<linearGradient id=\"a\"><stop offset=\"1\"/></linearGradient>"
      "<linearGradient id=\"b\" xlink:href=\"#a\"></linearGradient>"
      "<linearGradient id=\"a\"></linearGradient>");
  EXPECT_EQ(reader->ParseStyleSheetsAndReferences(), 0);
  const _svg_gradient* linked = reader->gradients.find("#b");
  ASSERT_NE(linked, nullptr);
  ASSERT_EQ(linked->stopCount, 1);
  EXPECT_EQ(linked->stops[0].head.parent, &linked->head);
}

}  // namespace
}  // namespace egfsvg::test
