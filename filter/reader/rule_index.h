// What the reader knows about its style table besides the table itself: the forms of selectors it
// holds, so that nothing is asked of it that it cannot answer, where each rule ends, what matters
// of the long ones, and what was found out about tags and classes.
#pragma once

#include <array>
#include <cstdint>

#include "model/keyed.h"
#include "model/rmm_allocator.h"
#include "model/svg_map.h"
#include "reader/class_memo.h"
#include "reader/effective_rules.h"

namespace egfsvg {

class RuleIndex {
 public:
  bool classes(const Map<AttNode>& rules) { return has(rules, kClass); }
  bool ids(const Map<AttNode>& rules) { return has(rules, kId); }
  bool descendants(const Map<AttNode>& rules) { return has(rules, kDescendant); }
  bool children(const Map<AttNode>& rules) { return has(rules, kChild); }
  bool attributes(const Map<AttNode>& rules) { return has(rules, kAttribute); }
  /// Whether the classes of an element say by themselves which of the rules of classes reach it.
  bool classesStandAlone(const Map<AttNode>& rules) {
    return !has(rules, kDescendant | kChild | kTaggedClass);
  }

  /// Whether a rule of the tag, or one of what elements stand in, can reach elements of a type that
  /// has a tag name.
  bool reachesTag(const Map<AttNode>& rules, int type, const char* tag) {
    if (tagsKnown_ != rules.count) {
      reach_.fill(Reach::kUnknown);
      tagsKnown_ = rules.count;
    }
    Reach& reach = reach_[static_cast<std::size_t>(type)];
    if (reach == Reach::kUnknown) {
      const bool reaches = has(rules, kDescendant | kChild) || rules.isthere(tag) >= 0;
      reach = reaches ? Reach::kSome : Reach::kNone;
    }
    return reach == Reach::kSome;
  }

  /// What the rules of classes made of shapes, as far as these tables say the same as before.
  ClassMemo& classMemo(const Map<AttNode>& rules, const Map<_svg_gradient>& gradients) {
    if (memoRules_ != rules.count || memoGradients_ != gradients.count) memo_.forget();
    memoRules_ = rules.count;
    memoGradients_ = gradients.count;
    return memo_;
  }

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
    memo_.forget();
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
    tagsKnown_ = 0;
    memo_.forget();
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

  enum Form : std::int32_t {
    kClass = 1,
    kId = 2,
    kDescendant = 4,
    kChild = 8,
    kAttribute = 16,
    kTaggedClass = 32
  };

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
  bool has(const Map<AttNode>& rules, std::int32_t forms) {
    if (rules.count < seen_) forget();
    for (; seen_ < rules.count; ++seen_) {
      const char* const key = rules.entries[seen_].key;
      for (const char* at = key; *at != '\0'; ++at) {
        forms_ |= *at == '.' && at != key ? kClass | kTaggedClass : formOf(*at);
      }
    }
    return (forms_ & forms) != 0;
  }

  enum class Reach : std::uint8_t { kUnknown, kNone, kSome };

  std::int32_t seen_ = 0;
  std::int32_t forms_ = 0;
  GrowingArray<Rule> rules_{RMM_SITE};
  std::array<Reach, kTagMarker + 1> reach_{};  // by type
  std::int32_t tagsKnown_ = 0;  // the table's size when they were asked for; 0: never
  ClassMemo memo_;
  std::int32_t memoRules_ = 0;
  std::int32_t memoGradients_ = 0;
};

}  // namespace egfsvg
