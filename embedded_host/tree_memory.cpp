#include "embedded_host/tree_memory.h"

#include "embedded_host/memory_tally.h"
#include "host/memory.h"

namespace egfhost {

void TreeFreeing::freeAlone(HostHandle block) { RMM_Free(egfsvg::at<void>(block)); }

void TreeFreeing::settle(std::size_t next) {
  if (slots_ != 0) {
    memoryTally.removeBlocks(slots_, bytes_);
    giveUnlisted(region_, slots_);
  }
  region_ = next;
  slots_ = 0;
  bytes_ = 0;
}

TreeFreeing::~TreeFreeing() {
  settle(0);
  listTheUnlisted();
}

}  // namespace egfhost
