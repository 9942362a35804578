// What the allocator counts.
#pragma once

#include <algorithm>
#include <cstdint>

namespace egfhost {

// What is live, and the most that it has been. What rises is only added: a peak is looked at before
// a fall, and when somebody asks for it.
struct Height {
  std::uint64_t live = 0;
  std::uint64_t highest = 0;  // before the last fall

  std::uint64_t peak() const { return std::max(live, highest); }
  void rise(std::uint64_t by) { live += by; }
  void fall(std::uint64_t by) {
    if (live > highest) highest = live;
    live -= by;
  }
  void restart() { highest = live; }
};

struct MemoryTally {
  Height bytes;
  Height blocks;
  std::uint64_t allocations = 0;
  std::uint64_t refusals = 0;
  std::uint64_t badFrees = 0;

  void addBlock(std::uint64_t size) {
    bytes.rise(size);
    blocks.rise(1);
    ++allocations;
  }
  void resizeBlock(std::uint64_t before, std::uint64_t size) {
    if (size < before) {
      bytes.fall(before - size);
    } else {
      bytes.rise(size - before);
    }
    ++allocations;
  }
  void removeBlocks(std::uint64_t count, std::uint64_t size) {
    bytes.fall(size);
    blocks.fall(count);
  }
};
extern MemoryTally memoryTally;

}  // namespace egfhost
