// Which rules of the style table reach an element, and in which order. There is no specificity:
// the last rule that is looked up wins. Keys are built on the stack; a key longer than any that
// the table can hold matches nothing.

#include <cstring>
#include <string_view>

#include "model/name_tables.h"
#include "model/rmm_allocator.h"
#include "reader/cascade.h"
#include "reader/class_names.h"
#include "reader/paints.h"
#include "reader/presentation_table.h"

namespace egfsvg {

namespace {

using Reader = CHandlerReader;

constexpr std::size_t kKeySize = 255;  // the longest key of the table

class SelectorKey {
 public:
  template <class... Part>
  explicit SelectorKey(Part... parts) {
    (add(parts), ...);
  }
  const char* text() const { return fits_ ? text_ : nullptr; }
  std::size_t length() const { return length_; }

 private:
  void add(char c) { add(std::string_view(&c, 1)); }
  void add(std::string_view part) {
    fits_ = fits_ && part.size() <= kKeySize - length_;
    if (!fits_) return;
    std::memcpy(text_ + length_, part.data(), part.size());
    length_ += part.size();
  }

  char text_[kKeySize];
  std::size_t length_ = 0;
  bool fits_ = true;
};

/// Goes through the declarations of the rule at a position of the style table, in order; those of a
/// long rule that cannot be seen are left out.
template <class Take>
void eachDeclaration(Reader& reader, std::int32_t position, Take take) {
  AttNode* node = reader.styles.at(position);
  AttNode* const* some = reader.state.rules.effective(position, node, reader.gradients);
  if (some != nullptr) {
    for (; *some != nullptr; ++some) take(*some);
    return;
  }
  for (; node != nullptr; node = node->next) take(node);
}

/// Whether a declaration sets a plain value of a shape, and that by the shape's own style alone.
bool isPlain(const AttNode& node) {
  switch (node.code) {
    case kAttFontFamily:
    case kAttCursor:
    case kAttClipPath:
    case kAttMask:
    case kAttColorProfile:
    case kAttMarkerStart:
    case kAttMarkerMid:
    case kAttMarkerEnd:
    case kAttStrokeDasharray:
    case kAttBaselineShift:
      return false;
    case kAttFill:
    case kAttStroke:
      return !isReference(node.value);
    default:
      return isPresentation(node.code) &&
             (inheritWordOf(node.code) != InheritWord::kAsksTheParent ||
              !equalsNoCase(node.value, "inherit"));
  }
}

/// The element that rules are looked up for.
struct Subject {
  Reader& reader;
  void* element;
  int type;
  bool* plain = nullptr;  // when it is there, made false by a declaration that is not

  bool hasRules() const {
    return element != nullptr && reader.styles.count != 0 && takesRules(type);
  }
  RuleIndex& forms() const { return reader.state.rules; }
  const Map<AttNode>& rules() const { return reader.styles; }

  template <class... Part>
  void apply(Part... parts) const {
    const SelectorKey key(parts...);
    const std::int32_t position = rules().isthere(key.text(), key.length());
    if (position < 0) return;
    eachDeclaration(reader, position, [&](AttNode* node) {
      if (plain != nullptr) *plain = *plain && isPlain(*node);
      reader.SetAttribute(element, type, node);
    });
  }
};

/// Looks `selector` up behind the names that an ancestor goes by: its tag name, its classes, its
/// id. A null tag name is left out.
void applyBehind(const Subject& subject, const _svg_common& ancestor, const char* tag,
                 char combinator, std::string_view selector) {
  if (tag != nullptr) subject.apply(std::string_view(tag), combinator, selector);
  for (std::int32_t i = 0; i < ancestor.classCount && ancestor.classNames != nullptr; ++i) {
    subject.apply('.', std::string_view(ancestor.classNames[i]), combinator, selector);
  }
  if (ancestor.id != nullptr) {
    subject.apply('#', std::string_view(ancestor.id), combinator, selector);
  }
}

void applyChildRules(const Subject& subject, const _svg_common* parent, std::string_view selector) {
  if (parent == nullptr || !subject.forms().children(subject.rules())) return;
  applyBehind(subject, *parent, tagName(parent->type), '>', selector);
}

// Up to three ancestors, the nearest last. One without a tag name ends the walk: nearer ones are
// not tried.
void applyDescendantRules(const Subject& subject, const _svg_common* parent,
                          std::string_view selector) {
  constexpr int kLevels = 3;
  if (parent == nullptr || !subject.forms().descendants(subject.rules())) return;
  const _svg_common* ancestors[kLevels];
  int count = 0;
  for (; parent != nullptr && count < kLevels; parent = parent->parent) {
    ancestors[count++] = parent;
  }
  while (count > 0) {
    const _svg_common& ancestor = *ancestors[--count];
    const char* tag = tagName(ancestor.type);
    if (tag == nullptr) return;
    applyBehind(subject, ancestor, tag, ' ', selector);
  }
}

void applyInContext(const Subject& subject, std::string_view selector) {
  const _svg_common* parent = static_cast<const _svg_common*>(subject.element)->parent;
  applyDescendantRules(subject, parent, selector);
  applyChildRules(subject, parent, selector);
}

void applyClass(const Subject& subject, const char* tag, std::string_view name) {
  subject.apply('.', name);
  char selector[kTagNameSize + 1 + kClassNameLength];
  char* end = selector;
  *end++ = '.';
  end = std::copy(name.begin(), name.end(), end);
  applyInContext(subject, {selector, static_cast<std::size_t>(end - selector)});
  if (tag == nullptr) return;
  subject.apply(std::string_view(tag), '.', name);
  end = std::copy(tag, tag + std::strlen(tag), selector);
  *end++ = '.';
  end = std::copy(name.begin(), name.end(), end);
  applyInContext(subject, {selector, static_cast<std::size_t>(end - selector)});
}

void applyClasses(const Subject& subject, const char* text) {
  const char* tag = tagName(subject.type);
  ClassNameWalk names(text);
  for (std::string_view name = names.next(); !name.empty(); name = names.next()) {
    applyClass(subject, tag, name);
  }
}

/// The same for the style of a shape, in a table that has but the bare names of classes.
class StyleOfClasses {
 public:
  StyleOfClasses(const Subject& subject, ShapeStyle& style)
      : subject_(subject),
        style_(style),
        memo_(subject.forms().classMemo(subject.rules(), subject.reader.gradients)) {}

  void apply(const char* text) {
    ClassNameWalk names(text);
    // The styles that later names find differ more: they do not push out what others use.
    ClassMemo::Former former = ClassMemo::Former::kGoes;
    for (std::string_view name = names.next(); !name.empty(); name = names.next()) {
      if (!memo_.replay(name, style_)) applyAnew(name, former);
      former = ClassMemo::Former::kStays;
    }
  }

 private:
  void applyAnew(std::string_view name, ClassMemo::Former former) {
    const ShapeStyle before = style_;
    const std::int64_t reports = subject_.reader.state.reports;
    bool plain = true;
    subject_.plain = &plain;
    subject_.apply('.', name);
    const bool silent = subject_.reader.state.reports == reports;
    if (plain && silent && before.ownsNothing() && style_.ownsNothing()) {
      memo_.keep(name, before, style_, former);
    }
  }

  Subject subject_;
  ShapeStyle& style_;
  ClassMemo& memo_;
};

}  // namespace

void applyIdRules(CHandlerReader& reader, void* element, int type, std::string_view id) {
  const Subject subject{reader, element, type};
  if (!subject.hasRules() || !subject.forms().ids(subject.rules())) return;
  subject.apply('#', id);
  const char* tag = tagName(type);
  if (tag != nullptr) subject.apply(std::string_view(tag), '#', id);
}

}  // namespace egfsvg

int CHandlerReader::SetStyleBasedOnTypeSelector(void* element, int type) {
  using namespace egfsvg;
  const char* tag = tagName(type);
  if (tag == nullptr) return -1;
  if (styles.count == 0 || !state.rules.reachesTag(styles, type, tag)) return 0;
  const Subject subject{*this, element, type};
  if (!subject.hasRules()) return 0;
  subject.apply(std::string_view(tag));
  applyInContext(subject, tag);
  return 0;
}

int CHandlerReader::SetStyleBasedOnIDSelector(void* element, int type, const char* id) {
  if (id != nullptr) egfsvg::applyIdRules(*this, element, type, id);
  return 0;
}

int CHandlerReader::SetStyleBasedOnClassSelector(void* element, int type, const char* text) {
  using namespace egfsvg;
  const Subject subject{*this, element, type};
  if (text == nullptr || !subject.hasRules() || !state.rules.classes(styles)) return 0;
  ShapeStyle* style = shapeStyleOf(element, type);
  if (style != nullptr && state.rules.classesStandAlone(styles)) {
    StyleOfClasses(subject, *style).apply(text);
  } else {
    applyClasses(subject, text);
  }
  return 0;
}

int CHandlerReader::SetStyleBasedOnChildSelector(void* element, int type, _svg_common* parent,
                                                 const char* subject) {
  const egfsvg::Subject target{*this, element, type};
  if (subject != nullptr && target.hasRules()) egfsvg::applyChildRules(target, parent, subject);
  return 0;
}

int CHandlerReader::SetStyleBasedOnDescedantSelector(void* element, int type, _svg_common* parent,
                                                     const char* subject) {
  const egfsvg::Subject target{*this, element, type};
  if (subject != nullptr && target.hasRules()) {
    egfsvg::applyDescendantRules(target, parent, subject);
  }
  return 0;
}

int CHandlerReader::SetStyleBasedOnAttribSelector(void* element, int type, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  const Subject subject{*this, element, type};
  if (pair == nullptr || pair->value == nullptr || !subject.hasRules()) return 0;
  if (!state.rules.attributes(styles)) return 0;
  const std::string_view name(pair->name);
  const std::string_view value(pair->value);
  const std::string_view equals("=\"");
  const std::string_view end("\"]");
  subject.apply('[', name, ']');
  subject.apply('[', name, equals, value, end);
  const char* tag = tagName(type);
  if (tag == nullptr) return 0;
  subject.apply(std::string_view(tag), '[', name, ']');
  subject.apply(std::string_view(tag), '[', name, equals, value, end);
  return 0;
}

// Kept: classes are looked up as bare names, and one that is not found drops the names.
int CHandlerReader::SetStyleBasedOnClass(void* element, int type) {
  using namespace egfsvg;
  auto* head = static_cast<_svg_common*>(element);
  if (head == nullptr || type != kTagDefs) return 0;
  _svg_common* named = head->classCount > 0 ? head : head->parent;
  if (named == nullptr) return 0;
  for (std::int32_t i = 0; i < named->classCount; ++i) {
    const std::int32_t position = styles.isthere(named->classNames[i]);
    if (position < 0) {
      freeAll(named->classNames);
      named->classCount = 0;
      break;
    }
    eachDeclaration(*this, position, [&](AttNode* node) {
      _svg_attrib_pair pair{"", node->valueLength, node->value};
      SetDefsAttribute(static_cast<_svg_defs*>(element), node->code, &pair);
    });
  }
  return 0;
}

AttNode* CHandlerReader::pGetStyleFromTable(const char* name) {
  return name == nullptr ? nullptr : styles.find(name);
}
