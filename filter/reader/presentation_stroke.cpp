// Setters of what a stroke is drawn with, and of the fill rule.

#include <algorithm>

#include "model/codes.h"
#include "model/numbers.h"
#include "model/rmm_allocator.h"
#include "reader/lengths.h"
#include "reader/presentation_patterns.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

namespace {

constexpr Keyword kFillRuleRows[] = {{"nonzero", 1}, {"evenodd", 2}};
constexpr KeywordSet kFillRule{kFillRuleRows, 1};

constexpr Keyword kLinecapRows[] = {{"butt", 1}, {"round", 2}, {"square", 3}};
constexpr KeywordSet kLinecap{kLinecapRows, 1};

constexpr Keyword kLinejoinRows[] = {{"miter", 1}, {"round", 2}, {"bevel", 3}};
constexpr KeywordSet kLinejoin{kLinejoinRows, 1};

/// Each child of an element copies its dashes. What comes after so many is passed over.
constexpr std::size_t kMostDashes = 1024;

/// Reads `count` lengths between single separators; an empty piece is 0 pixels.
void readDashes(_svg_value* dashes, std::size_t count, const char* at, const char* last,
                char separator) {
  for (std::size_t i = 0; i < count; ++i) {
    const char* end = std::find(at, last, separator);
    dashes[i] = kDefaultValue;
    parseLength(&dashes[i], at, end);
    at = end == last ? last : end + 1;
  }
}

}  // namespace

}  // namespace egfsvg

int CHandlerReader::SetFillRulePatt(_svg_pa_fill* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_fill::fillRule, group, pair, egfsvg::kFillRule);
}

// Kept: a single length is passed over, and so is "none": what was there stays.
int CHandlerReader::SetStrokeDasharrayPatt(_svg_pa_stroke* group, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  constexpr std::size_t kFewest = 2;
  if (group == nullptr || !hasValue(pair) || isInherit(pair)) return 0;
  const char* text = pair->value;
  const char* last = text + std::strlen(text);
  const char separator = std::find(text, last, ',') != last ? ',' : ' ';
  const auto written = static_cast<std::size_t>(std::count(text, last, separator)) + 1;
  const std::size_t count = std::min(written, kMostDashes);
  const std::string_view none("none");
  const bool isNone = static_cast<std::size_t>(last - text) >= none.size() &&
                      equalsNoCase(text, none.size(), none.data());
  if (count < kFewest || isNone) return 0;
  auto* dashes = allocateArray<_svg_value>(count, RMM_SITE);
  if (dashes == nullptr) return 0;
  readDashes(dashes, count, text, last, separator);
  freeAll(group->strokeDashArray);
  group->strokeDashArray = dashes;
  group->strokeDashCount = static_cast<std::int32_t>(count);
  return 0;
}

int CHandlerReader::SetStrokeLinecapPatt(_svg_pa_stroke* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_stroke::strokeLinecap, group, pair, egfsvg::kLinecap);
}

int CHandlerReader::SetStrokeLinejoinPatt(_svg_pa_stroke* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_stroke::strokeLinejoin, group, pair, egfsvg::kLinejoin);
}

// Kept: the fraction is not read, and a limit of 1 or less is passed over.
int CHandlerReader::SetStrokeMiterlimitPatt(_svg_pa_stroke* group, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (group == nullptr || !hasValue(pair) || isInherit(pair)) return 0;
  const char* end = pair->value;
  while (isDigit(*end)) ++end;
  const std::int32_t limit = saturatingInteger(pair->value, end);
  if (limit > 1) group->strokeMiterlimit = limit;
  return 0;
}

int CHandlerReader::SetStrokeOpacityPatt(_svg_pa_stroke* group, _svg_attrib_pair* pair) {
  return egfsvg::setNumber(&_svg_pa_stroke::strokeOpacity, group, pair);
}
