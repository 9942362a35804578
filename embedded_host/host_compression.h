// Why the last compression call failed, and what it may give at most.
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
  kTooLarge,  // more than the largest size when not compressed
  kNoMemory
};

EGFHOST_API CompressionFailure compressionFailure();

// What inflating may give at most, in bytes; 0 stands for the built-in 1 GiB.
inline constexpr std::int64_t kBuiltInLargestInflated = std::int64_t{1} << 30;
EGFHOST_API void setLargestInflated(std::int64_t bytes);

// In words, for messages.
EGFHOST_API const char* describe(CompressionFailure failure);

}  // namespace egfhost
