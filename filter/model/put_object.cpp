#include "model/put_object.h"

#include <cstring>
#include <type_traits>

#include "host/memory.h"
#include "host/messages.h"

extern "C" int SVG_A_PutObject(_svg_a** slot, _svg_objects* object) {
  static_assert(std::is_trivially_copyable_v<_svg_objects>);
  if (slot == nullptr || *slot == nullptr || object == nullptr) return -1;
  _svg_a& link = **slot;
  const auto wanted = static_cast<std::size_t>(link.objectCount) + 1;
  void* grown = RMM_ReAllocName(link.objects, wanted, sizeof *object, RMM_SITE);
  if (grown == nullptr) {
    MSG_LogMsg_Named(kMessageSeverity, kMessageOutOfMemory, nullptr, 0, RMM_SITE);
    return -1;
  }
  link.objects = static_cast<_svg_objects*>(grown);
  std::memcpy(&link.objects[link.objectCount], object, sizeof *object);
  ++link.objectCount;
  RMM_Free(object);
  return 0;
}
