// A colour on its way into an object: its word, and the page's palette that has to know it.
#pragma once

#include "adapter_reader/svg_adapterreader.h"

namespace egfsvg {

/// The word of the colour that `castColor` gives.
inline std::uint32_t wordOf(const _svg_color& colour) {
  const auto channel = [](std::int32_t value) { return static_cast<std::uint32_t>(value) & 0xFFU; };
  return channel(colour.colorExtra) << 24 | channel(colour.red) << 16 | channel(colour.green) << 8 |
         channel(colour.blue);
}

[[gnu::noinline]] void offerColour(CAdapterReader& adapter, std::uint32_t word);

/// The colour as objects hold it. One that the palette was not offered lately is offered.
[[gnu::always_inline]] inline _sel_RGB_type paletteColour(CAdapterReader& adapter,
                                                          const _svg_color& colour) {
  const std::uint32_t word = wordOf(colour);
  if (!adapter.state.colours.has(word)) [[unlikely]]
    offerColour(adapter, word);
  return colourOf(word);
}

}  // namespace egfsvg
