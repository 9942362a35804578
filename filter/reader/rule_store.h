// Entering rules in the reader's style table.
#pragma once

#include "reader/svg_handlerreader.h"

namespace egfsvg {

inline constexpr std::size_t kRuleNameSize = 256;  // of a selector's name, with its terminator

/// Declarations on their way to the table; frees what is not handed on.
class Declarations {
 public:
  Declarations() = default;
  explicit Declarations(AttNode* chain);
  ~Declarations();
  Declarations(const Declarations&) = delete;
  Declarations& operator=(const Declarations&) = delete;

  bool empty() const { return first_ == nullptr; }
  std::int32_t count() const;
  const AttNode* first() const { return first_; }
  AttNode* last() const { return last_; }
  /// Hands the chain over.
  AttNode* release();
  void clear();

  /// Appends one declaration; names that are no style property are passed over. False without
  /// memory.
  bool add(const char* name, const char* value, std::size_t valueLength);

 private:
  AttNode* first_ = nullptr;
  AttNode* last_ = nullptr;
};

/// Declarations of a read that are copied for the names of selector lists.
inline constexpr std::int32_t kMaxCopiedDeclarations = 1'000'000;

/// Adds a rule's declarations behind those that the table holds for that selector.
void appendRule(CHandlerReader& reader, const char* selector, Declarations& declarations);

/// Enters them in place of those that the table holds.
void replaceRule(CHandlerReader& reader, const char* selector, Declarations& declarations);

}  // namespace egfsvg
