#include "embedded_host/object_tree.h"

namespace egfhost {

void linkLast(_egf_obj* container, _egf_obj* child) {
  child->parent = container;
  child->next = nullptr;
  _egf_obj* last = lastChildOf(container);
  if (last == nullptr) {
    setChildren(container, child, child);
    return;
  }
  last->next = child;
  setChildren(container, firstChildOf(container), child);
}

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
