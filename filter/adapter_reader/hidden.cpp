#include "adapter_reader/hidden.h"

#include "model/elements.h"

namespace egfsvg {
namespace {

template <class Container>
const _svg_pa_graphics* graphicsIn(const _svg_common* head) {
  return &reinterpret_cast<const Container*>(head)->pa.graphics;
}

struct ContainerRow {
  std::int32_t type;
  const _svg_pa_graphics* (*graphics)(const _svg_common* head);
};

constexpr ContainerRow kContainerRows[] = {
    {kTagGroup, graphicsIn<_svg_group>},   {kTagSvg, graphicsIn<_svg_svg>},
    {kTagUse, graphicsIn<_svg_group>},     {kTagSymbol, graphicsIn<_svg_svg>},
    {kTagSwitch, graphicsIn<_svg_switch>}, {kTagLink, graphicsIn<_svg_a>},
    {kTagCloud, graphicsIn<_svg_group>},   {kTagCrossout, graphicsIn<_svg_group>},
    {kTagDiamond, graphicsIn<_svg_group>}, {kTagAnnotation, graphicsIn<_svg_group>},
};

bool hidesContent(const _svg_common* head) {
  for (const ContainerRow& row : kContainerRows) {
    if (row.type == head->type) return row.graphics(head)->display == kDisplayNone;
  }
  return false;
}

}  // namespace

bool standsUnderNone(const void* record) {
  const auto* element = static_cast<const _svg_common*>(record);
  for (const _svg_common* head = element->parent; head != nullptr; head = head->parent) {
    if (hidesContent(head)) return true;
  }
  return false;
}

}  // namespace egfsvg
