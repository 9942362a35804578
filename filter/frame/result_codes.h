// Result codes of the entry points and the layer classes.
#pragma once

#include <cstdint>

namespace egfsvg {

enum ResultCode : std::int32_t {
  kOk = 0,
  kExceptionCaught = -5201,   // a CException reached the barrier
  kMissingField = -5202,      // record or required field missing; empty object tree on write
  kOutOfMemory = -5203,       // also a missing writer at two writer calls
  kUnknownWriteType = -5205,  // unknown record type at the serialiser
  kLineNotWritten = -5206,    // a line could not be written
  kUnknownReadType = -5214,   // unknown record type at the adapter callback
  kUnsupportedQuery = -5216,  // unsupported query property
  kNothingToRead = -5217,     // nothing to read, or a syntax error in an element
  kNoHandler = -5218,         // no handler open
};

/// Results of an element callback.
enum CallbackResult : std::int32_t { kStopQuietly = 0, kGoOn = 1 };

}  // namespace egfsvg
