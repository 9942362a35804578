// Whether allocations are watched: while faults are armed or budgets set, each one is looked at
// before it is made. All others take a road without questions.
#pragma once

#include <cstddef>

namespace egfhost {

// Allocations of fewer bytes need no look: 0 while they are watched.
extern std::size_t unwatchedBelow;

// To be called when faults or budgets have changed.
void renewAllocationWatch();

}  // namespace egfhost
