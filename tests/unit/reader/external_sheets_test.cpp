#include "embedded_host/host_faults.h"
#include "embedded_host/host_messages.h"
#include "sheet_support.h"
#include "tests/support/files.h"

namespace egfsvg::test {
namespace {

constexpr char kLinked[] = "<?xml-stylesheet type=\"text/css\" href=\"a.css\"?>";
constexpr int kUnreadable = 1108;

struct ExternalSheets : testing::Test {
  /// The table after the first pass over a drawing that stands in the folder.
  std::string rules(const std::string& drawing) {
    const std::string path = folder.write("drawing.svg", drawing);
    const HostHandle stream = egfhost::openFile(path);
    EXPECT_NE(stream, 0U);
    std::string text;
    {
      CHandlerReader reader;
      reader.buffer.setFileHandle(stream);
      EXPECT_EQ(reader.ParseStyleSheetsAndReferences(), 0);
      text = rulesOf(reader);
    }
    FLR_Close(stream);
    return text;
  }

  TempDir folder;
};

TEST_F(ExternalSheets, besideTheSource) {
  folder.write("a.css", "rect{fill:red}\n/* x */ circle { fill : blue }\n");
  EXPECT_EQ(rules(kLinked), "rect{fill:red;}\ncircle{fill:blue;}\n");
  EXPECT_EQ(egfhost::countMessages(kUnreadable), 0U);
}

TEST_F(ExternalSheets, rulesBeforeAnErrorStay) {
  folder.write("a.css", "rect{fill:red} circle{fill");
  EXPECT_EQ(rules(kLinked), "rect{fill:red;}\n");
}

TEST_F(ExternalSheets, anEmptyOne) {
  folder.write("a.css", "");
  EXPECT_EQ(rules(kLinked), "");
}

TEST_F(ExternalSheets, severalInOrder) {
  folder.write("a.css", "rect{fill:red}");
  folder.write("b.css", "rect{fill:blue}");
  EXPECT_EQ(rules(std::string(kLinked) + "<?xml-stylesheet href=\"b.css\" type=\"text/css\"?>"
                                         "<style><![CDATA[ rect{stroke:red} ]]></style>"),
            "rect{fill:red;fill:blue;stroke:red;}\n");
}

TEST_F(ExternalSheets, theTypeMustBeKnown) {
  folder.write("a.css", "rect{fill:red}");
  EXPECT_EQ(rules("<?xml-stylesheet href=\"a.css\"?>"), "");
  EXPECT_EQ(rules("<?xml-stylesheet type=\"text/xsl\" href=\"a.css\"?>"), "");
  EXPECT_EQ(rules("<?xml-stylesheet type=\"text/css\"?>"), "");
  EXPECT_EQ(rules("<?xml-stylesheet>"), "");
  EXPECT_EQ(rules("<style type=\"text/css\"><![CDATA[ g{} ]]></style>"
                  "<?xml-stylesheet href=\"a.css\"?>"),
            "rect{fill:red;}\n");
}

// The link of a style element stays for an instruction that has none of its own.
TEST_F(ExternalSheets, theScratchRecordKeepsALink) {
  folder.write("a.css", "rect{fill:red}");
  EXPECT_EQ(rules("<style href=\"a.css\"></style>"), "");
  EXPECT_EQ(rules("<style href=\"a.css\"></style><?xml-stylesheet type=\"text/css\"?>"),
            "rect{fill:red;}\n");
}

TEST_F(ExternalSheets, aMissingOneIsQuiet) {
  EXPECT_EQ(rules(kLinked), "");
  EXPECT_EQ(egfhost::countMessages(kUnreadable), 0U);
}

TEST_F(ExternalSheets, aRemoteOneIsTold) {
  EXPECT_EQ(rules("<?xml-stylesheet type=\"text/css\" href=\"http:///www.a.b/c.css\"?>"), "");
  EXPECT_EQ(egfhost::countMessages(kUnreadable), 1U);
  EXPECT_EQ(rules("<?xml-stylesheet type=\"text/css\" href=\"http://www.a.b/c.css\"?>"), "");
  EXPECT_EQ(egfhost::countMessages(kUnreadable), 1U);
}

TEST_F(ExternalSheets, nothingOutsideTheFolder) {
  const TempDir other;
  const std::string path = other.write("a.css", "rect{fill:red}");
  EXPECT_EQ(rules("<?xml-stylesheet type=\"text/css\" href=\"" + path + "\"?>"), "");
  EXPECT_EQ(rules("<?xml-stylesheet type=\"text/css\" href=\"../" +
                  other.path().filename().string() + "/a.css\"?>"),
            "");
}

TEST_F(ExternalSheets, aNameThatIsTooLong) {
  folder.write(std::string(250, 'a') + ".css", "rect{fill:red}");
  EXPECT_EQ(
      rules("<?xml-stylesheet type=\"text/css\" href=\"" + std::string(250, 'a') + ".css\"?>"),
      "rect{fill:red;}\n");
  EXPECT_EQ(
      rules("<?xml-stylesheet type=\"text/css\" href=\"" + std::string(300, 'a') + ".css\"?>"), "");
}

TEST_F(ExternalSheets, resultsOfTheInstruction) {
  folder.write("a.css", "rect{fill:red}");
  const std::string path = folder.write("drawing.svg", " type=\"text/css\" href=\"a.css\"?>");
  const std::pair<const char*, int> rows[] = {{"", 0}, {"FLR_OpenFile", -1}, {"FLR_GetPath", -1}};
  for (const auto& [failing, result] : rows) {
    const HostHandle stream = egfhost::openFile(path);
    _svg_style_props style;
    initStyleProps(&style);
    {
      CHandlerReader reader;
      reader.buffer.setFileHandle(stream);
      reader.hasAttributes = 1;
      if (*failing != '\0') egfhost::failAt(failing, 1);
      EXPECT_EQ(reader.ParseExternalStyleSheet(&style, nullptr), result) << failing;
      egfhost::clearFaults();
      EXPECT_EQ(style.href, nullptr);
    }
    DestroyStyleElements(&style);
    FLR_Close(stream);
  }
  TextReader bad(" type=5?>");
  bad->hasAttributes = 1;
  _svg_style_props style;
  initStyleProps(&style);
  EXPECT_EQ(bad->ParseExternalStyleSheet(&style, nullptr), -5217);
  EXPECT_EQ(bad->ParseExternalStyleSheet(nullptr, nullptr), -1);
  DestroyStyleElements(&style);
}

}  // namespace
}  // namespace egfsvg::test
