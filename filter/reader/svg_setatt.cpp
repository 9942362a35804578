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
bool ElementRow::applyOther(CHandlerReader& reader, void* record, _svg_attrib_pair* pair,
                            int& code) const {
  code = reader.GetNextAttribPair(pair);
  if (code == kAttNoMore || code == kAttSyntaxError) return false;
  if (code == kAttUnknown) reportUnknownName(reader, pair->name);
  apply(reader, record, code, pair);
  return true;
}

/// Setters leave the source alone, so that the walk goes on where it is.
int ElementRow::applyAll(CHandlerReader& reader, void* record) const {
  ScratchPair scratch(reader.state);
  if (!scratch.hasValue()) return kAttSyntaxError;
  cBuffer& source = reader.buffer;
  PlainAttribute found;
  for (int code;;) {
    const char* at = source.unread();
    const char* const end = source.unreadEnd();
    while (at != nullptr && scanUsual(at, end, found, code)) {
      source.take(found.next - at);
      at = found.next;
      reader.stepGauge();
      const std::uint8_t slot = slots_[static_cast<std::size_t>(code)];
      if (slot == 0) continue;
      fillPair(found, scratch.pair);
      run(reader, record, code, slot, &scratch.pair);
    }
    if (at != nullptr && at != end) {
      if (const char* const behind = behindTagEnd(at)) {
        source.take(behind - at);
        return kAttNoMore;
      }
    }
    if (!applyOther(reader, record, &scratch.pair, code)) return code;
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
