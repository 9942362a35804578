#include <algorithm>
#include <cstring>

#include "embedded_host/fault.h"
#include "embedded_host/host_trees.h"
#include "embedded_host/object_tree.h"
#include "host/egf_codes.h"
#include "host/memory.h"
#include "host/objects.h"

namespace egfhost {

using namespace egfsvg;

namespace {

EgfTreeBlock* blockOf(HostHandle tree) { return at<EgfTreeBlock>(tree); }

void freeDashes(EgfPageHeader* header) noexcept {
  _egf_dash_record* dash = header->firstDash.get();
  if (dash != nullptr) RMM_Free(dash->index.get());
  while (dash != nullptr) {
    _egf_dash_record* next = dash->next.get();
    RMM_Free(dash);
    dash = next;
  }
}

void freeLayers(EgfPageHeader* header) noexcept {
  const HostHandle* table = header->layerTable.get();
  for (std::uint32_t i = 0; table != nullptr && i < header->layerCount; ++i) {
    RMM_Free(at<void>(table[i]));
  }
  RMM_Free(header->layerTable.get());
}

}  // namespace

HostHandle createTree(HostHandle document) {
  // The root comes first: its call may throw when faults are tried.
  _egf_obj* root = EEL_AllocObject(kClassGroup, RMM_SITE);
  if (root == nullptr) return 0;
  auto* block = static_cast<EgfTreeBlock*>(RMM_CallocName(1, sizeof(EgfTreeBlock), RMM_SITE));
  if (block == nullptr) {
    EEL_DestroyObject(root);
    return 0;
  }
  block->header.sizeAndKind = kTreeBlockWord;
  block->header.references = 1;
  block->document = document;
  block->body.root = root;
  block->body.pageHeader.nextDashNumber = 1;
  return handleOf(block);
}

void freeTree(HostHandle tree) noexcept {
  EgfTreeBlock* block = blockOf(tree);
  if (block == nullptr) return;
  freeTreeOf(block->body.root.get());
  freeDashes(&block->body.pageHeader);
  freeLayers(&block->body.pageHeader);
  RMM_Free(block);
}

bool isTree(HostHandle tree) {
  return tree != 0 && blockOf(tree)->header.sizeAndKind == kTreeBlockWord;
}

_egf_obj* rootOf(HostHandle tree) { return tree == 0 ? nullptr : blockOf(tree)->body.root.get(); }

EgfPageHeader* pageHeaderOf(HostHandle tree) {
  return tree == 0 ? nullptr : &blockOf(tree)->body.pageHeader;
}

int addLayer(HostHandle tree, const char* name, bool shown, bool suppressed) {
  EgfPageHeader* header = pageHeaderOf(tree);
  if (header == nullptr || header->layerCount >= kNoLayer) return -1;
  const std::uint32_t index = header->layerCount;
  auto* layer = static_cast<EgfLayerBlock*>(RMM_CallocName(1, sizeof(EgfLayerBlock), RMM_SITE));
  auto* table = static_cast<HostHandle*>(
      RMM_ReAllocName(header->layerTable.get(), index + 1, sizeof(HostHandle), RMM_SITE));
  if (table != nullptr) header->layerTable = table;
  if (layer == nullptr || table == nullptr) {
    RMM_Free(layer);
    return -1;
  }
  layer->header.sizeAndKind = kLayerBlockWord;
  layer->header.references = 1;
  layer->body.shown = shown ? 1 : 0;
  layer->body.suppressed = suppressed ? 1 : 0;
  std::strncpy(layer->body.name, name, sizeof layer->body.name - 1);
  table[index] = handleOf(layer);
  header->layerCount = index + 1;
  return static_cast<int>(index);
}

EgfLayerBody* layerOf(HostHandle tree, std::uint32_t index) {
  EgfPageHeader* header = pageHeaderOf(tree);
  if (header == nullptr || index >= header->layerCount || !header->layerTable) return nullptr;
  return blockBody<EgfLayerBody>(at<EgfBlockHeader>(header->layerTable[index]));
}

}  // namespace egfhost

extern "C" HostHandle EEL_CreateEdtDesc(int /*reserved1*/, int /*reserved2*/) {
  if (egfhost::faultFails(egfhost::FaultCall::EEL_CreateEdtDesc)) return 0;
  return egfhost::createTree(0);
}
