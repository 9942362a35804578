// Objects that no element stands for: each kind is logged once in a process.
#pragma once

#include <cstdint>

namespace egfsvg {

inline constexpr int kUnsupportedKinds = 7;

/// What a process remembers between written files.
struct WriterStatics {
  bool logged[kUnsupportedKinds] = {};
  bool noticeShown = true;  // Kept: nothing clears it, so that the notice never shows
  std::int32_t imageNumber = 0;
};
WriterStatics& writerStatics();

/// Logs the kind of an object's class when it is the first of its kind; classes without a name of
/// their own share one.
void reportUnsupported(int objClass);

}  // namespace egfsvg
