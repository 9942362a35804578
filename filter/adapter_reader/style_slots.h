// Slots of the extended records that one shape builds: empty until something needs the record,
// which then starts from its template. A slot's own record costs no memory of the host.
#pragma once

#include "adapter_reader/owners.h"
#include "host/egf_styles.h"
#include "host/egf_templates.h"

namespace egfsvg {

inline const _egf_gdiplus_fillparms_tag& templateOf(const _egf_gdiplus_fillparms_tag*) {
  return kFillParms;
}
inline const _egf_gdiplus_stroke_parms_tag& templateOf(const _egf_gdiplus_stroke_parms_tag*) {
  return kStrokeParms;
}

template <class Record>
class StyleSlot {
 public:
  StyleSlot() = default;
  ~StyleSlot() {
    if (record_ != nullptr && record_ != &own_) RMM_Free(record_);
  }
  StyleSlot(const StyleSlot&) = delete;
  StyleSlot& operator=(const StyleSlot&) = delete;

  Record* get() const { return record_; }
  explicit operator bool() const { return record_ != nullptr; }

  /// The record, made when the slot is empty. Never null.
  Record* open() {
    if (record_ == nullptr) {
      own_ = templateOf(record_);
      record_ = &own_;
    }
    return record_;
  }

  /// For setters that make the record themselves: theirs is a block of the host, freed here.
  Record** address() { return &record_; }

 private:
  Record own_;
  Record* record_ = nullptr;
};

using FillSlot = StyleSlot<_egf_gdiplus_fillparms_tag>;
using StrokeSlot = StyleSlot<_egf_gdiplus_stroke_parms_tag>;
using GradientSlot = StyleSlot<_egf_gdiplus_gradientparms_tag>;

/// The record of a caller's slot, a block of the host made on first need. Null, with the fault
/// logged, when memory ran out.
template <class Record>
Record* openSlot(Record** slot) {
  if (*slot != nullptr) return *slot;
  *slot = static_cast<Record*>(RMM_AllocName(1, sizeof(Record), RMM_SITE));
  if (*slot == nullptr) {
    logOutOfMemory(RMM_SITE);
    return nullptr;
  }
  **slot = templateOf(*slot);
  return *slot;
}

template <class Record>
Record* openSlot(StyleSlot<Record>& slot) {
  return slot.open();
}

}  // namespace egfsvg
