// Setters of the graphics properties that every drawn element carries.

#include "model/codes.h"
#include "reader/presentation_patterns.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

namespace {

// Kept: an unknown word hides the element as "none" does.
constexpr Keyword kDisplayRows[] = {{"none", kDisplayNone},
                                    {"inline", kDisplayInline},
                                    {"block", 2},
                                    {"list-item", 3},
                                    {"run-in", 4},
                                    {"compact", 5},
                                    {"marker", 6},
                                    {"table", 7},
                                    {"inline-table", 8},
                                    {"table-row-group", 9},
                                    {"table-header-group", 10},
                                    {"table-footer-group", 11},
                                    {"table-row", 12},
                                    {"table-column-group", 13},
                                    {"table-column", 14},
                                    {"table-cell", 15},
                                    {"table-caption", 16}};
constexpr KeywordSet kDisplay{kDisplayRows, kDisplayNone};

constexpr Keyword kVisibilityRows[] = {
    {"visible", kVisible}, {"hidden", kHidden}, {"collapse", kCollapse}};
constexpr KeywordSet kVisibility{kVisibilityRows, kVisible};

// Kept: the words of visibility, so "nonzero" and "evenodd" both store 1.
constexpr const KeywordSet& kClipRule = kVisibility;

constexpr Keyword kPointerEventsRows[] = {
    {"visiblepainted", 1}, {"visiblefill", 2}, {"visiblestroke", 3}, {"visible", 4}, {"painted", 5},
    {"fill", 6},           {"stroke", 7},      {"all", 8},           {"none", 9}};
constexpr KeywordSet kPointerEvents{kPointerEventsRows, 1};

constexpr Keyword kColorInterpolationRows[] = {{"auto", 1}, {"srgb", 2}, {"linearrgb", 3}};
constexpr KeywordSet kColorInterpolation{kColorInterpolationRows, 2};

constexpr Keyword kRenderingRows[] = {{"auto", 1}, {"optimizespeed", 2}, {"optimizequality", 3}};
constexpr KeywordSet kColorRendering{kRenderingRows, 1};

constexpr std::int32_t kNoRendering = 0;
constexpr KeywordSet kImageRendering{kRenderingRows, kNoRendering};

constexpr Keyword kShapeRenderingRows[] = {
    {"auto", 1}, {"optimizespeed", 2}, {"crispedges", 3}, {"geometricprecision", 4}};
constexpr KeywordSet kShapeRendering{kShapeRenderingRows, 1};

constexpr Keyword kTextRenderingRows[] = {
    {"auto", 1}, {"optimizespeed", 2}, {"optimizelegibility", 3}, {"geometricprecision", 4}};
constexpr KeywordSet kTextRendering{kTextRenderingRows, 1};

}  // namespace

}  // namespace egfsvg

int CHandlerReader::SetCursorPatt(_svg_pa_graphics* group, _svg_attrib_pair* pair) {
  return egfsvg::setText(&_svg_pa_graphics::cursor, group, pair);
}

int CHandlerReader::SetDisplayPatt(_svg_common* parent, _svg_pa_graphics* group,
                                   _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) return SetInheritedProperty(parent, group, kGroupGraphics, kAttDisplay);
  return setKeyword(&_svg_pa_graphics::display, group, pair, kDisplay);
}

int CHandlerReader::SetVisibilityPatt(_svg_pa_graphics* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_graphics::visibility, group, pair, egfsvg::kVisibility);
}

int CHandlerReader::SetClipPathPatt(_svg_common* parent, _svg_pa_graphics* group,
                                    _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) return SetInheritedProperty(parent, group, kGroupGraphics, kAttClipPath);
  return setText(&_svg_pa_graphics::clipPath, group, pair);
}

int CHandlerReader::SetClipRulePatt(_svg_pa_graphics* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_graphics::clipRule, group, pair, egfsvg::kClipRule);
}

int CHandlerReader::SetMaskPatt(_svg_common* parent, _svg_pa_graphics* group,
                                _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) return SetInheritedProperty(parent, group, kGroupGraphics, kAttMask);
  return setText(&_svg_pa_graphics::mask, group, pair);
}

int CHandlerReader::SetOpacityPatt(_svg_common* parent, _svg_pa_graphics* group,
                                   _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) return SetInheritedProperty(parent, group, kGroupGraphics, kAttOpacity);
  return setNumber(&_svg_pa_graphics::opacity, group, pair);
}

// Nothing fills the two fields, so there is nothing to inherit either.
int CHandlerReader::SetEnableBackgroundPatt(_svg_common*, _svg_pa_containers*, _svg_attrib_pair*) {
  return 0;
}

int CHandlerReader::SetFilterPatt(_svg_common*, _svg_pa_graphics*, _svg_attrib_pair*) { return 0; }

int CHandlerReader::SetPointerEventsPatt(_svg_pa_graphics* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_graphics::pointerEvents, group, pair, egfsvg::kPointerEvents);
}

int CHandlerReader::SetColorInterpolationPatt(_svg_pa_graphics* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_graphics::colorInterpolation, group, pair,
                            egfsvg::kColorInterpolation);
}

int CHandlerReader::SetColorRenderingPatt(_svg_pa_graphics* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_graphics::colorRendering, group, pair,
                            egfsvg::kColorRendering);
}

// Kept: an unknown word goes to colorRendering, and imageRendering keeps its value.
int CHandlerReader::SetImageRenderingPatt(_svg_pa_graphics* group, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (group == nullptr || !hasValue(pair) || isInherit(pair)) return 0;
  const std::int32_t code = kImageRendering.codeOf(FoldedWord(pair->value));
  if (code == kNoRendering) {
    group->colorRendering = kColorRendering.otherwise;
  } else {
    group->imageRendering = code;
  }
  return 0;
}

int CHandlerReader::SetShapeRenderingPatt(_svg_pa_graphics* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_graphics::shapeRendering, group, pair,
                            egfsvg::kShapeRendering);
}

int CHandlerReader::SetTextRenderingPatt(_svg_pa_graphics* group, _svg_attrib_pair* pair) {
  return egfsvg::setKeyword(&_svg_pa_graphics::textRendering, group, pair, egfsvg::kTextRendering);
}
