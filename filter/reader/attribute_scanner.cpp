// The attributes of a tag, one at a time, from the source; and the pairs of a style text in memory.
#include <algorithm>
#include <cstring>

#include "model/characters.h"
#include "model/name_tables.h"
#include "model/rmm_allocator.h"
#include "reader/plain_attributes.h"
#include "reader/scan_classes.h"
#include "reader/svg_handlerreader.h"

using egfsvg::SourceCursor;

namespace {

constexpr int kSourceEnd = cBuffer::kSourceEnd;

constexpr int kNoMemory = -4;  // the value could not be kept: beside attribute codes

/// How a name ended.
enum class NameEnd { kSeparator, kFull, kTag, kSource };

/// Collects a name: at most 256 bytes count, the last of them gives way to the terminator.
class NameWriter {
 public:
  explicit NameWriter(_svg_attrib_pair& pair) : name_(pair.name) {}

  bool empty() const { return length_ == 0; }
  bool full() const { return length_ == kAttribNameSize; }
  void store(char byte) { name_[length_++] = byte; }

  /// Cuts white space and separators from the right, never the first byte, and terminates.
  void finish(char separator) {
    while (length_ > 1 && isCut(name_[length_ - 1], separator)) --length_;
    name_[std::min(length_, kAttribNameSize - 1)] = '\0';
  }

 private:
  static bool isCut(char byte, char separator) {
    return byte == separator || egfsvg::isWhite(byte);
  }

  char* name_;
  std::int32_t length_ = 0;
};

/// True for a byte that a name drops: line breaks and tabs anywhere, spaces before its first byte.
bool isDropped(char byte, const NameWriter& name) {
  return byte == ' ' ? name.empty() : egfsvg::isWhite(byte);
}

/// Collects a value into the pair's block, which grows as needed.
class ValueWriter {
 public:
  explicit ValueWriter(_svg_attrib_pair& pair) : pair_(pair) {}

  /// Appends; false without memory.
  bool append(const char* text, std::size_t length) {
    if (length > kMost - length_ || !reserve(length_ + length + 1)) return false;
    std::memcpy(pair_.value + length_, text, length);
    length_ += length;
    return true;
  }
  void dropSpaces() {
    while (endsInSpace()) --length_;
  }
  /// The last byte, or a whole run of spaces.
  void cutLast() {
    if (endsInSpace()) {
      dropSpaces();
    } else if (length_ > 0) {
      --length_;
    }
  }
  /// False without memory.
  bool terminate() {
    if (!reserve(length_ + 1)) return false;
    pair_.value[length_] = '\0';
    return true;
  }
  std::int32_t length() const { return static_cast<std::int32_t>(length_); }

 private:
  static constexpr std::size_t kMost = 0x7ffffff0;

  bool endsInSpace() const { return length_ > 0 && pair_.value[length_ - 1] == ' '; }

  bool reserve(std::size_t size) {
    const auto capacity = static_cast<std::size_t>(pair_.valueSize);
    if (size <= capacity) return true;
    const std::size_t wanted = std::min(std::max(size + kAttribValueSize, 2 * capacity), kMost);
    void* grown = size > kMost ? nullptr : RMM_ReAllocName(pair_.value, wanted, 1, RMM_SITE);
    if (grown == nullptr) return false;
    pair_.value = static_cast<char*>(grown);
    pair_.valueSize = static_cast<std::int32_t>(wanted);
    return true;
  }

  _svg_attrib_pair& pair_;
  std::size_t length_ = 0;
};

/// Takes the next attribute if it is plain; otherwise kAttOdd, with nothing taken.
int takePlain(cBuffer& source, _svg_attrib_pair& pair) {
  if (source.block == nullptr) return egfsvg::kAttOdd;
  egfsvg::PlainAttribute found;
  const int code = egfsvg::scanPlain(source.unread(), source.unreadEnd(), found);
  if (code == egfsvg::kAttOdd) return code;
  source.takeTo(found.next);
  if (code != egfsvg::kAttNoMore) egfsvg::fillPair(found, pair);
  return code;
}

/// Reads a name up to its "=", which is stored too.
NameEnd readName(SourceCursor& source, NameWriter& name) {
  for (;;) {
    const int next = source.next();
    if (next == kSourceEnd) return NameEnd::kSource;
    if (next == '>') return NameEnd::kTag;
    const char byte = static_cast<char>(next);
    if (isDropped(byte, name)) continue;
    if (byte == '/' && source.peek() == '>') {
      source.next();
      return NameEnd::kTag;
    }
    name.store(byte);
    if (byte == '=') return NameEnd::kSeparator;
    if (name.full()) return NameEnd::kFull;
  }
}

/// White space up to a quote, which is the result; kSourceEnd where the source ends, 0 at any other
/// byte.
int readQuote(SourceCursor& source) {
  int byte = source.next();
  while (byte != kSourceEnd && egfsvg::isWhite(static_cast<char>(byte))) byte = source.next();
  return byte == kSourceEnd || byte == '"' || byte == '\'' ? byte : 0;
}

enum class ValueEnd { kQuote, kSource, kNoRoom };

/// Reads a value up to its quote, which is not stored.
ValueEnd readValue(SourceCursor& source, int quote, ValueWriter& value) {
  while (source.peek() == ' ') source.next();
  do {
    const auto left = static_cast<std::size_t>(source.end() - source.at());
    const void* close = left == 0 ? nullptr : std::memchr(source.at(), quote, left);
    const char* const stop = close == nullptr ? source.end() : static_cast<const char*>(close);
    if (!value.append(source.at(), static_cast<std::size_t>(stop - source.at()))) {
      return ValueEnd::kNoRoom;
    }
    source.moveTo(close == nullptr ? stop : stop + 1);
    if (close != nullptr) return ValueEnd::kQuote;
  } while (source.refill());
  return ValueEnd::kSource;
}

/// Any form, byte by byte.
int readOddPair(cBuffer& buffer, _svg_attrib_pair& pair) {
  SourceCursor source(buffer);
  NameWriter name(pair);
  const NameEnd nameEnd = readName(source, name);
  name.finish('=');
  if (nameEnd == NameEnd::kTag || nameEnd == NameEnd::kSource) return egfsvg::kAttNoMore;
  const int quote = readQuote(source);
  if (quote == 0) return egfsvg::kAttSyntaxError;
  ValueWriter value(pair);
  const ValueEnd valueEnd = readValue(source, quote, value);
  // Kept: a value that the end of the source cuts off loses what stands for its closing quote.
  if (valueEnd == ValueEnd::kSource) value.cutLast();
  if (valueEnd == ValueEnd::kNoRoom || !value.terminate()) return kNoMemory;
  return GetAttType(pair.name);
}

/// Reads a name of a style text up to its ":", which is stored too.
bool readStyleName(const char*& text, NameWriter& name) {
  for (; *text != '\0' && !name.full(); ++text) {
    if (isDropped(*text, name)) continue;
    if (text[0] == '/' && text[1] == '>') return false;
    name.store(*text);
    if (*text == ':') {
      ++text;
      return true;
    }
  }
  return false;
}

/// Reads a value up to ";" or the end, without the spaces around it. False without memory.
bool readStyleValue(const char*& text, ValueWriter& value) {
  while (*text == ' ') ++text;
  const char* const first = text;
  while (*text != '\0' && *text != ';') ++text;
  if (!value.append(first, static_cast<std::size_t>(text - first))) return false;
  value.dropSpaces();
  if (*text == ';') ++text;
  return value.terminate();
}

}  // namespace

int egfsvg::scanAnyPlain(const char* at, const char* end, PlainAttribute& found) {
  // The zero byte behind the block ends each walk.
  while (isWhite(*at)) ++at;
  const char* const name = at;
  while (!isScanned(*at, kOddInAttName)) ++at;
  const auto nameLength = static_cast<std::size_t>(at - name);
  found = {name, nameLength, nullptr, 0, behindTagEnd(at)};
  if (nameLength == 0 && found.next != nullptr) return kAttNoMore;
  if (*at != '=' || nameLength == 0 || nameLength >= kAttribNameSize - 1) return kAttOdd;
  const char quote = at[1];
  if (quote != '"' && quote != '\'') return kAttOdd;
  at += 2;
  while (*at == ' ') ++at;
  const char* const close = findByte(at, end, quote);
  if (close >= end) return kAttOdd;
  found.value = at;
  found.valueLength = static_cast<std::size_t>(close - at);
  found.next = close + 1;
  return attributeCode(name, nameLength);
}

int CHandlerReader::GetNextAttribPair(_svg_attrib_pair* pair) {
  pair->valueLength = kLengthNotTold;  // a zero byte may stand in the value
  int code = pair->valueSize < kAttribValueSize ? egfsvg::kAttOdd : takePlain(buffer, *pair);
  if (code == egfsvg::kAttOdd) code = readOddPair(buffer, *pair);
  if (code == egfsvg::kAttNoMore || code == egfsvg::kAttSyntaxError) return code;
  if (code == kNoMemory) {
    state.outOfMemory = true;
    return egfsvg::kAttSyntaxError;
  }
  stepGauge();
  return code;
}

int CHandlerReader::GetNextAttribPair(char** text, _svg_attrib_pair* pair) {
  if (text == nullptr || *text == nullptr || **text == '\0') return egfsvg::kAttNoMore;
  const char* at = *text;
  NameWriter name(*pair);
  const bool separated = readStyleName(at, name);
  name.finish(':');
  ValueWriter value(*pair);
  const bool stored = !separated || readStyleValue(at, value);
  pair->valueLength = value.length();
  *text += at - *text;
  if (!stored) state.outOfMemory = true;
  if (!separated || !stored) return egfsvg::kAttSyntaxError;
  stepGauge();
  return GetAttType(pair->name);
}

int CHandlerReader::SkipSeparators(const char* text, int index) {
  const auto isSeparator = [](char c) { return egfsvg::isWhite(c) || c == ',' || c == ';'; };
  while (isSeparator(text[index])) ++index;
  return index;
}
