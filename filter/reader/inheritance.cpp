// What an element takes over from its parent, at its creation and by the keyword "inherit".

#include <cstring>
#include <span>

#include "model/rmm_allocator.h"
#include "reader/element_layout.h"
#include "reader/group_copies.h"
#include "reader/svg_handlerreader.h"
#include "reader/text_fields.h"

namespace egfsvg {

namespace {

using Reader = CHandlerReader;

/// What a parent that is not found hands down.
constexpr _svg_pa kZeroBlock{};

template <class Record>
const _svg_pa* blockOf(const void* record) {
  return record == nullptr ? &kZeroBlock : &static_cast<const Record*>(record)->pa;
}

/// A gradient hands down two groups.
const _svg_pa* gradientBlock(const _svg_common* record, _svg_pa& scratch) {
  if (record == nullptr) return &kZeroBlock;
  const auto* gradient = reinterpret_cast<const _svg_gradient*>(record);
  scratch = kZeroBlock;
  scratch.graphics = gradient->graphics;
  scratch.gradients = gradient->gradients;
  return &scratch;
}

/// The parent's own block where it has one, so that nothing is copied; else the scratch block. A
/// link and a markup group stand in no table: their own record is meant.
const _svg_pa* parentBlock(Reader& reader, _svg_common* parent, _svg_pa& scratch) {
  switch (parent->type) {
    case kTagSvg:
    case kTagSymbol:
      return blockOf<_svg_svg>(reader._getParentObj(parent));
    case kTagGroup:
    case kTagUse:
      return blockOf<_svg_group>(reader._getParentObj(parent));
    case kTagDefs:
      return blockOf<_svg_defs>(reader._getParentObj(parent));
    case kTagSwitch:
      return blockOf<_svg_switch>(reader._getParentObj(parent));
    case kTagLink:
      return blockOf<_svg_a>(parent);
    case kTagCloud:
    case kTagCrossout:
    case kTagDiamond:
    case kTagAnnotation:
      return blockOf<_svg_group>(parent);
    case kTagLinearGradient:
    case kTagRadialGradient:
      return gradientBlock(reader._getParentObj(parent), scratch);
    default:
      return &kZeroBlock;
  }
}

/// The groups that an element takes over, in the order of copying.
struct HeirRow {
  GroupOffsets groups;
  std::span<const GroupCode> copied;
};

constexpr GroupCode kContainerGroups[] = {kGroupFill,        kGroupStroke,      kGroupGraphics,
                                          kGroupFont,        kGroupImages,      kGroupMarkers,
                                          kGroupTextContent, kGroupTextElements};
constexpr GroupCode kMarkedGroups[] = {kGroupFill, kGroupStroke, kGroupGraphics, kGroupMarkers};
constexpr GroupCode kShapeGroups[] = {kGroupFill, kGroupStroke, kGroupGraphics};
constexpr GroupCode kTextGroups[] = {kGroupFill, kGroupStroke,      kGroupGraphics,
                                     kGroupFont, kGroupTextContent, kGroupTextElements};
constexpr GroupCode kImageGroups[] = {kGroupGraphics, kGroupImages};
constexpr GroupCode kGradientGroups[] = {kGroupGraphics};

template <class Record>
constexpr HeirRow kHeir{GroupOffsets::of<Record>(), kContainerGroups};
template <>
constexpr HeirRow kHeir<_svg_path>{GroupOffsets::of<_svg_path>(), kMarkedGroups};
template <>
constexpr HeirRow kHeir<_svg_line>{GroupOffsets::of<_svg_line>(), kMarkedGroups};
template <>
constexpr HeirRow kHeir<_svg_polyline>{GroupOffsets::of<_svg_polyline>(), kMarkedGroups};
template <>
constexpr HeirRow kHeir<_svg_polygon>{GroupOffsets::of<_svg_polygon>(), kMarkedGroups};
template <>
constexpr HeirRow kHeir<_svg_rect>{GroupOffsets::of<_svg_rect>(), kShapeGroups};
template <>
constexpr HeirRow kHeir<_svg_circle>{GroupOffsets::of<_svg_circle>(), kShapeGroups};
template <>
constexpr HeirRow kHeir<_svg_ellipse>{GroupOffsets::of<_svg_ellipse>(), kShapeGroups};
template <>
constexpr HeirRow kHeir<_svg_text>{GroupOffsets::of<_svg_text>(), kTextGroups};
template <>
constexpr HeirRow kHeir<_svg_image>{GroupOffsets::of<_svg_image>(), kImageGroups};
template <>
constexpr HeirRow kHeir<_svg_gradient>{GroupOffsets::of<_svg_gradient>(), kGradientGroups};
template <>
constexpr HeirRow kHeir<_svg_stop>{GroupOffsets::of<_svg_stop>(), kGradientGroups};

const HeirRow* heirOf(int type) {
  switch (type) {
    case kTagSvg:
    case kTagSymbol:
      return &kHeir<_svg_svg>;
    case kTagGroup:
    case kTagUse:
    case kTagCloud:
    case kTagCrossout:
    case kTagDiamond:
    case kTagAnnotation:
      return &kHeir<_svg_group>;
    case kTagDefs:
      return &kHeir<_svg_defs>;
    case kTagLink:
      return &kHeir<_svg_a>;
    case kTagSwitch:
      return &kHeir<_svg_switch>;
    case kTagPath:
      return &kHeir<_svg_path>;
    case kTagRect:
      return &kHeir<_svg_rect>;
    case kTagCircle:
      return &kHeir<_svg_circle>;
    case kTagEllipse:
      return &kHeir<_svg_ellipse>;
    case kTagLine:
      return &kHeir<_svg_line>;
    case kTagPolyline:
      return &kHeir<_svg_polyline>;
    case kTagPolygon:
      return &kHeir<_svg_polygon>;
    case kTagText:
      return &kHeir<_svg_text>;
    case kTagImage:
      return &kHeir<_svg_image>;
    case kTagLinearGradient:
    case kTagRadialGradient:
      return &kHeir<_svg_gradient>;
    case kTagStop:
      return &kHeir<_svg_stop>;
    default:
      return nullptr;
  }
}

/// Copies what one "inherit" asks for.
struct InheritRow {
  GroupCode group;
  std::int32_t code;  // kAnyCode: whatever the property
  void (*copy)(const _svg_pa& source, void* group);
};
constexpr std::int32_t kAnyCode = 0;

template <class Group>
const Group& memberOf(const _svg_pa& pa) {
  static constexpr GroupOffsets kOffsets = GroupOffsets::of<_svg_pa>();
  return *kOffsets.find<Group>(const_cast<_svg_pa*>(&pa));
}

template <class Group, class Value>
void copyMember(Value Group::*field, const _svg_pa& source, void* group) {
  static_cast<Group*>(group)->*field = memberOf<Group>(source).*field;
}
template <class Group>
void copyMember(char* Group::*field, const _svg_pa& source, void* group) {
  const char* text = memberOf<Group>(source).*field;
  if (text != nullptr) inheritText(static_cast<Group*>(group)->*field, text);
}

template <class Group, class Value>
constexpr GroupCode groupOf(Value Group::*) {
  return kGroupCodeOf<Group>;
}

template <auto Field>
constexpr InheritRow inherits(std::int32_t code) {
  return {groupOf(Field), code,
          [](const _svg_pa& source, void* group) { copyMember(Field, source, group); }};
}

void copyClipRect(const _svg_pa& source, void* group) {
  std::memcpy(static_cast<_svg_pa_viewports*>(group)->clipRect, source.viewports.clipRect,
              sizeof source.viewports.clipRect);
}

constexpr InheritRow kInherits[] = {
    inherits<&_svg_pa_graphics::display>(kAttDisplay),
    inherits<&_svg_pa_graphics::clipPath>(kAttClipPath),
    inherits<&_svg_pa_graphics::mask>(kAttMask),
    inherits<&_svg_pa_graphics::opacity>(kAttOpacity),
    inherits<&_svg_pa_graphics::filter>(kAttFilter),
    inherits<&_svg_pa_containers::enableBackground>(kAnyCode),
    inherits<&_svg_pa_feflood::floodColor>(kAttFloodColor),
    inherits<&_svg_pa_feflood::floodOpacity>(kAttFloodOpacity),
    inherits<&_svg_pa_gradients::stopColor>(kAttStopColor),
    inherits<&_svg_pa_gradients::stopOpacity>(kAttStopOpacity),
    inherits<&_svg_pa_lighting::lightingColor>(kAnyCode),
    inherits<&_svg_pa_textcontentelems::textDecoration>(kAttTextDecoration),
    inherits<&_svg_pa_textcontentelems::unicodeBidi>(kAttUnicodeBidi),
    inherits<&_svg_pa_textcontentelems::alignmentBaseline>(kAttAlignmentBaseline),
    inherits<&_svg_pa_textcontentelems::baselineShift>(kAttBaselineShift),
    inherits<&_svg_pa_textelems::dominantBaseline>(kAnyCode),
    {kGroupViewports, kAttClip, copyClipRect},
    inherits<&_svg_pa_viewports::overflow>(kAttOverflow),
};

}  // namespace

}  // namespace egfsvg

int CHandlerReader::InheritStyleAndTransform(void* element, int type) {
  using namespace egfsvg;
  auto* head = static_cast<_svg_common*>(element);
  if (head == nullptr) return -1;
  if (head->parent == nullptr) return 0;
  const HeirRow* heir = heirOf(type);
  if (heir == nullptr) return 0;
  _svg_pa scratch;
  const _svg_pa* source = parentBlock(*this, head->parent, scratch);
  for (const GroupCode code : heir->copied) {
    copyGroup(*source, heir->groups.find(element, code), code);
  }
  if (type == kTagPath) static_cast<_svg_path*>(element)->pathFlag = 1;
  CopyOwnerTransformList(head);
  return 0;
}

int CHandlerReader::CopyLocalStyle(_svg_pa& source, void* group, int groupCode) {
  if (group == nullptr) return -1;
  egfsvg::copyGroup(source, group, groupCode);
  return 0;
}

int CHandlerReader::SetInheritedProperty(_svg_common* parent, void* group, int groupCode,
                                         int attCode) {
  using namespace egfsvg;
  if (parent == nullptr || group == nullptr) return 0;
  _svg_pa scratch;
  const _svg_pa* source = parentBlock(*this, parent, scratch);
  for (const InheritRow& row : kInherits) {
    if (row.group != groupCode || (row.code != kAnyCode && row.code != attCode)) continue;
    row.copy(*source, group);
    return 0;
  }
  return 0;
}

// The block's texts and arrays stay the parent's.
int CHandlerReader::_getParentPA(_svg_common* parent, _svg_pa** result) {
  using namespace egfsvg;
  if (result == nullptr) return -1;
  *result = allocateZeroed<_svg_pa>(RMM_SITE);
  if (*result == nullptr) return -1;
  _svg_pa scratch;
  if (parent != nullptr) **result = *parentBlock(*this, parent, scratch);
  return 0;
}
