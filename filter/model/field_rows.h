// Rows that describe the fields of an element record: enough to print any of them. The tables are
// constants of their header, so that a program can walk a record without linking the filter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "model/codes.h"

namespace egfsvg {

/// What stands in a field, or in each entry of an array field.
enum class ElementShape : std::uint8_t {
  kInteger,      // 32-bit signed
  kFlag,         // one byte
  kNumber,       // double
  kValue,        // _svg_value: unit, value, axis
  kAngle,        // _svg_angle: unit, value
  kColor,        // _svg_color: four channels
  kText,         // pointer to a terminated text, or null
  kName,         // a terminated text in the entry itself
  kPresence,     // a pointer of which only the presence tells
  kGradientKey,  // pointer to a _svg_gradient, or null: "#" and its id stand for it
  kRecord,       // a record described by its own rows
  kChild,        // _svg_objects: a type and the record behind it, see childFields
};

/// How often it stands there.
enum class ElementRepeat : std::uint8_t {
  kOnce,
  kInline,   // `count` entries one after the other in the field
  kPointer,  // pointer to one entry, or null
  kArray,    // pointer to entries, or null; a 32-bit signed field at `count` tells how many
  kChain,    // pointer to a record of the same rows, or null; its own field leads to the next
};

struct ElementField;

/// The rows of one record.
using ElementRecord = std::span<const ElementField>;

struct ElementField {
  const char* key;  // the name it is printed under
  std::uint32_t offset;
  ElementShape shape;
  ElementRepeat repeat = ElementRepeat::kOnce;
  std::uint32_t count = 0;
  std::uint32_t entrySize = 0;            // of kInline and kArray
  const ElementRecord* record = nullptr;  // of kRecord
  std::int32_t onlyFor = kTagNone;        // when set: stands only in records of that type

  /// Whether the field stands in a record of that `head.type`.
  constexpr bool standsIn(std::int32_t type) const {
    return onlyFor == kTagNone || onlyFor == type;
  }
};

/// A field of a record, by value.
template <class T>
inline T readField(const void* record, std::uint32_t offset) {
  T value;
  std::memcpy(&value, static_cast<const char*>(record) + offset, sizeof value);
  return value;
}

}  // namespace egfsvg

/// One row each: a plain field; a nested record; an array of entries with its count field.
#define EGFSVG_FIELD(record, member, shape) \
  egfsvg::ElementField { #member, offsetof(record, member), egfsvg::ElementShape::shape }

#define EGFSVG_RECORD(owner, member, rows)                                                     \
  egfsvg::ElementField {                                                                       \
    .key = #member, .offset = offsetof(owner, member), .shape = egfsvg::ElementShape::kRecord, \
    .repeat = egfsvg::ElementRepeat::kOnce, .record = &rows                                    \
  }

#define EGFSVG_ARRAY(owner, member, countMember, entry, shapeOfEntry, rows)               \
  egfsvg::ElementField {                                                                  \
    .key = #member, .offset = offsetof(owner, member),                                    \
    .shape = egfsvg::ElementShape::shapeOfEntry, .repeat = egfsvg::ElementRepeat::kArray, \
    .count = offsetof(owner, countMember), .entrySize = sizeof(entry), .record = rows     \
  }
