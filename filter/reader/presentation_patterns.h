// The three ways in which a presentation property is set: one of its keywords, a text, a number.
// Each leaves the group alone for a null group or value, and for the keyword "inherit": what is
// inherited stands in the record since its creation.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

#include "model/characters.h"
#include "model/numbers.h"
#include "model/values.h"
#include "reader/text_fields.h"
#include "reader/value_text.h"

namespace egfsvg {

/// A value in lower case. One that is longer than any keyword equals none.
class FoldedWord {
 public:
  explicit FoldedWord(const char* text) {
    while (length_ < kSize && text[length_] != '\0') {
      text_[length_] = lower(text[length_]);
      ++length_;
    }
  }
  bool is(std::string_view word) const {
    return word.size() == length_ && std::memcmp(word.data(), text_, length_) == 0;
  }

 private:
  static constexpr std::size_t kSize = 32;  // the longest keyword has 22 bytes
  std::size_t length_ = 0;
  char text_[kSize];
};

/// `word` is lower case.
struct Keyword {
  std::string_view word;
  std::int32_t code;
};

/// The keywords of a property and what any other word stores.
struct KeywordSet {
  std::span<const Keyword> rows;
  std::int32_t otherwise;

  /// The row of a word as the table spells it, or null.
  const Keyword* find(std::string_view word) const {
    for (const Keyword& row : rows) {
      if (word == row.word) return &row;
    }
    return nullptr;
  }
  std::int32_t codeOf(const FoldedWord& word) const {
    for (const Keyword& row : rows) {
      if (word.is(row.word)) return row.code;
    }
    return otherwise;
  }
};

inline bool hasValue(const _svg_attrib_pair* pair) {
  return pair != nullptr && pair->value != nullptr;
}

inline bool isInherit(const _svg_attrib_pair* pair) {
  return hasValue(pair) && isKeyword(pair->value, "inherit");
}

template <class Group>
int setKeyword(std::int32_t Group::*field, Group* group, const _svg_attrib_pair* pair,
               const KeywordSet& keywords) {
  if (group == nullptr || !hasValue(pair)) return 0;
  if (pair->valueLength != kLengthNotTold) {
    const auto length = static_cast<std::size_t>(pair->valueLength);
    if (const Keyword* row = keywords.find({pair->value, length})) {
      group->*field = row->code;
      return 0;
    }
  }
  const FoldedWord word(pair->value);
  if (!word.is("inherit")) group->*field = keywords.codeOf(word);
  return 0;
}

template <class Group>
int setText(char* Group::*field, Group* group, const _svg_attrib_pair* pair) {
  if (group == nullptr || isInherit(pair)) return 0;
  return replaceText(&(group->*field), pair);
}

template <class Group>
int setNumber(double Group::*field, Group* group, const _svg_attrib_pair* pair) {
  if (group == nullptr || !hasValue(pair)) return 0;
  if (readPlainNumber(*pair, group->*field) || isInherit(pair)) return 0;
  group->*field = decimalPrefix(pair->value);
  return 0;
}

}  // namespace egfsvg
