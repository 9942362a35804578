#include "embedded_host/handles.h"

#include "embedded_host/blocks.h"

namespace egfhost {

namespace {

// Stands in the cage at the handle.
struct HandleTag {
  std::uint32_t mark;  // kLiveMark while the object lives
  HostKind kind;
  HostObject* object;
};

// The low half is no first word of a tree block or a layer block.
constexpr std::uint32_t kLiveMark = 0x4c444e48;

}  // namespace

bool attachHandle(HostObject* object, const char* file, int line) {
  auto* const tag = static_cast<HandleTag*>(RMM_AllocName(1, sizeof(HandleTag), file, line));
  if (tag == nullptr) return false;
  *tag = HandleTag{kLiveMark, object->kind(), object};
  object->handle_ = egfsvg::handleOf(tag);
  return true;
}

HostObject* hostObject(HostHandle handle) {
  auto* const tag = reinterpret_cast<HandleTag*>(cageStart + handle);
  if (!isLiveBlock(tag)) return nullptr;
  return tag->mark == kLiveMark ? tag->object : nullptr;
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
