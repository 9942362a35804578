// The dispatch of attributes and what all elements share of it.

#include "reader/attribute_loop.h"
#include "reader/attribute_rows.h"
#include "reader/plain_attributes.h"
#include "reader/presentation_table.h"

namespace egfsvg {

void ElementRow::run(CHandlerReader& reader, void* record, std::int32_t code, std::uint8_t slot,
                     _svg_attrib_pair* pair) const {
  if (slot == kPresentationSlot) {
    const auto* head = static_cast<_svg_common*>(record);
    applyPresentation(reader, {head->parent, record, &groups_}, code, pair);
  } else {
    actions_[slot](reader, record, pair);
  }
}

void ElementRow::apply(CHandlerReader& reader, void* record, std::int32_t code,
                       _svg_attrib_pair* pair) const {
  if (const std::uint8_t slot = slotOf(code)) run(reader, record, code, slot, pair);
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
  PairInPlace pair;
  PlainAttribute found;
  for (int code; scanUsual(at, found, code);) {
    char* const value = at + (found.value - at);
    const std::ptrdiff_t taken = found.next - at;
    source.take(taken);
    at += taken;
    reader.stepGauge();
    const std::uint8_t slot = slots_[static_cast<std::size_t>(code)];
    if (slot == 0) continue;
    pair.with(found, value, [&](_svg_attrib_pair* one) { run(reader, record, code, slot, one); });
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
void setIdentifier(CHandlerReader& reader, void* record, _svg_attrib_pair* pair) {
  auto* head = static_cast<_svg_common*>(record);
  reader.SetIDAtt(&head->id, pair);
  reader.SetStyleBasedOnIDSelector(record, head->type, pair->value);
}

void setDescription(CHandlerReader& reader, void* record, _svg_attrib_pair* pair) {
  reader.SetDescAtt(static_cast<_svg_common*>(record), pair);
}

void setExternalResources(CHandlerReader& reader, void* record, _svg_attrib_pair* pair) {
  reader.SetExternResReqAtt(static_cast<_svg_common*>(record), pair);
}

// Kept: of two class attributes the first gives the names, but the rules of both apply.
void setClass(CHandlerReader& reader, void* record, _svg_attrib_pair* pair) {
  auto* head = static_cast<_svg_common*>(record);
  reader.SetClassNameAtt(head, pair);
  if (head->classCount >= 1) reader.SetStyleBasedOnClassSelector(record, head->type, pair->value);
}

void setTransform(CHandlerReader& reader, void* record, _svg_attrib_pair* pair) {
  reader.SetTransformAtt(static_cast<_svg_common*>(record), pair);
}

void setOwnStyle(CHandlerReader& reader, void* record, _svg_attrib_pair* pair) {
  reader.SetLocalStyleAtt(record, pair->value, static_cast<_svg_common*>(record)->type);
}

}  // namespace egfsvg
