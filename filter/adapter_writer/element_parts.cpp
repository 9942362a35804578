#include "adapter_writer/element_parts.h"

namespace egfsvg {

_svg_value* setTransform(CAdapterWriter& writer, _svg_common& head, TransformKind kind,
                         std::int32_t argCount) {
  head.transforms = allocateZeroed<transformEntry>(RMM_SITE);
  auto* args = allocateArray<_svg_value>(static_cast<std::size_t>(argCount), RMM_SITE);
  if (head.transforms == nullptr || args == nullptr) {
    freeAll(head.transforms, args);
    writer.state.outOfMemory = true;
    return nullptr;
  }
  *head.transforms = {kind, args, argCount};
  head.transformCount = 1;
  return args;
}

char* ownedNumber(CAdapterWriter& writer, std::int64_t number) {
  char* text = styleName("", number);
  if (text == nullptr) writer.state.outOfMemory = true;
  return text;
}

}  // namespace egfsvg
