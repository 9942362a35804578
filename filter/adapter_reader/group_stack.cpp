#include "adapter_reader/group_stack.h"

#include "adapter_reader/object_boxes.h"
#include "adapter_reader/owners.h"
#include "adapter_reader/svg_adapterreader.h"
#include "frame/result_codes.h"
#include "geometry/point_checks.h"
#include "model/rmm_allocator.h"

namespace egfsvg {

constinit OpenGroups openGroups{};

namespace {

/// The bottom group is the host's, wherever it stands in the stack.
bool ownsGroup(const CAdapterReader& adapter, const GroupStackNode& node) {
  return node.group && node.group.offset != adapter.groupStack->group.offset;
}

/// Leaves the node's container: what is in force below is in force again.
void popNode(CAdapterReader& adapter, GroupStackNode* node) {
  GroupStackNode* below = node->prev.get();
  openGroups.currentNode = below;
  if (below == nullptr) {
    adapter.groupStack = nullptr;
  } else {
    below->next = nullptr;
    adapter.viewportWidth = below->savedWidth;
    adapter.viewportHeight = below->savedHeight;
  }
  node->next = adapter.state.spareNodes;
  adapter.state.spareNodes = node;
}

/// A node of a closed group, else a new one. Null when memory ran out.
GroupStackNode* takeNode(CAdapterReader& adapter) {
  GroupStackNode* spare = adapter.state.spareNodes;
  if (spare == nullptr) return allocateRecord<GroupStackNode>(RMM_SITE);
  adapter.state.spareNodes = spare->next.get();
  return spare;
}

/// A group without a rectangle vanishes: it holds nothing that could be seen.
void handDown(CAdapterReader& adapter, GroupStackNode& node) {
  if (!ownsGroup(adapter, node)) return;
  ObjectOwner group(node.group.get());
  node.group = nullptr;
  _egf_obj* below = node.prev->group.get();
  if (below != nullptr && appendWithMer(below, group.get(), adapter.map)) (void)group.release();
}

}  // namespace

_egf_obj* currentGroup() {
  return openGroups.currentNode == nullptr ? nullptr : openGroups.currentNode->group.get();
}

bool pushGroup(CAdapterReader& adapter, _egf_obj* group) {
  GroupStackNode* node = takeNode(adapter);
  if (node == nullptr) {
    logOutOfMemory(RMM_SITE);
    return false;
  }
  *node = {};
  node->group = group;
  node->savedWidth = adapter.viewportWidth;
  node->savedHeight = adapter.viewportHeight;
  if (adapter.groupStack == nullptr) {
    adapter.groupStack = node;
  } else {
    node->prev = openGroups.currentNode;
    openGroups.currentNode->next = node;
  }
  openGroups.currentNode = node;
  ++openGroups.groupDepth;
  return true;
}

int closeGroup(CAdapterReader& adapter) {
  GroupStackNode* node = openGroups.currentNode;
  if (node == nullptr) return adapter._logError(1, kMessageNoOpenContainer);
  --openGroups.groupDepth;
  if (!node->prev) {
    const bool atBottom = openGroups.groupDepth == 0;
    adapter.viewportWidth = node->savedWidth;
    adapter.viewportHeight = node->savedHeight;
    popNode(adapter, node);
    return atBottom ? kGoOn : adapter._logError(0, kMessageNoOpenContainer);
  }
  handDown(adapter, *node);
  popNode(adapter, node);
  return kGoOn;
}

void releaseGroupStack(CAdapterReader& adapter) {
  GroupStackNode* bottom = adapter.groupStack;
  if (bottom == nullptr) return;
  for (GroupStackNode* node = bottom->next.get(); node != nullptr;) {
    if (openGroups.currentNode == node) openGroups = {};
    if (ownsGroup(adapter, *node)) EEL_DestroyObject(node->group.get());
    GroupStackNode* above = node->next.get();
    RMM_Free(node);
    node = above;
  }
  if (openGroups.currentNode == bottom) openGroups = {};
  RMM_Free(bottom);
  adapter.groupStack = nullptr;
}

void releaseSpareNodes(CAdapterReader& adapter) {
  while (GroupStackNode* spare = adapter.state.spareNodes) {
    adapter.state.spareNodes = spare->next.get();
    RMM_Free(spare);
  }
}

bool appendWithMer(_egf_obj* group, _egf_obj* object, HostHandle map) {
  _mpl_spacerect_tag mer;
  if (!boxAtHand(object, &mer) && EEL_GetObjectMer(object, &mer, map) != 0) return false;
  if (EEL_AppendObject(group, object) != 0) return false;
  growBox(&as<EgfGroup>(group)->groupMer, mer);
  return true;
}

}  // namespace egfsvg
