#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "embedded_host/host_faults.h"
#include "model/rmm_allocator.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

/// A tag as scanned: code, index, and whether it may have attributes.
struct Tag {
  int code;
  int index;
  int hasAttributes;

  bool operator==(const Tag&) const = default;
};

void PrintTo(const Tag& tag, std::ostream* out) {
  *out << tag.code << "@" << tag.index << " h" << tag.hasAttributes;
}

std::vector<Tag> tagsOf(const std::string& text) {
  TextReader reader(text);
  std::vector<Tag> tags;
  int index = -7;
  for (int code = reader->GetNextTag(&index); code != -1; code = reader->GetNextTag(&index)) {
    tags.push_back({code, index, reader->hasAttributes});
  }
  return tags;
}

struct TagsRow {
  const char* text;
  std::vector<Tag> tags;
};

TEST(GetNextTag, Rows) {
  const TagsRow rows[] = {
      {"<RECT x=\"1\"/>", {{6, 0, 1}}},
      {"<Rect x=\"1\"/>", {{6, 0, 1}}},
      {"<rect x=\"1\"/>", {{6, 0, 1}}},
      {"<g/>", {}},
      {"<g />", {{14, 0, 1}}},
      {"<g>", {{14, 0, 0}}},
      {"<linearGradient", {}},
      {"<linearGradient>", {{30, 0, 0}}},
      {"< rect x=\"1\"/>", {}},
      {"<>", {}},
      {"<", {}},
      {"", {}},
      {"no tag at all", {}},
      {"</TSPAN>", {{1005, 0, 0}}},
      {"</svg ><rect>", {{1000, 0, 1}, {6, 7, 0}}},
      {"</rect></path>", {}},
      {"<foo a=\"<rect x=1/>\"/>", {{6, 8, 1}}},
      {"<!ENTITY st1 \"a\">", {{17, 0, 1}}},
      {"<svg\r\nx=\"1\">", {{3, 0, 1}}},
      {"<svg\tx=\"1\">", {{3, 0, 1}}},
      {"  <a>\n<A>", {{21, 2, 0}, {21, 6, 0}}},
      {"<rec<rect>", {}},
      {"<b<c <rect>", {{6, 5, 0}}},
      {"<?xml-stylesheet href=\"a\"?>", {{27, 0, 1}}},
      {"<rect\f>", {}},
      {"<image><tref><altGlyph></altGlyph><stop><switch></switch>",
       {{16, 0, 0},
        {19, 7, 0},
        {20, 13, 0},
        {1008, 23, 0},
        {32, 34, 0},
        {35, 40, 0},
        {1016, 48, 0}}},
  };
  for (const TagsRow& row : rows) EXPECT_EQ(tagsOf(row.text), row.tags) << row.text;
}

TEST(GetNextTag, CommentsAreKnownByTheByteBehindTheirOpener) {
  const struct {
    const char* text;
    int code, index, fileIndex;
  } rows[] = {
      {"<!-- a -->", 23, 0, 5}, {"<!--a-->", 23, 0, 5},  {"<!---->", 23, 0, 5}, {"<!-->", 23, 0, 5},
      {"<!--", 23, -1, 4},      {"x<!--y", 23, 1, 6},    {"<!-", -1, -7, 3},    {"<!", -1, -7, 2},
      {"<!- - ", -1, -7, 6},    {"<!--- -->", 23, 0, 5},
  };
  for (const auto& row : rows) {
    TextReader reader(row.text);
    int index = -7;
    EXPECT_EQ(reader->GetNextTag(&index), row.code) << row.text;
    if (row.code != -1) {
      EXPECT_EQ(index, row.index) << row.text;
    }
    EXPECT_EQ(reader->buffer.getFileIndex(), row.fileIndex) << row.text;
  }
}

TEST(GetNextTag, CDataIsKnownAtOnceAndOneByteEarly) {
  TextReader reader("<![CDATA[x]]>");
  int index = -7;
  EXPECT_EQ(reader->GetNextTag(&index), 40);
  EXPECT_EQ(index, -1);
  EXPECT_EQ(reader->buffer.getFileIndex(), 9);
  EXPECT_EQ(reader->GetNextTag(&index), -1);
  // The early look minds the case, the table does not.
  EXPECT_EQ(tagsOf("<![cdata[ x"), (std::vector<Tag>{{40, 0, 1}}));
  EXPECT_EQ(tagsOf("<![cdata[x>"), std::vector<Tag>{});
}

TEST(GetNextTag, EarlyOpenersLeaveTheAttributeFlagAlone) {
  TextReader reader("<g x=\"1\"><!-- --><rect><![CDATA[");
  EXPECT_EQ(reader->GetNextTag(nullptr), 14);
  EXPECT_EQ(reader->GetNextTag(nullptr), 23);
  EXPECT_EQ(reader->hasAttributes, 1);
  EXPECT_EQ(reader->GetNextTag(nullptr), 6);
  EXPECT_EQ(reader->GetNextTag(nullptr), 40);
  EXPECT_EQ(reader->hasAttributes, 0);
}

TEST(GetNextTag, LongNamesArePassedOver) {
  for (const std::size_t length : {126UL, 127UL, 128UL, 129UL, 300UL, 5000UL}) {
    const std::string name(length, 'g');
    EXPECT_EQ(tagsOf("<" + name + "><rect>"),
              (std::vector<Tag>{{6, static_cast<int>(length) + 2, 0}}));
    EXPECT_EQ(tagsOf("<" + name), std::vector<Tag>{});
  }
}

TEST(GetNextTag, AZeroByteEndsTheComparedName) {
  EXPECT_EQ(tagsOf(std::string("<rect\0foo x=\"1\">", 16)), (std::vector<Tag>{{6, 0, 1}}));
  EXPECT_EQ(tagsOf(std::string("<\0rect>", 7)), std::vector<Tag>{});
  EXPECT_EQ(tagsOf(std::string("a\0b<g>", 6)), (std::vector<Tag>{{14, 3, 0}}));
}

TEST(GetNextTag, NamesMayCrossABlock) {
  for (std::size_t before = 4080; before < 4100; ++before) {
    const std::string text = std::string(before, ' ') + "<polyline points=\"\"/><!-- x --><g>";
    const int at = static_cast<int>(before);
    EXPECT_EQ(tagsOf(text), (std::vector<Tag>{{10, at, 1}, {23, at + 21, 1}, {14, at + 31, 0}}))
        << before;
  }
}

TEST(GetNextTag, EveryNameOfTheTable) {
  const struct {
    const char* name;
    int code;
  } rows[] = {
      {"svg", 3},
      {"/svg", 1000},
      {"g", 14},
      {"/g", 1001},
      {"defs", 15},
      {"/defs", 1002},
      {"text", 12},
      {"/text", 1003},
      {"rect", 6},
      {"circle", 7},
      {"ellipse", 8},
      {"line", 9},
      {"polyline", 10},
      {"polygon", 11},
      {"path", 5},
      {"style", 4},
      {"/style", 1004},
      {"!entity", 17},
      {"tspan", 18},
      {"/tspan", 1005},
      {"tref", 19},
      {"altglyph", 20},
      {"/altglyph", 1008},
      {"a", 21},
      {"/a", 1006},
      {"textpath", 22},
      {"/textpath", 1007},
      {"use", 24},
      {"symbol", 25},
      {"/symbol", 1009},
      {"marker", 26},
      {"/marker", 1010},
      {"?xml-stylesheet", 27},
      {"clippath", 28},
      {"/clippath", 1011},
      {"lineargradient", 30},
      {"/lineargradient", 1012},
      {"radialgradient", 31},
      {"/radialgradient", 1013},
      {"stop", 32},
      {"pattern", 33},
      {"/pattern", 1014},
      {"image", 16},
      {"/image", 1015},
      {"switch", 35},
      {"/switch", 1016},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(tagsOf("<" + std::string(row.name) + " "), (std::vector<Tag>{{row.code, 0, 1}}));
    EXPECT_EQ(tagsOf("<" + std::string(row.name) + "x>"), std::vector<Tag>{});
  }
}

struct EntityRow {
  std::string text;
  int result;
  std::string name;
  int fileIndex;
};

TEST(GetNextPoiterTag, Rows) {
  const EntityRow rows[] = {
      {"&amp;<g>", 34, "amp", 5},
      {"&amp<g>", 34, "amp", 4},
      {"&a b;<g>", 34, "a", 3},
      {"& x &foo;<g>", 0, "", 2},
      {"&;<g>", 0, "", 2},
      {"&name", 34, "name", 5},
      {"text <g>", 0, "", 5},
      {"text", 0, "", 4},
      {"", 0, "", 0},
      {"&", 0, "", 1},
      {"x &a;&b;", 34, "a", 5},
      {"&" + std::string(127, 'n') + ";<g>", 34, std::string(127, 'n'), 129},
      {"&" + std::string(128, 'n') + ";<g>", 34, std::string(127, 'n'), 129},
      {"&" + std::string(400, 'n') + ";<g>", 34, std::string(127, 'n'), 129},
  };
  for (const EntityRow& row : rows) {
    TextReader reader(row.text);
    char* name = nullptr;
    EXPECT_EQ(reader->GetNextPoiterTag(&name), row.result) << row.text;
    EXPECT_EQ(name == nullptr ? "" : std::string(name), row.name) << row.text;
    EXPECT_EQ(reader->buffer.getFileIndex(), row.fileIndex) << row.text;
    freeAll(name);
  }
}

TEST(GetNextPoiterTag, StepsBackAcrossABlock) {
  for (std::size_t before = 4093; before < 4099; ++before) {
    TextReader reader(std::string(before, 'x') + "<g>");
    char* name = nullptr;
    EXPECT_EQ(reader->GetNextPoiterTag(&name), 0);
    int index = 0;
    EXPECT_EQ(reader->GetNextTag(&index), 14);
    EXPECT_EQ(index, static_cast<int>(before));
  }
}

TEST(GetNextPoiterTag, WithoutMemoryTheReaderKnows) {
  TextReader reader("&amp;");
  char* name = nullptr;
  ASSERT_TRUE(egfhost::failAllocation(1));
  EXPECT_EQ(reader->GetNextPoiterTag(&name), 0);
  EXPECT_EQ(name, nullptr);
  EXPECT_TRUE(reader->state.outOfMemory);
}

TEST(FindCommentEnd, Rows) {
  const struct {
    const char* text;
    int result;
    int fileIndex;
  } rows[] = {
      {"a -- b -->", -1, 5}, {"->x", -1, 3},          {"a -->", 0, 5},  {"-->", 0, 3},
      {"a --->", -1, 5},     {"x <!-- y -->", -1, 6}, {"", -1, 0},      {"no end", -1, 6},
      {"a - b -->", 0, 9},   {"a -", -1, 3},          {"a --", -1, 4},  {"<g> -->", 0, 7},
      {"<!- -->", 0, 7},     {"<-->", 0, 4},          {"<!x-->", 0, 6}, {"<!", -1, 2},
      {"<<!--", -1, 5},
  };
  for (const auto& row : rows) {
    TextReader reader(row.text);
    EXPECT_EQ(reader->FindCommentEnd(), row.result) << row.text;
    EXPECT_EQ(reader->buffer.getFileIndex(), row.fileIndex) << row.text;
  }
}

TEST(ParseCDATA, Rows) {
  const struct {
    std::string text;
    const char* result;
    unsigned long length;
  } rows[] = {
      {"a]]]>", "a]", 3},
      {"ab]]", "ab]]", 5},
      {"]]>", "", 1},
      {"", nullptr, 1},
      {" \n\t\r", nullptr, 1},
      {"  x y ]]>z", "x y ", 5},
      {"a]>b]]>", "a]>b", 5},
      {"]]", "]]", 3},
      {std::string("ab\0c]]>", 7), "ab", 3},
      {std::string("\0", 1), nullptr, 1},
  };
  for (const auto& row : rows) {
    TextReader reader(row.text);
    unsigned long length = 99;
    char* text = reader->ParseCDATA(&length);
    if (row.result == nullptr) {
      EXPECT_EQ(text, nullptr) << row.text;
    } else {
      EXPECT_STREQ(text, row.result) << row.text;
    }
    EXPECT_EQ(length, row.length) << row.text;
    freeAll(text);
  }
}

TEST(ParseCDATA, LongTextsComeWhole) {
  const std::string text(100000, 'c');
  TextReader reader(text + "]]>");
  unsigned long length = 0;
  char* read = reader->ParseCDATA(&length);
  EXPECT_EQ(read, text);
  EXPECT_EQ(length, text.size() + 1);
  freeAll(read);
}

TEST(IsSvgTagClosed, Rows) {
  const struct {
    const char* text;
    int closed;
  } rows[] = {
      {"<g id=\"a\"/ >", 1},
      {"<g />", 1},
      {"<g a=\"x/y\">", 0},
      {"<g a=\"x/\">", 0},
      {"<g a=\"/>\">", 1},
      {"<g >", 0},
      {"<g a=\"/\"/>", 1},
      {"", 0},
      {"/", 0},
      {"/ \n\t>", 1},
  };
  for (const auto& row : rows) {
    TextReader reader(std::string(row.text) + "<rect/>");
    const int end = static_cast<int>(std::strlen(row.text));
    EXPECT_EQ(reader->isSVGTagClosed(0, end), row.closed) << row.text;
    EXPECT_EQ(reader->buffer.getFileIndex(), end) << row.text;
    reader->buffer.setFileIndex(end);
    EXPECT_EQ(reader->isSVGTagClosed(0, end), row.closed) << row.text;
  }
}

TEST(IsSvgTagClosed, CrossesBlocks) {
  for (std::size_t before = 4085; before < 4097; ++before) {
    const std::string tag = "<g id=\"abc\" />";
    TextReader reader(std::string(before, ' ') + tag);
    const int start = static_cast<int>(before);
    const int end = start + static_cast<int>(tag.size());
    EXPECT_EQ(reader->isSVGTagClosed(start, end), 1) << before;
    EXPECT_EQ(reader->buffer.getFileIndex(), end);
  }
}

TEST(SkipSeparators, Rows) {
  const struct {
    const char* text;
    int index, result;
  } rows[] = {{" \n\t\r,;x", 0, 6}, {"x", 0, 0}, {"", 0, 0}, {"a  b", 1, 3}, {"\f", 0, 0}};
  CHandlerReader reader;
  for (const auto& row : rows) {
    EXPECT_EQ(reader.SkipSeparators(row.text, row.index), row.result) << row.text;
  }
}

}  // namespace
}  // namespace egfsvg::test
