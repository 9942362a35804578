#include "cli/json_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "cli/utf8.h"

namespace egfsvg {
namespace {

constexpr std::size_t kFlushSize = 1U << 16;
// Deeper levels keep the indent of this one, so that a very deep drawing stays small.
constexpr std::size_t kMaxIndent = 40;
constexpr std::size_t kNumberRoom = 32;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

std::string_view shortEscape(char byte) {
  switch (byte) {
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      return {};
  }
}

void appendControl(std::string& out, char byte) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(byte);
  out += "\\u00";
  out += kDigits[code >> 4U];
  out += kDigits[code & 0xFU];
}

// Appends what the bytes at the start of text stand for; returns how many were taken.
std::size_t appendEscaped(std::string& out, std::string_view text) {
  constexpr char kFirstPrintable = 0x20;
  const char byte = text.front();
  if (const std::string_view escape = shortEscape(byte); !escape.empty()) {
    out += escape;
    return 1;
  }
  if (byte >= 0 && byte < kFirstPrintable) {
    appendControl(out, byte);
    return 1;
  }
  const std::size_t length = utf8Length(text);
  out += length == 0 ? kReplacement : text.substr(0, length);
  return std::max<std::size_t>(length, 1);
}

}  // namespace

void JsonWriter::key(std::string_view name) {
  beforeItem();
  pending_ += '"';
  pending_ += name;
  pending_ += "\":";
  afterKey_ = true;
}

void JsonWriter::value(float number) {
  if (!std::isfinite(number)) return null();
  std::array<char, kNumberRoom> room;
  const auto [end, error] = std::to_chars(room.data(), room.data() + room.size(), number);
  scalar({room.data(), end});
}

void JsonWriter::value(double number) {
  if (!std::isfinite(number)) return null();
  std::array<char, kNumberRoom> room;
  const auto [end, error] = std::to_chars(room.data(), room.data() + room.size(), number);
  scalar({room.data(), end});
}

void JsonWriter::value(std::string_view text) {
  beforeItem();
  pending_ += '"';
  while (!text.empty()) {
    text.remove_prefix(appendEscaped(pending_, text));
    if (pending_.size() >= kFlushSize) flush();
  }
  pending_ += '"';
}

void JsonWriter::value(const char* text) {
  if (text == nullptr) return null();
  value(std::string_view(text));
}

void JsonWriter::open(char bracket, JsonLayout layout) {
  beforeItem();
  put({&bracket, 1});
  levels_.push_back({layout, true});
}

void JsonWriter::close(char bracket) {
  const Level level = levels_.back();
  levels_.pop_back();
  if (level.layout == JsonLayout::kLines && !level.empty) newLine();
  put({&bracket, 1});
}

void JsonWriter::beforeItem() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (levels_.empty()) return;
  Level& level = levels_.back();
  if (!level.empty) pending_ += ',';
  level.empty = false;
  if (level.layout == JsonLayout::kLines) newLine();
}

void JsonWriter::newLine() {
  pending_ += '\n';
  pending_.append(std::min(levels_.size(), kMaxIndent), ' ');
}

void JsonWriter::scalar(std::string_view text) {
  beforeItem();
  put(text);
}

void JsonWriter::integer(std::int64_t number) {
  std::array<char, kNumberRoom> room;
  const auto [end, error] = std::to_chars(room.data(), room.data() + room.size(), number);
  scalar({room.data(), end});
}

void JsonWriter::put(std::string_view text) {
  pending_ += text;
  if (pending_.size() >= kFlushSize) flush();
}

void JsonWriter::flush() {
  sink_.write(pending_);
  pending_.clear();
}

}  // namespace egfsvg
