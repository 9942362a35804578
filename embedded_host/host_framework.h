// What tests see of the framework: that exceptions are deleted once and that guards restore.
#pragma once

#include <cstdint>

#include "host/framework.h"

namespace egfhost {

// CException objects made and deleted since the process began.
struct ExceptionCounts {
  std::uint64_t made;
  std::uint64_t deleted;
};
EGFHOST_API ExceptionCounts exceptionCounts();

}  // namespace egfhost
