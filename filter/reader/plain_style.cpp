#include "reader/plain_style.h"

#include <string_view>

#include "model/characters.h"
#include "model/rmm_allocator.h"
#include "reader/css_rules.h"

namespace egfsvg {

namespace {

/// What a reference to a predefined entity stands for.
struct PredefinedEntity {
  std::string_view name;  // with its semicolon
  char character;
};
constexpr PredefinedEntity kPredefined[] = {
    {"lt;", '<'}, {"gt;", '>'}, {"amp;", '&'}, {"quot;", '"'}, {"apos;", '\''}};

/// The characters of an element that holds no other: markup is taken out, references are resolved.
class ElementText {
 public:
  explicit ElementText(cBuffer& source) : source_(source) {}

  /// Reads to the closing tag of that name; false when the source or memory ends first.
  bool read(std::string_view closer);

  const char* data() const { return text_.data(); }
  std::int32_t length() const { return text_.count(); }

 private:
  /// Takes the word, in any case, if it comes next.
  bool take(std::string_view word);
  bool passOver(std::string_view end);
  bool readSection();
  bool readReference();

  cBuffer& source_;
  GrowingArray<char> text_{RMM_SITE};
};

bool ElementText::take(std::string_view word) {
  const std::int32_t start = source_.getFileIndex();
  for (const char c : word) {
    const int byte = source_.nextByte();
    if (byte == cBuffer::kSourceEnd || lower(static_cast<char>(byte)) != c) {
      source_.setFileIndex(start);
      return false;
    }
  }
  return true;
}

bool ElementText::passOver(std::string_view end) {
  while (!take(end)) {
    if (source_.nextByte() == cBuffer::kSourceEnd) return false;
  }
  return true;
}

bool ElementText::readSection() {
  while (!take("]]>")) {
    const int byte = source_.nextByte();
    if (byte == cBuffer::kSourceEnd || !text_.push(static_cast<char>(byte))) return false;
  }
  return true;
}

bool ElementText::readReference() {
  for (const PredefinedEntity& entity : kPredefined) {
    if (take(entity.name)) return text_.push(entity.character);
  }
  return text_.push('&');
}

bool ElementText::read(std::string_view closer) {
  for (;;) {
    const int byte = source_.nextByte();
    bool good = byte != cBuffer::kSourceEnd;
    if (byte == '&') {
      good = readReference();
    } else if (byte != '<') {
      good = good && text_.push(static_cast<char>(byte));
    } else if (take(closer)) {
      return true;
    } else if (take("![cdata[")) {
      good = readSection();
    } else if (take("!--")) {
      good = passOver("-->");
    } else {
      good = text_.push('<');
    }
    if (!good) return false;
  }
}

}  // namespace

bool endsSelfClosed(cBuffer& source) {
  constexpr std::int32_t kCloserSize = 2;
  const std::int32_t end = source.getFileIndex();
  if (end < kCloserSize) return false;
  source.setFileIndex(end - kCloserSize);
  const bool slash = source.nextByte() == '/';
  source.setFileIndex(end);
  return slash;
}

void readPlainStyle(CHandlerReader& reader) {
  const std::int32_t start = reader.buffer.getFileIndex();
  ElementText text(reader.buffer);
  if (!text.read("/style")) {
    reader.buffer.setFileIndex(start);
    return;
  }
  CssText sheet(text.data(), text.length());
  readCssRules(reader, sheet, SheetEnd::kSource);
}

}  // namespace egfsvg
