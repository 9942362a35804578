// Walks a tree of objects in drawing order, without recursion: trees may be very deep.
#pragma once

#include <vector>

#include "host/egf_codes.h"
#include "host/egf_objects.h"

namespace egfrender {

// The first child of a group or a path; null for what has none.
inline const _egf_obj* firstChildOf(const _egf_obj& object) {
  switch (object.layoutClass) {
    case egfsvg::kClassGroup:
      return egfsvg::as<egfsvg::EgfGroup>(&object)->firstChild.get();
    case egfsvg::kClassPath:
      return egfsvg::as<egfsvg::EgfPath>(&object)->firstChild.get();
    default:
      return nullptr;
  }
}

// Calls enter(object) for the root and everything below it; where it gives true, the children
// follow. leave(object) is called for each object behind its children.
template <class Enter, class Leave>
void walkObjects(const _egf_obj& root, Enter enter, Leave leave) {
  std::vector<const _egf_obj*> open;
  const _egf_obj* object = &root;
  while (object != nullptr) {
    const _egf_obj* child = enter(*object) ? firstChildOf(*object) : nullptr;
    if (child != nullptr) {
      open.push_back(object);
      object = child;
      continue;
    }
    leave(*object);
    while (!open.empty() && !object->next) {
      object = open.back();
      open.pop_back();
      leave(*object);
    }
    object = open.empty() ? nullptr : object->next.get();
  }
}

template <class Enter>
void walkObjects(const _egf_obj& root, Enter enter) {
  walkObjects(root, enter, [](const _egf_obj&) {});
}

}  // namespace egfrender
