// Host lists of 32-bit items. A zeroed record is an empty list.
#pragma once

#include <cstdint>

#include "host/wire.h"

struct _lst_items {
  std::uint32_t count;
  std::uint32_t allocated;     // host: items that the array has room for
  ref32<std::uint32_t> items;  // null when the list is empty
};

extern "C" {

// Grows the list by count zeroed items before the item number start. 0 on success.
EGFHOST_API int LST_InsertItems(_lst_items* list, std::uint32_t itemSize, std::uint32_t start,
                                std::uint32_t count);

// Removes count items from start on; an emptied list owns no memory. 0 on success.
EGFHOST_API int LST_DeleteItems(_lst_items* list, std::uint32_t itemSize, std::uint32_t start,
                                std::uint32_t count);

}  // extern "C"
