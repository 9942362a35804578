#include "reader/presentation_table.h"

#include "reader/presentation_rows.h"

namespace egfsvg {

InheritWord inheritWordOf(std::int32_t presentationCode) {
  return presentationRow(presentationCode).inherit;
}

}  // namespace egfsvg

// Rules have no parent: "inherit" does nothing here.
int CHandlerReader::SetStyleTagPresentationAtt(_svg_style_props* record, int attType,
                                               _svg_attrib_pair* pair) {
  using namespace egfsvg;
  static constexpr GroupOffsets kGroups = GroupOffsets::of<_svg_style_props>();
  if (record == nullptr || pair == nullptr || !isPresentation(attType)) return 0;
  const PresentationRow& row = presentationRow(attType);
  if (!kGroups.has(row.group)) return 0;
  const PlacedAction action{row.set, kGroups.offsetOf(row.group) + row.offset};
  action(*this, pair, {record, &kGroups, nullptr});
  return 0;
}
