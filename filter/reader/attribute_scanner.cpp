// The attributes of a tag, one at a time, from the source; and the pairs of a style text in memory.
#include <algorithm>
#include <cstring>

#include "model/characters.h"
#include "model/name_tables.h"
#include "model/rmm_allocator.h"
#include "reader/scan_classes.h"
#include "reader/svg_handlerreader.h"

using egfsvg::SourceCursor;

namespace {

constexpr int kSourceEnd = cBuffer::kSourceEnd;

// Further results inside this file, beside attribute codes.
constexpr int kOdd = -3;       // not the usual form
constexpr int kNoMemory = -4;  // the value could not be kept

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

/// Most names and values fit into so many bytes, which are copied at once.
constexpr std::size_t kShortText = 32;
static_assert(kShortText <= cBuffer::kSlack && kShortText < kAttribNameSize);

/// Copies text of the block and terminates it. The target holds kShortText bytes at least.
void copyText(char* to, const char* from, std::size_t length) {
  if (length < kShortText) {
    std::memcpy(to, from, kShortText);
  } else {
    std::memcpy(to, from, length);
  }
  to[length] = '\0';
}

/// An attribute in its usual form, name="value", or the end of the tag, that stands whole in the
/// block and fits the pair: its code. Otherwise kOdd, with nothing taken.
int readPlainPair(cBuffer& source, _svg_attrib_pair& pair) {
  const char* at = source.unread();
  const char* const end = source.unreadEnd();
  if (at == end) return kOdd;
  // The zero byte behind the block ends each walk.
  while (egfsvg::isWhite(*at)) ++at;
  const char* const name = at;
  while (!egfsvg::isScanned(*at, egfsvg::kOddInAttName)) ++at;
  const auto nameLength = static_cast<std::size_t>(at - name);
  if (nameLength == 0) {
    const bool slashed = at[0] == '/' && at[1] == '>';
    if (!slashed && *at != '>') return kOdd;
    source.takeTo(at + (slashed ? 2 : 1));
    return egfsvg::kAttNoMore;
  }
  const auto room = static_cast<std::size_t>(pair.valueSize);
  if (*at != '=' || nameLength >= kAttribNameSize - 1 || room <= kShortText) return kOdd;
  const char quote = at[1];
  if (quote != '"' && quote != '\'') return kOdd;
  at += 2;
  while (*at == ' ') ++at;
  const void* close = at >= end ? nullptr : std::memchr(at, quote, std::size_t(end - at));
  if (close == nullptr) return kOdd;
  const auto valueLength = static_cast<std::size_t>(static_cast<const char*>(close) - at);
  if (valueLength + 1 >= room) return kOdd;
  copyText(pair.name, name, nameLength);
  copyText(pair.value, at, valueLength);
  source.takeTo(static_cast<const char*>(close) + 1);
  return egfsvg::attributeCode(name, nameLength);
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

int CHandlerReader::GetNextAttribPair(_svg_attrib_pair* pair) {
  int code = readPlainPair(buffer, *pair);
  if (code == kOdd) code = readOddPair(buffer, *pair);
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
