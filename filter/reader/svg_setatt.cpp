// The dispatch of attributes and what all elements share of it.

#include "reader/attribute_loop.h"
#include "reader/attribute_rows.h"
#include "reader/plain_attributes.h"

namespace egfsvg {

void ElementRow::apply(CHandlerReader& reader, void* record, std::int32_t code,
                       _svg_attrib_pair* pair) const {
  if (static_cast<std::uint32_t>(code) >= kAttributeCodes) return;
  const PlacedAction& action = actions_[static_cast<std::size_t>(code)];
  if (action.run == nullptr) return;
  action(reader, pair, {record, &groups_, static_cast<_svg_common*>(record)});
}

/// One attribute that is not of the most usual form. False at the end of the tag and at a syntax
/// error, which `code` is.
bool ElementRow::applyOther(CHandlerReader& reader, void* record, int& code) const {
  ScratchPair scratch(reader.state);
  code = scratch.hasValue() ? reader.GetNextAttribPair(&scratch.pair) : int{kAttSyntaxError};
  if (code == kAttNoMore || code == kAttSyntaxError) return false;
  if (code == kAttUnknown) reportUnknownName(reader, scratch.pair.name);
  apply(reader, record, code, &scratch.pair);
  return true;
}

/// Applies attributes of the most usual form, as many as follow each other in the block. Actions
/// leave the source alone, so that the walk goes on where it is.
void ElementRow::applyUsual(CHandlerReader& reader, void* record) const {
  cBuffer& source = reader.buffer;
  char* at = source.unreadText();
  if (at == nullptr) return;
  const auto* head = static_cast<const _svg_common*>(record);
  const ElementTarget target{record, &groups_, head};
  GuessedWalk walk(reader.state.guesses, head->type);
  PairInPlace pair;
  while (walk.scan(at)) {
    char* const value = at + (walk.value() - at);
    char* const quote = at + (walk.quote() - at);
    source.take(quote + 1 - at);
    at = quote + 1;
    reader.stepGauge();
    const PlacedAction& action = actions_[walk.code()];
    if (action.run == nullptr) continue;
    pair.with(value, quote, [&](_svg_attrib_pair* one) { action(reader, one, target); });
  }
}

int ElementRow::applyAll(CHandlerReader& reader, void* record) const {
  for (int code;;) {
    applyUsual(reader, record);
    if (reader.buffer.takeTagEnd()) return kAttNoMore;
    if (!applyOther(reader, record, code)) return code;
  }
}

// The rules of an id apply where the attribute stands.
void setIdentifier(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                   const ElementTarget&) {
  auto* head = static_cast<_svg_common*>(record);
  reader.SetIDAtt(&head->id, pair);
  if (reader.styles.count == 0) return;
  reader.SetStyleBasedOnIDSelector(record, head->type, pair->value);
}

void setDescription(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                    const ElementTarget&) {
  reader.SetDescAtt(static_cast<_svg_common*>(record), pair);
}

void setExternalResources(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                          const ElementTarget&) {
  reader.SetExternResReqAtt(static_cast<_svg_common*>(record), pair);
}

// Kept: of two class attributes the first gives the names, but the rules of both apply.
void setClass(CHandlerReader& reader, void* record, _svg_attrib_pair* pair, const ElementTarget&) {
  auto* head = static_cast<_svg_common*>(record);
  reader.SetClassNameAtt(head, pair);
  if (head->classCount >= 1) reader.SetStyleBasedOnClassSelector(record, head->type, pair->value);
}

void setTransform(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                  const ElementTarget&) {
  reader.SetTransformAtt(static_cast<_svg_common*>(record), pair);
}

void setOwnStyle(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                 const ElementTarget&) {
  reader.SetLocalStyleAtt(record, pair->value, static_cast<_svg_common*>(record)->type);
}

}  // namespace egfsvg
