#include "model/name_tables.h"

#include <cstring>

#include "model/name_index.h"
#include "model/short_name_tables.h"

const char* const SVG_COLOR_NAMES[kSvgColorCount] = {
#define EGFSVG_COLOR(name, red, green, blue) name,
#include "model/colors.def"
#undef EGFSVG_COLOR
};
const std::int32_t SVG_COLOR_RED[kSvgColorCount] = {
#define EGFSVG_COLOR(name, red, green, blue) red,
#include "model/colors.def"
#undef EGFSVG_COLOR
};
const std::int32_t SVG_COLOR_GREEN[kSvgColorCount] = {
#define EGFSVG_COLOR(name, red, green, blue) green,
#include "model/colors.def"
#undef EGFSVG_COLOR
};
const std::int32_t SVG_COLOR_BLUE[kSvgColorCount] = {
#define EGFSVG_COLOR(name, red, green, blue) blue,
#include "model/colors.def"
#undef EGFSVG_COLOR
};

const char* const SVG_TRANSFORMATION_NAMES[kSvgTransformationCount] = {
    "MATRIX", "TRANSLATE", "SCALE", "ROTATE", "SKEWX", "SKEWY"};
const std::int32_t SVG_TRANSFORMATION_ARGUMENTS[kSvgTransformationCount] = {6, 2, 2, 3, 1, 1};
const std::int32_t SVG_TRANSFORMATION_KINDS[kSvgTransformationCount] = {
    egfsvg::kMatrix, egfsvg::kTranslate, egfsvg::kScale,
    egfsvg::kRotate, egfsvg::kSkewX,     egfsvg::kSkewY};

namespace egfsvg {

namespace {

constexpr NamedCode kStyleProperties[] = {
#define EGFSVG_STYLE_PROPERTY(name, code, text) {text, code},
#include "model/style_properties.def"
#undef EGFSVG_STYLE_PROPERTY
};
constexpr std::array<const char*, kSvgColorCount> kColorNames = {
#define EGFSVG_COLOR(name, red, green, blue) name,
#include "model/colors.def"
#undef EGFSVG_COLOR
};

template <std::size_t N>
constexpr std::array<const char*, N> namesOf(const NamedCode (&rows)[N]) {
  std::array<const char*, N> names{};
  for (std::size_t i = 0; i < N; ++i) names[i] = rows[i].name;
  return names;
}

constexpr NameIndex<std::size(kTagNames), 256> kTagIndex(namesOf(kTagNames));
constexpr NameIndex<std::size(kAttributeNames), 512> kAttributeIndex(namesOf(kAttributeNames));
constexpr NameIndex<std::size(kStyleProperties), 256> kStyleIndex(namesOf(kStyleProperties));
constexpr NameIndex<kSvgColorCount, 512> kColorIndex(kColorNames);

/// The code of a row, or -1 for no row.
template <std::size_t N>
int codeOf(const NamedCode (&rows)[N], int row) {
  return row < 0 ? -1 : rows[row].code;
}

/// Names that rules use, by tag code from kTagSvg to kTagMarker.
/// Kept: an image answers to "tspan", so that the type selector "image" never matches one.
constexpr const char* kRuleNames[] = {"svg",  nullptr,    "path",    "rect",  "circle", "ellipse",
                                      "line", "polyline", "polygon", "text",  "font",   "g",
                                      "defs", "tspan",    nullptr,   "tspan", nullptr,  "altglyph",
                                      "a",    "textpath", nullptr,   "use",   "symbol", "marker"};
static_assert(std::size(kRuleNames) == kTagMarker - kTagSvg + 1);

}  // namespace

int tagCode(const char* name, std::size_t length) {
  return codeOf(kTagNames, kTagIndex.find(name, length));
}

int attributeCode(const char* name, std::size_t length) {
  return codeOf(kAttributeNames, kAttributeIndex.find(name, length));
}

int colorRow(const char* name) { return kColorIndex.find(name); }

const char* tagName(int type) {
  return type < kTagSvg || type > kTagMarker ? nullptr : kRuleNames[type - kTagSvg];
}

}  // namespace egfsvg

int GetAttType(const char* name) {
  return egfsvg::codeOf(egfsvg::kAttributeNames, egfsvg::kAttributeIndex.find(name));
}

int GetStyleAttType(const char* name) {
  return egfsvg::codeOf(egfsvg::kStyleProperties, egfsvg::kStyleIndex.find(name));
}

int GetTagNameFromType(char* name, int type) {
  const char* text = egfsvg::tagName(type);
  if (text == nullptr || name == nullptr) return -1;
  std::memcpy(name, text, std::strlen(text) + 1);
  return 0;
}
