// One element on its way to the callback: the envelope and its record.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "model/lifecycle.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

/// Of an object with any element's record.
inline constexpr std::int32_t kEnvelopeSize =
    sizeof(_handlerObject) +
    std::max({sizeof(_svg_svg), sizeof(_svg_a), sizeof(_svg_group), sizeof(_svg_text),
              sizeof(_svg_path), sizeof(_svg_polygon), sizeof(_svg_image), sizeof(_svg_line),
              sizeof(_svg_markup_crossout), sizeof(_svg_markup_diamond)});

/// An object with room for any element's record. Its memory is lent by the reader; what the record
/// owns goes with the envelope.
class Envelope {
 public:
  /// `type` as it is sent, `ownedAs` the type by which the record is destroyed (kTagNone: it owns
  /// nothing).
  Envelope(CHandlerReader& reader, void* owner, int type, std::size_t size, int ownedAs)
      : reader_(reader), block_(reader.state.objects.take(kEnvelopeSize)), ownedAs_(ownedAs) {
    if (!isReady()) [[unlikely]] {
      reader.state.outOfMemory = true;
      return;
    }
    object()->owner = owner;
    object()->type = type;
    object()->size = static_cast<std::int32_t>(size);
  }
  ~Envelope() {
    if (filled_) svg_DestroyObjectAtt(payload<char>(), ownedAs_);
    reader_.state.objects.giveBack(block_);
  }
  Envelope(const Envelope&) = delete;
  Envelope& operator=(const Envelope&) = delete;

  /// False without memory; the reader knows then.
  bool isReady() const { return block_.memory != nullptr; }
  _handlerObject* object() const { return reinterpret_cast<_handlerObject*>(block_.memory); }
  template <class Record>
  Record* payload() const {
    return object()->payload<Record>();
  }
  /// The payload is initialised: from now on it is destroyed with the envelope.
  void fill() { filled_ = true; }

 private:
  CHandlerReader& reader_;
  SpareBlocks::Block block_;
  int ownedAs_;
  bool filled_ = false;
};

}  // namespace egfsvg
