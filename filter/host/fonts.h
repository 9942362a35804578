#pragma once

#include <cstdint>

#include "host/wire.h"

// Fonts. Widths and heights are twips (1/1440 inch) unless told otherwise.

/// A font asked for. EGF_SetupSelAttr fills it.
struct _sel_attr_type {
  char typeface[84];
  std::int32_t fontHeight;  ///< twips
  std::int32_t lineHeight;  ///< twips from one line to the next
  std::uint32_t fontFlags;  ///< as in `_egf_textparms`
  std::int32_t widthScale;  ///< thousandths of the natural width
  std::uint8_t charSet;
};

/// A font that was found; one block, freed with RMM_Free.
struct _fnt_font {
  HostHandle face;  ///< the host's shared face
  std::int32_t fontHeight;
  std::int32_t averageWidth;
  std::int32_t widthScale;
  std::uint8_t character;  ///< handed back to FNT_FontGetStringWidth
};

/// The design sizes of a typeface.
struct _fnt_size {
  std::int32_t first;
  std::int32_t second;
};

extern "C" {

/// A font for the selection, null on failure. The caller frees it with RMM_Free.
EGFHOST_API _fnt_font* FNT_FontCreate(const _sel_attr_type* selection);

/// Width of `length` bytes of text in the font. 0 for success.
EGFHOST_API int FNT_FontGetStringWidth(const _fnt_font* font, const char* text, int length,
                                       std::uint8_t character, std::int32_t* width);

/// The design sizes of a typeface. 0 for success.
EGFHOST_API int FNT_GetFontSize(const char* typeface, _fnt_size* sizes, int reserved);

}  // extern "C"
