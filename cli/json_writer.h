// Writes JSON as it goes, never holding the document: commas, line breaks and escapes are its work,
// the order of keys and the balance of brackets are the caller's.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cli/byte_sink.h"

namespace egfsvg {

// How the members of an object or the entries of an array stand.
enum class JsonLayout : std::uint8_t { kInline, kLines };

class JsonWriter {
 public:
  explicit JsonWriter(ByteSink& sink) : sink_(sink) {}
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;
  ~JsonWriter() = default;

  void beginObject(JsonLayout layout = JsonLayout::kInline) { open('{', layout); }
  void endObject() { close('}'); }
  void beginArray(JsonLayout layout = JsonLayout::kInline) { open('[', layout); }
  void endArray() { close(']'); }

  // The name of the member that the next value, object or array is. Names are written as they are.
  void key(std::string_view name);

  void null() { scalar("null"); }
  void value(bool truth) { scalar(truth ? "true" : "false"); }
  void value(std::integral auto number) { integer(static_cast<std::int64_t>(number)); }
  // Shortest digits that read back the same number of its own width; null when not finite.
  void value(float number);
  void value(double number);
  // Escaped; each byte that does not belong to a UTF-8 sequence becomes U+FFFD.
  void value(std::string_view text);
  // A text, or null.
  void value(const char* text);

  template <class Value>
  void member(std::string_view name, Value&& content) {
    key(name);
    value(std::forward<Value>(content));
  }

  // Ends a document with a line feed.
  void endDocument() { put("\n"); }

  // Hands the sink what is held back. To be called at the end.
  void finish() { flush(); }

 private:
  struct Level {
    JsonLayout layout;
    bool empty;
  };

  void open(char bracket, JsonLayout layout);
  void close(char bracket);
  void beforeItem();
  void newLine();
  void scalar(std::string_view text);
  void integer(std::int64_t number);
  void put(std::string_view text);
  void flush();

  ByteSink& sink_;
  std::string pending_;
  std::vector<Level> levels_;
  bool afterKey_ = false;
};

}  // namespace egfsvg
