// Owners of what a formatter holds until it is handed on: host objects, maps, blocks.
#pragma once

#include "adapter_reader/svg_adapterreader.h"
#include "model/owners.h"

namespace egfsvg {

/// Hands an object over to a group or path. It stays its owner's when the host refuses it.
inline bool handOver(_egf_obj* parent, ObjectOwner& object) {
  if (EEL_AppendObject(parent, object.get()) != 0) return false;
  (void)object.release();
  return true;
}

/// The map of one element.
class MapOwner {
 public:
  MapOwner(CAdapterReader& adapter, _viewPortMap* map) : adapter_(adapter), map_(map) {}
  ~MapOwner() { adapter_._freeMapMatrix(map_); }
  MapOwner(const MapOwner&) = delete;
  MapOwner& operator=(const MapOwner&) = delete;
  _viewPortMap* get() const { return map_; }
  explicit operator bool() const { return map_ != nullptr; }

 private:
  CAdapterReader& adapter_;
  _viewPortMap* map_;
};

}  // namespace egfsvg
