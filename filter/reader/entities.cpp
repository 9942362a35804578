// Entity declarations that hold style: each is a rule under "#" and its name.

#include "model/characters.h"
#include "model/rmm_allocator.h"
#include "reader/rule_store.h"

namespace egfsvg {

namespace {

class EntityReader {
 public:
  explicit EntityReader(CHandlerReader& reader) : reader_(reader) {}

  /// Groups of a name and its declarations, up to the end of the tag. 0, or -1 where they cannot
  /// be understood.
  int read();

 private:
  bool atEnd() const { return current_ == cBuffer::kSourceEnd; }
  bool at(char c) const { return current_ == static_cast<unsigned char>(c); }
  bool atWhite() const { return !atEnd() && isWhite(static_cast<char>(current_)); }
  void advance() { current_ = reader_.buffer.nextByte(); }

  void skipWhiteAnd(char c) {
    while (atWhite() || at(c)) advance();
  }
  void readKey();
  bool readDeclarations();
  bool readName();
  bool readValue();
  bool readQuotedValue();

  CHandlerReader& reader_;
  int current_ = cBuffer::kSourceEnd;
  char key_[kRuleNameSize] = "";
  char name_[kAttribNameSize] = "";
  GrowingArray<char> value_{RMM_SITE};
};

int EntityReader::read() {
  for (advance();;) {
    skipWhiteAnd('"');
    if (at('>')) return 0;
    if (atEnd()) return -1;
    readKey();
    while (!at('"') && !at('>') && !atEnd()) advance();
    if (!at('"')) continue;
    advance();
    if (!readDeclarations()) return -1;
  }
}

/// "#" and the entity's name; what does not fit is passed over.
void EntityReader::readKey() {
  std::size_t length = 0;
  key_[length++] = '#';
  for (; !atWhite() && !at('"') && !atEnd(); advance()) {
    if (length < sizeof key_ - 1) key_[length++] = static_cast<char>(current_);
  }
  key_[length] = '\0';
}

/// Up to the closing quote, which is passed over.
bool EntityReader::readDeclarations() {
  Declarations declarations;
  for (skipWhiteAnd(';'); !at('"'); skipWhiteAnd(';')) {
    if (!readName() || !readValue()) return false;
    reader_.stepGauge();
    const auto length = static_cast<std::size_t>(value_.count()) - 1;
    if (!declarations.add(name_, value_.data(), length)) return false;
  }
  advance();
  if (!declarations.empty()) replaceRule(reader_, key_, declarations);
  return true;
}

/// Up to the colon, which is passed over.
bool EntityReader::readName() {
  std::size_t length = 0;
  for (; !atWhite() && !at(':'); advance()) {
    if (atEnd() || at('"')) return false;
    if (length < sizeof name_ - 1) name_[length++] = static_cast<char>(current_);
  }
  name_[length] = '\0';
  while (atWhite()) advance();
  if (!at(':')) return false;
  advance();
  return true;
}

/// Up to a semicolon or the closing quote, with the blanks inside.
bool EntityReader::readValue() {
  value_.clear();
  while (atWhite()) advance();
  if (at('\'')) return readQuotedValue();
  for (; !at(';') && !at('"'); advance()) {
    if (atEnd() || !value_.push(static_cast<char>(current_))) return false;
  }
  while (!value_.empty() && isWhite(value_.back())) value_.cutTo(value_.count() - 1);
  return value_.push('\0');
}

/// Up to the next apostrophe; what follows it is passed over.
bool EntityReader::readQuotedValue() {
  for (advance(); !at('\''); advance()) {
    if (atEnd() || !value_.push(static_cast<char>(current_))) return false;
  }
  while (!at(';') && !at('"')) {
    if (atEnd()) return false;
    advance();
  }
  return value_.push('\0');
}

}  // namespace

}  // namespace egfsvg

int CHandlerReader::ParseEntityTagData(_svg_style_props* style, _svg_common* owner) {
  if (style == nullptr) return 0;
  style->common = owner;
  if (hasAttributes != 0) GetEntityData();
  return 0;
}

int CHandlerReader::GetEntityData() { return egfsvg::EntityReader(*this).read(); }
