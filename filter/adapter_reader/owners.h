// Owners of what a formatter holds until it is handed on: host objects, maps, blocks.
#pragma once

#include <memory>

#include "adapter_reader/svg_adapterreader.h"
#include "host/memory.h"
#include "host/messages.h"
#include "host/objects.h"

namespace egfsvg {

struct ObjectRelease {
  void operator()(_egf_obj* object) const { EEL_DestroyObject(object); }
};
using ObjectOwner = std::unique_ptr<_egf_obj, ObjectRelease>;

struct RmmRelease {
  void operator()(void* block) const { RMM_Free(block); }
};
template <class T>
using RmmOwner = std::unique_ptr<T, RmmRelease>;

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

inline void logOutOfMemory(const char* file, int line) {
  MSG_LogMsg_Named(kMessageSeverity, kMessageOutOfMemory, nullptr, 0, file, line);
}

}  // namespace egfsvg
