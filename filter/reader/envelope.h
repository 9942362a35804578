// One element on its way to the callback: the envelope and its record.
#pragma once

#include "reader/svg_handlerreader.h"

namespace egfsvg {

/// An object with room for any element's record. Its memory is lent by the reader; what the record
/// owns goes with the envelope.
class Envelope {
 public:
  /// `type` as it is sent, `ownedAs` the type by which the record is destroyed (kTagNone: it owns
  /// nothing).
  Envelope(CHandlerReader& reader, void* owner, int type, std::size_t size, int ownedAs);
  ~Envelope();
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
