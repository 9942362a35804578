#include "embedded_host/text_measure.h"

#include <cstring>
#include <initializer_list>

#include "embedded_host/angles.h"
#include "embedded_host/measures.h"
#include "host/egf_bits.h"

namespace egfhost {

namespace {

using namespace egfsvg;

// Parts of the size that stand above and below the baseline, and from one line to the next.
constexpr double kAscent = 0.9;
constexpr double kDescent = 0.25;
constexpr double kLeading = 1.15;
// An average character's width in parts of the size, when no width is set.
constexpr double kNaturalWidth = 0.5;

enum Horizontal : unsigned { kLeft = 0, kRight = 2, kCentre = 4 };
enum Vertical : unsigned { kTop = 0, kBottom = 1, kMiddle = 2 };

struct TextBlock {
  std::size_t lines;
  std::size_t longest;  // characters
};

TextBlock blockOf(const char* text) {
  TextBlock block{1, 0};
  std::size_t line = 0;
  for (const char* at = text; *at != '\0'; ++at) {
    // UTF-8 continuation bytes and the returns before line feeds take no room.
    const bool counts = (static_cast<unsigned char>(*at) & 0xC0U) != 0x80U && *at != '\r';
    if (*at == '\n') {
      ++block.lines;
      line = 0;
    } else if (counts) {
      block.longest = std::max(block.longest, ++line);
    }
  }
  return block;
}

double leftOf(unsigned justification, double width) {
  if (justification == kCentre) return -width / 2.0;
  return justification == kRight ? -width : 0.0;
}

double topOf(unsigned justification, double size, double height) {
  if (justification == kTop) return 0.0;
  if (justification == kBottom) return -height;
  return justification == kMiddle ? -height / 2.0 : -kAscent * size;
}

}  // namespace

void includeText(Box& box, const _egf_textparms& parms, _mpl_spacept_tag origin, const char* text,
                 HostHandle map) {
  if (text == nullptr) return;
  const TextBlock block = blockOf(text);
  const double size = pixelsOf(parms.fontSize, map);
  const double advance =
      (parms.charWidth == 0.0 ? kNaturalWidth * size : parms.charWidth) + parms.letterSpacing;
  const double width = advance * static_cast<double>(block.longest);
  const double height =
      (kAscent + kDescent + kLeading * static_cast<double>(block.lines - 1)) * size;
  const double left = leftOf(HorizontalBits::get(parms.justification), width);
  const double top = topOf(VerticalBits::get(parms.justification), size, height);
  // Tenths of a degree, counter-clockwise.
  const Turn turn =
      turnOf((std::int64_t{parms.textRotation} + parms.orientation) * (kMillionths / 10));
  for (const double x : {left, left + width}) {
    for (const double y : {top, top + height}) {
      box.include(origin.x + (turn.cosine * x + turn.sine * y) * kSpaceUnits,
                  origin.y + (turn.cosine * y - turn.sine * x) * kSpaceUnits);
    }
  }
}

}  // namespace egfhost
