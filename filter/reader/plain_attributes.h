// The short way through the attributes of a tag: most have the form name="value" and stand whole in
// the block. What has not is odd, and goes the long way: CHandlerReader::GetNextAttribPair.
#pragma once

#include <cstddef>
#include <cstring>

#include "model/short_name_tables.h"
#include "reader/cbuffer.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

/// One more result of a scan, beside attribute codes.
inline constexpr int kAttOdd = -3;

/// Where the parts of an attribute stand in the block.
struct PlainAttribute {
  const char* name;
  std::size_t nameLength;
  const char* value;
  std::size_t valueLength;
  const char* next;  // behind the closing quote, or behind the ">" of the tag
};

/// The most usual form of what stands before a value: behind a blank or nothing a short known name,
/// then double quotes. Behind them, or null for other forms. A zero byte ends the block.
inline const char* behindUsualName(const char* at, const char*& name, std::size_t& length,
                                   int& code) {
  if (*at == ' ') {
    ++at;
  } else if (*at < 'A') {
    return nullptr;  // the end of the tag, most often
  }
  const ByteBlock block = ByteBlock::load(at);
  const ByteMask separators = block.equal('=');
  if (separators == 0) return nullptr;
  name = at;
  length = firstOf(separators);
  if (!kShortAttributes.find(block, length, code)) return nullptr;
  // A name may be followed by zero bytes, of which one is the end of the block.
  const char* const separator = at + length;
  return separator[-1] != '\0' && separator[1] == '"' ? separator + 2 : nullptr;
}

/// The quote that ends a value, or the zero byte that stands before it. Kept: a value begins behind
/// its blanks, which are not looked for here: null for one that has some.
inline const char* usualValueEnd(const char* value) {
  if (*value == ' ') return nullptr;
  ByteMask ends = ByteBlock::load(value).either('"', '\0');
  while (ends == 0) {
    value += kByteBlockSize;
    ends = ByteBlock::load(value).either('"', '\0');
  }
  return value + firstOf(ends);
}

/// A walk over attributes of the most usual form, whose values hold no zero byte. Their names are
/// guessed first.
class GuessedWalk {
 public:
  GuessedWalk(AttributeGuess& guesses, std::int32_t elementType)
      : guesses_(guesses), place_(AttributeGuess::first(elementType)) {}

  /// Looks at the attribute at `at`: the first behind the tag's name, or where the last one has
  /// ended. False for other forms and at the end of the tag.
  bool scan(const char* at) {
    const NamePattern& guess = guesses_.at(place_);
    if (guess.opens(at)) [[likely]] {
      code_ = guess.code;
      value_ = at + guess.length;
    } else {
      if (isTagEnd(*at)) return false;
      const FoundName found = lookUp(guesses_, place_, at);
      if (found.value == nullptr) return false;
      code_ = found.code;
      value_ = found.value;
    }
    place_ = AttributeGuess::behind(code_);
    quote_ = usualValueEnd(value_);
    return quote_ != nullptr && *quote_ != '\0';
  }

  std::uint32_t code() const { return code_; }
  const char* value() const { return value_; }
  const char* quote() const { return quote_; }  // that ends it

 private:
  static bool isTagEnd(char byte) { return byte == '/' || byte == '>'; }

  struct FoundName {
    const char* value;  // behind it; null for other forms
    std::uint32_t code;
  };

  [[gnu::noinline]] static FoundName lookUp(AttributeGuess& guesses, AttributeGuess::Place place,
                                            const char* at) {
    const char* name;
    std::size_t length;
    int code;
    const char* const value = behindUsualName(at, name, length, code);
    if (value == nullptr) return {nullptr, 0};
    guesses.remember(place, static_cast<std::uint32_t>(code));
    return {value, static_cast<std::uint32_t>(code)};
  }

  AttributeGuess& guesses_;
  AttributeGuess::Place place_;
  std::uint32_t code_;
  const char* value_;
  const char* quote_;
};

/// An attribute of the most usual form, with a value without a zero byte. False for others.
inline bool scanUsual(const char* at, PlainAttribute& found, int& code) {
  found.value = behindUsualName(at, found.name, found.nameLength, code);
  if (found.value == nullptr) return false;
  const char* const close = usualValueEnd(found.value);
  if (close == nullptr || *close == '\0') return false;
  found.valueLength = static_cast<std::size_t>(close - found.value);
  found.next = close + 1;
  return true;
}

/// Behind the end of the tag that may follow here, or null.
inline const char* behindTagEnd(const char* at) {
  if (at[0] == '>') return at + 1;
  return at[0] == '/' && at[1] == '>' ? at + 2 : nullptr;
}

/// Any plain form. `at` is not null.
[[gnu::noinline]] int scanAnyPlain(const char* at, const char* end, PlainAttribute& found);

/// Looks at the attribute at `at`, in a block that ends with a zero byte at `end`: its code,
/// kAttUnknown, kAttNoMore at the end of the tag, or kAttOdd. Nothing is taken.
inline int scanPlain(const char* at, const char* end, PlainAttribute& found) {
  if (const char* const next = behindTagEnd(at)) {
    found.next = next;
    return kAttNoMore;
  }
  int code = kAttOdd;
  if (scanUsual(at, found, code)) [[likely]]
    return code;
  PlainAttribute other;  // so that the usual one need not stand in memory
  code = scanAnyPlain(at, end, other);
  found = other;
  return code;
}

/// Most names and values fit into so many bytes, which are copied at once.
inline constexpr std::size_t kShortName = 16;
inline constexpr std::size_t kShortValue = 32;
static_assert(kShortValue <= cBuffer::kSlack && kShortName < kAttribNameSize);

/// Copies text of the block and terminates it. The target holds `Short` bytes at least. What fits
/// into one store is written by one, so that a load of several bytes need not wait for more.
template <std::size_t Short>
void copyPlain(char* to, const char* from, std::size_t length) {
  if (length < kByteBlockSize) [[likely]] {
    ByteBlock::load(from).first(length).store(to);
    return;
  }
  if (length < Short) {
    std::memcpy(to, from, Short);
  } else {
    std::memcpy(to, from, length);
  }
  to[length] = '\0';
}

/// A pair without a name. A value of some length stays where it stands, in a block: while an action
/// runs, a zero byte stands in place of the closing quote. A short one is copied by one store,
/// since a load of several bytes that meets a byte stored just before has to wait.
class PairInPlace {
 public:
  PairInPlace() {
    pair_.name[0] = '\0';
    std::memset(short_, 0, sizeof short_);
  }
  PairInPlace(const PairInPlace&) = delete;
  PairInPlace& operator=(const PairInPlace&) = delete;

  /// Runs `action(pair)` for the value up to its quote.
  template <class Action>
  void with(char* value, char* quote, Action action) {
    const std::ptrdiff_t length = quote - value;
    pair_.valueLength = static_cast<std::int32_t>(length);
    pair_.valueSize = pair_.valueLength + cBuffer::kSlack;
    if (length < static_cast<std::ptrdiff_t>(kByteBlockSize)) {
      ByteBlock::load(value).first(static_cast<std::size_t>(length)).store(short_);
      pair_.value = short_;
      action(&pair_);
      return;
    }
    pair_.value = value;
    const Terminator terminator(quote);
    action(&pair_);
  }

 private:
  /// Puts the quote back, also when the host throws.
  class Terminator {
   public:
    explicit Terminator(char* quote) : quote_(quote) { *quote_ = '\0'; }
    ~Terminator() { *quote_ = '"'; }
    Terminator(const Terminator&) = delete;
    Terminator& operator=(const Terminator&) = delete;

   private:
    char* quote_;
  };

  _svg_attrib_pair pair_;
  alignas(kByteBlockSize) char short_[kByteBlockSize + cBuffer::kSlack];
};

/// Fills the pair, in which what stands in a block has room.
inline void fillPair(const PlainAttribute& found, _svg_attrib_pair& pair) {
  static_assert(cBuffer::kBlockSize < kAttribValueSize);
  copyPlain<kShortName>(pair.name, found.name, found.nameLength);
  copyPlain<kShortValue>(pair.value, found.value, found.valueLength);
}

}  // namespace egfsvg
