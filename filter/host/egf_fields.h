#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace egfsvg {

/// What stands in a field of a wire record.
enum class FieldKind : std::uint8_t {
  kU8,
  kU16,
  kU32,
  kI32,
  kFloat,
  kDouble,
  kMeasure,
  kColour,
  kPoint,
  kRadii,  ///< two lengths, in the form of a point
  kRect,
  kMatrix,
  kWrapMode,
  kStyleNo,     ///< number in a style table or dash list, 0 none
  kHandle,      ///< handle that the object shares
  kText,        ///< characters in the record itself, null-terminated
  kPoints,      ///< points in the record itself
  kBytes,       ///< bytes in the record itself
  kColours,     ///< colours in the record itself
  kPositions,   ///< signed 16-bit numbers in the record itself
  kDoubles,     ///< doubles in the record itself
  kPointArray,  ///< pointer to points, owned
  kU16Array,    ///< pointer to unsigned 16-bit numbers, owned
  kString,      ///< pointer to a null-terminated text, owned
  kData,        ///< pointer to bytes, owned
  kRaster,      ///< raster, owned
  kPalette,     ///< colour list, owned
  kFirstChild,  ///< first of a chain of children, owned
};

/// How many entries an array has: a constant, or the number in another field of the record.
enum class CountKind : std::uint8_t { kOne, kConstant, kU8Field, kU16Field, kU32Field };

struct FieldCount {
  CountKind kind = CountKind::kOne;
  std::uint16_t value = 1;  ///< the constant, or the offset of the counting field

  static constexpr FieldCount constant(std::uint16_t entries) {
    return {CountKind::kConstant, entries};
  }
  static constexpr FieldCount byteAt(std::uint16_t offset) { return {CountKind::kU8Field, offset}; }
  static constexpr FieldCount shortAt(std::uint16_t offset) {
    return {CountKind::kU16Field, offset};
  }
  static constexpr FieldCount wordAt(std::uint16_t offset) {
    return {CountKind::kU32Field, offset};
  }
};

struct FieldRow {
  const char* name;
  std::uint16_t offset;  ///< from the start of the record; the fixed number of the wire format
  FieldKind kind;
  FieldCount count;
  std::size_t structOffset;  ///< where the compiler put it
  std::size_t structSize;
};

/// Bytes of one entry of a field, for an owned array of the entry that it points to.
constexpr std::size_t entrySize(FieldKind kind) {
  switch (kind) {
    case FieldKind::kU8:
    case FieldKind::kText:
    case FieldKind::kBytes:
    case FieldKind::kString:
    case FieldKind::kData:
      return 1;
    case FieldKind::kU16:
    case FieldKind::kPositions:
    case FieldKind::kU16Array:
      return 2;
    case FieldKind::kDouble:
    case FieldKind::kDoubles:
    case FieldKind::kPoint:
    case FieldKind::kRadii:
    case FieldKind::kPoints:
    case FieldKind::kPointArray:
      return 8;
    case FieldKind::kMeasure:
      return 12;
    case FieldKind::kRect:
      return 16;
    case FieldKind::kMatrix:
      return 24;
    default:
      return 4;
  }
}

/// True for a field that holds a pointer or handle to something that its record owns.
constexpr bool isOwned(FieldKind kind) { return kind >= FieldKind::kPointArray; }

/// Bytes of the field itself.
constexpr std::size_t fieldSize(const FieldRow& row) {
  if (isOwned(row.kind)) return 4;
  const bool several = row.count.kind != CountKind::kOne;
  const std::size_t entry = entrySize(row.kind);
  return several && row.count.kind != CountKind::kConstant ? row.structSize
                                                           : entry * row.count.value;
}

/// One field row. Its number is the wire offset; the compiler's own offset and size stand beside it
/// and are compared below.
#define EGF_FIELD(record, member, offset, kind, ...)                            \
  FieldRow {                                                                    \
    nameOfMember(#member), offset, FieldKind::kind, FieldCount{__VA_ARGS__},    \
        offsetof(record, member), sizeof(static_cast<record*>(nullptr)->member) \
  }

/// The last name of a member path: "lineWidth" of "pen.lineWidth".
consteval const char* nameOfMember(const char* path) {
  const char* name = path;
  for (const char* at = path; *at != '\0'; ++at) {
    if (*at == '.') name = at + 1;
  }
  return name;
}

/// The rows of a sub-record that stands at `offset` inside another record.
template <std::size_t kCount>
consteval std::array<FieldRow, kCount> moved(std::array<FieldRow, kCount> rows,
                                             std::uint16_t offset, std::size_t structOffset) {
  for (FieldRow& row : rows) {
    row.offset = static_cast<std::uint16_t>(row.offset + offset);
    row.structOffset += structOffset;
  }
  return rows;
}

template <std::size_t... kCounts>
consteval auto joined(const std::array<FieldRow, kCounts>&... parts) {
  std::array<FieldRow, (kCounts + ...)> all{};
  std::size_t used = 0;
  const auto add = [&](const auto& part) {
    for (const FieldRow& row : part) all[used++] = row;
  };
  (add(parts), ...);
  return all;
}

}  // namespace egfsvg
