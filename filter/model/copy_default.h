// Copying a record whole from its template.
#pragma once

#include <cstring>
#include <type_traits>

namespace egfsvg {

/// Byte copy, padding included; nothing for null.
template <class Record>
inline void copyDefault(Record* to, const Record& from) {
  static_assert(std::is_trivially_copyable_v<Record>, "records are copied by plain memory copy");
  if (to != nullptr) std::memcpy(to, &from, sizeof *to);
}

}  // namespace egfsvg
