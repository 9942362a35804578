#include "reader/presentation_table.h"

#include "reader/paints.h"

namespace egfsvg {

namespace {

using Reader = CHandlerReader;
using Pair = _svg_attrib_pair;
using Target = PresentationTarget;

struct PresentationRow {
  std::int32_t code;
  GroupCode group;
  InheritWord inherit;
  void (*set)(Reader& reader, const Target& target, void* group, Pair* pair);
};

template <class Group>
void call(Reader& reader, int (Reader::*setter)(Group*, Pair*), const Target&, void* group,
          Pair* pair) {
  (reader.*setter)(static_cast<Group*>(group), pair);
}

template <class Group>
void call(Reader& reader, int (Reader::*setter)(_svg_common*, Group*, Pair*), const Target& target,
          void* group, Pair* pair) {
  (reader.*setter)(target.parent, static_cast<Group*>(group), pair);
}

template <class Group>
constexpr GroupCode groupOf(int (Reader::*)(Group*, Pair*)) {
  return kGroupCodeOf<Group>;
}
template <class Group>
constexpr GroupCode groupOf(int (Reader::*)(_svg_common*, Group*, Pair*)) {
  return kGroupCodeOf<Group>;
}
template <class Group, class Value>
constexpr GroupCode groupOf(Value Group::*) {
  return kGroupCodeOf<Group>;
}

template <class Group>
constexpr InheritWord inheritWordOf(int (Reader::*)(Group*, Pair*)) {
  return InheritWord::kKeeps;
}
template <class Group>
constexpr InheritWord inheritWordOf(int (Reader::*)(_svg_common*, Group*, Pair*)) {
  return InheritWord::kAsksTheParent;
}

/// A property with a setter of its own.
template <auto Setter>
constexpr PresentationRow property(std::int32_t code) {
  return {code, groupOf(Setter), inheritWordOf(Setter),
          [](Reader& reader, const Target& target, void* group, Pair* pair) {
            call(reader, Setter, target, group, pair);
          }};
}

/// A paint, in which "currentColor" stands for the element's colour as it is by now.
template <auto Setter>
constexpr PresentationRow paint(std::int32_t code) {
  return {code, groupOf(Setter), inheritWordOf(Setter),
          [](Reader& reader, const Target& target, void* group, Pair* pair) {
            if (!namesCurrentColor(pair)) return call(reader, Setter, target, group, pair);
            auto* graphics = target.groups->find<_svg_pa_graphics>(target.record);
            CurrentColor value(reader, graphics, pair);
            call(reader, Setter, target, group, value.pair());
          }};
}

template <class Group>
void setMember(Reader& reader, _svg_value Group::*field, void* group, Pair* pair) {
  reader.SetValueAtt(&(static_cast<Group*>(group)->*field), pair);
}
template <class Group>
void setMember(Reader& reader, _svg_angle Group::*field, void* group, Pair* pair) {
  reader.SetAngleAtt(&(static_cast<Group*>(group)->*field), pair);
}

/// A length or an angle. Kept: "inherit" is read as a number and gives 0.
template <auto Field>
constexpr PresentationRow number(std::int32_t code) {
  return {code, groupOf(Field), InheritWord::kIsANumber,
          [](Reader& reader, const Target&, void* group, Pair* pair) {
            setMember(reader, Field, group, pair);
          }};
}

constexpr PresentationRow kRows[] = {
    property<&Reader::SetFontPatt>(kAttFont),
    property<&Reader::SetFontFamilyPatt>(kAttFontFamily),
    number<&_svg_pa_fontspec::fontSize>(kAttFontSize),
    number<&_svg_pa_fontspec::fontSizeAdjust>(kAttFontSizeAdjust),
    property<&Reader::SetFontStretchPatt>(kAttFontStretch),
    property<&Reader::SetFontStylePatt>(kAttFontStyle),
    property<&Reader::SetFontVariantPatt>(kAttFontVariant),
    property<&Reader::SetFontWeightPatt>(kAttFontWeight),
    property<&Reader::SetDirectionPatt>(kAttDirection),
    number<&_svg_pa_textcontentelems::letterSpacing>(kAttLetterSpacing),
    property<&Reader::SetTextDecorationPatt>(kAttTextDecoration),
    property<&Reader::SetUnicodeBidiPatt>(kAttUnicodeBidi),
    number<&_svg_pa_textcontentelems::wordSpacing>(kAttWordSpacing),
    property<&Reader::SetClipPatt>(kAttClip),
    property<&Reader::SetColorPatt>(kAttColor),
    property<&Reader::SetCursorPatt>(kAttCursor),
    property<&Reader::SetDisplayPatt>(kAttDisplay),
    property<&Reader::SetOverflowPatt>(kAttOverflow),
    property<&Reader::SetVisibilityPatt>(kAttVisibility),
    property<&Reader::SetClipPathPatt>(kAttClipPath),
    property<&Reader::SetClipRulePatt>(kAttClipRule),
    property<&Reader::SetMaskPatt>(kAttMask),
    property<&Reader::SetOpacityPatt>(kAttOpacity),
    property<&Reader::SetEnableBackgroundPatt>(kAttEnableBackground),
    property<&Reader::SetFilterPatt>(kAttFilter),
    property<&Reader::SetFloodColorPatt>(kAttFloodColor),
    property<&Reader::SetFloodOpacityPatt>(kAttFloodOpacity),
    property<&Reader::SetLightingColorPatt>(kAttLightingColor),
    property<&Reader::SetStopColorPatt>(kAttStopColor),
    property<&Reader::SetStopOpacityPatt>(kAttStopOpacity),
    property<&Reader::SetPointerEventsPatt>(kAttPointerEvents),
    property<&Reader::SetColorInterpolationPatt>(kAttColorInterpolation),
    property<&Reader::SetColorProfilePatt>(kAttColorProfile),
    property<&Reader::SetColorRenderingPatt>(kAttColorRendering),
    paint<&Reader::SetFillPatt>(kAttFill),
    property<&Reader::SetFillOpacityPatt>(kAttFillOpacity),
    property<&Reader::SetFillRulePatt>(kAttFillRule),
    property<&Reader::SetImageRenderingPatt>(kAttImageRendering),
    property<&Reader::SetMarkerPatt>(kAttMarker),
    property<&Reader::SetMarkerMidPatt>(kAttMarkerMid),
    property<&Reader::SetMarkerStartPatt>(kAttMarkerStart),
    property<&Reader::SetMarkerEndPatt>(kAttMarkerEnd),
    property<&Reader::SetShapeRenderingPatt>(kAttShapeRendering),
    paint<&Reader::SetStrokePatt>(kAttStroke),
    property<&Reader::SetStrokeDasharrayPatt>(kAttStrokeDasharray),
    number<&_svg_pa_stroke::strokeDashOffset>(kAttStrokeDashoffset),
    property<&Reader::SetStrokeLinecapPatt>(kAttStrokeLinecap),
    property<&Reader::SetStrokeLinejoinPatt>(kAttStrokeLinejoin),
    property<&Reader::SetStrokeMiterlimitPatt>(kAttStrokeMiterlimit),
    property<&Reader::SetStrokeOpacityPatt>(kAttStrokeOpacity),
    number<&_svg_pa_stroke::strokeWidth>(kAttStrokeWidth),
    property<&Reader::SetTextRenderingPatt>(kAttTextRendering),
    property<&Reader::SetAlignmentBaselinePatt>(kAttAlignmentBaseline),
    property<&Reader::SetBaselineShiftPatt>(kAttBaselineShift),
    property<&Reader::SetDominantBaselinePatt>(kAttDominantBaseline),
    number<&_svg_pa_textcontentelems::glyphOrientationHorizontal>(kAttGlyphOrientationHorizontal),
    number<&_svg_pa_textcontentelems::glyphOrientationVertical>(kAttGlyphOrientationVertical),
    number<&_svg_pa_textcontentelems::kerning>(kAttKerning),
    property<&Reader::SetTextAnchorPatt>(kAttTextAnchor),
    property<&Reader::SetWritingModePatt>(kAttWritingMode),
};

/// The row of a code stands at the code's own place.
constexpr bool inOrder() {
  std::int32_t code = kFirstPresentation;
  for (const PresentationRow& row : kRows) {
    if (row.code != code++) return false;
  }
  return code == kLastPresentation + 1;
}
static_assert(inOrder());

}  // namespace

InheritWord inheritWordOf(std::int32_t presentationCode) {
  return kRows[presentationCode - kFirstPresentation].inherit;
}

void applyPresentation(CHandlerReader& reader, const PresentationTarget& target, std::int32_t code,
                       _svg_attrib_pair* pair) {
  if (!isPresentation(code)) return;
  const PresentationRow& row = kRows[code - kFirstPresentation];
  void* group = target.groups->find(target.record, row.group);
  if (group != nullptr) row.set(reader, target, group, pair);
}

}  // namespace egfsvg

// Rules have no parent: "inherit" does nothing here.
int CHandlerReader::SetStyleTagPresentationAtt(_svg_style_props* record, int attType,
                                               _svg_attrib_pair* pair) {
  using namespace egfsvg;
  static constexpr GroupOffsets kGroups = GroupOffsets::of<_svg_style_props>();
  if (record != nullptr && pair != nullptr) {
    applyPresentation(*this, {nullptr, record, &kGroups}, attType, pair);
  }
  return 0;
}
