// The dispatch of attributes and what all elements share of it.

#include "reader/attribute_rows.h"
#include "reader/presentation_table.h"

namespace egfsvg {

void ElementRow::apply(CHandlerReader& reader, void* record, std::int32_t code,
                       _svg_attrib_pair* pair) const {
  if (code < 0 || static_cast<std::size_t>(code) >= kAttributeCodes) return;
  const std::size_t slot = slots_[static_cast<std::size_t>(code)];
  if (slot == 0) return;
  if (slot == kPresentationSlot) {
    const auto* head = static_cast<_svg_common*>(record);
    applyPresentation(reader, {head->parent, record, &groups_}, code, pair);
  } else if (slot <= common_.size()) {
    common_[slot - 1].run(reader, record, pair);
  } else {
    own_[slot - 1 - common_.size()].run(reader, record, pair);
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
