#include "embedded_host/object_tree.h"

namespace egfhost {

namespace {

_egf_obj* previousSibling(const _egf_obj* object) {
  _egf_obj* previous = nullptr;
  for (_egf_obj* at = firstChildOf(object->parent.get()); at != object; at = at->next.get()) {
    previous = at;
  }
  return previous;
}

void relink(_egf_obj* object, _egf_obj* successor, _egf_obj* newLast) {
  _egf_obj* parent = object->parent.get();
  _egf_obj* previous = previousSibling(object);
  if (previous != nullptr) previous->next = successor;
  _egf_obj* first = previous == nullptr ? successor : firstChildOf(parent);
  _egf_obj* last = lastChildOf(parent) == object ? newLast : lastChildOf(parent);
  setChildren(parent, first, last);
  object->parent = nullptr;
  object->next = nullptr;
}

}  // namespace

void unlink(_egf_obj* object) {
  if (!object->parent) return;
  relink(object, object->next.get(), previousSibling(object));
}

void replaceChild(_egf_obj* child, _egf_obj* replacement) {
  replacement->parent = child->parent;
  replacement->next = child->next;
  relink(child, replacement, replacement);
}

_egf_obj* nextInTree(const _egf_obj* root, _egf_obj* at) {
  if (_egf_obj* child = firstChildOf(at)) return child;
  while (at != root && !at->next) at = at->parent.get();
  return at == root ? nullptr : at->next.get();
}

}  // namespace egfhost
