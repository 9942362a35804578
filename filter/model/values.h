// The small value records of the object model: lengths, angles, colours, points, the viewBox, the
// attribute pair, links and transform entries. Plain and trivially copyable; owned pointers come
// from the host's allocator.
#pragma once

#include <cstdint>

#include "model/codes.h"

/// A length, number or percentage, in its own unit until a pixel conversion replaces it.
struct _svg_value {
  std::int32_t unit;  // UnitCode
  double value;
  std::int32_t axis;  // AxisCode: the viewport side of a percentage
};

struct _svg_angle {
  std::int32_t unit;  // kUnitDegree, kUnitRadian, kUnitGrad (or kUnitPercent, as read)
  double value;
};

/// Channels 0 to 255. Black and white are exchanged: SVG black is (255, 255, 255), SVG white is
/// (0, 0, 0); all other colours are true RGB.
struct _svg_color {
  std::int32_t red;
  std::int32_t green;
  std::int32_t blue;
  std::int32_t colorExtra;  // the top byte of the packed word
};

struct _svg_point {
  _svg_value x;
  _svg_value y;
};

/// Height stands before width, unlike the attribute's own order.
struct _svg_viewbox {
  _svg_value x;
  _svg_value y;
  _svg_value height;
  _svg_value width;
};

inline constexpr std::int32_t kAttribNameSize = 256;
inline constexpr std::int32_t kAttribValueSize = 4097;  // what callers start a value block at

/// So a pair that is zeroed tells nothing; an empty value is as quickly measured as told.
inline constexpr std::int32_t kLengthNotTold = 0;

/// One attribute as the scanner hands it out; `value` may be replaced by a larger block.
struct _svg_attrib_pair {
  char name[kAttribNameSize];
  std::int32_t valueSize;  // capacity of value; so many bytes may be read at least
  char* value;
  std::int32_t valueLength = kLengthNotTold;  // ours: of value, where its maker knew it
};

/// A holder of xlink:href, xml:lang or href. `reference` and `returnIndex` serve a `use` while its
/// target is drawn.
struct _xml_obj {
  struct _svg_localref* reference;
  char* value;            // owned
  std::int32_t dataKind;  // embedded data: 1 JPEG, 2 PNG, 0 otherwise
  std::int32_t returnIndex;
};

/// Where the arguments of a transform list stand: a mark in its first function.
enum TransformStorage : std::int32_t { kTransformArgsApart = 0, kTransformsInOneBlock = 1 };

/// One function of a transform list.
struct transformEntry {
  std::int32_t kind;  // TransformKind
  _svg_value* args;   // owned, argCount entries
  std::int32_t argCount;
  std::int32_t storage = kTransformArgsApart;  // TransformStorage (model/transform_list.h)
};

namespace egfsvg {

inline constexpr _svg_value kDefaultValue{kUnitPixel, 0.0, kAxisNone};
inline constexpr _svg_value kUnsetValue{kUnitUnset, 0.0, kAxisNone};
inline constexpr _svg_color kSvgBlack{255, 255, 255, 0};
inline constexpr _svg_color kSvgWhite{0, 0, 0, 0};

constexpr _svg_value pixels(double number, std::int32_t axis = kAxisNone) {
  return {kUnitPixel, number, axis};
}
constexpr _svg_value percent(double number, std::int32_t axis = kAxisNone) {
  return {kUnitPercent, number, axis};
}

}  // namespace egfsvg
