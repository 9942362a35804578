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

/// The most usual form by itself: behind a blank or nothing a short known name, then double quotes.
/// False for others.
inline bool scanUsual(const char* at, const char* end, PlainAttribute& found, int& code) {
  if (*at == ' ') {
    ++at;
  } else if (*at < 'A') {
    return false;  // the end of the tag, most often
  }
  const ByteBlock block = ByteBlock::load(at);
  const ByteMask separators = block.equal('=');
  if (separators == 0) return false;
  const std::size_t length = firstOf(separators);
  if (!kShortAttributes.find(block, length, code)) return false;
  // No zero byte stands before the "=" or in its place: the end of the block lies behind it.
  const char* const value = at + length + 2;
  if (value[-1] != '"' || value[0] == ' ') return false;
  const char* close = value;
  for (;;) {
    const ByteMask quotes = ByteBlock::load(close).equal('"');
    if (quotes != 0) [[likely]] {
      close += firstOf(quotes);
      break;
    }
    close += kByteBlockSize;
    if (close >= end) return false;
  }
  found = {at, length, value, static_cast<std::size_t>(close - value), close + 1};
  return close < end;
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
  if (scanUsual(at, end, found, code)) [[likely]]
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

/// Fills the pair, in which what stands in a block has room.
inline void fillPair(const PlainAttribute& found, _svg_attrib_pair& pair) {
  static_assert(cBuffer::kBlockSize < kAttribValueSize);
  copyPlain<kShortName>(pair.name, found.name, found.nameLength);
  copyPlain<kShortValue>(pair.value, found.value, found.valueLength);
}

}  // namespace egfsvg
