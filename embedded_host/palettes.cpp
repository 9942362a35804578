#include "host/palettes.h"

#include <cstring>

#include "embedded_host/fault.h"
#include "host/egf_small.h"
#include "host/memory.h"

// The colour array's block holds `allocated` colours and behind them a hash index of twice as many
// slots, so that freeing the block frees the index too. An index slot holds a place in the array
// plus 1.

namespace egfhost {

namespace {

constexpr std::uint32_t kFirstColours = 16;
constexpr std::uint32_t kSlotsPerColour = 2;
constexpr std::size_t kWordsPerColour = 1 + kSlotsPerColour;
constexpr std::size_t kWord = sizeof(std::uint32_t);

// The words of a list's block, seen as colours and index.
struct ColourIndex {
  std::uint32_t* colours;
  std::uint32_t* slots;
  std::uint32_t mask;
};

ColourIndex indexOf(const _sel_colour_list& list) {
  auto* const words = egfsvg::at<std::uint32_t>(list.colours.offset);
  return {words, words + list.allocated, list.allocated * kSlotsPerColour - 1};
}

// The slot that holds the colour, or the empty one where it belongs.
std::uint32_t slotOf(const ColourIndex& index, std::uint32_t colour) {
  constexpr std::uint32_t kMultiplier = 0x9e3779b1u;
  std::uint32_t slot = ((colour * kMultiplier) >> 8) & index.mask;
  while (index.slots[slot] != 0 && index.colours[index.slots[slot] - 1] != colour) {
    slot = (slot + 1) & index.mask;
  }
  return slot;
}

// Moves the list to a block of twice the room. False when memory is short.
bool grow(_sel_colour_list& list) {
  const std::uint32_t room = list.allocated == 0 ? kFirstColours : list.allocated * 2;
  void* const block = RMM_CallocName(room, kWordsPerColour * kWord, RMM_SITE);
  if (block == nullptr) return false;
  _sel_colour_list wider{list.count, list.capacity,
                         ref32<_sel_RGB_type>::of(static_cast<_sel_RGB_type*>(block)), room};
  const ColourIndex index = indexOf(wider);
  if (list.count != 0) std::memcpy(block, list.colours.get(), list.count * kWord);
  for (std::uint32_t i = 0; i < list.count; ++i) {
    index.slots[slotOf(index, index.colours[i])] = i + 1;
  }
  RMM_Free(list.colours.get());
  list = wider;
  return true;
}

bool add(_sel_colour_list& list, std::uint32_t colour) {
  if (list.allocated != 0) {
    const ColourIndex index = indexOf(list);
    if (index.slots[slotOf(index, colour)] != 0) return true;
  }
  if (list.count >= list.capacity) return false;
  if (list.count == list.allocated && !grow(list)) return false;
  const ColourIndex index = indexOf(list);
  index.colours[list.count] = colour;
  index.slots[slotOf(index, colour)] = ++list.count;
  return true;
}

_sel_colour_list* newList(std::uint32_t capacity, const char* file, int line) {
  auto* const list =
      static_cast<_sel_colour_list*>(RMM_CallocName(1, sizeof(_sel_colour_list), file, line));
  if (list != nullptr) list->capacity = capacity;
  return list;
}

void freeList(_sel_colour_list* list) {
  RMM_Free(list->colours.get());
  RMM_Free(list);
}

// Adds the colours of a list until the target is full. False when memory is short.
bool addAll(_sel_colour_list& target, const _sel_colour_list* source) {
  if (source == nullptr) return true;
  for (std::uint32_t i = 0; i < source->count && target.count < target.capacity; ++i) {
    if (!add(target, egfsvg::colourWord(source->colours[i]))) return false;
  }
  return true;
}

_sel_colour_list* copyList(const _sel_colour_list* list, const char* file, int line) {
  if (list == nullptr || faultFails(FaultCall::SEL_CLOR_Copy)) return nullptr;
  _sel_colour_list* const copy = newList(list->capacity, file, line);
  if (copy == nullptr || addAll(*copy, list)) return copy;
  freeList(copy);
  return nullptr;
}

}  // namespace

}  // namespace egfhost

_sel_colour_list* SEL_CLOR_Alloc(std::uint32_t capacity, const char* file, int line) {
  if (egfhost::faultFails(egfhost::FaultCall::SEL_CLOR_Alloc)) return nullptr;
  return egfhost::newList(capacity, file, line);
}

int SEL_CLOR_AddColour(_sel_colour_list* list, _sel_RGB_type colour) {
  if (list == nullptr || egfhost::faultFails(egfhost::FaultCall::SEL_CLOR_AddColour)) return -1;
  return egfhost::add(*list, egfsvg::colourWord(colour)) ? 0 : -1;
}

int SEL_CLOR_Combine(_sel_colour_list** list, const _sel_colour_list* other,
                     std::uint32_t capacity) {
  if (list == nullptr || egfhost::faultFails(egfhost::FaultCall::SEL_CLOR_Combine)) return -1;
  _sel_colour_list* const both = egfhost::newList(capacity, RMM_SITE);
  if (both == nullptr) return -1;
  if (!egfhost::addAll(*both, *list) || !egfhost::addAll(*both, other)) {
    egfhost::freeList(both);
    return -1;
  }
  *list = both;
  return 0;
}

_sel_colour_list* SEL_CLOR_Copy(const _sel_colour_list* list, const char* file, int line) {
  return egfhost::copyList(list, file, line);
}

_sel_colour_list* SEL_CLOR_Duplicate(const _sel_colour_list* list, const char* file, int line) {
  return egfhost::copyList(list, file, line);
}
