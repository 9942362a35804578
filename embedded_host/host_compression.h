// Why the last compression call failed.
#pragma once

#include <cstdint>

#include "host/compression.h"

namespace egfhost {

enum class CompressionFailure : std::uint8_t {
  kNone,
  kUnreadable,
  kUnwritable,
  kDamaged,
  kCutOff,    // the compressed data ends early
  kTooLarge,  // more than 1 GiB when not compressed
  kNoMemory
};

EGFHOST_API CompressionFailure compressionFailure();

// In words, for messages.
EGFHOST_API const char* describe(CompressionFailure failure);

}  // namespace egfhost
