// How each object class is laid out in memory: its size and what it owns. It follows the layout
// class in an object's head, which no mark written over `objClass` changes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "embedded_host/tree_memory.h"
#include "host/egf_rows.h"

namespace egfhost {

// A field that holds a pointer or handle to something that the object owns.
struct OwnedField {
  std::uint16_t offset;
  egfsvg::FieldKind kind;
  egfsvg::FieldCount count;
};

// Rows stand at multiples of a power of two, so that finding one is a shift.
struct alignas(32) ObjectLayout {
  static constexpr std::size_t kMostOwned = 3;

  std::uint16_t size;         // bytes of the record; 0 for a class that does not exist
  std::uint16_t childOffset;  // of the first-child link, the last-child link follows it; 0 for none
  std::uint8_t ownedCount;
  std::array<OwnedField, kMostOwned> ownedFields;  // without the children

  constexpr std::span<const OwnedField> owned() const { return {ownedFields.data(), ownedCount}; }
};

inline constexpr std::size_t kLayoutCount = egfsvg::kClassHotspot + 1;

consteval ObjectLayout layoutFrom(const egfsvg::RecordRow& record) {
  ObjectLayout layout{};
  layout.size = static_cast<std::uint16_t>(record.size);
  for (const egfsvg::FieldRow& row : record.fields) {
    if (row.kind == egfsvg::FieldKind::kFirstChild) {
      layout.childOffset = row.offset;
    } else if (egfsvg::isOwned(row.kind)) {
      layout.ownedFields[layout.ownedCount++] = {row.offset, row.kind, row.count};
    }
  }
  return layout;
}

consteval std::array<ObjectLayout, kLayoutCount> allLayouts() {
  std::array<ObjectLayout, kLayoutCount> layouts{};
  for (const egfsvg::RecordRow& record : egfsvg::kObjectRecords) {
    layouts[static_cast<std::size_t>(record.number)] = layoutFrom(record);
  }
  return layouts;
}

inline constexpr std::array<ObjectLayout, kLayoutCount> kLayouts = allLayouts();

consteval std::array<RecordRoom, kLayoutCount> allRooms() {
  std::array<RecordRoom, kLayoutCount> rooms{};
  for (std::size_t i = 0; i < kLayoutCount; ++i) {
    if (kLayouts[i].size != 0) rooms[i] = roomForRecord(kLayouts[i].size);
  }
  return rooms;
}

// The room for a record of each class, of no bytes for a class that does not exist.
inline constexpr std::array<RecordRoom, kLayoutCount> kRecordRooms = allRooms();

// The layout of a class; null for a class that the host does not know.
inline const ObjectLayout* layoutOfClass(int objClass) {
  if (objClass < 0 || static_cast<std::size_t>(objClass) >= kLayoutCount) return nullptr;
  const ObjectLayout& layout = kLayouts[static_cast<std::size_t>(objClass)];
  return layout.size == 0 ? nullptr : &layout;
}

// The layout of an object that EEL_AllocObject made.
inline const ObjectLayout& layoutOf(const _egf_obj* object) {
  return kLayouts[object->layoutClass];
}

// Entries of an owned array, as the object counts them. A negative count is none.
std::size_t entriesOf(const _egf_obj* object, const egfsvg::FieldCount& count);

}  // namespace egfhost
