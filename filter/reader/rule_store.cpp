#include "reader/rule_store.h"

#include <cstring>

#include "model/lifecycle.h"
#include "model/name_tables.h"
#include "model/rmm_allocator.h"

namespace egfsvg {

namespace {

AttNode* lastOf(AttNode* chain) {
  while (chain != nullptr && chain->next != nullptr) chain = chain->next;
  return chain;
}

/// A new entry, or another value for the one that is there: returned for the caller to free.
AttNode* enter(CHandlerReader& reader, const char* selector, Declarations& declarations) {
  if (reader.styles.count == 0) reader.state.rules.forget();
  char* key = duplicateText(selector, RMM_SITE);
  if (key == nullptr) return nullptr;
  bool stored = false;
  AttNode* last = declarations.last();
  AttNode* old = reader.styles.insert(key, const_cast<AttNode*>(declarations.first()), &stored);
  if (!stored) {
    RMM_Free(key);
    return nullptr;
  }
  declarations.release();
  reader.state.rules.setTail(reader.styles.isthere(selector), last);
  return old;
}

}  // namespace

Declarations::Declarations(AttNode* chain) : first_(chain), last_(lastOf(chain)) {}

Declarations::~Declarations() { clear(); }

std::int32_t Declarations::count() const {
  std::int32_t count = 0;
  for (const AttNode* node = first_; node != nullptr; node = node->next) ++count;
  return count;
}

AttNode* Declarations::release() {
  AttNode* chain = first_;
  first_ = last_ = nullptr;
  return chain;
}

void Declarations::clear() { DestroyAttElements(release()); }

bool Declarations::add(const char* name, const char* value, std::size_t valueLength) {
  const int code = GetStyleAttType(name);
  if (code == kAttUnknown) return true;
  auto* node = allocateRecord<AttNode>(RMM_SITE);
  char* copy = duplicateText(value, valueLength, RMM_SITE);
  if (node == nullptr || copy == nullptr) {
    freeAll(node, copy);
    return false;
  }
  node->code = code;
  std::memcpy(node->name, name, std::strlen(name) + 1);
  node->valueLength = static_cast<std::int32_t>(valueLength) + 1;
  node->value = copy;
  node->next = nullptr;
  (last_ == nullptr ? first_ : last_->next) = node;
  last_ = node;
  return true;
}

void appendRule(CHandlerReader& reader, const char* selector, Declarations& declarations) {
  const std::int32_t position = reader.styles.isthere(selector);
  if (position < 0) {
    enter(reader, selector, declarations);
    return;
  }
  RuleIndex& index = reader.state.rules;
  AttNode* tail = index.tailOf(position);
  if (tail == nullptr) tail = lastOf(reader.styles.at(position));
  index.setTail(position, declarations.last());
  tail->next = declarations.release();
}

void replaceRule(CHandlerReader& reader, const char* selector, Declarations& declarations) {
  DestroyAttElements(enter(reader, selector, declarations));
}

}  // namespace egfsvg
