// The short way through attributes against the long one, which takes any form byte by byte.
#include "reader/plain_attributes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "model/lifecycle.h"
#include "reader/attribute_rows.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

/// What a scan gives for one attribute: its code, name and value, and where it stops.
using Seen = std::tuple<int, std::string, std::string, std::int32_t>;

/// All attributes. A pair of `room` bytes that are fewer than a block's goes the long way.
std::vector<Seen> attributesOf(const std::string& text, std::int32_t room) {
  TextReader reader(text);
  std::vector<Seen> seen;
  for (int code = kAttUnknown; code != kAttNoMore && code != kAttSyntaxError;) {
    auto* value = static_cast<char*>(RMM_AllocName(static_cast<std::size_t>(room), 1, RMM_SITE));
    _svg_attrib_pair pair{"", room, value};
    value[0] = '\0';
    code = reader->GetNextAttribPair(&pair);
    const bool isPair = code != kAttNoMore && code != kAttSyntaxError;
    seen.emplace_back(code, isPair ? pair.name : "", isPair ? pair.value : "",
                      reader->buffer.getFileIndex());
    RMM_Free(pair.value);
  }
  return seen;
}

template <std::size_t Size>
std::string oneOf(std::mt19937& random, const char* const (&texts)[Size]) {
  return texts[random() % Size];
}

/// Attributes as they are met, and some that are odd.
std::string randomAttributes(std::mt19937& random) {
  static constexpr const char* kBefore[] = {" ", " ", " ", "", "  ", "\n", "\r\n\t", " / "};
  static constexpr const char* kNames[] = {"x",
                                           "y",
                                           "id",
                                           "fill",
                                           "stroke-width",
                                           "viewBox",
                                           "xlink:href",
                                           "X1",
                                           "d",
                                           "stroke-dasharray",
                                           "stroke-dashoffset",
                                           "data-what",
                                           "xy",
                                           "",
                                           "na me",
                                           "x\t",
                                           "preserveAspectRatio",
                                           "sixteen-bytes-ab",
                                           "fifteen-bytes-a",
                                           "a<b",
                                           "\x80"};
  static constexpr const char* kEquals[] = {"=", "=", "=", "=", "=", " =", "= ", "=\n", "", "=="};
  static constexpr const char* kQuotes[] = {"\"", "\"", "\"", "'", "'", ""};
  static constexpr const char* kValues[] = {"1",
                                            "",
                                            " 2",
                                            "3 ",
                                            "a>b",
                                            "a/>b",
                                            "#fed",
                                            "it's",
                                            "translate(560.61,667.61) rotate(71.6)",
                                            "fifteen bytes a",
                                            "sixteen bytes ab",
                                            "thirty-one bytes are this text.",
                                            "thirty-two bytes are in this one"};
  static constexpr const char* kEnds[] = {">", "/>", "/>", " >", " / >", "", "/", "<"};
  std::string text;
  for (std::size_t count = random() % 6; count > 0; --count) {
    const std::string quote = oneOf(random, kQuotes);
    text += oneOf(random, kBefore) + oneOf(random, kNames) + oneOf(random, kEquals) + quote +
            oneOf(random, kValues) + (random() % 20 == 0 ? "" : quote);
  }
  return text + oneOf(random, kEnds) + "x=\"5\" y=\"6\">";
}

TEST(PlainAttributes, AreTheSameByTheLongWay) {
  std::mt19937 random(11);
  for (int round = 0; round < 20000; ++round) {
    std::string text = randomAttributes(random);
    if (random() % 8 == 0) text[random() % text.size()] = '\0';
    EXPECT_EQ(attributesOf(text, kAttribValueSize), attributesOf(text, 1)) << text;
  }
}

TEST(PlainAttributes, AreTheSameAcrossTheEdgeOfABlock) {
  std::mt19937 random(12);
  for (int round = 0; round < 500; ++round) {
    const auto before = cBuffer::kBlockSize - random() % 120;
    const std::string text = std::string(before, ' ') + randomAttributes(random);
    EXPECT_EQ(attributesOf(text, kAttribValueSize), attributesOf(text, 1)) << text;
  }
}

struct RectResult {
  int ended;
  std::int32_t index;
  _svg_value x, y, width, height;
  _svg_color fill;
  double opacity, strokeWidth;
};

std::string textOf(const RectResult& result) {
  std::string text = std::to_string(result.ended) + " " + std::to_string(result.index);
  for (const _svg_value& value : {result.x, result.y, result.width, result.height}) {
    text += " " + std::to_string(value.unit) + ":" + std::to_string(value.value);
  }
  for (const int channel : {result.fill.red, result.fill.green, result.fill.blue}) {
    text += " " + std::to_string(channel);
  }
  return text + " " + std::to_string(result.opacity) + " " + std::to_string(result.strokeWidth);
}

/// The tag's attributes applied to a rectangle.
template <class Apply>
std::string rectOf(const std::string& text, Apply apply) {
  TextReader reader(text);
  _svg_rect rect;
  initRect(&rect);
  rect.head.type = kTagRect;
  const int ended = apply(*reader, rect);
  const RectResult result{ended,
                          reader->buffer.getFileIndex(),
                          rect.x,
                          rect.y,
                          rect.width,
                          rect.height,
                          rect.fill.fillColor,
                          rect.fill.fillOpacity,
                          rect.stroke.strokeWidth.value};
  svg_DestroyObjectAtt(reinterpret_cast<char*>(&rect), kTagRect);
  return textOf(result);
}

int applyEach(CHandlerReader& reader, _svg_rect& rect) {
  ScratchPair scratch(reader.state);
  for (;;) {
    const int code = reader.GetNextAttribPair(&scratch.pair);
    if (code == kAttNoMore || code == kAttSyntaxError) return code;
    reader.SetRectAttribute(&rect, code, &scratch.pair);
  }
}

TEST(ElementRow, AppliesWhatTheSetterDoesForEachAttribute) {
  static constexpr const char* kTexts[] = {" x=\"1\"",
                                           " y='2'",
                                           "\nwidth=\"3\"",
                                           " height=\"4%\"",
                                           " fill=\"#123456\"",
                                           " fill=\"red\"",
                                           " stroke-width='5'",
                                           " x=\" 6\"",
                                           " fill-opacity=\".5\"",
                                           " r=\"7\"",
                                           " unknown=\"8\"",
                                           " Y=\"9\"",
                                           " width = \"10\"",
                                           " fill=\"#abc\"",
                                           " id=\"a\"",
                                           " style=\"fill:blue\""};
  std::mt19937 random(13);
  for (int round = 0; round < 5000; ++round) {
    const bool edge = random() % 4 == 0;
    std::string text(edge ? cBuffer::kBlockSize - random() % 60 : 0, ' ');
    for (std::size_t count = random() % 7; count > 0; --count) text += oneOf(random, kTexts);
    text += random() % 5 == 0 ? " x=1>" : "/>";
    const std::string whole = rectOf(text, [](CHandlerReader& reader, _svg_rect& rect) {
      return kRectRow.applyAll(reader, &rect);
    });
    const std::string oneByOne = rectOf(text, applyEach);
    EXPECT_EQ(whole, oneByOne) << text;
  }
}

/// All tags of the text applied to one rectangle each, with one reader: what an earlier tag leaves
/// behind in the reader or in its block must not be seen.
template <class Apply>
std::vector<std::string> rectsOf(const std::string& text, Apply apply) {
  TextReader reader(text);
  std::vector<std::string> results;
  for (int index; reader->GetNextTag(&index) != kTagEnd && reader->hasAttributes != 0;) {
    _svg_rect rect;
    initRect(&rect);
    rect.head.type = kTagRect;
    const int ended = apply(*reader, rect);
    results.push_back(
        textOf({ended, reader->buffer.getFileIndex(), rect.x, rect.y, rect.width, rect.height,
                rect.fill.fillColor, rect.fill.fillOpacity, rect.stroke.strokeWidth.value}) +
        (rect.head.id == nullptr ? "" : rect.head.id));
    svg_DestroyObjectAtt(reinterpret_cast<char*>(&rect), kTagRect);
  }
  return results;
}

TEST(ElementRow, ForgetsWhatFormerTagsHad) {
  static constexpr const char* kTexts[] = {" x=\"1\"",
                                           " x1=\"2\"",
                                           " y=\"3\"",
                                           " width=\"4\"",
                                           " widths=\"5\"",
                                           " height=\"6\"",
                                           " height=\" 7\"",
                                           " id=\"a-longer-name-than-a-block\"",
                                           " id=\"ninth\"",
                                           " stroke-width=\"10\"",
                                           " stroke-linejoin=\"round\"",
                                           " fill=\"#0a0b0c\"",
                                           "  fill=\"red\"",
                                           " fill-opacity=\".25\"",
                                           " id='elf'",
                                           "id=\"twelve\""};
  std::mt19937 random(14);
  for (int round = 0; round < 300; ++round) {
    std::string text;
    std::vector<std::string> usual;
    for (int i = 0; i < 4; ++i) usual.push_back(oneOf(random, kTexts));
    for (int tag = 0; tag < 120; ++tag) {
      text += "<rect";
      for (const std::string& attribute : usual) {
        if (random() % 8 != 0) text += attribute;
        if (random() % 12 == 0) text += oneOf(random, kTexts);
      }
      text += random() % 4 == 0 ? ">" : "/>";
    }
    if (random() % 4 == 0) text[random() % text.size()] = '\0';
    EXPECT_EQ(rectsOf(text, [](CHandlerReader& reader,
                               _svg_rect& rect) { return kRectRow.applyAll(reader, &rect); }),
              rectsOf(text, applyEach))
        << text;
  }
}

}  // namespace
}  // namespace egfsvg::test
