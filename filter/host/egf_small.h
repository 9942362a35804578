#pragma once

#include <cstdint>

#include "host/wire.h"

// Small wire records: little-endian, packed, read and written by value only. Never take the address
// of, or bind a reference to, a field that is wider than a byte.

/// A point in space units (1/4096 of a pixel).
struct EGF_WIRE _mpl_spacept_tag {
  float x;
  float y;
};

/// A rectangle; both x values come first. All four zero means "no rectangle".
struct EGF_WIRE _mpl_spacerect_tag {
  float left;
  float right;
  float top;
  float bottom;
};

/// A length with its unit code; unit 0 is pixels of the view.
struct EGF_WIRE __meas {
  std::uint32_t unit;
  double value;
};

/// A colour word 0xAARRGGBB. Black is kept as 0xffffff and white as 0.
struct EGF_WIRE _sel_RGB_type {
  std::uint8_t blue;
  std::uint8_t green;
  std::uint8_t red;
  std::uint8_t extra;
};

/// An affine matrix; x' = m11 x + m21 y + dx, y' = m12 x + m22 y + dy.
struct EGF_WIRE _egf_matrix_tag {
  float m11;
  float m12;
  float m21;
  float m22;
  float dx;
  float dy;
};

/// How a gradient goes on beyond its ends.
enum class _egf_wrapmode_tag : std::uint32_t { kTile = 0, kFlip = 1, kRadial = 4 };

namespace egfsvg {

static_assert(sizeof(_mpl_spacept_tag) == 8);
static_assert(sizeof(_mpl_spacerect_tag) == 16);
static_assert(sizeof(__meas) == 12);
static_assert(sizeof(_sel_RGB_type) == 4);
static_assert(sizeof(_egf_matrix_tag) == 24);

/// The colour as one word, 0xAARRGGBB.
constexpr std::uint32_t colourWord(_sel_RGB_type colour) {
  return static_cast<std::uint32_t>(colour.extra) << 24 |
         static_cast<std::uint32_t>(colour.red) << 16 |
         static_cast<std::uint32_t>(colour.green) << 8 | colour.blue;
}

/// The colour that the word 0xAARRGGBB stands for.
constexpr _sel_RGB_type colourOf(std::uint32_t word) {
  return {static_cast<std::uint8_t>(word), static_cast<std::uint8_t>(word >> 8),
          static_cast<std::uint8_t>(word >> 16), static_cast<std::uint8_t>(word >> 24)};
}

inline constexpr _egf_matrix_tag kIdentityMatrix{1.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F};

/// Space units in a pixel.
inline constexpr double kSpaceUnits = 4096.0;
/// Millionths in a degree, the angle unit of ellipse, arc and gradient records.
inline constexpr std::int32_t kMillionths = 1000000;
inline constexpr std::int32_t kFullTurn = 360 * kMillionths;

}  // namespace egfsvg
