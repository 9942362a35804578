// Pools of pens and the extended records of a document. A pool's number is the style's name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "adapter_writer/svg_adapterwriter.h"
#include "host/egf_codes.h"
#include "host/egf_pens.h"
#include "host/style_tables.h"

namespace egfsvg {

inline constexpr std::uint32_t kPooledFillSize = 52;
inline constexpr std::uint32_t kPooledStrokeSize = 36;

/// A pooled stroke: a line's pen with the join byte of a polyline's.
struct EGF_WIRE PooledStroke {
  __meas lineWidth;
  _sel_RGB_type strokeColor;
  std::uint32_t lineStyle;
  std::uint8_t rasterOp;
  std::uint8_t capStyle;
  std::uint8_t joinStyle;
  std::uint8_t reserved23;
  std::uint8_t rest[12];
};
/// A pooled fill: what all pens of areas share, then bytes of the pen that it was taken from.
using PooledFill = _egf_gdi_fillparms_tag;

static_assert(sizeof(PooledStroke) == kPooledStrokeSize);
static_assert(sizeof(PooledFill) == kPooledFillSize);

/// One pool of a writer: its slot in the style set, and the prefix of its names.
struct PoolRow {
  int slot;
  std::uint32_t size;
  std::string_view prefix;
};
inline constexpr PoolRow kFillPool{4, kPooledFillSize, "stl"};
inline constexpr PoolRow kStrokePool{5, kPooledStrokeSize, "strk"};

/// A style table of a writer's document, 0 when there is none.
HostHandle documentTable(const CAdapterWriter& writer, StyleClass styleClass);

/// The slot's table, 0 when there is none.
inline HostHandle poolTable(const CAdapterWriter& writer, const PoolRow& pool) {
  return writer.styleSet == nullptr ? 0 : writer.styleSet->slots[pool.slot];
}

/// The record of a number in a document's table; null for 0, when there is none, and when it is
/// shorter than `size`.
const void* documentRecord(const CAdapterWriter& writer, StyleClass styleClass,
                           std::uint32_t number, std::size_t size);
template <class Record>
const Record* documentRecord(const CAdapterWriter& writer, StyleClass styleClass,
                             std::uint32_t number) {
  return static_cast<const Record*>(documentRecord(writer, styleClass, number, sizeof(Record)));
}

/// Pools a record of the pool's size and gives the element the class of its number; none when the
/// pool could not take it.
void setPooledClass(CAdapterWriter& writer, const PoolRow& pool, const void* record,
                    _svg_common& head);

/// Calls the procedure for each record of a table, in order; nothing for an empty one. The first
/// result that is not 0 ends it.
int enumerateTable(HostHandle table, std::uint32_t size, StyleProc procedure,
                   _adapterWriteData* data);

/// A prefix and a number as a text from the host's allocator; null when memory ran out.
char* styleName(std::string_view prefix, std::int64_t number);

}  // namespace egfsvg
