// The frame of a written file, and the codes of its calls.

#include <gtest/gtest.h>

#include "frame/result_codes.h"
#include "tests/support/drawing_writer.h"

namespace egfsvg {
namespace {

using test::DrawingWriter;
using test::Lines;
using test::OpenWriter;

TEST(WrittenFile, AnEmptyDrawingHasItsFrame) {
  DrawingWriter drawing;
  ASSERT_EQ(drawing.write(), kOk);
  ASSERT_EQ(drawing.lines.size(), 10U);
  drawing.lines.erase(drawing.lines.begin() + 1);
  EXPECT_EQ(
      drawing.lines,
      (Lines{
          R"~(<?xml version="1.0" standalone="no"?>)~",
          R"~(<!DOCTYPE svg PUBLIC "-//W3C//DTD SVG 1.1//EN" "http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd" [)~",
          "]>", R"~(<svg  viewBox="0 0 0 0">)~", "   <defs>",
          R"~(       <style type="text/css"><![CDATA[ )~", "       ]]></style>", "   </defs>",
          "</svg>"}));
}

}  // namespace
}  // namespace egfsvg
