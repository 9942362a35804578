// Owners of what a formatter holds until it is handed on: host objects, maps, blocks.
#pragma once

#include "adapter_reader/svg_adapterreader.h"
#include "model/owners.h"

namespace egfsvg {

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
