// Runs the tool over the drawings of tests/golden/<topic>/ and compares what it gives with the
// files beside each drawing. For <case>.svg these are, where they exist:
//   <case>.elements.jsonl  <case>.dump.json  <case>.out.svg  <case>.png
// <case>.args holds further words for the tool's command line. All host settings are 0 (--bare)
// unless the drawing is named <case>.tool.svg.
//
//   golden_tests [--refresh] [TOPIC[/CASE]...]
// With --refresh the files are written anew instead of compared; an empty file is filled.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/files.h"
#include "tests/support/picture.h"
#include "tests/support/tool.h"

namespace {

namespace fs = std::filesystem;
using egfsvg::test::readFile;
using egfsvg::test::runTool;
using egfsvg::test::TempDir;
using egfsvg::test::ToolResult;

constexpr std::string_view kToolMark = ".tool";
constexpr std::string_view kOutMark = ".out";

// A kind of golden file: its ending, the command that gives it, and whether that command writes a
// file or its standard output.
struct Kind {
  const char* ending;
  const char* command;
  bool writesFile;
  bool isPicture;
};
constexpr Kind kKinds[] = {
    {".elements.jsonl", "elements", false, false},
    {".dump.json", "dump", false, false},
    {".out.svg", "convert", true, false},
    {".png", "convert", true, true},
};

bool endsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

struct Case {
  fs::path drawing;
  std::string topic;
  std::string name;  // without .svg

  fs::path beside(std::string_view ending) const {
    return drawing.parent_path() / (name + std::string(ending));
  }
};

std::vector<Case> findCases(const fs::path& root, const std::vector<std::string>& wanted) {
  std::vector<Case> cases;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const fs::path& path = entry.path();
    if (path.extension() != ".svg" || endsWith(path.stem().string(), kOutMark)) continue;
    const std::string topic = fs::relative(path.parent_path(), root).string();
    const Case found{path, topic, path.stem().string()};
    const auto matches = [&](const std::string& name) {
      return name == topic || name == topic + "/" + found.name;
    };
    if (wanted.empty() || std::any_of(wanted.begin(), wanted.end(), matches)) {
      cases.push_back(found);
    }
  }
  std::sort(cases.begin(), cases.end(),
            [](const Case& a, const Case& b) { return a.drawing < b.drawing; });
  return cases;
}

std::vector<std::string> commandLine(const Case& test, const Kind& kind,
                                     const std::string& output) {
  std::vector<std::string> words = {kind.command, test.drawing.string()};
  if (!endsWith(test.name, kToolMark)) words.emplace_back("--bare");
  if (kind.writesFile) words.insert(words.end(), {"-o", output});
  if (fs::exists(test.beside(".args"))) {
    std::istringstream further(readFile(test.beside(".args")));
    for (std::string word; further >> word;) words.push_back(word);
  }
  return words;
}

// The first line in which two texts differ, for people.
std::string firstDifference(const std::string& expected, const std::string& actual) {
  std::istringstream left(expected);
  std::istringstream right(actual);
  std::string a;
  std::string b;
  for (int line = 1;; ++line) {
    const bool hasLeft = static_cast<bool>(std::getline(left, a));
    const bool hasRight = static_cast<bool>(std::getline(right, b));
    if (hasLeft && hasRight && a == b) continue;
    return "line " + std::to_string(line) + "\n  expected: " + (hasLeft ? a : "end of text") +
           "\n  actual:   " + (hasRight ? b : "end of text");
  }
}

void compare(const Case& test, const Kind& kind, const std::string& actual) {
  const fs::path golden = test.beside(kind.ending);
  if (kind.isPicture) {
    const TempDir folder;
    EXPECT_TRUE(egfsvg::test::samePicture(egfsvg::test::readPng(golden.string()),
                                          egfsvg::test::readPng(folder.write("actual.png", actual)),
                                          test.topic + "/" + test.name));
    return;
  }
  const std::string expected = readFile(golden);
  if (actual != expected) {
    ADD_FAILURE() << golden.string() << ": " << firstDifference(expected, actual);
  }
}

void runKind(const Case& test, const Kind& kind, bool refresh) {
  const TempDir folder;
  const std::string output = folder.file("case" + std::string(kind.ending));
  const ToolResult result = runTool(commandLine(test, kind, output));
  ASSERT_EQ(result.exitCode, 0) << kind.command << ": " << result.err;
  const std::string actual = kind.writesFile ? readFile(output) : result.out;
  if (refresh) {
    egfsvg::test::writeFile(test.beside(kind.ending), actual);
  } else {
    compare(test, kind, actual);
  }
}

class GoldenTest : public testing::Test {
 public:
  GoldenTest(Case test, bool refresh) : case_(std::move(test)), refresh_(refresh) {}

  void TestBody() override {
    int kinds = 0;
    for (const Kind& kind : kKinds) {
      if (!fs::exists(case_.beside(kind.ending))) continue;
      ++kinds;
      runKind(case_, kind, refresh_);
    }
    EXPECT_GT(kinds, 0) << case_.drawing << " has no golden file beside it";
  }

 private:
  Case case_;
  bool refresh_;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  std::vector<std::string> wanted(argv + 1, argv + argc);
  const auto flag = std::find(wanted.begin(), wanted.end(), "--refresh");
  const bool refresh = flag != wanted.end();
  if (refresh) wanted.erase(flag);

  const auto cases = findCases(egfsvg::test::sourcePath("tests/golden"), wanted);
  if (cases.empty() && !wanted.empty()) {
    std::fprintf(stderr, "golden_tests: no such topic or case\n");
    return 2;
  }
  for (const Case& test : cases) {
    testing::RegisterTest(
        test.topic.c_str(), test.name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
        [test, refresh]() -> testing::Test* { return new GoldenTest(test, refresh); });
  }
  return RUN_ALL_TESTS();
}
