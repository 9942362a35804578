#include "adapter_writer/style_pools.h"

#include <cstring>

#include "host/documents.h"
#include "model/number_text.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

constexpr std::size_t kStyleNameSize = 32;  // a short prefix and any number

/// Writes the name with its terminator; returns its length.
std::size_t writeName(std::string_view prefix, std::int64_t number, char (&out)[kStyleNameSize]) {
  prefix.copy(out, prefix.size());
  char* end = integerText(out + prefix.size(), number);
  *end = '\0';
  return static_cast<std::size_t>(end - out);
}

}  // namespace

char* styleName(std::string_view prefix, std::int64_t number) {
  char name[kStyleNameSize];
  const std::size_t length = writeName(prefix, number, name);
  return duplicateText(name, length, RMM_SITE);
}

HostHandle documentTable(const CAdapterWriter& writer, StyleClass styleClass) {
  return ISL_GetProperty(OBJ_GetRootTrace(writer.document, RMM_SITE),
                         static_cast<std::uint32_t>(styleClass));
}

const void* documentRecord(const CAdapterWriter& writer, StyleClass styleClass,
                           std::uint32_t number, std::size_t size) {
  if (number == 0) return nullptr;
  std::uint32_t found = 0;
  void* record = nullptr;
  const HostHandle table = documentTable(writer, styleClass);
  if (STYLE_QueryData(table, number, &found, &record) != 0 || found < size) return nullptr;
  return record;
}

int enumerateTable(HostHandle table, std::uint32_t size, StyleProc procedure,
                   _adapterWriteData* data) {
  if (STYLE_QueryTotalStyleCount(table) == 0) return 0;
  _style_cursor cursor{0, size};
  return STYLE_Enumerate(table, &cursor, procedure, data);
}

void setPooledClass(CAdapterWriter& writer, const PoolRow& pool, const void* record,
                    _svg_common& head) {
  const std::uint32_t number = STYLE_AppendUnique(poolTable(writer, pool), pool.size, record);
  if (number == 0) return;
  head.classNames = allocateRecord<ClassName>(RMM_SITE);
  if (head.classNames == nullptr) return;
  char name[kStyleNameSize];
  std::memcpy(head.classNames[0], name, writeName(pool.prefix, number, name) + 1);
  head.classCount = 1;
}

}  // namespace egfsvg
