// Style tables: records of one size, numbered from 1, equal bytes sharing one number.
// 0 as a style number means that there is no such style; 0 as a table is an empty one.
#pragma once

#include <cstdint>

#include "host/wire.h"

// The cursor of STYLE_Enumerate.
struct _style_cursor {
  std::uint32_t start;  // always 0
  std::uint32_t size;   // the record size of the table in bytes
};

// A non-zero result ends the enumeration.
using StyleProc = int (*)(std::uint32_t size, const void* record, void* userData);

extern "C" {

EGFHOST_API HostHandle STYLE_Create();            // 0 on failure
EGFHOST_API int STYLE_Destroy(HostHandle table);  // never throws

// The number of an equal record if there is one, else of a new copy; 0 on failure.
EGFHOST_API std::uint32_t STYLE_AppendUnique(HostHandle table, std::uint32_t size,
                                             const void* record);

// Pointer into the table, valid as long as the table. Non-zero and null when there is none.
EGFHOST_API int STYLE_QueryData(HostHandle table, std::uint32_t number, std::uint32_t* size,
                                void** record);

// The number of an equal record, 0 when there is none.
EGFHOST_API std::uint32_t STYLE_QueryStyleNo(HostHandle table, std::uint32_t size,
                                             const void* record);

EGFHOST_API std::uint32_t STYLE_QueryTotalStyleCount(HostHandle table);

// Calls the procedure for each record in order of their numbers; returns the first non-zero result.
EGFHOST_API int STYLE_Enumerate(HostHandle table, _style_cursor* cursor, StyleProc procedure,
                                void* userData);

}  // extern "C"
