#include "render/colours.h"

namespace egfrender {
namespace {

constexpr std::uint32_t kRgbMask = 0xffffff;
constexpr std::uint32_t kWhite = 0xffffff;
constexpr std::uint32_t kBlack = 0;
constexpr double kFull = 255.0;

std::uint32_t exchanged(std::uint32_t rgb) {
  if (rgb == kWhite) return kBlack;
  return rgb == kBlack ? kWhite : rgb;
}

double part(std::uint32_t word, unsigned shift) { return ((word >> shift) & 0xffU) / kFull; }

Colour colourOf(std::uint32_t rgb, double alpha) {
  return {part(rgb, 16), part(rgb, 8), part(rgb, 0), alpha};
}

}  // namespace

Colour shownColour(_sel_RGB_type stored, double alpha) {
  return colourOf(exchanged(egfsvg::colourWord(stored) & kRgbMask), alpha);
}

Colour plainColour(std::uint32_t word) { return colourOf(word, part(word, 24)); }

}  // namespace egfrender
