// What an element takes over from its parent, at its creation and by the keyword "inherit".

#include <cstring>

#include "model/rmm_allocator.h"
#include "reader/element_layout.h"
#include "reader/group_copies.h"
#include "reader/shape_inheritance.h"
#include "reader/svg_handlerreader.h"

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

/// Takes over the groups that a record has, of those that go down. Containers keep theirs in one
/// block.
template <class Groups>
void inheritGroups(Groups& to, const _svg_pa& from) {
  if constexpr (requires { to.fill; }) inheritGroup(to.fill, from.fill);
  if constexpr (requires { to.stroke; }) inheritGroup(to.stroke, from.stroke);
  if constexpr (requires { to.graphics; }) inheritGroup(to.graphics, from.graphics);
  if constexpr (requires { to.fontspec; }) inheritGroup(to.fontspec, from.fontspec);
  if constexpr (requires { to.images; }) inheritGroup(to.images, from.images);
  if constexpr (requires { to.markers; }) inheritGroup(to.markers, from.markers);
  if constexpr (requires { to.textcontentelems; }) {
    inheritGroup(to.textcontentelems, from.textcontentelems);
  }
  if constexpr (requires { to.textelems; }) inheritGroup(to.textelems, from.textelems);
}

template <class Record>
bool inherit(void* element, const _svg_pa& from) {
  auto& to = *static_cast<Record*>(element);
  if constexpr (requires { to.pa; }) {
    inheritGroups(to.pa, from);
  } else {
    inheritGroups(to, from);
  }
  return true;
}

bool inheritPath(void* element, const _svg_pa& from) {
  static_cast<_svg_path*>(element)->pathFlag = 1;
  return inherit<_svg_path>(element, from);
}

/// False for a type that takes nothing over.
bool inheritByType(void* element, int type, const _svg_pa& from) {
  switch (type) {
    case kTagSvg:
    case kTagSymbol:
      return inherit<_svg_svg>(element, from);
    case kTagGroup:
    case kTagUse:
    case kTagCloud:
    case kTagCrossout:
    case kTagDiamond:
    case kTagAnnotation:
      return inherit<_svg_group>(element, from);
    case kTagDefs:
      return inherit<_svg_defs>(element, from);
    case kTagLink:
      return inherit<_svg_a>(element, from);
    case kTagSwitch:
      return inherit<_svg_switch>(element, from);
    case kTagPath:
      return inheritPath(element, from);
    case kTagRect:
      return inherit<_svg_rect>(element, from);
    case kTagCircle:
      return inherit<_svg_circle>(element, from);
    case kTagEllipse:
      return inherit<_svg_ellipse>(element, from);
    case kTagLine:
      return inherit<_svg_line>(element, from);
    case kTagPolyline:
      return inherit<_svg_polyline>(element, from);
    case kTagPolygon:
      return inherit<_svg_polygon>(element, from);
    case kTagText:
      return inherit<_svg_text>(element, from);
    case kTagImage:
      return inherit<_svg_image>(element, from);
    case kTagLinearGradient:
    case kTagRadialGradient:
      return inherit<_svg_gradient>(element, from);
    case kTagStop:
      return inherit<_svg_stop>(element, from);
    default:
      return false;
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
  const _svg_pa* const open = blockOfOpen(*this, *head->parent);
  if (open != nullptr && type == kTagGroup) {
    inherit<_svg_group>(element, *open);
  } else {
    _svg_pa scratch;
    if (!inheritByType(element, type, *parentBlock(*this, head->parent, scratch))) return 0;
  }
  if (head->parent->transforms != nullptr) CopyOwnerTransformList(head);
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
