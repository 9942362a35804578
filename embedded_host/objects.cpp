#include "host/objects.h"

#include <algorithm>

#include "embedded_host/bounds.h"
#include "embedded_host/fault.h"
#include "embedded_host/object_tree.h"
#include "embedded_host/tree_memory.h"
#include "host/egf.h"
#include "host/egf_bits.h"
#include "host/egf_codes.h"
#include "host/memory.h"

namespace {

constexpr std::uint8_t kDrawn = 1;
// The bit of the flags that makes a group a link group, and an object a viewport rectangle.
constexpr int kSpecialFlag = 0x10;
constexpr int kFailed = -1;

constexpr bool isRecordSize(const egfhost::ObjectLayout& layout) {
  return layout.size == 0 || layout.size >= egfhost::kSmallestRecord;
}
static_assert(std::ranges::all_of(egfhost::kLayouts, isRecordSize));

bool isSpecial(int flags) { return (flags & kSpecialFlag) != 0; }

_egf_obj* withHead(void* record, int objClass) {
  auto* const object = static_cast<_egf_obj*>(record);
  object->objClass = objClass;
  object->objAttr = kDrawn;
  object->layoutClass = static_cast<std::uint8_t>(objClass);
  object->layerIndex = egfsvg::kNoLayer;
  return object;
}

// Allocations that are watched, and those for which no room is at hand.
[[gnu::noinline, gnu::cold]] _egf_obj* allocateWithCare(int objClass, const char* file, int line) {
  if (egfhost::faultFails(egfhost::FaultCall::EEL_AllocObject)) return nullptr;
  const egfhost::ObjectLayout* const layout = egfhost::layoutOfClass(objClass);
  if (layout == nullptr) return nullptr;
  void* const record = RMM_CallocName(1, layout->size, file, line);
  return record == nullptr ? nullptr : withHead(record, objClass);
}

inline int append(_egf_obj* parent, _egf_obj* object) {
  if (parent == nullptr || object == nullptr || object->parent) return kFailed;
  if (!egfhost::isContainer(parent)) return kFailed;
  egfhost::linkLast(parent, object);
  if (parent->layoutClass == egfsvg::kClassPath) {
    egfhost::growPath(egfsvg::as<egfsvg::EgfPath>(parent), object, 0);
  }
  return 0;
}

[[gnu::noinline, gnu::cold]] int appendUnderFaults(_egf_obj* parent, _egf_obj* object) {
  if (egfhost::faultFails(egfhost::FaultCall::EEL_AppendObject)) return kFailed;
  return append(parent, object);
}

}  // namespace

extern "C" {

_egf_obj* EEL_AllocObject(int objClass, const char* file, int line) {
  const auto row = static_cast<std::uint32_t>(objClass);
  if (row >= egfhost::kLayoutCount || egfhost::kRecordRooms[row].bytes == 0) [[unlikely]]
    return allocateWithCare(objClass, file, line);
  void* const record = egfhost::recordAtHand(egfhost::kRecordRooms[row], file, line);
  if (record == nullptr) [[unlikely]]
    return allocateWithCare(objClass, file, line);
  return withHead(record, objClass);
}

void EEL_DestroyObject(_egf_obj* object) {
  if (object == nullptr) return;
  egfhost::unlink(object);
  egfhost::freeObject(object);
}

int EEL_AppendObject(_egf_obj* parent, _egf_obj* object) {
  if (egfhost::faultsArmed) [[unlikely]]
    return appendUnderFaults(parent, object);
  return append(parent, object);
}

int EEL_PutObject(_egf_obj* parent, _egf_obj* object, HostHandle map) {
  if (egfhost::faultFails(egfhost::FaultCall::EEL_PutObject)) return kFailed;
  if (parent == nullptr || object == nullptr || !egfhost::isContainer(parent)) return kFailed;
  _egf_obj* copy = egfhost::copyObject(object);
  if (copy == nullptr) return kFailed;
  egfhost::linkLast(parent, copy);
  egfhost::growContainer(parent, copy, map);
  return 0;
}

void EEL_SetGroupFlags(_egf_obj* group, int flags) {
  if (group == nullptr) return;
  group->hostFlags = static_cast<std::uint32_t>(flags);
  if (group->layoutClass != egfsvg::kClassGroup) return;
  auto* record = egfsvg::as<egfsvg::EgfGroup>(group);
  record->linkFlags = egfsvg::LinkBits::with(record->linkFlags, isSpecial(flags) ? 1 : 0);
}

void EEL_SetObjectFlags(_egf_obj* object, int flags) {
  if (object == nullptr) return;
  object->hostFlags = static_cast<std::uint32_t>(flags);
  object->objAttr2 = egfsvg::ViewportBits::with(object->objAttr2, isSpecial(flags) ? 1 : 0);
}

_egf_obj* EEL_GetNextObject(_egf_obj* group, _egf_obj** cursor, int /*mask*/) {
  egfhost::faultPoint(egfhost::FaultCall::EEL_GetNextObject);
  if (cursor == nullptr) return nullptr;
  _egf_obj* child = *cursor != nullptr ? (*cursor)->next.get()
                    : group != nullptr ? egfhost::firstChildOf(group)
                                       : nullptr;
  *cursor = child;
  return child;
}

int EGF_GetObjectClass(const _egf_obj* object) {
  if (object == nullptr) return egfsvg::kClassNone;
  return object->objClass == egfsvg::kClassBox ? egfsvg::kClassPolygon : object->objClass;
}

}  // extern "C"
