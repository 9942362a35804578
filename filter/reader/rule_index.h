// What the reader knows about its style table besides the table itself: the forms of selectors it
// holds, so that nothing is asked of it that it cannot answer, and where each rule ends.
#pragma once

#include <cstdint>

#include "model/keyed.h"
#include "model/rmm_allocator.h"
#include "model/svg_map.h"

namespace egfsvg {

class RuleIndex {
 public:
  bool classes(const Map<AttNode>& rules) { return has(rules, kClass); }
  bool ids(const Map<AttNode>& rules) { return has(rules, kId); }
  bool descendants(const Map<AttNode>& rules) { return has(rules, kDescendant); }
  bool children(const Map<AttNode>& rules) { return has(rules, kChild); }
  bool attributes(const Map<AttNode>& rules) { return has(rules, kAttribute); }

  /// The last node of the rule at a position, as far as it is known; else null.
  AttNode* tailOf(std::int32_t position) const {
    return position < tails_.count() ? tails_[position] : nullptr;
  }
  /// Without memory the tail is not kept.
  void setTail(std::int32_t position, AttNode* tail) {
    while (tails_.count() <= position) {
      if (!tails_.push(nullptr)) return;
    }
    tails_[position] = tail;
  }

  /// To be called where the table is emptied.
  void forget() {
    seen_ = forms_ = 0;
    tails_.clear();
  }

 private:
  enum Form : std::int32_t { kClass = 1, kId = 2, kDescendant = 4, kChild = 8, kAttribute = 16 };

  static constexpr std::int32_t formOf(char c) {
    switch (c) {
      case '.':
        return kClass;
      case '#':
        return kId;
      case ' ':
        return kDescendant;
      case '>':
        return kChild;
      case '[':
        return kAttribute;
      default:
        return 0;
    }
  }

  /// Forms are gathered from the keys as they come in; a table that shrank is gathered anew.
  bool has(const Map<AttNode>& rules, Form form) {
    if (rules.count < seen_) forget();
    for (; seen_ < rules.count; ++seen_) {
      for (const char* at = rules.entries[seen_].key; *at != '\0'; ++at) forms_ |= formOf(*at);
    }
    return (forms_ & form) != 0;
  }

  std::int32_t seen_ = 0;
  std::int32_t forms_ = 0;
  GrowingArray<AttNode*> tails_{RMM_SITE};
};

}  // namespace egfsvg
