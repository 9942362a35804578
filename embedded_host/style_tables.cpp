#include "embedded_host/style_tables.h"

#include <cstring>

#include "embedded_host/fault.h"
#include "host/style_tables.h"

namespace egfhost {

namespace {

constexpr std::size_t kFirstSlots = 16;

std::uint64_t mixed(std::uint64_t hash, std::uint64_t word) {
  constexpr std::uint64_t kMultiplier = 0x9ddfea08eb382d69u;
  hash = (hash ^ word) * kMultiplier;
  return hash ^ (hash >> 29);
}

// Takes eight bytes at a time, the last ones filled up with zeros.
std::uint64_t hashOf(const void* bytes, std::size_t size) {
  const auto* at = static_cast<const char*>(bytes);
  std::uint64_t hash = size;
  std::uint64_t word = 0;
  for (; size >= sizeof word; size -= sizeof word, at += sizeof word) {
    std::memcpy(&word, at, sizeof word);
    hash = mixed(hash, word);
  }
  word = 0;
  std::memcpy(&word, at, size);
  return mixed(hash, word);
}

}  // namespace

StyleTable::~StyleTable() {
  for (const Record& record : records_) RMM_Free(record.bytes);
}

const StyleTable::Record* StyleTable::record(std::uint32_t number) const {
  return number == 0 || number > records_.size() ? nullptr : &records_[number - 1];
}

std::size_t StyleTable::slotFor(std::uint64_t hash, std::uint32_t size, const void* bytes) const {
  std::size_t slot = hash & (slots_.size() - 1);
  while (slots_[slot] != 0) {
    const Record& each = records_[slots_[slot] - 1];
    if (each.hash == hash && each.size == size && std::memcmp(each.bytes, bytes, size) == 0) break;
    slot = (slot + 1) & (slots_.size() - 1);
  }
  return slot;
}

std::uint32_t StyleTable::find(std::uint32_t size, const void* bytes) const {
  return slots_.empty() ? 0 : slots_[slotFor(hashOf(bytes, size), size, bytes)];
}

void StyleTable::growSlots() {
  std::vector<std::uint32_t> wider(slots_.empty() ? kFirstSlots : slots_.size() * 2, 0);
  for (std::uint32_t number = 1; number <= records_.size(); ++number) {
    std::size_t slot = records_[number - 1].hash & (wider.size() - 1);
    while (wider[slot] != 0) slot = (slot + 1) & (wider.size() - 1);
    wider[slot] = number;
  }
  slots_.swap(wider);
}

std::uint32_t StyleTable::append(std::uint32_t size, const void* bytes) {
  if (records_.size() * 2 >= slots_.size()) growSlots();
  const std::uint64_t hash = hashOf(bytes, size);
  const std::size_t slot = slotFor(hash, size, bytes);
  if (slots_[slot] != 0) return slots_[slot];
  records_.reserve(records_.size() == records_.capacity() ? records_.size() * 2 + 1 : 0);
  void* const copy = RMM_AllocName(1, size, RMM_SITE);
  if (copy == nullptr) return 0;
  std::memcpy(copy, bytes, size);
  records_.push_back({hash, copy, size});
  slots_[slot] = static_cast<std::uint32_t>(records_.size());
  return slots_[slot];
}

int StyleTable::enumerate(StyleProc procedure, void* userData) const {
  // A procedure may ask the table, and may even append: those come too.
  for (std::size_t i = 0; i < records_.size(); ++i) {
    const Record each = records_[i];
    const int result = procedure(each.size, each.bytes, userData);
    if (result != 0) return result;
  }
  return 0;
}

}  // namespace egfhost

using egfhost::FaultCall;
using egfhost::StyleTable;

HostHandle STYLE_Create() {
  if (egfhost::faultFails(FaultCall::STYLE_Create)) return 0;
  const StyleTable* const table = egfhost::makeHostObject<StyleTable>(RMM_SITE);
  return table == nullptr ? 0 : table->handle();
}

int STYLE_Destroy(HostHandle table) {
  StyleTable* const found = egfhost::hostObjectAs<StyleTable>(table);
  egfhost::endHostObject(found);
  return found == nullptr ? -1 : 0;
}

std::uint32_t STYLE_AppendUnique(HostHandle table, std::uint32_t size, const void* record) {
  if (egfhost::faultFails(FaultCall::STYLE_AppendUnique)) return 0;
  StyleTable* const found = egfhost::hostObjectAs<StyleTable>(table);
  if (found == nullptr || record == nullptr || size == 0) return 0;
  return egfhost::hostCall(std::uint32_t{0}, [&] { return found->append(size, record); });
}

int STYLE_QueryData(HostHandle table, std::uint32_t number, std::uint32_t* size, void** record) {
  if (size != nullptr) *size = 0;
  if (record != nullptr) *record = nullptr;
  if (egfhost::faultFails(FaultCall::STYLE_QueryData)) return -1;
  const StyleTable* const found = egfhost::hostObjectAs<StyleTable>(table);
  const StyleTable::Record* const row = found == nullptr ? nullptr : found->record(number);
  if (row == nullptr) return -1;
  if (size != nullptr) *size = row->size;
  if (record != nullptr) *record = row->bytes;
  return 0;
}

std::uint32_t STYLE_QueryStyleNo(HostHandle table, std::uint32_t size, const void* record) {
  if (egfhost::faultFails(FaultCall::STYLE_QueryStyleNo)) return 0;
  const StyleTable* const found = egfhost::hostObjectAs<StyleTable>(table);
  return found == nullptr || record == nullptr ? 0 : found->find(size, record);
}

std::uint32_t STYLE_QueryTotalStyleCount(HostHandle table) {
  const StyleTable* const found = egfhost::hostObjectAs<StyleTable>(table);
  return found == nullptr ? 0 : found->count();
}

int STYLE_Enumerate(HostHandle table, _style_cursor*, StyleProc procedure, void* userData) {
  if (egfhost::faultFails(FaultCall::STYLE_Enumerate)) return -1;
  const StyleTable* const found = egfhost::hostObjectAs<StyleTable>(table);
  if (found == nullptr || procedure == nullptr) return 0;
  return found->enumerate(procedure, userData);
}
