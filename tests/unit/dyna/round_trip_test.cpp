// Drawings that are read, written, read and written again.
#include "tests/support/saved_document.h"
#include "tests/unit/dyna/whole_files.h"

namespace egfsvg::test {
namespace {

std::string framed(const std::string& body, const std::string& attributes) {
  return "<svg " + attributes + ">" + body + "</svg>";
}
std::string framed(const std::string& body) { return framed(body, "width=\"200\" height=\"100\""); }

class RoundTripTest : public WholeFileTest {
 protected:
  static std::string written(const std::string& svg, double dotsPerInch = 96.0) {
    SavedDocument document(dotsPerInch);
    EXPECT_EQ(0, document.read(svg)) << svg;
    return document.text();
  }
  static bool hasLine(const std::string& text, const std::string& wanted) {
    const std::vector<std::string> lines = linesOf(text);
    return std::find(lines.begin(), lines.end(), wanted) != lines.end();
  }
};

struct WrittenRow {
  std::string body;
  std::vector<std::string> lines;  // of the elements
  std::string rule;                // a line of the style section, empty for none
};

TEST_F(RoundTripTest, WhatIsWrittenOfWhatIsRead) {
  const WrittenRow kRows[] = {
      {"<polyline points=\"0,0 10,5 20,0\" fill=\"none\" stroke=\"blue\" stroke-width=\"2\"/>",
       {"   <polyline class=\"strk1\" points=\"0.0,0.0 10.0,5.0 20.0,0.0 \" />"},
       "      .strk1 { fill:none; stroke:#0000ff; stroke-width:2.000000 }"},
      {"<polygon points=\"0,0 100,0 50,50\" fill=\"red\" stroke=\"blue\" stroke-width=\"2\"/>",
       {"   <polygon class=\"stl1\" points=\"0.000,0.000 100.000,0.000 50.000,50.000 \" />"},
       "      .stl1 { fill:#ff0000; stroke:#0000ff; stroke-width:2.000000 }"},
      {"<polygon points=\"0,0 100,0 50,50\" fill=\"black\" stroke=\"white\" stroke-width=\"2\"/>",
       {"   <polygon class=\"stl1\" points=\"0.000,0.000 100.000,0.000 50.000,50.000 \" />"},
       "      .stl1 { stroke:#ffffff; stroke-width:2.000000 }"},
      {"<g><rect x=\"0\" y=\"0\" width=\"10\" height=\"10\"/></g>",
       {"  <g  >", "   <rect x=\"0\" y=\"0\" width=\"10\" height=\"10\" stroke=\"none\"  />",
        "  </g>"},
       ""},
      {"<rect x=\"0\" y=\"0\" width=\"10\" height=\"10\" fill=\"none\" stroke=\"black\"/>",
       {"   <rect x=\"0\" y=\"0\" width=\"10\" height=\"10\" fill=\"none\" stroke=\"#000000\"  />"},
       ""},
      {"<rect x=\"0\" y=\"0\" width=\"10\" height=\"10\" fill=\"white\" stroke=\"red\" "
       "opacity=\"0.5\"/>",
       {"   <rect x=\"0\" y=\"0\" width=\"10\" height=\"10\" fill=\"#ffffff\" "
        "fill-opacity=\"0.50\" "
        "stroke=\"#ff0000\" stroke-opacity=\"0.50\"  />"},
       ""}};
  for (const WrittenRow& row : kRows) {
    const std::string text = written(framed(row.body));
    EXPECT_EQ(row.lines, elementLines(text)) << row.body;
    if (!row.rule.empty()) {
      EXPECT_TRUE(hasLine(text, row.rule)) << text;
    }
  }
}

TEST_F(RoundTripTest, TheRootKeepsItsViewBox) {
  struct Row {
    std::string attributes;
    std::string rect;  // inside the box
    std::string line;
  };
  const Row kRows[] = {
      {"width=\"200\" height=\"100\" viewBox=\"0 0 20 10\"", "x=\"1\" y=\"1\"",
       "<svg x=\"0\" y=\"0\" width=\"20\" height=\"10\" viewBox=\"0 0 20 10\">"},
      {"viewBox=\"0 0 20 10\"", "x=\"1\" y=\"1\"", "<svg  viewBox=\"0 0 20 10\">"},
      {"x=\"10\" y=\"20\" width=\"100\" height=\"50\" viewBox=\"10 20 100 50\"",
       "x=\"11\" y=\"21\"",
       "<svg x=\"10\" y=\"20\" width=\"100\" height=\"50\" viewBox=\"10 20 100 50\">"}};
  for (const Row& row : kRows) {
    const std::string text =
        written(framed("<rect " + row.rect + " width=\"2\" height=\"2\"/>", row.attributes));
    EXPECT_TRUE(hasLine(text, row.line)) << text;
    EXPECT_TRUE(hasLine(written(text), row.line));
  }
}

// What is written twice is the same.
TEST_F(RoundTripTest, StableDrawings) {
  const std::string kBodies[] = {
      "<rect x=\"3\" y=\"4\" width=\"50\" height=\"60\" fill=\"#123456\" stroke=\"#fedcba\" "
      "stroke-width=\"3\"/>",
      "<line x1=\"1.25\" y1=\"2.5\" x2=\"99.75\" y2=\"0\" stroke=\"#008000\" stroke-width=\"4\" "
      "stroke-linecap=\"round\"/>",
      "<polyline points=\"0,0 10.5,5 20,0 30,5 40,0 50,5 60,0\" fill=\"none\" stroke=\"blue\"/>",
      "<polygon points=\"0,0 100,0 50,50\" fill=\"red\" stroke=\"blue\" stroke-width=\"2\"/>",
      "<circle cx=\"50\" cy=\"40\" r=\"30\" fill=\"#00ffff\" stroke=\"#ff00ff\"/>",
      "<ellipse cx=\"50\" cy=\"40\" rx=\"30\" ry=\"20\" fill=\"#00ffff\" stroke=\"#ff00ff\"/>",
      "<g><rect x=\"1\" y=\"2\" width=\"3\" height=\"4\" fill=\"red\"/>"
      "<g><line x1=\"0\" y1=\"0\" x2=\"5\" y2=\"5\" stroke=\"blue\"/></g></g>"};
  std::string all;
  for (const std::string& body : kBodies) all += body;
  for (const double dotsPerInch : {96.0, 192.0}) {
    for (const std::string& body : kBodies) {
      const std::string first = written(framed(body), dotsPerInch);
      const std::string second = written(first, dotsPerInch);
      ASSERT_FALSE(elementLines(first).empty()) << body;
      EXPECT_EQ(elementLines(first), elementLines(second)) << body;
    }
    const std::string first = written(framed(all), dotsPerInch);
    EXPECT_EQ(elementLines(first), elementLines(written(first, dotsPerInch)));
  }
}

TEST_F(RoundTripTest, LengthsOfBoxesAreWholePixels) {
  const std::string text =
      written(framed("<rect x=\"1.9\" y=\"2.9\" width=\"10.9\" height=\"20.9\" fill=\"red\"/>"));
  const std::vector<std::string> lines = elementLines(text);
  ASSERT_EQ(1u, lines.size());
  EXPECT_TRUE(lines[0].starts_with("   <rect x=\"1\" y=\"2\" width=\"10\" height=\"20\""))
      << lines[0];
}

TEST_F(RoundTripTest, TheResolutionComesBack) {
  const std::string text = written(framed("<rect width=\"5\" height=\"5\"/>"), 144.0);
  SavedDocument document(96.0);
  ASSERT_EQ(0, document.read(text));
  EXPECT_EQ(144.0, egfhost::resolutionOf(document.view()));
}

TEST_F(RoundTripTest, PageNamesAreNotWritten) {
  const std::string text = written(framed("<g id=\"Page_1\"><rect width=\"5\" height=\"5\"/></g>"));
  EXPECT_EQ(std::string::npos, text.find("Page_"));
  EXPECT_EQ(std::string::npos, text.find(" id="));
}

}  // namespace
}  // namespace egfsvg::test
