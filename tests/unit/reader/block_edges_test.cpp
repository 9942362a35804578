// Drawings are moved byte by byte over the edge between two blocks of the source: what is read does
// not depend on where it stands.
#include <gtest/gtest.h>

#include <string>

#include "cli/element_json.h"
#include "tests/support/reader_harness.h"

namespace egfsvg::test {
namespace {

template <std::size_t Size>
std::string bytes(const char (&literal)[Size]) {
  return {literal, Size - 1};
}

struct Drawing {
  const char* what;
  std::string text;
};

const Drawing kDrawings[] = {
    {"plain shapes",
     "<svg width=\"50\" height='40' viewBox=\"0 0 10 20\"><rect x=\"1\" y='2' width=\"3cm\" "
     "fill=\"#fed\"/><circle r=\"5\" transform=\"rotate(3 4,5) scale(2)\"/><path d=\"M1 2L3e1 4Z"
     "m5-6 7.5\" stroke=\"red\"/><polygon points=\"1,2 3 4,5,6 7\"/></svg>"},
    {"odd spaces and quotes",
     "<SVG\r\n  width = \"5\"\r\n\theight\t=\r\n'6'\r\n><Rect  x  =  \"  1  \" y='\"' / x=\"9\" "
     "id=\"a/\"  /><line x1=\"1\"\n/ ><ellipse\tcx='1'rx=\"2\"ry='3'/></SVG>"},
    {"odd bytes", bytes("<svg><rect x=\"1\0002\" id=\"\xc3\xa9\xff\" y\0=\"3\"/><re\0ct x=\"1\"/>"
                        "<rect\0q x=\"4\"/><\xe9 a=\"1\"/></svg>")},
    {"duplicate attributes",
     "<svg><rect x=\"1\" x=\"2\" class=\"a b\" class=\"c\" id=\"d\" id=\"e\" rx=\"1\" ry=\"2\" "
     "style=\"fill:red;stroke : blue ; /*c/fill-opacity:.5\" desc=\"f\" desc=\"g\"/></svg>"},
    {"comments and character data",
     "<?xml version=\"1.0\"?><!-- a - b -><x> <! --><svg><!-- -c- --><![CDATA[<rect>]]><g>"
     "<![cdata[ <line x1=\"1\"/>]]></g><!-- d --><circle r=\"1\"/></svg>"},
    {"a link",
     "<svg><a xlink:href=\"u\"><rect x=\"1\"/><g class=\"c\"><line x2=\"2\"/></g><![CDATA[ some]"
     "]>text]]><g class=\"QV7.5_Diamond\"><path d=\"M1 1\"/></g><circle r=\"1\"/></a></svg>"},
    {"markup groups",
     "<svg><g class=\"QV7.5_Cloud\"><polyline points=\"1 2\"/></g><g class=\"x,QV7.5_Crossout\">"
     "<line x1=\"1\"/><line x1=\"2\"/><line x1=\"3\"/></g><rect x=\"1\"/></svg>"},
    {"references",
     "<svg><defs><symbol id=\"s\" viewBox=\"0 0 4 4\"><rect x=\"5%\"/></symbol><g id=\"g\">"
     "<circle r=\"1\"/></g><rect id=\"r\" / ></defs><use xlink:href=\"#s\" width=\"8\" x=\"1\"/>"
     "<use xlink:href='#g'/><use xlink:href=\"#r\"/><use xlink:href=\"#q\"/></svg>"},
    {"an entity's drawing",
     "<!DOCTYPE svg [<!ENTITY e \"<rect x='1'/><g><circle r='2'/></g>\"><!ENTITY f \"\">]>"
     "<svg>&e;text &amp; more &e;&<line x1=\"1\"/>&unknown </svg>"},
    {"a switch and pages",
     "<svg><switch><!-- c --><g><rect x=\"1\"/></g><circle r=\"1\"/></switch><g id=\"Page_2\">"
     "<g><rect x=\"1\"/></g><defs><g id=\"d\" /></defs></g><g id=\"Page_1\"><line /></g><g  />"
     "<clipPath id=\"c\"><rect x=\"7\"/></clipPath><marker id=\"m\" /><pattern><rect/></pattern>"
     "<symbol><rect x=\"8\"/></symbol></svg>"},
    {"gradients",
     "<svg><linearGradient id=\"a\" x1=\"20%\"><stop offset=\".5\" stop-color=\"red\"/><stop "
     "/></linearGradient><radialGradient id=\"b\" xlink:href=\"#a\" /><rect fill=\"url(#b)\" "
     "stroke=\"url( #a )\" stroke-dasharray=\"1,2\"/></svg>"},
    {"a source that ends in a value", "<svg><g><rect x=\"12\" fill=\"red  "},
    {"a source that ends in a name", "<svg><g><rect x=\"12\" fill"},
    {"a source that ends in a tag", "<svg><g><rect x=\"12\" /><linearGradient"},
    {"a source that ends in a comment", "<svg><rect x=\"1\"/><!-- open -"},
    {"a name without end", "<svg><" + std::string(300, 'n') + " x=\"1\"><rect " +
                               std::string(280, 'm') + " \"v\" x=\"1\"/></svg>"},
    {"a name at its bound", "<svg><rect " + std::string(255, 'm') + "=\"v\" x=\"1\"/><rect " +
                                std::string(256, 'm') + "=\"v\" x=\"2\"/></svg>"},
    {"a value beyond its block",
     "<svg><rect id=\"" + std::string(5000, 'i') + "\" x=\"1\"/></svg>"},
};

/// What is sent, a line each, and the result.
std::string elementsOf(const std::string& text) {
  TextSink sink;
  JsonWriter json(sink);
  const ReadOutcome outcome = readText(text, "Page 1", [&](_handlerObject& object) {
    writeElement(json, object);
    json.endDocument();
    return std::int32_t{kGoOn};
  });
  json.finish();
  return sink.text() + std::to_string(outcome.result);
}

TEST(BlockEdges, MakeNoDifference) {
  constexpr std::size_t kBlock = cBuffer::kBlockSize;
  for (const Drawing& drawing : kDrawings) {
    const std::string expected = elementsOf(drawing.text);
    const std::size_t length = std::min(drawing.text.size(), kBlock);
    EXPECT_NE(expected.find('{'), std::string::npos) << drawing.what;
    for (std::size_t before = kBlock - length; before <= kBlock + 1; ++before) {
      ASSERT_EQ(elementsOf(std::string(before, ' ') + drawing.text), expected)
          << drawing.what << ", moved by " << before;
    }
  }
}

}  // namespace
}  // namespace egfsvg::test
