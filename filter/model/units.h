// Unit suffixes of lengths and angles.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/characters.h"
#include "model/codes.h"

namespace egfsvg {

struct UnitSuffix {
  const char* text;
  UnitCode unit;
};

/// In the order of comparison; the first match counts.
inline constexpr UnitSuffix kLengthSuffixes[] = {
    {"IN", kUnitInch},    {"CM", kUnitCentimetre}, {"MM", kUnitMillimetre}, {"PX", kUnitPixel},
    {"EM", kUnitEm},      {"EX", kUnitEx},         {"PT", kUnitPoint},      {"PC", kUnitPica},
    {"DEG", kUnitDegree}, {"RAD", kUnitRadian},    {"GRAD", kUnitGrad},     {"%", kUnitPercent}};

inline constexpr UnitSuffix kAngleSuffixes[] = {
    {"DEG", kUnitDegree}, {"RAD", kUnitRadian}, {"GRAD", kUnitGrad}, {"%", kUnitPercent}};

/// The unit of a whole suffix of that length, without regard to case; `otherwise` for any other.
template <std::size_t N>
constexpr UnitCode unitOf(const UnitSuffix (&rows)[N], const char* text, std::size_t length,
                          UnitCode otherwise) {
  for (const UnitSuffix& row : rows) {
    if (equalsNoCase(text, length, row.text)) return row.unit;
  }
  return otherwise;
}

/// Pixels for every suffix that is no unit, none included.
constexpr UnitCode lengthUnit(const char* text, std::size_t length) {
  return unitOf(kLengthSuffixes, text, length, kUnitPixel);
}

/// Degrees for every suffix that is no unit of an angle.
constexpr UnitCode angleUnit(const char* text, std::size_t length) {
  return unitOf(kAngleSuffixes, text, length, kUnitDegree);
}

}  // namespace egfsvg
