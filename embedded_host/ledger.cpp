#include <algorithm>
#include <map>
#include <utility>

#include "embedded_host/blocks.h"
#include "embedded_host/host_memory.h"

namespace egfhost {

namespace {

using SiteKey = std::pair<std::string, int>;

EGFHOST_SEES_POISON BlockHeader copyOf(const BlockHeader* header) {
  return BlockHeader{header->file, header->size, header->line, header->sizeClass, header->state};
}

std::string fileText(const char* file) { return file == nullptr ? "?" : file; }

}  // namespace

std::vector<SiteUse> liveSites() {
  std::map<SiteKey, SiteUse> sites;
  forEachLiveBlock([&](const BlockHeader* address) {
    const BlockHeader header = copyOf(address);
    SiteUse& use = sites[{fileText(header.file), header.line}];
    ++use.blocks;
    use.bytes += header.size;
    if (header.state == BlockState::kChowned) ++use.documentBlocks;
  });
  std::vector<SiteUse> list;
  for (auto& [key, use] : sites) {
    use.file = key.first;
    use.line = key.second;
    list.push_back(use);
  }
  return list;
}

std::vector<SiteUse> liveSitesSince(const std::vector<SiteUse>& before) {
  std::map<SiteKey, const SiteUse*> known;
  for (const SiteUse& use : before) known[{use.file, use.line}] = &use;
  std::vector<SiteUse> more;
  for (SiteUse use : liveSites()) {
    const auto found = known.find({use.file, use.line});
    if (found != known.end()) {
      const SiteUse& then = *found->second;
      if (use.blocks <= then.blocks) continue;
      use.blocks -= then.blocks;
      use.bytes -= std::min(use.bytes, then.bytes);
      use.documentBlocks -= std::min(use.documentBlocks, then.documentBlocks);
    }
    more.push_back(use);
  }
  return more;
}

std::string describeSites(const std::vector<SiteUse>& sites) {
  std::string text;
  for (const SiteUse& use : sites) {
    text += use.file + ":" + std::to_string(use.line) + ": " + std::to_string(use.blocks) +
            " blocks, " + std::to_string(use.bytes) + " bytes\n";
  }
  return text;
}

}  // namespace egfhost
