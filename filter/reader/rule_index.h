// What the reader knows about its style table besides the table itself: the forms of selectors it
// holds, so that nothing is asked of it that it cannot answer, where each rule ends, and what
// matters of the long ones.
#pragma once

#include <cstdint>

#include "model/keyed.h"
#include "model/rmm_allocator.h"
#include "model/svg_map.h"
#include "reader/effective_rules.h"

namespace egfsvg {

class RuleIndex {
 public:
  bool classes(const Map<AttNode>& rules) { return has(rules, kClass); }
  bool ids(const Map<AttNode>& rules) { return has(rules, kId); }
  bool descendants(const Map<AttNode>& rules) { return has(rules, kDescendant); }
  bool children(const Map<AttNode>& rules) { return has(rules, kChild); }
  bool attributes(const Map<AttNode>& rules) { return has(rules, kAttribute); }

  RuleIndex() = default;
  ~RuleIndex() { forget(); }
  RuleIndex(const RuleIndex&) = delete;
  RuleIndex& operator=(const RuleIndex&) = delete;

  /// The last node of the rule at a position, as far as it is known; else null.
  AttNode* tailOf(std::int32_t position) const {
    return position < rules_.count() ? rules_[position].tail : nullptr;
  }
  /// To be told when a rule has changed. Without memory the tail is not kept.
  void setTail(std::int32_t position, AttNode* tail) {
    if (!holds(position)) return;
    freeAll(rules_[position].effective);
    rules_[position] = {tail, nullptr, nullptr, 0};
  }

  /// What matters of the rule at a position, with a null behind it; null when the chain itself is
  /// to be applied.
  AttNode* const* effective(std::int32_t position, AttNode* chain,
                            const Map<_svg_gradient>& gradients) {
    if (!isLong(chain) || !holds(position)) return nullptr;
    Rule& rule = rules_[position];
    if (rule.chain != chain || rule.gradients != gradients.count) {
      freeAll(rule.effective);
      rule.effective = effectiveDeclarations(chain, gradients);
      rule.chain = chain;
      rule.gradients = gradients.count;
    }
    return rule.effective;
  }

  /// To be called where the table is emptied.
  void forget() {
    seen_ = forms_ = 0;
    for (Rule& rule : rules_) freeAll(rule.effective);
    rules_.clear();
  }

 private:
  struct Rule {
    AttNode* tail;           // null: not known
    AttNode* chain;          // what `effective` was made from
    AttNode** effective;     // owned
    std::int32_t gradients;  // known when it was made
  };

  static bool isLong(const AttNode* chain) {
    std::int32_t count = 0;
    for (; chain != nullptr && count < kLongRule; chain = chain->next) ++count;
    return count == kLongRule;
  }

  bool holds(std::int32_t position) {
    while (rules_.count() <= position) {
      if (!rules_.push({nullptr, nullptr, nullptr, 0})) return false;
    }
    return true;
  }

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
  GrowingArray<Rule> rules_{RMM_SITE};
};

}  // namespace egfsvg
