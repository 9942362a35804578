#include "model/name_tables.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <set>
#include <string>

namespace {

struct Name {
  const char* text;
  int code;
};

constexpr Name kAttributes[] = {{"ID", 1},
                                {"DESC", 2},
                                {"EXTERNALRESOURCESREQUIRED", 3},
                                {"CLASS", 4},
                                {"STYLE", 5},
                                {"TRANSFORM", 6},
                                {"TYPE", 7},
                                {"VIEWBOX", 8},
                                {"PRESERVEASPECTRATIO", 9},
                                {"ZOOMANDPAN", 10},
                                {"X", 11},
                                {"Y", 12},
                                {"X1", 20},
                                {"Y1", 21},
                                {"X2", 22},
                                {"Y2", 23},
                                {"WIDTH", 13},
                                {"HEIGHT", 14},
                                {"RX", 15},
                                {"RY", 16},
                                {"R", 19},
                                {"POINTS", 24},
                                {"CX", 25},
                                {"CY", 26},
                                {"FX", 41},
                                {"FY", 42},
                                {"D", 27},
                                {"LENGTHADJUST", 28},
                                {"TEXTLENGTH", 29},
                                {"DX", 30},
                                {"DY", 31},
                                {"XLINK:HREF", 32},
                                {"XML:SPACE", 33},
                                {"XML:LANG", 34},
                                {"HREF", 35},
                                {"ALTERNATE", 36},
                                {"GRADIENTUNITS", 37},
                                {"GRADIENTTRANSFORM", 38},
                                {"SPREADMETHOD", 39},
                                {"OFFSET", 40},
                                {"FILL", 135},
                                {"FILL-OPACITY", 136},
                                {"FILL-RULE", 137},
                                {"STROKE", 144},
                                {"STROKE-DASHARRAY", 145},
                                {"STROKE-DASHOFFSET", 146},
                                {"STROKE-LINECAP", 147},
                                {"STROKE-LINEJOIN", 148},
                                {"STROKE-MITERLIMIT", 149},
                                {"STROKE-OPACITY", 150},
                                {"STROKE-WIDTH", 151},
                                {"CLIP-PATH", 120},
                                {"CLIP_RULE", 121},
                                {"COLOR", 115},
                                {"COLOR-INTERPOLATION", 132},
                                {"COLOR-RENDERING", 134},
                                {"CURSOR", 116},
                                {"DISPLAY", 117},
                                {"FILTER", 125},
                                {"IMAGE-RENDERING", 138},
                                {"MASK", 122},
                                {"OPACITY", 123},
                                {"POINTER-EVENTS", 131},
                                {"SHAPE-RENDERING", 143},
                                {"TEXT-RENDERING", 152},
                                {"VISIBILITY", 119},
                                {"ENABLE-BACKGROUND", 124},
                                {"FLOOD-COLOR", 126},
                                {"FLOOD-OPACITY", 127},
                                {"FONT-FAMILY", 102},
                                {"FONT-SIZE", 103},
                                {"FONT-SIZE-ADJUST", 104},
                                {"FONT-STRETCH", 105},
                                {"FONT-STYLE", 106},
                                {"FONT-VARIANT", 107},
                                {"FONT-WEIGHT", 108},
                                {"STOP-COLOR", 129},
                                {"STOP-OPACITY", 130},
                                {"COLOR-PROFILE", 133},
                                {"LIGHTING-COLOR", 128},
                                {"MARKER-MID", 140},
                                {"MARKER-START", 141},
                                {"MARKER-END", 142},
                                {"ALIGNMENT-BASELINE", 153},
                                {"BASELINE-SHIFT", 154},
                                {"DIRECTION", 109},
                                {"GLYPH-ORIENTATION-HORIZONTAL", 156},
                                {"GLYPH-ORIENTATION-VERTICAL", 157},
                                {"KERNING", 158},
                                {"LETTER-SPACING", 110},
                                {"TEXT-DECORATION", 111},
                                {"UNICODE-BIDI", 112},
                                {"WORD-SPACING", 113},
                                {"DOMINANT-BASELINE", 155},
                                {"TEXT-ANCHOR", 159},
                                {"WRITING-MODE", 160},
                                {"CLIP", 114},
                                {"OVERFLOW", 118},
                                {"ONFOCUSOUT", 161},
                                {"ONFOCUSIN", 162},
                                {"ONACTIVATE", 163},
                                {"ONCLICK", 164},
                                {"ONMOUSEDOWN", 165},
                                {"ONMOUSEUP", 166},
                                {"ONMOUSEOVER", 167},
                                {"ONMOUSEMOVE", 168},
                                {"ONMOUSEOUT", 169},
                                {"ONLOAD", 170}};

constexpr Name kStyleProperties[] = {{"font", 101},
                                     {"font-family", 102},
                                     {"font-size", 103},
                                     {"font-size-adjust", 104},
                                     {"font-stretch", 105},
                                     {"font-style", 106},
                                     {"font-variante", 107},
                                     {"font-weight", 108},
                                     {"direction", 109},
                                     {"letter-spacing", 110},
                                     {"text-decoration", 111},
                                     {"unicode-bidi", 112},
                                     {"word-spacing", 113},
                                     {"clip", 114},
                                     {"color", 115},
                                     {"cursor", 116},
                                     {"display", 117},
                                     {"overflow", 118},
                                     {"visibility", 119},
                                     {"clip-path", 120},
                                     {"clip-rule", 121},
                                     {"mask", 122},
                                     {"opacity", 123},
                                     {"enable-background", 124},
                                     {"filter", 125},
                                     {"flood-color", 126},
                                     {"flood-opacity", 127},
                                     {"lighting-color", 128},
                                     {"stop-color", 129},
                                     {"stop-opacity", 130},
                                     {"pointer-events", 131},
                                     {"color-interpolation", 132},
                                     {"color-profile", 133},
                                     {"color-rendering", 134},
                                     {"fill", 135},
                                     {"fill-opacity", 136},
                                     {"fill-rule", 137},
                                     {"image-rendering", 138},
                                     {"marker", 139},
                                     {"marker-mid", 140},
                                     {"marker-start", 141},
                                     {"marker-end", 142},
                                     {"shape-rendering", 143},
                                     {"stroke", 144},
                                     {"stroke-dasharray", 145},
                                     {"stroke-dashoffset", 146},
                                     {"stroke-linecap", 147},
                                     {"stroke-linejoin", 148},
                                     {"stroke-miterlimit", 149},
                                     {"stroke-opacity", 150},
                                     {"stroke-width", 151},
                                     {"text-rendering", 152},
                                     {"alignment-baseline", 153},
                                     {"baseline-shift", 154},
                                     {"dominant-baseline", 155},
                                     {"glyph-orientation-horizontal", 156},
                                     {"glyph-orientation-vertical", 157},
                                     {"kerning", 158},
                                     {"text-anchor", 159},
                                     {"writing-mode", 160}};

constexpr Name kTags[] = {{"SVG", 3},
                          {"/SVG", 1000},
                          {"STYLE", 4},
                          {"/STYLE", 1004},
                          {"PATH", 5},
                          {"RECT", 6},
                          {"CIRCLE", 7},
                          {"ELLIPSE", 8},
                          {"LINE", 9},
                          {"POLYLINE", 10},
                          {"POLYGON", 11},
                          {"TEXT", 12},
                          {"/TEXT", 1003},
                          {"G", 14},
                          {"/G", 1001},
                          {"DEFS", 15},
                          {"/DEFS", 1002},
                          {"IMAGE", 16},
                          {"/IMAGE", 1015},
                          {"!ENTITY", 17},
                          {"TSPAN", 18},
                          {"/TSPAN", 1005},
                          {"TREF", 19},
                          {"ALTGLYPH", 20},
                          {"/ALTGLYPH", 1008},
                          {"A", 21},
                          {"/A", 1006},
                          {"TEXTPATH", 22},
                          {"/TEXTPATH", 1007},
                          {"!--", 23},
                          {"USE", 24},
                          {"SYMBOL", 25},
                          {"/SYMBOL", 1009},
                          {"MARKER", 26},
                          {"/MARKER", 1010},
                          {"?XML-STYLESHEET", 27},
                          {"CLIPPATH", 28},
                          {"/CLIPPATH", 1011},
                          {"LINEARGRADIENT", 30},
                          {"/LINEARGRADIENT", 1012},
                          {"RADIALGRADIENT", 31},
                          {"/RADIALGRADIENT", 1013},
                          {"STOP", 32},
                          {"PATTERN", 33},
                          {"/PATTERN", 1014},
                          {"SWITCH", 35},
                          {"/SWITCH", 1016},
                          {"![CDATA[", 40}};

// The same letters with every other one in the other case.
std::string mixedCase(std::string text) {
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const int c = static_cast<unsigned char>(text[i]);
    text[i] = static_cast<char>(std::islower(c) != 0 ? std::toupper(c) : std::tolower(c));
  }
  return text;
}

template <std::size_t N>
std::size_t distinctNames(const Name (&names)[N]) {
  std::set<std::string> seen;
  for (const Name& name : names) seen.insert(name.text);
  return seen.size();
}

TEST(NameTables, EveryAttributeNameHasItsCode) {
  ASSERT_EQ(std::size(kAttributes), 108U);
  EXPECT_EQ(distinctNames(kAttributes), 108U);
  for (const Name& name : kAttributes) {
    EXPECT_EQ(GetAttType(name.text), name.code) << name.text;
    EXPECT_EQ(GetAttType(mixedCase(name.text).c_str()), name.code) << name.text;
    const std::string longer = std::string(name.text) + "x";
    EXPECT_EQ(egfsvg::attributeCode(longer.data(), std::strlen(name.text)), name.code);
  }
}

TEST(NameTables, EveryStylePropertyHasItsCode) {
  ASSERT_EQ(std::size(kStyleProperties), 60U);
  EXPECT_EQ(distinctNames(kStyleProperties), 60U);
  for (const Name& name : kStyleProperties) {
    EXPECT_EQ(GetStyleAttType(name.text), name.code) << name.text;
    EXPECT_EQ(GetStyleAttType(mixedCase(name.text).c_str()), name.code) << name.text;
  }
}

TEST(NameTables, EveryTagHasItsCode) {
  ASSERT_EQ(std::size(kTags), 48U);
  EXPECT_EQ(distinctNames(kTags), 48U);
  for (const Name& name : kTags) {
    const std::string text(name.text);
    EXPECT_EQ(egfsvg::tagCode(text.data(), text.size()), name.code) << text;
    EXPECT_EQ(egfsvg::tagCode(mixedCase(text).data(), text.size()), name.code) << text;
    EXPECT_EQ(egfsvg::tagCode((text + "x").data(), text.size() + 1), -1) << text;
  }
}

TEST(NameTables, AttributeNamesThatHaveNoCode) {
  for (const char* text :
       {"clip-rule", "font", "marker", "title", "media", "requiredFeatures", "requiredExtensions",
        "systemLanguage", "version", "font-variante", " x", "x ", "", "xx", "i", "ID\xc3"}) {
    EXPECT_EQ(GetAttType(text), -1) << text;
  }
  EXPECT_EQ(GetAttType(nullptr), -1);
  EXPECT_EQ(egfsvg::attributeCode(nullptr, 0), -1);
  EXPECT_EQ(GetAttType(std::string(5000, 'x').c_str()), -1);
}

TEST(NameTables, AttributeNamesInTheirUsualSpelling) {
  const Name names[] = {{"x1", 20},
                        {"X1", 20},
                        {"clip_rule", 121},
                        {"fx", 41},
                        {"fy", 42},
                        {"cx", 25},
                        {"offset", 40},
                        {"href", 35},
                        {"onload", 170},
                        {"viewBox", 8},
                        {"xlink:href", 32},
                        {"xml:space", 33},
                        {"gradientTransform", 38}};
  for (const Name& name : names) EXPECT_EQ(GetAttType(name.text), name.code) << name.text;
}

TEST(NameTables, StyleNamesAtTheEdges) {
  const Name names[] = {{"font-variant", -1},
                        {"font-variante", 107},
                        {"font", 101},
                        {"marker", 139},
                        {"clip-rule", 121},
                        {"clip_rule", -1},
                        {"FILL", 135},
                        {"x", -1},
                        {"d", -1},
                        {"writing-mode", 160},
                        {"", -1}};
  for (const Name& name : names) EXPECT_EQ(GetStyleAttType(name.text), name.code) << name.text;
  EXPECT_EQ(GetStyleAttType(nullptr), -1);
}

TEST(NameTables, TagsThatAreNone) {
  for (const std::string text :
       {"", "font", "g/", " g", "script", "svg:svg", "/rect", "!DOCTYPE"}) {
    EXPECT_EQ(egfsvg::tagCode(text.data(), text.size()), -1) << text;
  }
}

TEST(NameTables, RuleNamesOfTagCodes) {
  const struct {
    int type;
    const char* name;
  } rows[] = {{3, "svg"},  {5, "path"},      {6, "rect"},     {7, "circle"},  {8, "ellipse"},
              {9, "line"}, {10, "polyline"}, {11, "polygon"}, {12, "text"},   {13, "font"},
              {14, "g"},   {15, "defs"},     {16, "tspan"},   {18, "tspan"},  {20, "altglyph"},
              {21, "a"},   {22, "textpath"}, {24, "use"},     {25, "symbol"}, {26, "marker"}};
  for (const auto& row : rows) {
    char name[egfsvg::kTagNameSize] = "untouched";
    EXPECT_EQ(GetTagNameFromType(name, row.type), 0) << row.type;
    EXPECT_STREQ(name, row.name);
  }
}

TEST(NameTables, TagCodesWithoutARuleNameWriteNothing) {
  for (int type : {-1, 0, 2, 4, 17, 19, 23, 27, 30, 35, 101, 1000, 0x7fffffff}) {
    char name[egfsvg::kTagNameSize] = "untouched";
    EXPECT_EQ(GetTagNameFromType(name, type), -1) << type;
    EXPECT_STREQ(name, "untouched");
  }
  EXPECT_EQ(GetTagNameFromType(nullptr, 3), -1);
}

TEST(NameTables, TransformNames) {
  const struct {
    const char* name;
    int arguments, kind;
  } rows[] = {{"MATRIX", 6, 4}, {"TRANSLATE", 2, 5}, {"SCALE", 2, 6},
              {"ROTATE", 3, 1}, {"SKEWX", 1, 2},     {"SKEWY", 1, 3}};
  ASSERT_EQ(kSvgTransformationCount, 6);
  for (int i = 0; i < kSvgTransformationCount; ++i) {
    EXPECT_STREQ(SVG_TRANSFORMATION_NAMES[i], rows[i].name);
    EXPECT_EQ(SVG_TRANSFORMATION_ARGUMENTS[i], rows[i].arguments);
    EXPECT_EQ(SVG_TRANSFORMATION_KINDS[i], rows[i].kind);
  }
}

}  // namespace
