#include <cstring>

#include "embedded_host/host_rasters.h"
#include "embedded_host/object_tree.h"
#include "embedded_host/tree_memory.h"
#include "host/memory.h"
#include "host/palettes.h"

namespace egfhost {

using egfsvg::CountKind;
using egfsvg::FieldKind;
using egfsvg::readPacked;
using egfsvg::writePacked;

namespace {

std::size_t bounded(std::int64_t count) {
  return count > 0 && count <= INT32_MAX ? static_cast<std::size_t>(count) : 0;
}

// Frees blocks one by one, where TreeFreeing would take those of a whole tree.
struct EachAlone {
  void free(HostHandle block) { RMM_Free(egfsvg::at<void>(block)); }
};

template <class Freeing>
void freePalette(HostHandle handle, Freeing& freeing) noexcept {
  freeing.free(egfsvg::at<_sel_colour_list>(handle)->colours.offset);
  freeing.free(handle);
}

template <class Freeing>
void freeOwned(const _egf_obj* object, const ObjectLayout& layout, Freeing& freeing) noexcept {
  for (const OwnedField& field : layout.owned()) {
    const auto handle = readPacked<HostHandle>(object, field.offset);
    if (handle == 0) continue;
    if (field.kind == FieldKind::kRaster) {
      releaseRaster(handle);
    } else if (field.kind == FieldKind::kPalette) {
      freePalette(handle, freeing);
    } else {
      freeing.free(handle);
    }
  }
}

HostHandle copyBytes(const void* source, std::size_t size) {
  void* copy = RMM_AllocName(1, size, RMM_SITE);
  if (copy != nullptr) std::memcpy(copy, source, size);
  return egfsvg::handleOf(copy);
}

// A copy of what the field holds, 0 when memory is short.
HostHandle copyOwned(const _egf_obj* object, const OwnedField& field, HostHandle source) {
  switch (field.kind) {
    case FieldKind::kRaster:
      return shareRaster(source);
    case FieldKind::kPalette:
      return egfsvg::handleOf(SEL_CLOR_Duplicate(egfsvg::at<_sel_colour_list>(source), RMM_SITE));
    case FieldKind::kString: {
      const char* text = egfsvg::at<char>(source);
      return copyBytes(text, std::strlen(text) + 1);
    }
    default:
      return copyBytes(egfsvg::at<void>(source),
                       entriesOf(object, field.count) * egfsvg::entrySize(field.kind));
  }
}

// The record by itself: loose, without owned things and children.
_egf_obj* copyRecord(const _egf_obj* object) {
  const ObjectLayout& layout = layoutOf(object);
  auto* copy = static_cast<_egf_obj*>(RMM_AllocName(1, layout.size, RMM_SITE));
  if (copy == nullptr) return nullptr;
  std::memcpy(copy, object, layout.size);
  copy->next = nullptr;
  copy->parent = nullptr;
  if (layout.childOffset != 0) setChildren(copy, nullptr, nullptr);
  for (const OwnedField& field : layout.owned()) writePacked<HostHandle>(copy, field.offset, 0);
  return copy;
}

_egf_obj* copyWithoutChildren(const _egf_obj* object) {
  _egf_obj* copy = copyRecord(object);
  if (copy == nullptr) return nullptr;
  for (const OwnedField& field : layoutOf(object).owned()) {
    const auto source = readPacked<HostHandle>(object, field.offset);
    if (source == 0) continue;
    const HostHandle owned = copyOwned(object, field, source);
    if (owned == 0) {
      freeObject(copy);
      return nullptr;
    }
    writePacked(copy, field.offset, owned);
  }
  return copy;
}

// A tree that is larger than the caches mostly stands in memory in the order of its objects: what
// comes next is fetched while it is not needed yet.
void fetchAhead(const _egf_obj* object) {
  constexpr std::size_t kAhead = 3072;
  constexpr std::size_t kCacheLine = 64;
  constexpr std::size_t kLines = 4;
  const char* const ahead = reinterpret_cast<const char*>(object) + kAhead;
  for (std::size_t i = 0; i < kLines; ++i) __builtin_prefetch(ahead + i * kCacheLine);
}

// The first object at or below one that has no children.
_egf_obj* firstLeaf(_egf_obj* at) {
  for (;;) {
    fetchAhead(at);
    const std::uint16_t offset = layoutOf(at).childOffset;
    if (offset == 0) return at;
    const auto child = readPacked<ObjectLink>(at, offset);
    if (!child) return at;
    at = linked(child);
  }
}

// Each object goes after its children.
template <class Freeing>
void freeEach(_egf_obj* root, Freeing& freeing) noexcept {
  _egf_obj* at = firstLeaf(root);
  for (;;) {
    const ObjectLink next = at->next;
    const ObjectLink parent = at->parent;
    freeOwned(at, layoutOf(at), freeing);
    freeing.free(linkTo(at).offset);
    if (at == root) return;
    at = next ? firstLeaf(linked(next)) : linked(parent);
  }
}

}  // namespace

std::size_t entriesOf(const _egf_obj* object, const egfsvg::FieldCount& count) {
  switch (count.kind) {
    case CountKind::kU8Field:
      return readPacked<std::uint8_t>(object, count.value);
    case CountKind::kU16Field:
      return readPacked<std::uint16_t>(object, count.value);
    case CountKind::kU32Field:
      return bounded(readPacked<std::int32_t>(object, count.value));
    default:
      return count.value;
  }
}

_egf_obj* copyObject(const _egf_obj* object) {
  _egf_obj* root = copyWithoutChildren(object);
  if (root == nullptr) return nullptr;
  const _egf_obj* source = object;
  _egf_obj* copy = root;  // of source
  for (;;) {
    _egf_obj* container = copy;
    const _egf_obj* following = firstChildOf(source);
    if (following == nullptr) {
      while (source != object && !source->next) {
        source = source->parent.get();
        copy = copy->parent.get();
      }
      if (source == object) return root;
      following = source->next.get();
      container = copy->parent.get();
    }
    copy = copyWithoutChildren(following);
    if (copy == nullptr) {
      freeObject(root);
      return nullptr;
    }
    linkLast(container, copy);
    source = following;
  }
}

void freeObject(_egf_obj* object) noexcept {
  EachAlone freeing;
  freeEach(object, freeing);
}

void freeTreeOf(_egf_obj* root) noexcept {
  if (root == nullptr) return;
  TreeFreeing freeing;
  freeEach(root, freeing);
}

}  // namespace egfhost
