#include "model/transform_list.h"

#include <algorithm>
#include <cstring>

#include "model/rmm_allocator.h"

namespace egfsvg {

namespace {

/// What stands before the functions of a list of one block.
struct ListHead {
  std::int32_t holders;   // records that hold the list
  std::int32_t capacity;  // functions there is room for
  std::int32_t argRoom;   // arguments there is room for, behind the functions
  std::int32_t argCount;  // arguments taken
};
static_assert(sizeof(ListHead) % alignof(transformEntry) == 0);

constexpr std::int32_t kFirstCapacity = 2;
constexpr std::int32_t kFirstArgRoom = 6;  // a matrix, or two other functions

bool isOneBlock(const _svg_common& head) {
  return head.transformCount > 0 && head.transforms[0].storage == kTransformsInOneBlock;
}

ListHead* listOf(transformEntry* entries) { return reinterpret_cast<ListHead*>(entries) - 1; }

transformEntry* entriesOf(ListHead* list) { return reinterpret_cast<transformEntry*>(list + 1); }

_svg_value* argsOf(ListHead* list) {
  return reinterpret_cast<_svg_value*>(entriesOf(list) + list->capacity);
}

ListHead* allocateList(std::int32_t capacity, std::int32_t argRoom) {
  const std::size_t size = sizeof(ListHead) +
                           static_cast<std::size_t>(capacity) * sizeof(transformEntry) +
                           static_cast<std::size_t>(argRoom) * sizeof(_svg_value);
  auto* list = reinterpret_cast<ListHead*>(allocateArray<char>(size, RMM_SITE));
  if (list != nullptr) *list = {1, capacity, argRoom, 0};
  return list;
}

/// Adds a function; there is room for it.
transformEntry* addTo(ListHead* list, std::int32_t position, std::int32_t kind,
                      std::int32_t argCount) {
  transformEntry* entry = entriesOf(list) + position;
  *entry = {kind, argsOf(list) + list->argCount, argCount, kTransformsInOneBlock};
  list->argCount += argCount;
  return entry;
}

std::int32_t argumentsOf(const _svg_common& head) {
  std::int32_t count = 0;
  for (std::int32_t i = 0; i < head.transformCount; ++i) {
    if (head.transforms[i].args != nullptr) count += head.transforms[i].argCount;
  }
  return count;
}

/// The functions and arguments of a list in a new one with room for more; null without memory. A
/// function without arguments stays one.
ListHead* copyWithRoom(const _svg_common& from, std::int32_t capacity, std::int32_t argRoom) {
  ListHead* list = allocateList(capacity, argRoom);
  if (list == nullptr) return nullptr;
  for (std::int32_t i = 0; i < from.transformCount; ++i) {
    const transformEntry& entry = from.transforms[i];
    const bool hasArgs = entry.args != nullptr;
    transformEntry* copy = addTo(list, i, entry.kind, hasArgs ? entry.argCount : 0);
    copy->argCount = entry.argCount;
    if (hasArgs) {
      std::copy_n(entry.args, entry.argCount, copy->args);
    } else {
      copy->args = nullptr;
    }
  }
  return list;
}

/// Whether the record's list can take one more function where it stands.
bool hasRoom(const _svg_common& head, std::int32_t argCount) {
  if (!isOneBlock(head)) return false;
  const ListHead* list = listOf(head.transforms);
  return list->holders == 1 && head.transformCount < list->capacity &&
         argCount <= list->argRoom - list->argCount;
}

/// Gives the record's list a block of its own with more room. False without memory: nothing has
/// changed.
bool makeRoom(_svg_common& head, std::int32_t argCount) {
  if (head.transforms == nullptr) {
    ListHead* const first = allocateList(kFirstCapacity, kFirstArgRoom);
    if (first != nullptr) head.transforms = entriesOf(first);
    return first != nullptr;
  }
  const std::int32_t args = argumentsOf(head);
  ListHead* list = copyWithRoom(head, std::max(kFirstCapacity, 2 * head.transformCount),
                                std::max(kFirstArgRoom, 2 * args + argCount));
  if (list == nullptr) return false;
  const std::int32_t count = head.transformCount;
  releaseTransforms(head);
  head.transforms = entriesOf(list);
  head.transformCount = count;
  return true;
}

}  // namespace

transformEntry* appendTransform(_svg_common* head, std::int32_t kind, std::int32_t argCount) {
  if (head->transformCount >= kMaxTransforms) return nullptr;
  if (!hasRoom(*head, argCount) && !makeRoom(*head, argCount)) return nullptr;
  return addTo(listOf(head->transforms), head->transformCount++, kind, argCount);
}

bool shareTransforms(_svg_common& to, const _svg_common& from) {
  if (!isOneBlock(from)) return copyTransforms(to, from);
  ++listOf(from.transforms)->holders;
  to.transforms = from.transforms;
  to.transformCount = from.transformCount;
  return true;
}

bool copyTransforms(_svg_common& to, const _svg_common& from) {
  ListHead* list = copyWithRoom(from, from.transformCount, argumentsOf(from));
  if (list == nullptr) return false;
  to.transforms = entriesOf(list);
  to.transformCount = from.transformCount;
  return true;
}

void releaseTransforms(_svg_common& head) {
  if (isOneBlock(head)) {
    ListHead* list = listOf(head.transforms);
    if (--list->holders == 0) RMM_Free(list);
  } else if (head.transforms != nullptr) {
    for (std::int32_t i = head.transformCount - 1; i >= 0; --i) freeAll(head.transforms[i].args);
    RMM_Free(head.transforms);
  }
  head.transforms = nullptr;
  head.transformCount = 0;
}

}  // namespace egfsvg
