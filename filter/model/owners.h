// Owners of what a converter holds until it is handed on: host objects and blocks.
#pragma once

#include <memory>

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

inline void logOutOfMemory(const char* file, int line) {
  MSG_LogMsg_Named(kMessageSeverity, kMessageOutOfMemory, nullptr, 0, file, line);
}

}  // namespace egfsvg
