// Records on their way to the serialiser.
#pragma once

#include <cstdint>
#include <type_traits>

#include "adapter_writer/svg_adapterwriter.h"
#include "frame/result_codes.h"
#include "frame/svghinterface.h"
#include "model/lifecycle.h"
#include "model/owners.h"
#include "model/rmm_allocator.h"

namespace egfsvg {

/// Frees what a record owns: by its tag code, or as its kind asks.
template <class Record>
void releaseRecord(Record* record, std::int32_t tag) {
  svg_DestroyObjectAtt(record, tag);
}
inline void releaseRecord(_svg_style_props* record, std::int32_t) { freeAll(record->selector); }
inline void releaseRecord(_svg_gradient* record, std::int32_t) {
  DestroyGrElements(record);
  DestroyCommonElements(&record->head);
}

/// A zeroed record behind its envelope, in one block. What the record owns is released with it.
template <class Record>
class WriteEnvelope {
  static_assert(std::is_trivially_copyable_v<Record>);

 public:
  WriteEnvelope(const CAdapterWriter& writer, const _adapterWriteData& data, std::int32_t type)
      : tag_(type),
        envelope_(static_cast<_handlerWriteObject*>(
            RMM_CallocName(1, sizeof(_handlerWriteObject) + sizeof(Record), RMM_SITE))) {
    if (envelope_ == nullptr) return;
    *envelope_ = {writer.handlerWriter, data.stream, type,
                  static_cast<std::int32_t>(sizeof(Record))};
  }
  ~WriteEnvelope() {
    if (envelope_ != nullptr) releaseRecord(record(), tag_);
  }
  WriteEnvelope(const WriteEnvelope&) = delete;
  WriteEnvelope& operator=(const WriteEnvelope&) = delete;

  explicit operator bool() const { return envelope_ != nullptr; }
  _handlerWriteObject* get() const { return envelope_.get(); }
  Record* record() const { return envelope_->template payload<Record>(); }

  int write() { return SVGH_WriteObject(envelope_.get()); }
  /// The same record as another type.
  int writeAs(std::int32_t type) {
    envelope_->type = type;
    return write();
  }

 private:
  const std::int32_t tag_;
  RmmOwner<_handlerWriteObject> envelope_;
};

/// What types without a record carry.
struct NoRecord {
  std::int64_t unused;
};

/// Writes a type that needs no record: the closing tags.
inline int writeBare(const CAdapterWriter& writer, const _adapterWriteData& data,
                     std::int32_t type) {
  WriteEnvelope<NoRecord> envelope(writer, data, type);
  return envelope ? envelope.write() : kOutOfMemory;
}

/// Makes a record, fills it and writes it. `fill` returns false to refuse: nothing is written then,
/// and the result is 0.
template <class Record, class Fill>
int writeElement(CAdapterWriter& writer, const _adapterWriteData& data, std::int32_t tag,
                 Fill&& fill) {
  WriteEnvelope<Record> envelope(writer, data, tag);
  if (!envelope) return kOutOfMemory;
  writer.state.outOfMemory = false;
  const bool wanted = fill(envelope.record());
  if (writer.state.outOfMemory) return kOutOfMemory;
  return wanted ? envelope.write() : kOk;
}

}  // namespace egfsvg
