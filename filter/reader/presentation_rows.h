// The presentation properties by their shared codes: one row each, from which the elements take
// those that they accept.
#pragma once

#include "reader/attribute_action.h"
#include "reader/paints.h"
#include "reader/presentation_table.h"

namespace egfsvg {

struct PresentationRow {
  std::int32_t code;
  GroupCode group;
  InheritWord inherit;
  AttributeAction set;
  std::size_t offset = 0;  // of what it sets, in the group
};

namespace detail {

template <class Group>
using GroupSetter = int (CHandlerReader::*)(Group*, _svg_attrib_pair*);
template <class Group>
using AskingSetter = int (CHandlerReader::*)(_svg_common*, Group*, _svg_attrib_pair*);

template <class Group>
void callSetter(CHandlerReader& reader, GroupSetter<Group> setter, const ElementTarget&,
                void* group, _svg_attrib_pair* pair) {
  (reader.*setter)(static_cast<Group*>(group), pair);
}
template <class Group>
void callSetter(CHandlerReader& reader, AskingSetter<Group> setter, const ElementTarget& target,
                void* group, _svg_attrib_pair* pair) {
  (reader.*setter)(target.parent(), static_cast<Group*>(group), pair);
}

template <class Group>
constexpr GroupCode groupOf(GroupSetter<Group>) {
  return kGroupCodeOf<Group>;
}
template <class Group>
constexpr GroupCode groupOf(AskingSetter<Group>) {
  return kGroupCodeOf<Group>;
}

template <class Group>
constexpr InheritWord wordOf(GroupSetter<Group>) {
  return InheritWord::kKeeps;
}
template <class Group>
constexpr InheritWord wordOf(AskingSetter<Group>) {
  return InheritWord::kAsksTheParent;
}

template <auto Setter>
void setProperty(CHandlerReader& reader, void* group, _svg_attrib_pair* pair,
                 const ElementTarget& target) {
  callSetter(reader, Setter, target, group, pair);
}

/// "currentColor" stands for the element's colour as it is by now.
template <auto Setter>
void setPaint(CHandlerReader& reader, void* group, _svg_attrib_pair* pair,
              const ElementTarget& target) {
  if (!namesCurrentColor(pair)) return callSetter(reader, Setter, target, group, pair);
  auto* graphics = target.groups->find<_svg_pa_graphics>(target.record);
  CurrentColor value(reader, graphics, pair);
  callSetter(reader, Setter, target, group, value.pair());
}

/// A property with a setter of its own.
template <auto Setter>
constexpr PresentationRow property(std::int32_t code) {
  return {code, groupOf(Setter), wordOf(Setter), setProperty<Setter>};
}

template <auto Setter>
constexpr PresentationRow paint(std::int32_t code) {
  return {code, groupOf(Setter), wordOf(Setter), setPaint<Setter>};
}

/// A length or an angle.
constexpr PresentationRow number(std::int32_t code, GroupCode group, AttributeAction set,
                                 std::size_t offset) {
  return {code, group, InheritWord::kIsANumber, set, offset};
}

}  // namespace detail

inline constexpr PresentationRow kPresentationRows[] = {
    detail::property<&CHandlerReader::SetFontPatt>(kAttFont),
    detail::property<&CHandlerReader::SetFontFamilyPatt>(kAttFontFamily),
    detail::number(kAttFontSize, kGroupCodeOf<_svg_pa_fontspec>, setLength,
                   offsetof(_svg_pa_fontspec, fontSize)),
    detail::number(kAttFontSizeAdjust, kGroupCodeOf<_svg_pa_fontspec>, setLength,
                   offsetof(_svg_pa_fontspec, fontSizeAdjust)),
    detail::property<&CHandlerReader::SetFontStretchPatt>(kAttFontStretch),
    detail::property<&CHandlerReader::SetFontStylePatt>(kAttFontStyle),
    detail::property<&CHandlerReader::SetFontVariantPatt>(kAttFontVariant),
    detail::property<&CHandlerReader::SetFontWeightPatt>(kAttFontWeight),
    detail::property<&CHandlerReader::SetDirectionPatt>(kAttDirection),
    detail::number(kAttLetterSpacing, kGroupCodeOf<_svg_pa_textcontentelems>, setLength,
                   offsetof(_svg_pa_textcontentelems, letterSpacing)),
    detail::property<&CHandlerReader::SetTextDecorationPatt>(kAttTextDecoration),
    detail::property<&CHandlerReader::SetUnicodeBidiPatt>(kAttUnicodeBidi),
    detail::number(kAttWordSpacing, kGroupCodeOf<_svg_pa_textcontentelems>, setLength,
                   offsetof(_svg_pa_textcontentelems, wordSpacing)),
    detail::property<&CHandlerReader::SetClipPatt>(kAttClip),
    detail::property<&CHandlerReader::SetColorPatt>(kAttColor),
    detail::property<&CHandlerReader::SetCursorPatt>(kAttCursor),
    detail::property<&CHandlerReader::SetDisplayPatt>(kAttDisplay),
    detail::property<&CHandlerReader::SetOverflowPatt>(kAttOverflow),
    detail::property<&CHandlerReader::SetVisibilityPatt>(kAttVisibility),
    detail::property<&CHandlerReader::SetClipPathPatt>(kAttClipPath),
    detail::property<&CHandlerReader::SetClipRulePatt>(kAttClipRule),
    detail::property<&CHandlerReader::SetMaskPatt>(kAttMask),
    detail::property<&CHandlerReader::SetOpacityPatt>(kAttOpacity),
    detail::property<&CHandlerReader::SetEnableBackgroundPatt>(kAttEnableBackground),
    detail::property<&CHandlerReader::SetFilterPatt>(kAttFilter),
    detail::property<&CHandlerReader::SetFloodColorPatt>(kAttFloodColor),
    detail::property<&CHandlerReader::SetFloodOpacityPatt>(kAttFloodOpacity),
    detail::property<&CHandlerReader::SetLightingColorPatt>(kAttLightingColor),
    detail::property<&CHandlerReader::SetStopColorPatt>(kAttStopColor),
    detail::property<&CHandlerReader::SetStopOpacityPatt>(kAttStopOpacity),
    detail::property<&CHandlerReader::SetPointerEventsPatt>(kAttPointerEvents),
    detail::property<&CHandlerReader::SetColorInterpolationPatt>(kAttColorInterpolation),
    detail::property<&CHandlerReader::SetColorProfilePatt>(kAttColorProfile),
    detail::property<&CHandlerReader::SetColorRenderingPatt>(kAttColorRendering),
    detail::paint<&CHandlerReader::SetFillPatt>(kAttFill),
    detail::property<&CHandlerReader::SetFillOpacityPatt>(kAttFillOpacity),
    detail::property<&CHandlerReader::SetFillRulePatt>(kAttFillRule),
    detail::property<&CHandlerReader::SetImageRenderingPatt>(kAttImageRendering),
    detail::property<&CHandlerReader::SetMarkerPatt>(kAttMarker),
    detail::property<&CHandlerReader::SetMarkerMidPatt>(kAttMarkerMid),
    detail::property<&CHandlerReader::SetMarkerStartPatt>(kAttMarkerStart),
    detail::property<&CHandlerReader::SetMarkerEndPatt>(kAttMarkerEnd),
    detail::property<&CHandlerReader::SetShapeRenderingPatt>(kAttShapeRendering),
    detail::paint<&CHandlerReader::SetStrokePatt>(kAttStroke),
    detail::property<&CHandlerReader::SetStrokeDasharrayPatt>(kAttStrokeDasharray),
    detail::number(kAttStrokeDashoffset, kGroupCodeOf<_svg_pa_stroke>, setLength,
                   offsetof(_svg_pa_stroke, strokeDashOffset)),
    detail::property<&CHandlerReader::SetStrokeLinecapPatt>(kAttStrokeLinecap),
    detail::property<&CHandlerReader::SetStrokeLinejoinPatt>(kAttStrokeLinejoin),
    detail::property<&CHandlerReader::SetStrokeMiterlimitPatt>(kAttStrokeMiterlimit),
    detail::property<&CHandlerReader::SetStrokeOpacityPatt>(kAttStrokeOpacity),
    detail::number(kAttStrokeWidth, kGroupCodeOf<_svg_pa_stroke>, setLength,
                   offsetof(_svg_pa_stroke, strokeWidth)),
    detail::property<&CHandlerReader::SetTextRenderingPatt>(kAttTextRendering),
    detail::property<&CHandlerReader::SetAlignmentBaselinePatt>(kAttAlignmentBaseline),
    detail::property<&CHandlerReader::SetBaselineShiftPatt>(kAttBaselineShift),
    detail::property<&CHandlerReader::SetDominantBaselinePatt>(kAttDominantBaseline),
    detail::number(kAttGlyphOrientationHorizontal, kGroupCodeOf<_svg_pa_textcontentelems>, setAngle,
                   offsetof(_svg_pa_textcontentelems, glyphOrientationHorizontal)),
    detail::number(kAttGlyphOrientationVertical, kGroupCodeOf<_svg_pa_textcontentelems>, setAngle,
                   offsetof(_svg_pa_textcontentelems, glyphOrientationVertical)),
    detail::number(kAttKerning, kGroupCodeOf<_svg_pa_textcontentelems>, setLength,
                   offsetof(_svg_pa_textcontentelems, kerning)),
    detail::property<&CHandlerReader::SetTextAnchorPatt>(kAttTextAnchor),
    detail::property<&CHandlerReader::SetWritingModePatt>(kAttWritingMode),
};

/// The row of a code stands at the code's own place.
constexpr bool presentationRowsAreInOrder() {
  std::int32_t code = kFirstPresentation;
  for (const PresentationRow& row : kPresentationRows) {
    if (row.code != code++) return false;
  }
  return code == kLastPresentation + 1;
}
static_assert(presentationRowsAreInOrder());

constexpr const PresentationRow& presentationRow(std::int32_t code) {
  return kPresentationRows[code - kFirstPresentation];
}

}  // namespace egfsvg
