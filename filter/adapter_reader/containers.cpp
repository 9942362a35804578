#include "adapter_reader/containers.h"

#include <cstring>

#include "adapter_reader/group_stack.h"
#include "adapter_reader/owners.h"
#include "adapter_reader/point_arrays.h"
#include "adapter_reader/svg_adapterreader.h"
#include "frame/result_codes.h"
#include "host/egf_bits.h"
#include "host/egf_codes.h"
#include "host/platform_text.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

constexpr const char* kDefaultViewport = "defaultInitialViewPort";
constexpr const char* kSetViewport = "setInitialViewPort";
constexpr unsigned kViewportAttached = 1;

/// The last class of the element, or null.
const char* lastClass(const _svg_common& head) {
  return head.classNames == nullptr || head.classCount < 1 ? nullptr
                                                           : head.classNames[head.classCount - 1];
}

/// Names the page's group after what sizes its viewport. The name is a block of one class slot.
bool nameRoot(EgfGroup* group, const char* name) {
  auto* block =
      static_cast<char*>(RMM_CallocName(static_cast<std::size_t>(kClassNameSize), 1, RMM_SITE));
  if (block == nullptr) return false;
  std::memcpy(block, name, strnlen(name, kClassNameSize - 1));
  RMM_Free(group->groupName.get());
  group->groupName = block;
  return true;
}

/// A group without a name takes the element's id.
bool nameById(EgfGroup* group, const char* id) {
  if (id == nullptr || group->groupName) return true;
  group->groupName = duplicateText(id, RMM_SITE);
  return static_cast<bool>(group->groupName);
}

bool isDefaultViewport(const _svg_common& head) {
  const char* name = lastClass(head);
  return name != nullptr && _wu_stricmp(name, kDefaultViewport) == 0;
}

/// A viewport without a rectangle is dropped.
void attachViewport(CAdapterReader& adapter, _svg_svg& element, bool isDefault, EgfGroup* group) {
  if (element.viewBox == nullptr) return;
  ObjectOwner viewport(adapter.SVG_ViewPortCreate(&element, isDefault ? 1 : 0));
  if (!viewport) return;
  if (element.head.parent != nullptr) EEL_SetObjectFlags(viewport.get(), kObjectViewport);
  if (!appendWithMer(headOf(group), viewport.get(), adapter.map)) return;
  (void)viewport.release();
  group->groupFlags = GroupViewportBits::with(group->groupFlags, kViewportAttached);
}

/// Name, viewport and place on the stack. False, with the fault logged, when memory ran out.
bool setUpSvg(CAdapterReader& adapter, _svg_svg& element, _egf_obj* object) {
  const bool outermost = element.head.parent == nullptr;
  const bool isDefault = outermost && isDefaultViewport(element.head);
  auto* group = as<EgfGroup>(object);
  const bool named =
      group == nullptr ||
      ((!outermost || nameRoot(group, isDefault ? lastClass(element.head) : kSetViewport)) &&
       nameById(group, element.head.id));
  if (!named) {
    logOutOfMemory(RMM_SITE);
    return false;
  }
  if (group != nullptr) attachViewport(adapter, element, isDefault, group);
  return pushGroup(adapter, object);
}

}  // namespace

/// The outermost svg is the page's own group; a nested one makes a group of its own.
int openSvg(CAdapterReader& adapter, _handlerObject& object) {
  _svg_svg& element = *object.payload<_svg_svg>();
  if (element.head.parent == nullptr) {
    return setUpSvg(adapter, element, adapter.rootGroup) ? kGoOn : kStopQuietly;
  }
  if (openGroups.currentNode == nullptr) {
    return adapter._logError(adapter.silent, kMessageNoOpenContainer);
  }
  ObjectOwner group(allocateObject(kClassGroup, RMM_SITE));
  if (!group) return kStopQuietly;
  EEL_SetGroupFlags(group.get(), kGroupNestedSvg);
  if (!setUpSvg(adapter, element, group.get())) return kStopQuietly;
  (void)group.release();
  return kGoOn;
}

/// A group that cannot be made still counts, so that its end is met; its content is dropped.
int openGroup(CAdapterReader& adapter, _handlerObject&) {
  if (openGroups.currentNode == nullptr) return adapter._logError(1, kMessageNoOpenContainer);
  ObjectOwner group(allocateObject(kClassGroup, RMM_SITE));
  if (group) EEL_SetGroupFlags(group.get(), kGroupPlain);
  if (!pushGroup(adapter, group.get())) return kStopQuietly;
  (void)group.release();
  return kGoOn;
}

int closeContainer(CAdapterReader& adapter, _handlerObject&) { return closeGroup(adapter); }

}  // namespace egfsvg
