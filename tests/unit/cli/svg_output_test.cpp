// The tool writing SVG, as a user runs it.
#include <gtest/gtest.h>

#include "tests/support/files.h"
#include "tests/support/saved_document.h"
#include "tests/support/tool.h"

namespace egfsvg::test {
namespace {

constexpr const char* kDrawing =
    "<svg width='200' height='100'><rect x='10' y='20' width='30' height='40' fill='red'/>"
    "<line x1='0' y1='0' x2='9' y2='9' stroke='blue'/></svg>";
constexpr const char* kTwoPages =
    "<svg width='200' height='100'><g id='Page_1'><rect width='1' height='1'/></g>"
    "<g id='Page_2'><circle cx='5' cy='5' r='5'/></g></svg>";

class SvgOutputTest : public testing::Test {
 protected:
  ToolResult convert(const std::string& svg, const std::string& output,
                     const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments = {"convert", folder.write("in.svg", svg), "-o",
                                          folder.file(output)};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return runTool(arguments);
  }
  bool isThere(const std::string& name) const {
    return std::filesystem::exists(folder.path() / name);
  }

  TempDir folder;
};

TEST_F(SvgOutputTest, PlainAndCompressedHoldTheSame) {
  ASSERT_EQ(0, convert(kDrawing, "out.svg").exitCode);
  ASSERT_EQ(0, convert(kDrawing, "out.svgz").exitCode);
  const std::string plain = readFile(folder.file("out.svg"));
  EXPECT_NE(std::string::npos, plain.find("<svg xmlns=\"http://www.w3.org/2000/svg\""));
  EXPECT_NE(std::string::npos, plain.find("<rect x=\"10\" y=\"20\" width=\"30\" height=\"40\""));
  const ToolResult unzipped = runProgram("/bin/sh", {"-c", "gzip -dc " + folder.file("out.svgz")});
  EXPECT_EQ(0, unzipped.exitCode);
  EXPECT_EQ(plain, unzipped.out);
}

TEST_F(SvgOutputTest, StandardOutput) {
  const std::string in = folder.write("in.svg", kDrawing);
  const ToolResult result = runTool({"convert", in, "-o", "-", "--to", "svg"});
  EXPECT_EQ(0, result.exitCode);
  EXPECT_TRUE(result.out.ends_with("</svg>\n"));
}

TEST_F(SvgOutputTest, BareDeclaresNoNamespaces) {
  ASSERT_EQ(0, convert(kDrawing, "out.svg", {"--bare"}).exitCode);
  const std::string plain = readFile(folder.file("out.svg"));
  EXPECT_NE(std::string::npos, plain.find("<svg x=\"0\" y=\"0\" width=\"200\""));
  EXPECT_EQ(std::string::npos, plain.find("xmlns"));
}

TEST_F(SvgOutputTest, PagesAreTakenByNumber) {
  ASSERT_EQ(0, convert(kTwoPages, "first.svg").exitCode);
  ASSERT_EQ(0, convert(kTwoPages, "second.svg", {"--page", "2"}).exitCode);
  const std::string first = readFile(folder.file("first.svg"));
  const std::string second = readFile(folder.file("second.svg"));
  EXPECT_NE(std::string::npos, first.find("<rect"));
  EXPECT_EQ(std::string::npos, first.find("<circle"));
  EXPECT_NE(std::string::npos, second.find("<circle"));
  EXPECT_EQ(66, convert(kTwoPages, "third.svg", {"--page", "3"}).exitCode);
  EXPECT_FALSE(isThere("third.svg"));
}

TEST_F(SvgOutputTest, TheResolutionIsTheFilesOwnOrTheOneAskedFor) {
  const std::string named = std::string("<!-- User agent resolution:150 dpi -->") + kDrawing;
  struct Row {
    std::string svg;
    std::vector<std::string> options;
    std::string comment;  // empty for none
  };
  const Row kRows[] = {{kDrawing, {}, "resolution:96 dpi"},
                       {named, {}, "resolution:150 dpi"},
                       {named, {"--dpi", "72"}, "resolution:72 dpi"},
                       {named, {"--dpi", "200"}, ""}};
  for (const Row& row : kRows) {
    ASSERT_EQ(0, convert(row.svg, "out.svg", row.options).exitCode);
    const std::string text = readFile(folder.file("out.svg"));
    EXPECT_EQ(row.comment.empty(), text.find("resolution:") == std::string::npos);
    EXPECT_NE(std::string::npos, text.find(row.comment)) << text;
    EXPECT_NE(std::string::npos, text.find("<rect x=\"10\" y=\"20\"")) << text;
  }
}

TEST_F(SvgOutputTest, InfoTellsWhatTheFileIs) {
  const std::string named = std::string("<!-- User agent resolution:150 dpi -->") + kDrawing;
  ASSERT_EQ(0, convert(named, "out.svgz").exitCode);
  const ToolResult words = runTool({"info", folder.file("out.svgz")});
  EXPECT_NE(std::string::npos, words.out.find("compressed (gzip)"));
  EXPECT_NE(std::string::npos, words.out.find("150 dpi (the file names 150)")) << words.out;
  const ToolResult plain = runTool({"info", "--json", folder.write("in.svg", kDrawing)});
  EXPECT_NE(std::string::npos, plain.out.find("\"compressed\":false"));
  EXPECT_NE(std::string::npos, plain.out.find("\"resolutionComment\":null")) << plain.out;
}

TEST_F(SvgOutputTest, WhatCannotBeReadLeavesNoOutput) {
  struct Row {
    std::string svg;
    int exitCode;
  };
  const Row kRows[] = {{"", 65}, {"hello", 65}, {"\x1f\x8b\x08 and no more", 65}};
  for (const Row& row : kRows) {
    const ToolResult result = convert(row.svg, "out.svg");
    EXPECT_EQ(row.exitCode, result.exitCode) << row.svg;
    EXPECT_NE("", result.err);
    EXPECT_FALSE(isThere("out.svg"));
  }
}

TEST_F(SvgOutputTest, AFullDiskIsTold) {
  const std::string in = folder.write("in.svg", kDrawing);
  for (const char* format : {"svg", "svgz"}) {
    const ToolResult result = runTool({"convert", in, "-o", "/dev/full", "--to", format});
    EXPECT_EQ(74, result.exitCode) << format;
    EXPECT_NE(std::string::npos, result.err.find("No space left")) << result.err;
  }
}

}  // namespace
}  // namespace egfsvg::test
