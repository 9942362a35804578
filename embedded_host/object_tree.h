// Links between objects: children, siblings, parents. Nothing here recurses, so that a tree may be
// as deep as memory allows.
#pragma once

#include "embedded_host/cage.h"
#include "embedded_host/layouts.h"
#include "host/wire.h"

namespace egfhost {

using ObjectLink = ref32<_egf_obj>;

// The object behind a link that is not null.
inline _egf_obj* linked(ObjectLink link) {
  return reinterpret_cast<_egf_obj*>(cageStart + link.offset);
}
inline ObjectLink linkTo(const _egf_obj* object) {
  return {static_cast<HostHandle>(reinterpret_cast<const char*>(object) - cageStart)};
}

inline bool isContainer(const _egf_obj* object) { return layoutOf(object).childOffset != 0; }

inline _egf_obj* firstChildOf(const _egf_obj* object) {
  const std::uint16_t offset = layoutOf(object).childOffset;
  return offset == 0 ? nullptr : egfsvg::readPacked<ObjectLink>(object, offset).get();
}

inline _egf_obj* lastChildOf(const _egf_obj* object) {
  const std::uint16_t offset = layoutOf(object).childOffset;
  return offset == 0 ? nullptr
                     : egfsvg::readPacked<ObjectLink>(object, offset + sizeof(ObjectLink)).get();
}

// Both links of a container; null ends an empty one.
inline void setChildren(_egf_obj* container, _egf_obj* first, _egf_obj* last) {
  const std::uint16_t offset = layoutOf(container).childOffset;
  egfsvg::writePacked(container, offset, ObjectLink::of(first));
  egfsvg::writePacked(container, offset + sizeof(ObjectLink), ObjectLink::of(last));
}

// Makes a loose object the last child of a container.
inline void linkLast(_egf_obj* container, _egf_obj* child) {
  const std::uint16_t offset = layoutOf(container).childOffset;
  const auto last = egfsvg::readPacked<ObjectLink>(container, offset + sizeof(ObjectLink));
  const ObjectLink added = linkTo(child);
  child->parent = linkTo(container);
  child->next = ObjectLink{};
  if (last) {
    linked(last)->next = added;
  } else {
    egfsvg::writePacked(container, offset, added);
  }
  egfsvg::writePacked(container, offset + sizeof(ObjectLink), added);
}

// Takes an object from its parent; a loose one stays as it is.
void unlink(_egf_obj* object);

// Puts a loose object in the place of a child, which becomes loose.
void replaceChild(_egf_obj* child, _egf_obj* replacement);

// The object after `at` in the order of drawing, within the tree of `root`; null at its end.
_egf_obj* nextInTree(const _egf_obj* root, _egf_obj* at);

// A loose deep copy; null when memory is short.
_egf_obj* copyObject(const _egf_obj* object);

// Frees a loose object with all it owns.
void freeObject(_egf_obj* object) noexcept;

// The same for the root of a whole tree, where it is worth doing more at a time. Null is allowed.
void freeTreeOf(_egf_obj* root) noexcept;

}  // namespace egfhost
