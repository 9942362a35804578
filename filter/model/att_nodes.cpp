#include "model/keyed.h"
#include "model/lifecycle.h"
#include "model/rmm_allocator.h"

AttNode* AttNode::clone() const {
  AttNode* first = nullptr;
  AttNode** end = &first;
  for (const AttNode* node = this; node != nullptr; node = node->next) {
    auto* copy = egfsvg::allocateRecord<AttNode>(RMM_SITE);
    if (copy != nullptr) {
      *copy = *node;
      copy->next = nullptr;
      copy->value = egfsvg::duplicateText(node->value, RMM_SITE);
      *end = copy;
      end = &copy->next;
    }
    if (copy == nullptr || (copy->value == nullptr && node->value != nullptr)) {
      DestroyAttElements(first);
      return nullptr;
    }
  }
  return first;
}
