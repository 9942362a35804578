// Colour lists. A list and its colour array are two blocks of the host's allocator: RMM_Free on
// both (the array first) ends a list.
#pragma once

#include <cstddef>
#include <cstdint>

#include "host/wire.h"

struct _sel_RGB_type;

struct _sel_colour_list {
  std::uint32_t count;           // colours in use
  std::uint32_t capacity;        // the most it may hold; no memory is taken for it beforehand
  ref32<_sel_RGB_type> colours;  // null until the first colour
  std::uint32_t allocated;       // host: colours that the array has room for
};
static_assert(offsetof(_sel_colour_list, count) == 0);
static_assert(offsetof(_sel_colour_list, capacity) == 4);
static_assert(offsetof(_sel_colour_list, colours) == 8);

inline constexpr std::uint32_t kDocumentPaletteCapacity = 0x1000000;
inline constexpr std::uint32_t kImagePaletteCapacity = 256;

extern "C" {

// A new empty list, null on failure.
EGFHOST_API _sel_colour_list* SEL_CLOR_Alloc(std::uint32_t capacity, const char* file, int line);

// Adds a colour unless the list has it. 0 when the list holds the colour afterwards.
EGFHOST_API int SEL_CLOR_AddColour(_sel_colour_list* list, _sel_RGB_type colour);

// Merges *list and other, in that order, into a new list of at most capacity colours and stores it
// in *list. Both old lists stay the caller's to free. 0 on success; on failure *list is unchanged.
EGFHOST_API int SEL_CLOR_Combine(_sel_colour_list** list, const _sel_colour_list* other,
                                 std::uint32_t capacity);

// A copy of a list, null on failure or of null.
EGFHOST_API _sel_colour_list* SEL_CLOR_Copy(const _sel_colour_list* list, const char* file,
                                            int line);
EGFHOST_API _sel_colour_list* SEL_CLOR_Duplicate(const _sel_colour_list* list, const char* file,
                                                 int line);

}  // extern "C"
