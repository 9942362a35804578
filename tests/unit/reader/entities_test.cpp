#include "embedded_host/host_faults.h"
#include "sheet_support.h"

namespace egfsvg::test {
namespace {

struct EntityCase {
  std::string text;  // what follows "<!ENTITY "
  int result;
  std::string rules;
};

TEST(Entities, declarationsUnderANumberSign) {
  const EntityCase cases[] = {
      {"st3 \"fill:#ff0000; stroke:none\" >", 0, "#st3{fill:#ff0000;stroke:none;}\n"},
      {"st3 \"fill:#ff0000; stroke:none\">", 0, "#st3{fill:#ff0000;stroke:none;}\n"},
      {"  st3\n\"fill:red;\">", 0, "#st3{fill:red;}\n"},
      {"st3\"fill:red\">", 0, "#st3{fill:red;}\n"},
      {"st3 \" fill : red ; stroke : blue \" >", 0, "#st3{fill:red;stroke:blue;}\n"},
      {"st3 \"font-family:Times New Roman ;fill:red\" >", 0,
       "#st3{font-family:Times New Roman;fill:red;}\n"},
      {"st3 \"font-family:'A;\tb' x;fill:red\" >", 0, "#st3{font-family:A;\tb;fill:red;}\n"},
      {"st3 \"font-family:'A b'\" >", 0, "#st3{font-family:A b;}\n"},
      {"st3 \"stroke-dasharray:5 3\" >", 0, "#st3{stroke-dasharray:5 3;}\n"},
      {"st3 \"font-variant:small-caps;font-variante:small-caps\" >", 0,
       "#st3{font-variante:small-caps;}\n"},
      {"st3 \"foo:1;fill:red;bar:2\" >", 0, "#st3{fill:red;}\n"},
      {"st3 \"foo:1\" >", 0, ""},
      {"st3 \"\" >", 0, ""},
      {"st3 \";;fill:red;;\" >", 0, "#st3{fill:red;}\n"},
      {"a \"fill:red\" b \"fill:blue\" >", 0, "#a{fill:red;}\n#b{fill:blue;}\n"},
      {"a \"fill:red\" a \"stroke:blue\" >", 0, "#a{stroke:blue;}\n"},
      {"a \"fill:red\" A \"stroke:blue\" >", 0, "#A{stroke:blue;}\n"},
      // A table takes no empty value: the older declarations stay.
      {"a \"fill:red\" a \"\" >", 0, "#a{fill:red;}\n"},
      {"a \"fill:red\" a \"foo:1\" >", 0, "#a{fill:red;}\n"},
      {">", 0, ""},
      {" \"\" >", 0, ""},
      {"st3 >", 0, ""},
      {"st3 SYSTEM \"other.svg\" >", -1, ""},
      {"ns \"http://www.w3.org/2000/svg\" >", 0, ""},
      {"st3 'fill:red' >", 0, ""},
      {"st3 \"fill\" >", -1, ""},
      {"st3 \"fill red\" >", -1, ""},
      {"st3 \"fill:red", -1, ""},
      {"st3 \"font-family:'A\" >", -1, ""},
      {"st3 \"fill:", -1, ""},
      {"st3 \"", -1, ""},
      {"st3", -1, ""},
      {"", -1, ""},
      {"a \"fill:red\" b \"fill\" >", -1, "#a{fill:red;}\n"},
      {std::string(300, 'n') + " \"fill:red\" >", 0,
       "#" + std::string(254, 'n') + "{fill:red;}\n"}};
  for (const EntityCase& row : cases) {
    SCOPED_TRACE(row.text);
    TextReader reader(row.text);
    EXPECT_EQ(reader->GetEntityData(), row.result);
    EXPECT_EQ(rulesOf(*reader), row.rules);
  }
}

TEST(Entities, inTheDocumentType) {
  EXPECT_EQ(firstPassRules("<?xml version=\"1.0\"?><!DOCTYPE svg [\n"
                           "<!ENTITY st1 \"fill:red\">\n<!ENTITY st2 \"fill:blue\" >\n]><svg>"),
            "#st1{fill:red;}\n#st2{fill:blue;}\n");
  EXPECT_EQ(firstPassRules("<!ENTITY><!ENTITY st1 \"fill:red\">"), "#st1{fill:red;}\n");
}

TEST(Entities, theResultIsDropped) {
  TextReader reader("st3 \"fill\">");
  _svg_style_props style;
  initStyleProps(&style);
  reader->hasAttributes = 1;
  EXPECT_EQ(reader->ParseEntityTagData(&style, nullptr), 0);
  EXPECT_EQ(reader->ParseEntityTagData(nullptr, nullptr), 0);
  EXPECT_EQ(reader->styles.count, 0);
  DestroyStyleElements(&style);
}

TEST(Entities, besideRulesOfTheSameKey) {
  TextReader reader(
      "<!ENTITY a \"fill:red\"><style type=\"text/css\"><![CDATA[ #a{fill:blue} ]]></style>"
      "<!ENTITY b \"fill:red\">");
  reader->ParseStyleSheetsAndReferences();
  EXPECT_EQ(rulesOf(*reader), "#a{fill:red;fill:blue;}\n#b{fill:red;}\n");
  TextReader replaced(
      "<style type=\"text/css\"><![CDATA[ #a{fill:blue} #a{fill:green} ]]></style>"
      "<!ENTITY a \"fill:red\"><style><![CDATA[ #a{stroke:blue} ]]></style>");
  replaced->ParseStyleSheetsAndReferences();
  EXPECT_EQ(rulesOf(*replaced), "#a{fill:red;stroke:blue;}\n");
}

TEST(Entities, withoutMemory) {
  for (std::uint64_t failing = 1; failing <= 12; ++failing) {
    TextReader reader("a \"fill:red;stroke:blue\" b \"fill:blue\" >");
    egfhost::failAllocation(failing);
    reader->GetEntityData();
    egfhost::clearFaults();
    EXPECT_LE(reader->styles.count, 2);
  }
}

}  // namespace
}  // namespace egfsvg::test
