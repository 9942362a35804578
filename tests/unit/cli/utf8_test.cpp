#include "cli/utf8.h"

#include <gtest/gtest.h>

#include <string_view>

#include "tests/support/files.h"
#include "tests/support/tool.h"

namespace egfsvg {
namespace {

using std::string_view_literals::operator""sv;

struct PrintableRow {
  std::string_view text;
  const char* expected;
};

TEST(PrintableText, EscapesWhatIsNoText) {
  const PrintableRow rows[] = {
      {"", ""},
      {"plain \\ \"text\"", "plain \\ \"text\""},
      {"gr\u00fc\u00df \u65e5\u672c \U0001f600", "gr\u00fc\u00df \u65e5\u672c \U0001f600"},
      {"a\0b\tc\nd\r"sv, "a\\x00b\\x09c\\x0ad\\x0d"},
      {"\x1b[2J\x7f", "\\x1b[2J\\x7f"},
      {"\u0080\u009f\u00a0", "\\xc2\\x80\\xc2\\x9f\u00a0"},
      {"\xff\xfe", "\\xff\\xfe"},
      {"caf\xe9 ", "caf\\xe9 "},            // Latin-1
      {"\xe6\x97", "\\xe6\\x97"},           // cut off
      {"\xc0\xaf", "\\xc0\\xaf"},           // overlong
      {"\xed\xa0\x80", "\\xed\\xa0\\x80"},  // a surrogate
  };
  for (const PrintableRow& row : rows) EXPECT_EQ(printableText(row.text), row.expected);
}

TEST(PrintableText, NoCommandsFromADrawingReachATerminal) {
  const test::TempDir folder;
  const std::string path = folder.write(
      "a.svg",
      "<svg width=\"9\" height=\"9\"><\x1b]0;x\x07\xff/><rect width=\"9\" height=\"9\"/>"
      "</svg>");
  const std::string warnings = test::runTool({"dump", path}).err;
  const std::string facts = test::runTool({"info", path}).out;
  for (const std::string& text : {warnings, facts}) {
    EXPECT_NE(text.find("\\x1b]0;x\\x07\\xff"), text.npos) << text;
    for (const char control : {'\x1b', '\x07', '\xff'}) EXPECT_EQ(text.find(control), text.npos);
  }
}

}  // namespace
}  // namespace egfsvg
