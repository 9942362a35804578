// The stack of open groups of a page. A node keeps the viewport that is in force inside its group.
#pragma once

#include <cstdint>

#include "host/egf_objects.h"
#include "host/wire.h"

class CAdapterReader;

struct GroupStackNode {
  ref32<_egf_obj> group;       // null when it could not be made: its content is dropped
  ref32<GroupStackNode> next;  // the node above
  ref32<GroupStackNode> prev;  // the node below
  float savedWidth;            // space units
  float savedHeight;
};
static_assert(sizeof(GroupStackNode) == 20);

namespace egfsvg {

/// The module's own state of the page that is being read. There is one for the process, so reads
/// must not overlap.
struct OpenGroups {
  GroupStackNode* currentNode;  // top of the stack, null outside any container
  std::int32_t groupDepth;      // open containers
};
extern OpenGroups openGroups;

/// The group that takes the next object; null when it could not be made or nothing is open.
_egf_obj* currentGroup();

/// Opens a group above the current one. On success the stack owns it, unless it is the bottom one,
/// which stays the host's. False when memory ran out: the group stays the caller's.
bool pushGroup(CAdapterReader& adapter, _egf_obj* group);

/// Closes the current group and hands it to the one below. A callback result.
int closeGroup(CAdapterReader& adapter);

/// Ends a stack that an aborted page left, with all its groups above the bottom one.
void releaseGroupStack(CAdapterReader& adapter);

/// Gives back the nodes that closed groups left for the next ones.
void releaseSpareNodes(CAdapterReader& adapter);

/// Hands the object to the group and grows its rectangle. False, with the object still the
/// caller's, when it has no rectangle or could not be appended.
bool appendWithMer(_egf_obj* group, _egf_obj* object, HostHandle map);

}  // namespace egfsvg
