// Selector lists as they are written, to the names under which rules are kept.

#include <cstring>

#include "model/characters.h"
#include "model/rmm_allocator.h"
#include "reader/rule_store.h"

namespace egfsvg {

namespace {

/// One name of the list. What goes beyond its slot is passed over.
class SelectorName {
 public:
  explicit SelectorName(char* slot) : text_(slot) { text_[0] = '\0'; }

  void add(char c) {
    if (isWhite(c)) {
      if (!swallowsWhite()) push(c);
      return;
    }
    const bool combines = c == '>' || c == '+';
    const bool qualifies = c == '#' || c == '.' || c == '[';
    if (combines) dropWhite();
    if (qualifies && last() == '*') --length_;  // the universal selector says nothing
    push(c);
  }
  /// Ends the name.
  void finish() { dropWhite(); }
  bool empty() const { return length_ == 0; }

 private:
  char last() const { return length_ == 0 ? '\0' : text_[length_ - 1]; }
  bool swallowsWhite() const {
    return length_ == 0 || last() == '>' || last() == '+' || isWhite(last());
  }
  void dropWhite() {
    if (isWhite(last())) text_[--length_] = '\0';
  }
  void push(char c) {
    if (length_ == kRuleNameSize - 1) return;
    text_[length_++] = c;
    text_[length_] = '\0';
  }

  char* text_;
  std::size_t length_ = 0;
};

char* newSlot() { return allocateArray<char>(kRuleNameSize, RMM_SITE); }

/// Room for one more name behind `count`; false without memory.
bool addSlot(char*** names, int count) {
  auto* longer = static_cast<char**>(
      RMM_ReAllocName(*names, static_cast<std::size_t>(count) + 1, sizeof(char*), RMM_SITE));
  if (longer == nullptr) return false;
  *names = longer;
  longer[count] = newSlot();
  return longer[count] != nullptr;
}

}  // namespace

}  // namespace egfsvg

// Without memory the names so far count.
int CHandlerReader::ParseCSSstyleID(char* selector, char*** names) {
  using namespace egfsvg;
  if (selector == nullptr || names == nullptr || *names == nullptr) return 0;
  int count = 1;
  SelectorName name((*names)[0]);
  for (int at = 0; selector[at] != '\0';) {
    const int behind = SkipCSScomment(selector, at);
    if (behind != at) {
      at = behind;
      continue;
    }
    const char c = selector[at++];
    if (c != ',') {
      name.add(c);
      continue;
    }
    name.finish();
    if (!addSlot(names, count)) return count;
    name = SelectorName((*names)[count++]);
  }
  name.finish();
  return count == 1 && name.empty() ? 0 : count;
}
