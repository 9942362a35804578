// Setters of the font properties and of what text content carries.

#include "model/codes.h"
#include "reader/presentation_patterns.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

namespace {

constexpr Keyword kFontStretchRows[] = {
    {"normal", 1},          {"wider", 2},           {"narrower", 3},       {"ultra-condensed", 4},
    {"extra-condensed", 5}, {"condensed", 6},       {"semi-condensed", 7}, {"semi-expanded", 8},
    {"expanded", 9},        {"extra-expanded", 10}, {"ultra-expanded", 11}};
constexpr KeywordSet kFontStretch{kFontStretchRows, 1};

constexpr Keyword kFontStyleRows[] = {{"normal", 1}, {"italic", 2}, {"oblique", 3}};
constexpr KeywordSet kFontStyle{kFontStyleRows, 1};

constexpr Keyword kFontVariantRows[] = {{"normal", 1}, {"small-caps", 2}};
constexpr KeywordSet kFontVariant{kFontVariantRows, 1};

// Kept: numeric weights have no row and read as normal.
constexpr Keyword kFontWeightRows[] = {{"normal", 1}, {"bold", 2}, {"bolder", 3}, {"lighter", 4}};
constexpr KeywordSet kFontWeight{kFontWeightRows, 1};

constexpr Keyword kDirectionRows[] = {{"ltr", 1}, {"rtl", 2}};
constexpr KeywordSet kDirection{kDirectionRows, 1};

constexpr Keyword kTextDecorationRows[] = {{"none", 1},
                                           {"underline", 2},
                                           {"overline", 3},
                                           {"line-through", 4},
                                           {"blink", 5},
                                           {"underline line-through", 6},
                                           {"line-through underline", 6}};
constexpr KeywordSet kTextDecoration{kTextDecorationRows, 1};

constexpr Keyword kUnicodeBidiRows[] = {{"none", 1}, {"embed", 2}, {"bidi-override", 3}};
constexpr KeywordSet kUnicodeBidi{kUnicodeBidiRows, 1};

constexpr Keyword kAlignmentBaselineRows[] = {
    {"auto", 1},       {"baseline", 2},   {"before-edge", 3},     {"text-before-edge", 4},
    {"middle", 5},     {"after-edge", 6}, {"text-after-edge", 7}, {"ideographic", 8},
    {"alphabetic", 9}, {"hanging", 10},   {"mathematical", 11}};
constexpr KeywordSet kAlignmentBaseline{kAlignmentBaselineRows, 1};

// Kept: "auto-sensescript" and the two underscores are the only forms that match.
constexpr Keyword kDominantBaselineRows[] = {{"auto", 1},
                                             {"auto-sensescript", 2},
                                             {"no-change", 3},
                                             {"reset-size", 4},
                                             {"alphabetic", 5},
                                             {"hanging", 6},
                                             {"ideographic", 7},
                                             {"mathematical", 8},
                                             {"central", 9},
                                             {"middle", 10},
                                             {"text-top", 11},
                                             {"text-bottom", 12},
                                             {"text_after-edge", 13},
                                             {"text_before-edge", 14}};
constexpr KeywordSet kDominantBaseline{kDominantBaselineRows, 1};

constexpr Keyword kTextAnchorRows[] = {{"start", 1}, {"middle", 2}, {"end", 3}};
constexpr KeywordSet kTextAnchor{kTextAnchorRows, 1};

constexpr Keyword kWritingModeRows[] = {{"lr-tb", 1}, {"lr", 1},    {"rl-tb", 2},
                                        {"rl", 2},    {"tb-rl", 3}, {"tb", 3}};
constexpr KeywordSet kWritingMode{kWritingModeRows, 1};

/// Adds a blank and the value to the text that is there. Without memory, or when it would grow too
/// long to go down, the text stays as it was.
void appendWord(char*& text, const char* word) {
  const std::size_t held = std::strlen(text);
  const std::size_t added = std::strlen(word);
  if (held + added + 1 > kLongestInherited) return;
  auto* longer = static_cast<char*>(RMM_ReAllocName(text, held + added + 2, 1, RMM_SITE));
  if (longer == nullptr) return;
  longer[held] = ' ';
  std::memcpy(longer + held + 1, word, added + 1);
  text = longer;
}

}  // namespace

}  // namespace egfsvg

// The shorthand is passed over.
int CHandlerReader::SetFontPatt(_svg_pa_fontspec*, _svg_attrib_pair*) { return 0; }

int CHandlerReader::SetFontFamilyPatt(_svg_pa_fontspec* group, _svg_attrib_pair* pair) {
  return egfsvg::setText(&_svg_pa_fontspec::fontFamily, group, pair);
}

int CHandlerReader::SetFontStretchPatt(_svg_pa_fontspec* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_fontspec::fontStretch, group, pair, egfsvg::kFontStretch);
}

int CHandlerReader::SetFontStylePatt(_svg_pa_fontspec* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_fontspec::fontStyle, group, pair, egfsvg::kFontStyle);
}

int CHandlerReader::SetFontVariantPatt(_svg_pa_fontspec* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_fontspec::fontVariant, group, pair, egfsvg::kFontVariant);
}

int CHandlerReader::SetFontWeightPatt(_svg_pa_fontspec* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_fontspec::fontWeight, group, pair, egfsvg::kFontWeight);
}

int CHandlerReader::SetDirectionPatt(_svg_pa_textcontentelems* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_textcontentelems::direction, group, pair, egfsvg::kDirection);
}

int CHandlerReader::SetTextDecorationPatt(_svg_common* parent, _svg_pa_textcontentelems* group,
                                          _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) {
    return SetInheritedProperty(parent, group, kGroupTextContent, kAttTextDecoration);
  }
  return setKeyword(&_svg_pa_textcontentelems::textDecoration, group, pair, kTextDecoration);
}

int CHandlerReader::SetUnicodeBidiPatt(_svg_common* parent, _svg_pa_textcontentelems* group,
                                       _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) {
    return SetInheritedProperty(parent, group, kGroupTextContent, kAttUnicodeBidi);
  }
  return setKeyword(&_svg_pa_textcontentelems::unicodeBidi, group, pair, kUnicodeBidi);
}

int CHandlerReader::SetAlignmentBaselinePatt(_svg_common* parent, _svg_pa_textcontentelems* group,
                                             _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) {
    return SetInheritedProperty(parent, group, kGroupTextContent, kAttAlignmentBaseline);
  }
  return setKeyword(&_svg_pa_textcontentelems::alignmentBaseline, group, pair, kAlignmentBaseline);
}

// Shifts gather: a text taken over from the parent ends as the list of shifts, outermost first.
int CHandlerReader::SetBaselineShiftPatt(_svg_common* parent, _svg_pa_textcontentelems* group,
                                         _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) {
    return SetInheritedProperty(parent, group, kGroupTextContent, kAttBaselineShift);
  }
  if (group == nullptr || !hasValue(pair)) return 0;
  if (group->baselineShift == nullptr) return replaceText(&group->baselineShift, pair);
  appendWord(group->baselineShift, pair->value);
  return 0;
}

int CHandlerReader::SetDominantBaselinePatt(_svg_common* parent, _svg_pa_textelems* group,
                                            _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) {
    return SetInheritedProperty(parent, group, kGroupTextElements, kAttDominantBaseline);
  }
  return setKeyword(&_svg_pa_textelems::dominantBaseline, group, pair, kDominantBaseline);
}

int CHandlerReader::SetTextAnchorPatt(_svg_pa_textelems* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_textelems::textAnchor, group, pair, egfsvg::kTextAnchor);
}

int CHandlerReader::SetWritingModePatt(_svg_pa_textelems* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_textelems::writingMode, group, pair, egfsvg::kWritingMode);
}
