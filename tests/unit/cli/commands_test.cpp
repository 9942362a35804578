// The tool as its users run it: what it prints, what it writes, how it ends.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "embedded_host/host_files.h"
#include "host/compression.h"
#include "tests/support/files.h"
#include "tests/support/picture.h"
#include "tests/support/tool.h"

namespace egfsvg {
namespace {

namespace fs = std::filesystem;
using test::runTool;
using test::TempDir;
using test::ToolResult;

const std::string kDrawing =
    "<svg width=\"20\" height=\"10\">"
    "<rect x=\"1\" y=\"2\" width=\"3\" height=\"4\" fill=\"red\"/></svg>";
const std::string kTwoPages =
    "<svg width=\"20\" height=\"10\">"
    "<g id=\"Page_1\"><rect width=\"20\" height=\"10\" fill=\"red\"/></g>"
    "<g id=\"Page_2\"><rect width=\"20\" height=\"10\" fill=\"blue\"/></g></svg>";

std::size_t lines(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

std::uint32_t firstPixel(const std::string& path) {
  const test::Picture picture = test::readPng(path);
  const std::uint8_t* pixel = picture.pixel(picture.width / 2, picture.height / 2);
  return static_cast<std::uint32_t>(pixel[0]) << 16U | static_cast<std::uint32_t>(pixel[1]) << 8U |
         pixel[2];
}

TEST(Tool, SaysWhatIsWrongOnOneLine) {
  const TempDir folder;
  const std::string good = folder.write("good.svg", kDrawing);
  const std::string empty = folder.write("empty.svg", "");
  const std::string binary = folder.write("binary.svg", std::string("\x7f"
                                                                    "ELF\0\1\2\3",
                                                                    8));
  const std::string plain = folder.write("plain.svg", "just words");
  const std::string cut = folder.write("cut.svgz", "\x1f\x8b\x08\x01");
  const std::string missing = folder.file("missing.svg");
  const std::string out = folder.file("out.png");
  struct Row {
    std::vector<std::string> arguments;
    int code;
    std::string words;
  };
  const std::vector<Row> rows = {
      {{}, 2, "--help"},
      {{"paint"}, 2, "--help"},
      {{"dump"}, 2, "FILE is required"},
      {{"dump", good, "--nonsense"}, 2, "--nonsense"},
      {{"dump", good, "--page", "0"}, 2, "--page"},
      {{"dump", good, "--dpi", "none"}, 2, "--dpi"},
      {{"convert", good}, 2, "-o OUT"},
      {{"convert", good, "-o", folder.file("a.xyz")}, 2, ".json, .png or .pdf"},
      {{"convert", good, "-o", out, "--to", "gif"}, 2, ".json, .png or .pdf"},
      {{"convert", good, "--out", folder.file("d")}, 2, "--to"},
      {{"convert", good, good, "-o", out}, 2, "--to EXT --out DIR"},
      {{"convert", good, "-o", out, "--background", "#12"}, 2, "#rrggbb"},
      {{"convert", good, good, "--to", "png", "--out", folder.file("d")}, 2, "both become"},
      {{"info", empty}, 65, "is empty"},
      {{"elements", empty}, 65, "is empty"},
      {{"dump", binary}, 65, "nothing in it could be read as SVG"},
      {{"elements", plain}, 65, "nothing in it could be read as SVG"},
      {{"convert", plain, "-o", out}, 65, "nothing in it could be read as SVG"},
      {{"dump", cut}, 65, "cannot be unpacked"},
      {{"info", missing}, 66, "No such file"},
      {{"dump", folder.path().string()}, 66, "is a folder"},
      {{"dump", good, "--page", "2"}, 66, "it has one page"},
      {{"elements", good, "--page", "7"}, 66, "no page 7"},
      {{"convert", good, "-o", out, "--zoom", "1000"}, 69, "--zoom"},
      {{"dump", good, "--max-source-bytes", "50"}, 69, "--max-source-bytes"},
      {{"convert", good, "-o", folder.file("none/out.png")}, 73, "cannot be created"},
      {{"convert", good, "-o", "/dev/full", "--to", "png"}, 74, "/dev/full"},
  };
  for (const Row& row : rows) {
    const ToolResult result = runTool(row.arguments);
    EXPECT_EQ(result.exitCode, row.code) << result.err;
    EXPECT_NE(result.err.find(row.words), std::string::npos) << result.err << row.words;
    EXPECT_EQ(lines(result.err), 1U) << result.err;
    EXPECT_EQ(result.err.find("egfsvg: "), 0U) << result.err;
    EXPECT_EQ(result.out, "");
  }
  EXPECT_FALSE(fs::exists(out));
}

TEST(Tool, HelpsAndTellsItsVersion) {
  const ToolResult help = runTool({"--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_NE(help.out.find("egfsvg convert drawing.svg -o drawing.png"), std::string::npos);
  for (const char* command : {"info", "elements", "dump", "convert"}) {
    const ToolResult own = runTool({command, "--help"});
    EXPECT_EQ(own.exitCode, 0);
    EXPECT_NE(own.out.find(std::string("Example: egfsvg ") + command), std::string::npos);
    EXPECT_NE(own.out.find("--max-nesting"), std::string::npos);
  }
  const ToolResult version = runTool({"--version"});
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_EQ(version.out.find("egfsvg 0."), 0U);
}

TEST(Tool, PrintsElementsOneALine) {
  const TempDir folder;
  const ToolResult result = runTool({"elements", folder.write("a.svg", kDrawing)});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  ASSERT_EQ(lines(result.out), 3U);
  std::vector<int> types;
  std::istringstream text(result.out);
  for (std::string line; std::getline(text, line);) {
    types.push_back(nlohmann::json::parse(line).at("type").get<int>());
  }
  EXPECT_EQ(types, (std::vector<int>{3, 6, 1000}));
  EXPECT_EQ(result.out.find(R"({"type":3,"size":4,"record":{"head":{"type":3,)"), 0U);
  EXPECT_NE(result.out.find(R"("hasParent":true)"), std::string::npos);
}

TEST(Tool, DumpsAPage) {
  const TempDir folder;
  const ToolResult result = runTool({"dump", folder.write("a.svg", kDrawing)});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  const auto dump = nlohmann::json::parse(result.out);
  ASSERT_EQ(dump.at("pages").size(), 1U);
  const auto& page = dump.at("pages")[0];
  EXPECT_EQ(page.at("name"), "Page 1");
  EXPECT_EQ(page.at("resolution"), nlohmann::json::parse("[96,96]"));
  const auto& root = page.at("root");
  EXPECT_EQ(root.at("groupName"), "setInitialViewPort");
  ASSERT_EQ(root.at("children").size(), 2U);
  EXPECT_EQ(root.at("children")[0].at("objAttr"), 0);
  const auto& box = root.at("children")[1];
  EXPECT_EQ(box.at("objClass"), 3);
  EXPECT_EQ(box.at("points"),
            nlohmann::json::parse("[[4096,8192],[4096,24576],[16384,24576],[16384,8192]]"));
  EXPECT_EQ(box.at("fillColor"), "0x00ff0000");
  EXPECT_EQ(box.at("fillParmsNo"), 1);
  for (const char* table : {"165", "166", "168", "170"}) {
    EXPECT_TRUE(dump.at("styles").at(table).is_array());
  }
  EXPECT_EQ(dump.at("styles").at("168").size(), 1U);
  EXPECT_EQ(dump.at("dashes"), nlohmann::json::array());
  EXPECT_EQ(dump.at("palette"), nlohmann::json::parse("[\"0x00ff0000\"]"));
}

TEST(Tool, TakesPages) {
  const TempDir folder;
  const std::string path = folder.write("a.svg", kTwoPages);
  const auto all = nlohmann::json::parse(runTool({"dump", path}).out);
  ASSERT_EQ(all.at("pages").size(), 2U);
  EXPECT_EQ(all.at("pages")[1].at("name"), "Page 2");
  EXPECT_EQ(all.at("palette").size(), 2U);
  const auto second = nlohmann::json::parse(runTool({"dump", path, "--page", "2"}).out);
  ASSERT_EQ(second.at("pages").size(), 1U);
  EXPECT_EQ(second.at("pages")[0].at("name"), "Page 2");
  EXPECT_EQ(second.at("palette"), nlohmann::json::parse("[\"0x000000ff\"]"));

  const std::string out = folder.file("out.png");
  EXPECT_EQ(runTool({"convert", path, "-o", out}).exitCode, 0);
  EXPECT_EQ(firstPixel(out), 0xff0000U);
  EXPECT_EQ(runTool({"convert", path, "-o", out, "--page", "2"}).exitCode, 0);
  EXPECT_EQ(firstPixel(out), 0x0000ffU);
  EXPECT_EQ(runTool({"convert", path, "-o", out, "--page", "3"}).exitCode, 66);

  const std::string pdf = folder.file("out.pdf");
  EXPECT_EQ(runTool({"convert", path, "-o", pdf}).exitCode, 0);
  EXPECT_NE(test::readFile(pdf).find("/Count 2"), std::string::npos);
}

// Numbers of a page's dashes stay apart from those of the page before.
TEST(Tool, KeepsDashesFromPageToPage) {
  const TempDir folder;
  const std::string path = folder.write(
      "a.svg",
      "<svg width=\"20\" height=\"10\">"
      "<g id=\"Page_1\"><line x2=\"9\" stroke=\"red\" stroke-dasharray=\"5,3\"/></g>"
      "<g id=\"Page_2\"><line x2=\"9\" stroke=\"red\" stroke-dasharray=\"1,2\"/></g></svg>");
  const auto dump = nlohmann::json::parse(runTool({"dump", path}).out);
  ASSERT_EQ(dump.at("dashes").size(), 2U);
  const auto styleOf = [&](int page) {
    return dump.at("pages")[page].at("root").at("children")[1].at("children")[0].at("lineStyle");
  };
  EXPECT_EQ(styleOf(0), dump.at("dashes")[0].at("number"));
  EXPECT_EQ(styleOf(1), dump.at("dashes")[1].at("number"));
}

TEST(Tool, ReadsStandardInputAndWritesStandardOutput) {
  const ToolResult dump = runTool({"dump", "-"}, kDrawing);
  EXPECT_EQ(dump.exitCode, 0) << dump.err;
  const ToolResult json = runTool({"convert", "-", "-o", "-", "--to", ".json"}, kDrawing);
  EXPECT_EQ(json.exitCode, 0) << json.err;
  EXPECT_EQ(json.out, dump.out);
  EXPECT_EQ(runTool({"convert", "-", "-o", "-", "--to", "png"}, kDrawing).out.substr(1, 3), "PNG");
  EXPECT_EQ(runTool({"dump", "-"}, "").exitCode, 65);
  EXPECT_NE(runTool({"dump", "-"}, "").err.find("standard input: "), std::string::npos);
}

TEST(Tool, ReadsCompressedDrawings) {
  const TempDir folder;
  const std::string plain = folder.write("a.svg", kDrawing);
  const std::string packed = folder.file("a.svgz");
  egfhost::allowFolder(folder.path().string(), egfhost::FileAccess::kWrite);
  ASSERT_EQ(ZLIB_CompressFile(plain.c_str(), packed.c_str()), 0);
  EXPECT_EQ(runTool({"dump", packed}).out, runTool({"dump", plain}).out);
  EXPECT_EQ(runTool({"elements", packed}).out, runTool({"elements", plain}).out);
  EXPECT_EQ(runTool({"dump", "-"}, test::readFile(packed)).out, runTool({"dump", plain}).out);
  EXPECT_NE(runTool({"info", packed}).out.find("compressed (gzip)"), std::string::npos);
  EXPECT_NE(runTool({"info", plain}).out.find("not compressed"), std::string::npos);
}

TEST(Tool, GivesTheSameBytesEachTime) {
  const TempDir folder;
  const std::string path = folder.write("a.svg", kTwoPages);
  for (const char* format : {"json", "png", "pdf"}) {
    const ToolResult first = runTool({"convert", path, "-o", "-", "--to", format});
    const ToolResult second = runTool({"convert", path, "-o", "-", "--to", format});
    EXPECT_EQ(first.exitCode, 0) << first.err;
    EXPECT_EQ(first.out, second.out) << format;
    EXPECT_FALSE(first.out.empty());
  }
}

TEST(Tool, ConvertsFolders) {
  const TempDir folder;
  folder.write("in/a.svg", kDrawing);
  folder.write("in/sub/b.svg", kDrawing);
  folder.write("in/sub/bad.svg", "words");
  folder.write("in/notes.txt", "words");
  const std::string out = folder.file("out");
  for (const char* jobs : {"1", "3"}) {
    fs::remove_all(out);
    const ToolResult result =
        runTool({"convert", folder.file("in"), "--to", "png", "--out", out, "-j", jobs});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(lines(result.err), 1U) << result.err;
    EXPECT_NE(result.err.find("bad.svg"), std::string::npos);
    EXPECT_TRUE(fs::exists(out + "/a.png"));
    EXPECT_TRUE(fs::exists(out + "/sub/b.png"));
    EXPECT_FALSE(fs::exists(out + "/sub/bad.png"));
    EXPECT_EQ(
        std::distance(fs::recursive_directory_iterator(out), fs::recursive_directory_iterator()),
        3);
  }
  fs::remove(folder.file("in/sub/bad.svg"));
  EXPECT_EQ(runTool({"convert", folder.file("in"), "--to", "pdf", "--out", out}).exitCode, 0);
}

TEST(Tool, ZoomsAndFillsTheBackground) {
  const TempDir folder;
  const std::string path = folder.write("a.svg", kDrawing);
  const std::string out = folder.file("out.png");
  ASSERT_EQ(
      runTool({"convert", path, "-o", out, "--zoom", "2.5", "--background", "#00ff00"}).exitCode,
      0);
  const test::Picture picture = test::readPng(out);
  EXPECT_EQ(picture.width, 50U);
  EXPECT_EQ(picture.height, 25U);
  EXPECT_EQ(firstPixel(out), 0x00ff00U);
}

double widthOf(const std::vector<std::string>& arguments) {
  const ToolResult result = runTool(arguments);
  return nlohmann::json::parse(result.out).at("files")[0].at("pages")[0].at("width");
}

TEST(Tool, TakesTheResolutionFromOptionOrFile) {
  const TempDir folder;
  const std::string body =
      "<svg width=\"1in\" height=\"1in\"><rect width=\"1\" height=\"1\"/></svg>";
  const std::string plain = folder.write("a.svg", body);
  const std::string told = folder.write("b.svg", "<!-- User agent resolution:144 dpi -->\n" + body);
  EXPECT_DOUBLE_EQ(widthOf({"info", "--json", plain}), 96);
  EXPECT_DOUBLE_EQ(widthOf({"info", "--json", told}), 144);
  EXPECT_DOUBLE_EQ(widthOf({"info", "--json", plain, "--dpi", "200"}), 200);
  EXPECT_DOUBLE_EQ(widthOf({"info", "--json", told, "--dpi", "200"}), 200);
}

TEST(Tool, TellsWhatIsInADrawing) {
  const TempDir folder;
  const std::string path =
      folder.write("a.svg",
                   "<svg width=\"20\" height=\"10\">\n<foo />\n<rect width=\"3\" height=\"4\"/>"
                   "<circle r=\"2\"/><g ><line x2=\"5\" stroke=\"red\"/></g></svg>");
  const auto facts = nlohmann::json::parse(runTool({"info", "--json", path}).out).at("files")[0];
  EXPECT_EQ(facts.at("file"), path);
  EXPECT_EQ(facts.at("compressed"), false);
  EXPECT_EQ(facts.at("resolution"), 96);
  EXPECT_EQ(facts.at("pages")[0].at("objects"),
            nlohmann::json::parse(R"({"box":2,"ellipse":1,"group":1,"line":1})"));
  EXPECT_EQ(facts.at("leftOut")[0].at("number"), 60000);
  EXPECT_EQ(facts.at("leftOut")[0].at("count"), 1);
  const std::string words = runTool({"info", path}).out;
  EXPECT_NE(words.find("1 ellipse"), std::string::npos) << words;
  EXPECT_NE(words.find("left out    element \"foo\""), std::string::npos) << words;

  const ToolResult several = runTool({"info", path, folder.file("missing.svg")});
  EXPECT_EQ(several.exitCode, 1);
  EXPECT_NE(several.out.find("1 ellipse"), std::string::npos);
}

TEST(Tool, WarnsWithLineAndColumn) {
  const TempDir folder;
  const std::string path =
      folder.write("a.svg", "<svg width=\"20\" height=\"10\">\n  <foo />\n</svg>");
  EXPECT_EQ(runTool({"dump", path}).err,
            "egfsvg: " + path + ":2:3: warning: element \"foo\" is not known and was left out\n");
  EXPECT_EQ(runTool({"dump", path, "--quiet"}).err, "");
  EXPECT_EQ(runTool({"dump", path, "--bare"}).err, "");
}

TEST(Tool, WarnsWhenAReadEndsEarly) {
  const TempDir folder;
  const std::string path =
      folder.write("a.svg", "<svg width=\"20\" height=\"10\"><g ><rect width=\"3\" height=\"4\"/>");
  const ToolResult result = runTool({"dump", path});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_NE(result.err.find("the read ended early"), std::string::npos) << result.err;
  EXPECT_NE(result.out.find("setInitialViewPort"), std::string::npos);
}

// The switches of the host are on, and all of them off with --bare.
TEST(Tool, RunsBareOnRequest) {
  const TempDir folder;
  const std::string path = folder.write("a.svg",
                                        "<svg width=\"20\" height=\"10\"><g display=\"none\"><rect "
                                        "width=\"3\" height=\"4\"/></g></svg>");
  EXPECT_EQ(runTool({"dump", path}).out.find("\"objClass\":3,\"objAttr\":1"), std::string::npos);
  EXPECT_NE(runTool({"dump", path, "--bare"}).out.find("\"objClass\":3,\"objAttr\":1"),
            std::string::npos);
}

TEST(Tool, NamesTheLimitThatWasHit) {
  const TempDir folder;
  std::string deep = "<svg width=\"20\" height=\"10\"><rect width=\"3\" height=\"4\"/>";
  for (int i = 0; i < 5; ++i) deep += "<g >";
  for (int i = 0; i < 5; ++i) deep += "</g>";
  const std::string path = folder.write("a.svg", deep + "</svg>");
  EXPECT_EQ(runTool({"dump", path}).exitCode, 0);
  for (const char* bare : {"--quiet", "--bare"}) {
    const ToolResult result = runTool({"dump", path, "--max-nesting", "4", bare});
    EXPECT_EQ(result.exitCode, 69);
    EXPECT_NE(result.err.find("raise the limit with --max-nesting"), std::string::npos)
        << result.err;
    // What was read before is given all the same.
    EXPECT_NE(result.out.find("setInitialViewPort"), std::string::npos);
  }
}

TEST(Tool, LeavesNoTemporariesBehind) {
  const TempDir folder;
  const std::string path = folder.write("a.svg", kDrawing);
  const std::string bad = folder.write("bad.svg", "words");
  runTool({"convert", path, "-o", folder.file("out.png")});
  runTool({"convert", bad, "-o", folder.file("bad.png")});
  runTool({"convert", path, "-o", folder.file("big.png"), "--zoom", "5000"});
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 3);
}

}  // namespace
}  // namespace egfsvg
