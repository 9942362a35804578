#include "adapter_reader/style_numbers.h"

#include <cstring>

#include "host/documents.h"
#include "host/memory.h"
#include "host/style_tables.h"

namespace egfsvg {

void StyleNumbers::beginPage() {
  *this = {};
  pageOpen_ = true;
}

void StyleNumbers::endPage() { *this = {}; }

template <class Record>
HostHandle StyleNumbers::tableOf(HostHandle document, StyleClass styleClass,
                                 Last<Record>& last) const {
  if (!pageOpen_ || !last.lookedUp) {
    last.table = ISL_GetProperty(OBJ_GetRootTrace(document, RMM_SITE),
                                 static_cast<std::uint32_t>(styleClass));
    // A table that is missing is asked for again; without a document there will be none.
    last.lookedUp = last.table != 0 || document == 0;
  }
  return last.table;
}

template <class Record>
std::uint32_t StyleNumbers::offer(HostHandle document, StyleClass styleClass, const Record& record,
                                  Last<Record>& last) {
  if (pageOpen_ && last.number != 0 && std::memcmp(&last.record, &record, sizeof record) == 0) {
    return last.number;
  }
  const HostHandle table = tableOf(document, styleClass, last);
  if (table == 0) return 0;
  const std::uint32_t number = STYLE_AppendUnique(table, sizeof record, &record);
  if (number != 0) {
    last.number = number;
    last.record = record;
  }
  return number;
}

std::uint32_t StyleNumbers::number(HostHandle document, const _egf_gdi_fillparms_tag& pen) {
  static_assert(sizeof pen == 52);
  return offer(document, kStylePen, pen, pen_);
}

std::uint32_t StyleNumbers::number(HostHandle document, const _egf_gdiplus_fillparms_tag& parms) {
  static_assert(sizeof parms == 56);
  return offer(document, kStyleFill, parms, fill_);
}

std::uint32_t StyleNumbers::number(HostHandle document,
                                   const _egf_gdiplus_stroke_parms_tag& parms) {
  static_assert(sizeof parms == 52);
  return offer(document, kStyleStroke, parms, stroke_);
}

std::uint32_t StyleNumbers::number(HostHandle document,
                                   const _egf_gdiplus_gradientparms_tag& ramp) {
  static_assert(sizeof ramp == 204);
  return offer(document, kStyleGradient, ramp, gradient_);
}

}  // namespace egfsvg
