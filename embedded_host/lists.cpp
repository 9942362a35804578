#include "host/lists.h"

#include <cstring>

#include "embedded_host/fault.h"
#include "host/memory.h"

namespace {

constexpr std::uint32_t kMostItems = 0x10000000;
constexpr std::uint32_t kItemSize = sizeof(std::uint32_t);

// Room for so many items, with slack for the next calls. False when memory is short.
bool reserve(_lst_items& list, std::uint32_t count) {
  if (count <= list.allocated) return true;
  auto* const items =
      static_cast<std::uint32_t*>(RMM_ReAllocName(list.items.get(), count, kItemSize, RMM_SITE));
  if (items == nullptr) return false;
  list.items = items;
  list.allocated = count;
  return true;
}

}  // namespace

int LST_InsertItems(_lst_items* list, std::uint32_t itemSize, std::uint32_t start,
                    std::uint32_t count) {
  if (list == nullptr || itemSize != kItemSize || start > list->count) return -1;
  if (egfhost::faultFails(egfhost::FaultCall::LST_InsertItems)) return -1;
  if (count > kMostItems - list->count || !reserve(*list, list->count + count)) return -1;
  if (count == 0) return 0;
  std::uint32_t* const from = list->items.get() + start;
  std::memmove(from + count, from, std::size_t{list->count - start} * kItemSize);
  std::memset(from, 0, std::size_t{count} * kItemSize);
  list->count += count;
  return 0;
}

int LST_DeleteItems(_lst_items* list, std::uint32_t itemSize, std::uint32_t start,
                    std::uint32_t count) {
  if (list == nullptr || itemSize != kItemSize || start > list->count) return -1;
  if (count > list->count - start) return -1;
  if (count != 0) {
    std::uint32_t* const from = list->items.get() + start;
    std::memmove(from, from + count, std::size_t{list->count - start - count} * kItemSize);
    list->count -= count;
  }
  if (list->count == 0) {
    RMM_Free(list->items.get());
    *list = _lst_items{};
  }
  return 0;
}
