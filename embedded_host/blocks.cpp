#include "embedded_host/blocks.h"

namespace egfhost {

namespace {

std::uint32_t pagesFor(std::size_t payload) {
  return static_cast<std::uint32_t>((payload + kBlockOverhead + kPageSize - 1) >> kPageShift);
}

}  // namespace

BlockHeader* takeLarge(std::size_t payload) {
  const std::uint32_t run = takeLargeRun(pagesFor(payload));
  if (run == 0) return nullptr;
  poison(pageAddress(run), std::size_t{pageRuns[run].pages} << kPageShift);
  return reinterpret_cast<BlockHeader*>(pageAddress(run));
}

void giveLarge(BlockHeader* header) { releaseRun(pageOf(header)); }

std::size_t largeRoom(const BlockHeader* header) {
  return (std::size_t{pageRuns[pageOf(header)].pages} << kPageShift) - kBlockOverhead;
}

bool extendBlock(BlockHeader* header, std::size_t payload) {
  // A small one keeps its class: else the classes that blocks grow from would never be at hand.
  if (classOf(header) != kLargeClass) return false;
  const std::uint32_t first = pageOf(header);
  const std::uint32_t before = pageRuns[first].pages;
  if (!extendRun(first, pagesFor(payload))) return false;
  poison(pageAddress(first + before), std::size_t{pageRuns[first].pages - before} << kPageShift);
  return true;
}

}  // namespace egfhost
