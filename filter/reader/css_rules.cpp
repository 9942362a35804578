#include "reader/css_rules.h"

#include "host/diagnostics.h"
#include "model/characters.h"
#include "model/rmm_allocator.h"
#include "reader/reports.h"
#include "reader/rule_store.h"

namespace egfsvg {

namespace {

/// Frees the names of a selector list.
class SelectorNames {
 public:
  SelectorNames() {
    names_ = allocateArray<char*>(1, RMM_SITE);
    char* slot = allocateArray<char>(kRuleNameSize, RMM_SITE);
    if (names_ == nullptr || slot == nullptr) {
      freeAll(slot, names_);
    } else {
      names_[0] = slot;
    }
  }
  ~SelectorNames() {
    for (int i = 0; names_ != nullptr && i < count_; ++i) freeAll(names_[i]);
    freeAll(names_);
  }
  SelectorNames(const SelectorNames&) = delete;
  SelectorNames& operator=(const SelectorNames&) = delete;

  /// How many there are; 0 without memory.
  int split(CHandlerReader& reader, char* selector) {
    if (names_ == nullptr) return 0;
    const int count = reader.ParseCSSstyleID(selector, &names_);
    count_ = count > 1 ? count : 1;
    return count;
  }
  const char* operator[](int index) const { return names_[index]; }

 private:
  char** names_ = nullptr;
  int count_ = 1;
};

class RuleReader {
 public:
  RuleReader(CHandlerReader& reader, CssSource& source, SheetEnd end)
      : reader_(reader), source_(source), end_(end) {}

  int read();
  /// Tells where the sheet could not be understood.
  void reportRule() {
    for (char& c : selector_) c = isWhite(c) ? ' ' : c;
    const bool whole = selector_.push('\0');
    logDiagnostic(Diagnostic::kBadStyleRule, static_cast<std::uint32_t>(reader_.buffer.fileIndex),
                  whole ? selector_.data() : nullptr, RMM_SITE);
  }

 private:
  enum class Selector { kRead, kSheetEnds, kFailed };

  bool atEnd() const { return current_ == CssSource::kEnd; }
  bool at(char c) const { return current_ == static_cast<unsigned char>(c); }
  bool atWhite() const { return !atEnd() && isWhite(static_cast<char>(current_)); }
  bool inSection() const { return end_ == SheetEnd::kCdataSection; }
  void advance() { current_ = source_.next(); }

  void skipWhite() {
    while (atWhite()) advance();
  }
  /// White space and comments.
  void skipGaps() {
    while (skipCssComment(current_, source_) != 0) {
    }
  }
  /// Those, and empty declarations.
  void skipToDeclaration() {
    for (skipGaps(); at(';'); skipGaps()) advance();
  }

  Selector readSelector();
  bool readDeclarations();
  bool readDeclaration();
  bool readName();
  bool readValue();
  bool readQuotedPiece();
  bool readPlainPiece();
  void storeRule();
  bool mayCopy(std::int32_t size, const char* name);
  int finishSection();

  CHandlerReader& reader_;
  CssSource& source_;
  SheetEnd end_;
  int current_ = CssSource::kEnd;
  GrowingArray<char> selector_{RMM_SITE};
  char name_[kAttribNameSize] = "";
  GrowingArray<char> value_{RMM_SITE};
  Declarations declarations_;
};

int RuleReader::read() {
  advance();
  for (;;) {
    if (inSection() && at(']')) return finishSection();
    skipGaps();
    if (atEnd()) return inSection() ? -1 : 0;
    switch (readSelector()) {
      case Selector::kSheetEnds:
        return finishSection();
      case Selector::kFailed:
        return -1;
      case Selector::kRead:
        break;
    }
    if (!readDeclarations()) return -1;
    storeRule();
  }
}

int RuleReader::finishSection() {
  advance();
  if (at(']')) advance();
  return at('>') ? 0 : -1;
}

/// Up to the brace, which is passed over. A section ends at the second of two square brackets.
RuleReader::Selector RuleReader::readSelector() {
  selector_.clear();
  while (!at('{')) {
    if (atEnd()) return Selector::kFailed;
    if (at('/') && skipCssComment(current_, source_) != 0) continue;
    const bool second = !selector_.empty() && selector_.back() == ']';
    if (inSection() && at(']') && second) return Selector::kSheetEnds;
    if (!selector_.push(static_cast<char>(current_))) return Selector::kFailed;
    advance();
  }
  advance();
  return selector_.push('\0') ? Selector::kRead : Selector::kFailed;
}

/// Up to the closing brace, which is passed over.
bool RuleReader::readDeclarations() {
  declarations_.clear();
  for (skipToDeclaration(); !at('}'); skipToDeclaration()) {
    if (!readDeclaration()) return false;
  }
  advance();
  return true;
}

bool RuleReader::readDeclaration() {
  if (!readName()) return false;
  skipWhite();
  if (!at(':')) return false;
  advance();
  skipWhite();
  if (!readValue()) return false;
  if (at(';')) advance();
  reader_.stepGauge();
  return declarations_.add(name_, value_.data(), static_cast<std::size_t>(value_.count()) - 1);
}

/// Up to white space or the colon. A name that is too long is no property's.
bool RuleReader::readName() {
  std::size_t length = 0;
  for (; !atWhite() && !at(':'); advance()) {
    if (atEnd()) return false;
    if (length < sizeof name_ - 1) name_[length++] = static_cast<char>(current_);
  }
  name_[length] = '\0';
  return true;
}

/// Up to the semicolon or the closing brace. Quoted pieces with commas between them are joined
/// without the commas; what follows them otherwise is passed over.
bool RuleReader::readValue() {
  value_.clear();
  bool quoted = at('\'') || at('"');
  bool complete = quoted ? readQuotedPiece() : readPlainPiece();
  while (complete && quoted) {
    skipWhite();
    if (!at(',')) break;
    advance();
    skipWhite();
    quoted = at('\'') || at('"');
    complete = quoted ? readQuotedPiece() : readPlainPiece();
  }
  for (; complete && !at(';') && !at('}'); advance()) complete = !atEnd();
  return complete && value_.push('\0');
}

bool RuleReader::readQuotedPiece() {
  const int quote = current_;
  for (advance(); current_ != quote; advance()) {
    if (atEnd() || !value_.push(static_cast<char>(current_))) return false;
  }
  advance();
  return true;
}

/// Kept: all white space is dropped, so "5 3" becomes "53".
bool RuleReader::readPlainPiece() {
  for (; !at(';') && !at('}'); advance()) {
    if (atEnd()) return false;
    if (!atWhite() && !value_.push(static_cast<char>(current_))) return false;
  }
  return true;
}

/// Each name of the selector list gets the declarations, the last one the chain itself.
void RuleReader::storeRule() {
  if (declarations_.empty()) return;
  SelectorNames names;
  const int count = names.split(reader_, selector_.data());
  const std::int32_t size = declarations_.count();
  for (int i = 0; i + 1 < count && mayCopy(size, names[i]); ++i) {
    Declarations copy(declarations_.first()->clone());
    if (!copy.empty()) appendRule(reader_, names[i], copy);
  }
  if (count > 0) appendRule(reader_, names[count - 1], declarations_);
}

/// Counts a copy of so many declarations for a name.
bool RuleReader::mayCopy(std::int32_t size, const char* name) {
  std::int32_t& copied = reader_.state.copiedDeclarations;
  if (size > kMaxCopiedDeclarations - copied) {
    reportLimit(reader_, Diagnostic::kStyleRulesLimit, name, RMM_SITE);
    return false;
  }
  copied += size;
  return true;
}

}  // namespace

int readCssRules(CHandlerReader& reader, CssSource& source, SheetEnd end) {
  RuleReader rules(reader, source, end);
  const int result = rules.read();
  if (result != 0) rules.reportRule();
  return result;
}

}  // namespace egfsvg

int CHandlerReader::ParseCSSFile(cBuffer* source) {
  if (source == nullptr) return -1;
  egfsvg::CssFile file(*source);
  return egfsvg::readCssRules(*this, file, egfsvg::SheetEnd::kSource);
}
