#include "embedded_host/handles.h"

namespace egfhost {

bool attachHandle(HostObject* object, const char* file, int line) {
  auto* const tag = static_cast<HandleTag*>(RMM_AllocName(1, sizeof(HandleTag), file, line));
  if (tag == nullptr) return false;
  *tag = HandleTag{HandleTag::kLive, object->kind(), object};
  object->handle_ = egfsvg::handleOf(tag);
  return true;
}

void endHostObject(HostObject* object) {
  if (object == nullptr) return;
  auto* const tag = egfsvg::at<HandleTag>(object->handle());
  tag->mark = 0;
  delete object;
  RMM_Free(tag);
}

void releaseHostObject(HostObject* object) {
  if (object != nullptr && object->dropReference()) endHostObject(object);
}

}  // namespace egfhost
