// The vocabulary that scanner, setters, sheets and cascade share: names to codes and back, the
// colour names and the transform names. All look-ups disregard case and give the first match in
// table order.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/codes.h"

inline constexpr int kSvgColorCount = 150;
inline constexpr int kSvgTransformationCount = 6;

/// Colour names with their channels. Black and white are exchanged: see `_svg_color`.
extern const char* const SVG_COLOR_NAMES[kSvgColorCount];
extern const std::int32_t SVG_COLOR_RED[kSvgColorCount];
extern const std::int32_t SVG_COLOR_GREEN[kSvgColorCount];
extern const std::int32_t SVG_COLOR_BLUE[kSvgColorCount];

/// Functions of a transform list, with the arguments that each stores and its kind.
extern const char* const SVG_TRANSFORMATION_NAMES[kSvgTransformationCount];
extern const std::int32_t SVG_TRANSFORMATION_ARGUMENTS[kSvgTransformationCount];
extern const std::int32_t SVG_TRANSFORMATION_KINDS[kSvgTransformationCount];  // TransformKind

/// The attribute code, or -1 for an unknown or null name.
int GetAttType(const char* name);

/// The style property code of a CSS rule's or entity's name, or -1.
int GetStyleAttType(const char* name);

/// Writes the lower-case tag name (at most kTagNameSize bytes with its terminator) that rules use
/// for a tag code; 0, or -1 with nothing written for a code without one.
int GetTagNameFromType(char* name, int type);

namespace egfsvg {

inline constexpr std::size_t kTagNameSize = 16;

/// Code of the tag name of that length, or -1.
int tagCode(const char* name, std::size_t length);

/// The attribute code of a name that is not terminated, or -1.
int attributeCode(const char* name, std::size_t length);

/// Row of a colour name in the colour tables, or -1.
int colorRow(const char* name);

/// What GetTagNameFromType writes, or null.
const char* tagName(int type);

}  // namespace egfsvg
