// Poisoning of cage memory in sanitizer builds; nothing in the others.
#pragma once

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define EGFHOST_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define EGFHOST_ASAN 1
#endif
#endif

#ifdef EGFHOST_ASAN
#include <sanitizer/asan_interface.h>
#include <sanitizer/common_interface_defs.h>
#define EGFHOST_SEES_POISON __attribute__((no_sanitize("address")))
#else
// A function that reads and writes poisoned bytes.
#define EGFHOST_SEES_POISON
#endif

namespace egfhost {

// Poison is kept for grains of 8 bytes, of which the first few may be good.
inline constexpr std::size_t kPoisonGrainMask = 7;

#ifdef EGFHOST_ASAN
inline constexpr bool kPoisoning = true;
inline void poison(const void* at, std::size_t size) { ASAN_POISON_MEMORY_REGION(at, size); }
inline void unpoison(const void* at, std::size_t size) { ASAN_UNPOISON_MEMORY_REGION(at, size); }
inline void printCallers() { __sanitizer_print_stack_trace(); }
#else
inline constexpr bool kPoisoning = false;
inline void poison(const void*, std::size_t) {}
inline void unpoison(const void*, std::size_t) {}
inline void printCallers() {}
#endif

}  // namespace egfhost
