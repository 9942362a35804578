// Records on their way to the serialiser.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

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

/// The largest record that is written.
inline constexpr std::size_t kLargestRecord =
    std::max({sizeof(_objectStream), sizeof(_svg_svg), sizeof(_svg_group), sizeof(_svg_gradient),
              sizeof(_svg_style_props), sizeof(_svg_markup_cloud), sizeof(_svg_markup_anno),
              sizeof(_svg_markup_crossout), sizeof(_svg_markup_diamond)});

/// A block for an envelope with any record: the writer's spare one, or a new one, or null.
inline _handlerWriteObject* takeEnvelope(CAdapterWriter& writer) {
  void* block = std::exchange(writer.spareEnvelope, nullptr);
  if (block == nullptr) {
    block = RMM_AllocName(1, sizeof(_handlerWriteObject) + kLargestRecord, RMM_SITE);
  }
  return static_cast<_handlerWriteObject*>(block);
}
inline void giveBackEnvelope(CAdapterWriter& writer, _handlerWriteObject* envelope) {
  freeAll(writer.spareEnvelope);
  writer.spareEnvelope = envelope;
}

/// A zeroed record behind its envelope, in one block. What the record owns is released with it.
template <class Record>
class WriteEnvelope {
  static_assert(std::is_trivially_copyable_v<Record> && sizeof(Record) <= kLargestRecord);

 public:
  WriteEnvelope(CAdapterWriter& writer, const _adapterWriteData& data, std::int32_t type)
      : writer_(writer), tag_(type), envelope_(takeEnvelope(writer)) {
    if (envelope_ == nullptr) return;
    *envelope_ = {writer.handlerWriter, data.stream, type,
                  static_cast<std::int32_t>(sizeof(Record))};
    std::memset(envelope_ + 1, 0, sizeof(Record));
  }
  ~WriteEnvelope() {
    if (envelope_ == nullptr) return;
    releaseRecord(record(), tag_);
    giveBackEnvelope(writer_, envelope_);
  }
  WriteEnvelope(const WriteEnvelope&) = delete;
  WriteEnvelope& operator=(const WriteEnvelope&) = delete;

  explicit operator bool() const { return envelope_ != nullptr; }
  _handlerWriteObject* get() const { return envelope_; }
  Record* record() const { return envelope_->template payload<Record>(); }

  int write() { return SVGH_WriteObject(envelope_); }
  /// The same record as another type.
  int writeAs(std::int32_t type) {
    envelope_->type = type;
    return write();
  }

 private:
  CAdapterWriter& writer_;
  const std::int32_t tag_;
  _handlerWriteObject* const envelope_;
};

/// Writes a type that needs no record: the closing tags. Each asks for its block, so that memory
/// that has run out under way is told at the end of the file at the latest.
inline int writeBare(CAdapterWriter& writer, const _adapterWriteData& data, std::int32_t type) {
  const RmmOwner<_handlerWriteObject> envelope(
      static_cast<_handlerWriteObject*>(RMM_AllocName(1, sizeof(_handlerWriteObject), RMM_SITE)));
  if (envelope == nullptr) return kOutOfMemory;
  *envelope = {writer.handlerWriter, data.stream, type, 0};
  return SVGH_WriteObject(envelope.get());
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
