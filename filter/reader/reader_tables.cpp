// The tables of a read and their end.
#include "model/group_release.h"
#include "model/lifecycle.h"
#include "reader/release.h"
#include "reader/svg_handlerreader.h"

using egfsvg::freeAll;

namespace {

using egfsvg::releaseGroup;

/// Releases each value in order, then keys and array.
template <class Value>
void destroyTable(Map<Value>& table) {
  for (std::int32_t i = 0; i < table.count; ++i) {
    Value* value = table.entries[i].value;
    table.entries[i].value = nullptr;
    if (value != nullptr) egfsvg::release(value);
  }
  table.clear();
}

template <class Container>
void destroyContainer(Container* container) {
  releaseGroup(container->head);
  releaseGroup(container->pa);
  releaseGroup(container->ta);
}

}  // namespace

namespace egfsvg {

void release(_svg_svg* record) {
  destroyContainer(record);
  freeAll(record->viewBox, record);
}

void empty(_svg_group* record) {
  destroyContainer(record);
  freeAll(record->link.value);
}

void release(_svg_group* record) {
  empty(record);
  freeAll(record);
}

void release(_svg_switch* record) {
  destroyContainer(record);
  freeAll(record);
}

void release(_svg_defs* record) {
  DestroyCommonElements(&record->head);
  DestroyPAElements(&record->pa);
  DestroyDefNodes(record->defNodes);
  freeAll(record);
}

void release(_svg_localref* record) { freeAll(record->text, record); }

void release(_svg_gradient* record) {
  DestroyCommonElements(&record->head);
  DestroyGraphicsElements(&record->graphics);
  DestroyGrElements(record);
  freeAll(record);
}

/// A rule's declarations.
void release(AttNode* chain) { DestroyAttElements(chain); }

void release(_svg_objects* record) {
  svg_DestroyObject(record);
  freeAll(record);
}

}  // namespace egfsvg

void CHandlerReader::DestroySVGElemsTable() {
  destroyTable(svgs);
  svgCount = 0;
}

void CHandlerReader::DestroyGroupTable() {
  destroyTable(groups);
  groupCount = 0;
}

void CHandlerReader::DestroySwitchTable() {
  destroyTable(switches);
  switchCount = 0;
}

void CHandlerReader::DestroyDefsTable() {
  destroyTable(defs);
  defsCount = 0;
}

void CHandlerReader::DestroySVGStyleTable() {
  destroyTable(styles);
  state.rules.forget();
}

/// Kept: no counter goes with it, so names are counted over all reads.
void CHandlerReader::DestroyLocalRefTable() { destroyTable(localRefs); }

void CHandlerReader::DestroyGradientTable() { destroyTable(gradients); }

void CHandlerReader::destroyTables() {
  DestroyLocalRefTable();
  DestroyGradientTable();
  DestroySVGElemsTable();
  DestroyGroupTable();
  DestroySwitchTable();
  DestroySVGStyleTable();
  DestroyDefsTable();
}
