// A style table: records numbered from 1, found again by their bytes through a hash index.
#pragma once

#include <cstdint>
#include <vector>

#include "embedded_host/handles.h"
#include "host/style_tables.h"

namespace egfhost {

class StyleTable : public HostObject {
 public:
  static constexpr HostKind kKind = HostKind::kStyleTable;

  struct Record {
    std::uint64_t hash;
    void* bytes;  // a block of its own
    std::uint32_t size;
  };

  StyleTable() : HostObject(kKind) {}
  ~StyleTable() override;

  std::uint32_t count() const { return static_cast<std::uint32_t>(records_.size()); }

  // Null when there is no such number.
  const Record* record(std::uint32_t number) const;

  // The number of an equal record, 0 for none.
  std::uint32_t find(std::uint32_t size, const void* bytes) const;

  // The number of an equal record or of a new copy, 0 when memory is short.
  std::uint32_t append(std::uint32_t size, const void* bytes);

  int enumerate(StyleProc procedure, void* userData) const;

 private:
  std::size_t slotFor(std::uint64_t hash, std::uint32_t size, const void* bytes) const;
  void growSlots();

  std::vector<Record> records_;
  std::vector<std::uint32_t> slots_;  // a power of two; numbers, 0 for an empty slot
};

}  // namespace egfhost
