#include <vector>

#include "embedded_host/host_faults.h"
#include "model/rmm_allocator.h"
#include "sheet_support.h"

namespace egfsvg::test {
namespace {

struct SheetCase {
  std::string sheet;
  int result;
  std::string rules;
};

/// What one sheet leaves in the table, read as a whole file.
void expectFile(const SheetCase& row) {
  SCOPED_TRACE(row.sheet);
  TextReader source(row.sheet);
  CHandlerReader reader;
  EXPECT_EQ(reader.ParseCSSFile(&source->buffer), row.result);
  EXPECT_EQ(rulesOf(reader), row.rules);
}

/// The same in the CDATA section of a style element.
void expectSection(const SheetCase& row) {
  SCOPED_TRACE(row.sheet);
  TextReader reader("<![CDATA[ " + row.sheet);
  EXPECT_EQ(reader->ParseCSSData(), row.result);
  EXPECT_EQ(rulesOf(*reader), row.rules);
}

TEST(CssRules, declarations) {
  const SheetCase cases[] = {
      {"", 0, ""},
      {" \n\t", 0, ""},
      {"rect{fill:red}", 0, "rect{fill:red;}\n"},
      {"rect{fill:red;}", 0, "rect{fill:red;}\n"},
      {" rect { fill : red ; } ", 0, "rect{fill:red;}\n"},
      {"rect{fill:red;stroke:blue}", 0, "rect{fill:red;stroke:blue;}\n"},
      {"rect{;;fill:red;;;stroke:blue;;}", 0, "rect{fill:red;stroke:blue;}\n"},
      {"rect{foo:1;fill:red}", 0, "rect{fill:red;}\n"},
      {"rect{foo:1}", 0, ""},
      {"rect{}", 0, ""},
      {"rect{FILL:Red}", 0, "rect{FILL:Red;}\n"},
      {"a{fill:red}b{fill:blue}", 0, "a{fill:red;}\nb{fill:blue;}\n"},
      {"a{stroke-dasharray:5 3}", 0, "a{stroke-dasharray:53;}\n"},
      {"a{stroke-dasharray:5,3}", 0, "a{stroke-dasharray:5,3;}\n"},
      {"a{stroke-width:\n1\t2\r3 }", 0, "a{stroke-width:123;}\n"},
      {"a{fill:}", 0, "a{fill:;}\n"},
      {"a{fill:;stroke:red}", 0, "a{fill:;stroke:red;}\n"},
      {"a{font-variant:small-caps;font-variante:small-caps}", 0, "a{font-variante:small-caps;}\n"},
      {"a{clip-rule:hidden;clip_rule:hidden}", 0, "a{clip-rule:hidden;}\n"},
      {"a{font:12px b;marker:none}", 0, "a{font:12pxb;marker:none;}\n"},
      {"a{x:5;fill:red}", 0, "a{fill:red;}\n"},
      {"a{" + std::string(300, 'f') + ":1;fill:red}", 0, "a{fill:red;}\n"}};
  for (const SheetCase& row : cases) expectFile(row);
}

TEST(CssRules, quotedValues) {
  const SheetCase cases[] = {
      {"a{font-family:'A b'}", 0, "a{font-family:A b;}\n"},
      {"a{font-family:\"A b\";fill:red}", 0, "a{font-family:A b;fill:red;}\n"},
      {"a{font-family:'A;}b'}", 0, "a{font-family:A;}b;}\n"},
      {"a{font-family:\"A'b\"}", 0, "a{font-family:A'b;}\n"},
      {"a{font-family:'A' , 'B c' ,\"D\"}", 0, "a{font-family:AB cD;}\n"},
      {"a{font-family:'Times New Roman', serif}", 0, "a{font-family:Times New Romanserif;}\n"},
      {"a{font-family:'A', B c, 'D e';fill:red}", 0, "a{font-family:ABc,'De';fill:red;}\n"},
      {"a{font-family:Arial, 'B c'}", 0, "a{font-family:Arial,'Bc';}\n"},
      {"a{font-family:'A' !important;fill:red}", 0, "a{font-family:A;fill:red;}\n"},
      {"a{font-family:''}", 0, "a{font-family:;}\n"},
      {"a{font-family:'A}", -1, ""},
      {"a{font-family:'A'", -1, ""},
      {"a{font-family:'A',", -1, ""}};
  for (const SheetCase& row : cases) expectFile(row);
}

TEST(CssRules, comments) {
  const SheetCase cases[] = {
      {"/* x */a{fill:red}", 0, "a{fill:red;}\n"},
      {"/* x *//* y */ /* z */a{fill:red}", 0, "a{fill:red;}\n"},
      {"a/* x */{fill:red}", 0, "a{fill:red;}\n"},
      {"g /* x */ rect{fill:red}", 0, "g rect{fill:red;}\n"},
      {"g/* x */ rect{fill:red}", 0, "grect{fill:red;}\n"},
      {"a{/* x */fill:red;/* y */stroke:blue/* z */}", 0, "a{fill:red;stroke:blue/*z*/;}\n"},
      {"a{fill:red}/* x */b{fill:blue}/* y */", 0, "a{fill:red;}\nb{fill:blue;}\n"},
      {"/* a{fill:red} **/b{fill:blue}", 0, "b{fill:blue;}\n"},
      {"/* x / > y */b{fill:blue}", 0, "b{fill:blue;}\n"},
      {"/* [x] */b{fill:blue}", 0, "*/b{fill:blue;}\n"},
      {"/* \xff b{fill:blue}", 0, "b{fill:blue;}\n"},
      {"/* never closed", 0, ""},
      {"/", -1, ""},
      {"/ a{fill:red}", 0, "/ a{fill:red;}\n"},
      {" \n / a{fill:red} / b{fill:red}", 0, "/ a{fill:red;}\n/ b{fill:red;}\n"},
      {"a{ / fill:red}", -1, ""}};
  for (const SheetCase& row : cases) expectFile(row);
}

TEST(CssRules, whatCannotBeUnderstood) {
  const SheetCase cases[] = {{"a", -1, ""},
                             {"a{", -1, ""},
                             {"a{fill", -1, ""},
                             {"a{fill:", -1, ""},
                             {"a{fill:red", -1, ""},
                             {"a{fill:red;", -1, ""},
                             {"a{fill red}", -1, ""},
                             {"a{fill}b{fill:red}", 0, ""},
                             {"a{fill} b{fill:red}", -1, ""},
                             {"a{fill:red}b{", -1, "a{fill:red;}\n"},
                             {"a{fill:red}b", -1, "a{fill:red;}\n"},
                             {"@media print{a{fill:red}}b{fill:blue}", 0, "}b{fill:blue;}\n"},
                             {"@import url(x);a{fill:red}", 0, "@import url(x);a{fill:red;}\n"}};
  for (const SheetCase& row : cases) expectFile(row);
}

TEST(CssRules, selectorLists) {
  const SheetCase cases[] = {
      {"a, b{fill:red}", 0, "a{fill:red;}\nb{fill:red;}\n"},
      {"a,b , c{fill:red;stroke:blue}", 0,
       "a{fill:red;stroke:blue;}\nb{fill:red;stroke:blue;}\nc{fill:red;stroke:blue;}\n"},
      {".x{fill:red}.x{fill:blue}", 0, ".x{fill:red;fill:blue;}\n"},
      {"a,b{fill:red}b,a{fill:blue}", 0, "a{fill:red;fill:blue;}\nb{fill:red;fill:blue;}\n"},
      {"A{fill:red}a{fill:blue}", 0, "A{fill:red;fill:blue;}\n"},
      {"a,a{fill:red}", 0, "a{fill:red;fill:red;}\n"},
      {"*.x{fill:red}", 0, ".x{fill:red;}\n"},
      {"{fill:red}", 0, ""},
      {"[transform]{fill:red}", 0, "[transform]{fill:red;}\n"},
      {"a[b=\"c\"]{fill:red}", 0, "a[b=\"c\"]{fill:red;}\n"}};
  for (const SheetCase& row : cases) {
    expectFile(row);
    expectSection({row.sheet + "]]>", 0, row.rules});
  }
}

TEST(CssRules, aRuleInManyParts) {
  std::string sheet;
  std::string rules = "a{";
  for (int i = 0; i < 50; ++i) {
    sheet += "a{stroke-width:" + std::to_string(i) + "}b,c{fill:red}";
    rules += "stroke-width:" + std::to_string(i) + ";";
  }
  TextReader source(sheet);
  CHandlerReader reader;
  EXPECT_EQ(reader.ParseCSSFile(&source->buffer), 0);
  EXPECT_EQ(rulesOf(reader).substr(0, rules.size()), rules);
  EXPECT_EQ(reader.styles.count, 3);
}

// The table was emptied in between: nothing of it is remembered.
TEST(CssRules, aTableThatIsFilledAgain) {
  CHandlerReader reader;
  for (int i = 0; i < 2; ++i) {
    TextReader source("a{fill:red}g>b{fill:red}a{fill:blue}");
    EXPECT_EQ(reader.ParseCSSFile(&source->buffer), 0);
    EXPECT_EQ(rulesOf(reader), "a{fill:red;fill:blue;}\ng>b{fill:red;}\n");
    reader.DestroySVGStyleTable();
    EXPECT_EQ(reader.styles.count, 0);
  }
}

// Names times declarations would fill the memory from a short sheet.
TEST(CssRules, copiesForManyNamesAreLimited) {
  std::string names;
  std::string declarations;
  for (int i = 0; i < 1500; ++i) names += "a" + std::to_string(i) + ",";
  for (int i = 0; i < 1000; ++i) declarations += "fill:red;";
  TextReader source(names + "last{" + declarations + "}x,y{fill:blue}");
  CHandlerReader reader;
  EXPECT_EQ(reader.ParseCSSFile(&source->buffer), 0);
  EXPECT_EQ(reader.state.copiedDeclarations, 1000000);
  EXPECT_NE(reader.styles.find("a999"), nullptr);
  EXPECT_EQ(reader.styles.find("a1000"), nullptr);
  EXPECT_NE(reader.styles.find("last"), nullptr);
  EXPECT_EQ(reader.styles.find("x"), nullptr);
  EXPECT_NE(reader.styles.find("y"), nullptr);
}

TEST(CssSection, itsFrame) {
  struct {
    const char* text;
    int result;
    const char* rules;
  } const cases[] = {{"<![CDATA[ rect{fill:red} ]]>", 0, "rect{fill:red;}\n"},
                     {"<![cdata[\nrect{fill:red}]]>", 0, "rect{fill:red;}\n"},
                     {" x <![CDATA[ rect{fill:red} ]]>", 0, "rect{fill:red;}\n"},
                     {"<![CDATA[rect{fill:red}]]>", -1, ""},
                     {"<![CDATA[rect {fill:red} ]]>", -1, ""},
                     {"<g ><![CDATA[ rect{fill:red} ]]>", -1, ""},
                     {"rect{fill:red}", -1, ""},
                     {"<![CDATA[", -1, ""},
                     {"<![CDATA[ ", -1, ""},
                     {"<![CDATA[ ]]>", 0, ""},
                     {"<![CDATA[ rect{fill:red}", -1, "rect{fill:red;}\n"},
                     {"<![CDATA[ rect{fill:red} ]]", -1, "rect{fill:red;}\n"},
                     {"<![CDATA[ rect{fill:red} ]>", -1, "rect{fill:red;}\n"},
                     {"<![CDATA[ rect{fill:red}]>", 0, "rect{fill:red;}\n"},
                     {"<![CDATA[ a[b]{fill:red} ]]>", 0, "a[b]{fill:red;}\n"},
                     {"<![CDATA[ /* x */ ]]>", 0, ""},
                     {"", -1, ""}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.text);
    TextReader reader(row.text);
    EXPECT_EQ(reader->ParseCSSData(), row.result);
    EXPECT_EQ(rulesOf(*reader), row.rules);
  }
}

TEST(StyleElement, bareFilter) {
  struct {
    const char* drawing;
    const char* rules;
  } const cases[] = {
      {"<style type=\"text/css\"><![CDATA[ rect{fill:red} ]]></style>", "rect{fill:red;}\n"},
      {"<style type=\"text/css\">rect{fill:red}</style>", ""},
      {"<style type=\"text/CSS\"><![CDATA[ rect{fill:red} ]]></style>", ""},
      {"<style type=\"text/css\"><![CDATA[rect{fill:red}]]></style>", ""},
      {"<style><![CDATA[ rect{fill:red} ]]></style>", ""},
      {"<style type=\"text/css\"><![CDATA[ g{fill:red} ]]></style>"
       "<style><![CDATA[ rect{fill:red} ]]></style>",
       "g{fill:red;}\nrect{fill:red;}\n"},
      {"<style type=\"text/css\"><![CDATA[ g{fill:red} ]]></style>"
       "<style type=\"text/plain\"><![CDATA[ rect{fill:red} ]]></style>",
       "g{fill:red;}\nrect{fill:red;}\n"},
      {"<style type=5><![CDATA[ g{fill:red} ]]></style>", ""},
      {"<style type=\"text/css\"/><style><![CDATA[ g{fill:red} ]]></style>", ""}};
  for (const auto& row : cases) EXPECT_EQ(firstPassRules(row.drawing), row.rules) << row.drawing;
}

TEST(StyleElement, plainStyle) {
  struct {
    const char* drawing;
    const char* rules;
  } const cases[] = {
      {"<style type=\"text/css\"><![CDATA[ rect{fill:red} ]]></style>", "rect{fill:red;}\n"},
      {"<style type=\"text/css\"><![CDATA[rect{fill:red}]]></style>", "rect{fill:red;}\n"},
      {"<style type=\"text/css\">rect{fill:red}</style>", "rect{fill:red;}\n"},
      {"<style>rect{fill:red}</style>", "rect{fill:red;}\n"},
      {"<style>\n rect { fill : red ; }\n</STYLE>", "rect{fill:red;}\n"},
      {"<style media=\"all\">rect{fill:red}</style>", "rect{fill:red;}\n"},
      {"<style type=\"text/plain\">rect{fill:red}</style>", ""},
      {"<style>g &gt; rect{fill:red}a[b=&quot;c&quot;]{fill:red}</style>",
       "g>rect{fill:red;}\na[b=\"c\"]{fill:red;}\n"},
      {"<style>a{fill:red}<![CDATA[b{fill:blue}]]>c{fill:red}</style>",
       "a{fill:red;}\nb{fill:blue;}\nc{fill:red;}\n"},
      {"<style><!-- a{fill:red} -->b{fill:blue}</style>", "b{fill:blue;}\n"},
      {"<style>/* ]> */ a{fill:red}</style>", "a{fill:red;}\n"},
      {"<style type=\"text/css\"/><style>a{fill:red}</style>", "a{fill:red;}\n"},
      {"<style type=\"text/css\" /><style>a{fill:red}</style>", "a{fill:red;}\n"},
      {"<style></style><style>a{fill:red}</style>", "a{fill:red;}\n"},
      {"<style>a{fill:red}", ""},
      {"<style>a{fill:red}</styl", ""},
      {"<style>a{fill:red} & < b{fill:red}</style>", "a{fill:red;}\n& < b{fill:red;}\n"}};
  for (const auto& row : cases) {
    EXPECT_EQ(firstPassRules(row.drawing, true), row.rules) << row.drawing;
  }
}

// What follows an element is found whatever stood in it.
TEST(StyleElement, theScanGoesOnBehindIt) {
  const std::string use = "<use xlink:href=\"#a\"/>";
  const std::string other = "<use xlink:href=\"#b\"/>";
  struct {
    std::string drawing;
    bool plain;
    int references;
  } const cases[] = {{"<style type=\"text/css\">a{}</style>" + use, true, 1},
                     {"<style type=\"text/css\">never closed" + use, true, 1},
                     {"<style type=\"text/css\"/>" + use, true, 1},
                     {"<style type=\"text/css\"><![CDATA[ a{} ]]></style>" + use, false, 1},
                     {"<style type=\"text/css\"/>" + use + other, false, 1}};  // the first is lost
  for (const auto& row : cases) {
    TextReader reader(row.drawing);
    reader->state.settings.plainStyle = row.plain;
    reader->ParseStyleSheetsAndReferences();
    EXPECT_EQ(reader->localRefs.count, row.references) << row.drawing;
  }
}

TEST(StyleElement, resultOfTheTag) {
  _svg_style_props style;
  initStyleProps(&style);
  TextReader good(" type=\"text/css\"><![CDATA[ a{fill:red} ]]>");
  good->hasAttributes = 1;
  EXPECT_EQ(good->ParseStyleTagData(&style, nullptr), 0);
  EXPECT_EQ(style.contentType, 1);
  TextReader bad(" type=5>");
  bad->hasAttributes = 1;
  EXPECT_EQ(bad->ParseStyleTagData(&style, nullptr), -5217);
  TextReader failing("<![CDATA[ a{fill ]]>");
  EXPECT_EQ(failing->ParseStyleTagData(&style, nullptr), 0);
  EXPECT_EQ(failing->ParseStyleTagData(nullptr, nullptr), 0);
  DestroyStyleElements(&style);
}

struct NameCase {
  std::string selector;
  std::vector<std::string> names;
  int result;
};

TEST(SelectorNames, normalised) {
  const NameCase cases[] = {{"a", {"a"}, 1},
                            {"  a  ", {"a"}, 1},
                            {"a, b", {"a", "b"}, 2},
                            {"a ,b,\tc", {"a", "b", "c"}, 3},
                            {"g  >  rect", {"g>rect"}, 1},
                            {"g   rect", {"g rect"}, 1},
                            {"g\n>\nrect", {"g>rect"}, 1},
                            {"g\nrect", {"g\nrect"}, 1},
                            {"a + b", {"a+b"}, 1},
                            {"*.a", {".a"}, 1},
                            {"*#a", {"#a"}, 1},
                            {"*[a]", {"[a]"}, 1},
                            {"*", {"*"}, 1},
                            {"* a", {"* a"}, 1},
                            {"g *.a", {"g .a"}, 1},
                            {"g>*.a , *.b", {"g>.a", ".b"}, 2},
                            {"a/* x */b", {"ab"}, 1},
                            {"a/* x > y */b", {"a y */b"}, 1},
                            {"a/*", {"a"}, 1},
                            {"", {""}, 0},
                            {"   ", {""}, 0},
                            {",", {"", ""}, 2},
                            {"a,", {"a", ""}, 2},
                            {"a, ,b", {"a", "", "b"}, 3},
                            {std::string(300, 'x'), {std::string(255, 'x')}, 1},
                            {std::string(300, 'x') + ",y", {std::string(255, 'x'), "y"}, 2}};
  CHandlerReader reader;
  for (const NameCase& row : cases) {
    SCOPED_TRACE(row.selector);
    auto** names = static_cast<char**>(RMM_AllocName(1, sizeof(char*), RMM_SITE));
    names[0] = static_cast<char*>(RMM_AllocName(256, 1, RMM_SITE));
    std::string selector = row.selector;
    EXPECT_EQ(reader.ParseCSSstyleID(selector.data(), &names), row.result);
    for (std::size_t i = 0; i < row.names.size(); ++i) {
      EXPECT_EQ(row.names[i], names[i]);
      RMM_Free(names[i]);
    }
    RMM_Free(names);
  }
}

TEST(Clones, areChainsOfTheirOwn) {
  CHandlerReader reader;
  TextReader source("a{fill:red;stroke:blue}");
  reader.ParseCSSFile(&source->buffer);
  const AttNode* original = reader.styles.find("a");
  AttNode* copy = original->clone();
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, original);
  EXPECT_STREQ(copy->value, "red");
  EXPECT_NE(copy->value, original->value);
  EXPECT_EQ(copy->code, kAttFill);
  ASSERT_NE(copy->next, nullptr);
  EXPECT_STREQ(copy->next->value, "blue");
  EXPECT_EQ(copy->next->next, nullptr);
  DestroyAttElements(copy);
  for (std::uint64_t failing = 1; failing <= 4; ++failing) {
    egfhost::failAllocation(failing);
    EXPECT_EQ(original->clone(), nullptr);
    egfhost::clearFaults();
  }
}

TEST(CssMemory, whatWasStoredStays) {
  const std::string sheet = "a,b{fill:red;stroke:blue}c{font-family:'d'}";
  TextReader source(sheet);
  CHandlerReader whole;
  egfhost::countCalls();
  whole.ParseCSSFile(&source->buffer);
  const std::uint64_t calls = egfhost::callCount("RMM");
  egfhost::clearFaults();
  EXPECT_GT(calls, 8U);
  for (std::uint64_t failing = 1; failing <= calls; ++failing) {
    TextReader again(sheet);
    CHandlerReader reader;
    egfhost::failAllocation(failing);
    reader.ParseCSSFile(&again->buffer);
    egfhost::clearFaults();
    EXPECT_LE(reader.styles.count, 3);
  }
}

TEST(StreamComments, skippedBytesAndTheNextOne) {
  struct {
    char current;
    const char* rest;
    int skipped;
    char next;
    int index;
  } const cases[] = {{'a', "b", 0, 'a', 0},
                     {' ', "  a", 3, 'a', 3},
                     {'/', "* x */a", 7, 'a', 7},
                     {'/', "* x */ \na", 9, 'a', 9},
                     {' ', "/* x */a", 8, 'a', 8},
                     {'/', "a", 0, '/', 0},
                     {'/', "", 0, '/', 0},
                     {' ', "/a", 0, '/', 1},
                     {'\n', " \t/ *", 0, '/', 3},
                     {' ', "/", 0, '/', 1},
                     {'/', "* a]b", 5, 'b', 5},
                     {'/',
                      "* a\xff"
                      "b",
                      5, 'b', 5},
                     {'/', "* x", 3, '\0', 3},
                     {' ', "", 0, '\0', 0},
                     {'/', "**/a", 4, 'a', 4},
                     {'/', "*/*/a", 5, 'a', 5}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.rest);
    TextReader reader(std::string("") + row.rest);
    char current = row.current;
    EXPECT_EQ(reader->SkipCSScomment(&current, &reader->buffer), row.skipped);
    EXPECT_EQ(current, row.next);
    EXPECT_EQ(reader->buffer.getFileIndex(), row.index);
  }
  CHandlerReader reader;
  char current = ' ';
  EXPECT_EQ(reader.SkipCSScomment(nullptr, &reader.buffer), 0);
  EXPECT_EQ(reader.SkipCSScomment(&current, static_cast<cBuffer*>(nullptr)), 0);
}

}  // namespace
}  // namespace egfsvg::test
