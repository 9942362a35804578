// What a writer keeps besides its required members, all of it for one write.
#pragma once

#include <cstdint>

namespace egfsvg {

struct WriterState {
  bool outOfMemory = false;        // the record at hand could not have what it needs
  std::uint32_t depth = 0;         // open objects
  std::uint32_t stockDepth = 0;    // standard objects inside standard objects
  std::uint32_t stockObjects = 0;  // standard objects expanded so far
  bool limitReported = false;
};

}  // namespace egfsvg
