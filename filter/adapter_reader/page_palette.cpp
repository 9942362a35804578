// The palette of the colours that a page uses.

#include "adapter_reader/page_palette.h"

#include "adapter_reader/owners.h"
#include "adapter_reader/svg_adapterreader.h"
#include "host/egf_small.h"

namespace egfsvg {
namespace {

/// So many colours are kept one by one; further ones are merged in.
constexpr std::uint32_t kPlainColours = 256;

struct PaletteRelease {
  void operator()(_sel_colour_list* list) const { freePalette(list); }
};
using PaletteOwner = std::unique_ptr<_sel_colour_list, PaletteRelease>;

PaletteOwner makePalette(std::uint32_t capacity) {
  return PaletteOwner(
      static_cast<_sel_colour_list*>(RMM_ChownName(SEL_CLOR_Alloc(capacity, RMM_SITE))));
}

/// A merged list that is full has no room for what comes later.
bool isFull(const _sel_colour_list& list) { return list.count >= list.capacity; }

/// Puts a merged list of at most 256 colours in the palette's place. False when memory ran out: the
/// palette stays.
bool mergeColour(_sel_colour_list*& palette, _sel_RGB_type colour) {
  const PaletteOwner added = makePalette(kImagePaletteCapacity);
  if (!added || SEL_CLOR_AddColour(added.get(), colour) != 0) return false;
  _sel_colour_list* merged = palette;
  if (SEL_CLOR_Combine(&merged, added.get(), kImagePaletteCapacity) != 0) return false;
  freePalette(palette);
  palette = merged;
  return true;
}

}  // namespace

void freePalette(_sel_colour_list* list) {
  if (list == nullptr) return;
  RMM_Free(list->colours.get());
  RMM_Free(list);
}

}  // namespace egfsvg

using namespace egfsvg;

_sel_colour_list* CAdapterReader::QueryColourPalette() { return palette; }

/// The palette before it is the caller's to free.
_sel_colour_list* CAdapterReader::CreatePalette() {
  state.colours.clear();
  palette = makePalette(kDocumentPaletteCapacity).release();
  return palette;
}

void CAdapterReader::UpdatePalette(_sel_RGB_type colour) {
  const std::uint32_t word = colourWord(colour);
  if (palette == nullptr || state.colours.has(word)) return;
  bool offered = true;
  if (palette->count < kPlainColours) {
    offered = SEL_CLOR_AddColour(palette, colour) == 0;
  } else if (!isFull(*palette)) {
    offered = mergeColour(palette, colour);
  }
  if (offered) state.colours.note(word);
  if (!offered) logOutOfMemory(RMM_SITE);
}
