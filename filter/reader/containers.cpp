// Which container is open, the table record behind an element, and the transform list that a child
// takes over.
#include "model/rmm_allocator.h"
#include "model/transform_list.h"
#include "reader/reference_key.h"
#include "reader/release.h"
#include "reader/svg_handlerreader.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

constexpr bool isMarkup(int type) { return type >= kTagCloud && type <= kTagAnnotation; }

/// Types that own what stands in them.
bool isContainer(int type) {
  switch (type) {
    case kTagSvg:
    case kTagGroup:
    case kTagLink:
    case kTagUse:
    case kTagSymbol:
    case kTagSwitch:
      return true;
    default:
      return isMarkup(type);
  }
}

/// Depths are bounded by the nesting limit; beyond this number of records none is asked for again.
constexpr std::int32_t kKeptViewports = 1 << 16;

/// The head of the record at an index that its counter covers, or null.
template <class Value>
_svg_common* headAt(const Map<Value>& table, std::int32_t index, std::int32_t counter) {
  Value* value = index < counter ? table.at(index) : nullptr;
  return value == nullptr ? nullptr : &value->head;
}

}  // namespace

_svg_container* CHandlerReader::_initContainer(_svg_container** slot) {
  if (*slot == nullptr) *slot = allocateRecord<_svg_container>(RMM_SITE);
  if (*slot == nullptr) {
    state.outOfMemory = true;
  } else {
    **slot = {};
  }
  return *slot;
}

void CHandlerReader::_setContainerElem(_svg_container** slot, _svg_common* element, int type) {
  _svg_container* open = _initContainer(slot);
  if (open == nullptr || element == nullptr) return;
  if (isContainer(type)) {
    *open = {element, element};
    return;
  }
  _svg_common* record = _getParentObj(element);
  // A record outside the tables stands for itself, so that its children find it.
  if (record == nullptr && isContainer(element->type)) record = element;
  if (record != nullptr && isContainer(element->type)) *open = {record, record};
}

_svg_common* CHandlerReader::_getContainerElem(_svg_common* element) {
  if (element == nullptr || !isContainer(element->type)) return nullptr;
  // Links and markup groups stand in no table: they are their own record, whatever was opened
  // since.
  if (element->type == kTagLink || isMarkup(element->type)) return element;
  return container != nullptr && container->current == element ? container->owner : nullptr;
}

_svg_common* CHandlerReader::_getParentObj(_svg_common* element) {
  if (element == nullptr) return nullptr;
  switch (element->type) {
    case kTagSvg:
    case kTagSymbol:
      return headAt(svgs, element->index, svgCount);
    case kTagSwitch:
      return headAt(switches, element->index, switchCount);
    case kTagLinearGradient:
    case kTagRadialGradient:
      return gradientOf(element);
    case kTagGroup:
    case kTagUse:
      return headAt(groups, element->index, groupCount);
    default:
      return isMarkup(element->type) ? headAt(groups, element->index, groupCount) : nullptr;
  }
}

_svg_common* CHandlerReader::gradientOf(const _svg_common* element) {
  if (element->id == nullptr) return nullptr;
  const ReferenceKey key(element->id);
  _svg_gradient* gradient = key.text() == nullptr ? nullptr : gradients.find(key.text());
  return gradient == nullptr ? nullptr : &gradient->head;
}

_svg_common* CHandlerReader::leaveContainer(_svg_common* element) {
  const int type = element->type;
  const bool counted = type == kTagSvg || type == kTagSymbol || type == kTagGroup;
  if (counted && state.nesting > 0) --state.nesting;
  return element->parent;
}

/// A viewport's record is looked up again by its depth after it has closed, so the first ones stay.
_svg_common* CHandlerReader::closeContainer(_svg_common* element) {
  _svg_common* parent = leaveContainer(element);
  if (container != nullptr && container->current == element) *container = {};
  const auto index = element->index;
  if (isMarkup(element->type)) {
    release(reinterpret_cast<_svg_group*>(element));
  } else if (headAt(groups, index, groupCount) == element) {
    _svg_group*& group = groups.entries[index].value;
    empty(group);
    state.groups.giveBack({reinterpret_cast<char*>(group), sizeof *group});
    group = nullptr;
  } else if (index >= kKeptViewports && headAt(svgs, index, svgCount) == element) {
    release(svgs.entries[index].value);
    svgs.entries[index].value = nullptr;
  }
  return parent;
}

void CHandlerReader::CopyOwnerTransformList(_svg_common* element) {
  if (element != nullptr && element->parent != nullptr) CopyTransformList(element, element->parent);
}

/// The records hold one list together. A gradient may change its own later.
void CHandlerReader::CopyTransformList(_svg_common* to, const _svg_common* from) {
  if (to == nullptr || from == nullptr || to->transforms != nullptr) return;
  if (from->transforms == nullptr || from->transformCount <= 0) return;
  const bool changesIt = to->type == kTagLinearGradient || to->type == kTagRadialGradient;
  if (!(changesIt ? copyTransforms(*to, *from) : shareTransforms(*to, *from))) {
    state.outOfMemory = true;
  }
}
