// The writer's life, and the order of a written file.

#include "adapter_writer/svg_adapterwriter.h"

#include <cstring>

#include "adapter_writer/style_pools.h"
#include "adapter_writer/wait_cursor.h"
#include "adapter_writer/write_envelope.h"
#include "host/objects.h"
#include "host/settings.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

void endTable(HostHandle& table) {
  if (table != 0) STYLE_Destroy(table);
  table = 0;
}

void freeStyleSet(WriterStyleSet*& set) {
  if (set == nullptr) return;
  for (HostHandle& slot : set->slots) endTable(slot);
  endTable(set->seventh);
  endTable(set->eighth);
  freeAll(set);
}

/// Null when memory ran out. The writer owns what is there when the host throws under way.
void makeStyleSet(WriterStyleSet*& set) {
  set = allocateZeroed<WriterStyleSet>(RMM_SITE);
  if (set == nullptr) return;
  bool complete = true;
  for (HostHandle& slot : set->slots) {
    slot = STYLE_Create();
    complete = complete && slot != 0;
  }
  if (settingOn(Setting::kSeventhStyleTable)) {
    set->seventh = STYLE_Create();
    complete = complete && set->seventh != 0;
  }
  if (!complete) freeStyleSet(set);
}

void freeKept(CAdapterWriter& writer) {
  freeAll(writer.spareEnvelope);
  freeStyleSet(writer.styleSet);
  endTable(writer.gradientTable);
}

/// The rectangle of the whole drawing, in work units; all 0 without one.
_mpl_spacerect_tag extentOf(_egf_obj* root, HostHandle map) {
  _mpl_spacerect_tag bounds{};
  _mpl_spacerect_tag extent{};
  EEL_GetObjectMer(root, &bounds, map);
  MPL_XWORKtoWORK(&bounds, &extent);
  return extent;
}

/// Everything from the header on; the status of the first step that failed.
int writeDocument(CAdapterWriter& writer, WriteEnvelope<_objectStream>& envelope,
                  _adapterWriteData* data, HostHandle target) {
  std::memcpy(envelope.record()->comment, data->comment, sizeof data->comment - 1);
  int status = envelope.write();
  if (status == kOk) {
    status = enumerateTable(documentTable(writer, kStylePen), kPooledFillSize,
                            _transferEntityListProc, data);
  }
  if (status == kOk) status = envelope.writeAs(kWriteEndDoctype);
  if (status == kOk) {
    status = writer.AdapterTransferData(writer.objectTree->root.get(), data, target);
  }
  return status == kOk ? envelope.writeAs(kWriteEnd) : status;
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

CAdapterWriter::~CAdapterWriter() {
  freeKept(*this);
  if (handlerWriter == 0) return;
  _handlerCloseWriter close{handlerWriter};
  SVGH_CloseWriter(&close);
}

void CAdapterWriter::operator delete(void* block) { RMM_Free(block); }

/// The pools are made even when the serialiser could not be opened.
int CAdapterWriter::OpenWriter(_adapterOpenWriter* record) {
  _handlerOpenWriter open{0, record->target};
  const int result = SVGH_OpenWriter(&open);
  handlerWriter = open.writer;
  if (styleSet == nullptr) makeStyleSet(styleSet);
  if (gradientTable == 0) gradientTable = STYLE_Create();
  const bool complete = styleSet != nullptr && gradientTable != 0;
  return result == kOk && !complete ? static_cast<int>(kOutOfMemory) : result;
}

int CAdapterWriter::WriteData(_adapterWriteData* record, HostHandle target) {
  MPL_GetResXFactor(1, 1, view, &xFactor);
  MPL_GetResYFactor(1, 1, view, &yFactor);
  if (handlerWriter == 0) return kNoHandler;
  objectTree = blockBody<EgfTreeBody>(at<EgfBlockHeader>(record->objectTree));
  if (objectTree == nullptr || !objectTree->root) return kMissingField;
  styleTreeHead = &objectTree->pageHeader;
  state = {};
  extent = extentOf(objectTree->root.get(), view);
  WaitCursor cursor;
  WriteEnvelope<_objectStream> envelope(*this, *record, kWriteHeader);
  if (!envelope) {
    cursor.leave();
    return kOutOfMemory;
  }
  return writeDocument(*this, envelope, record, target);
}

int CAdapterWriter::CloseWriter() {
  if (handlerWriter == 0) return kNoHandler;
  freeKept(*this);
  _handlerCloseWriter close{handlerWriter};
  const int result = SVGH_CloseWriter(&close);
  if (result == kOk) handlerWriter = 0;
  return result;
}

void attachWriter(HostHandle writer, HostHandle document, HostHandle map) {
  auto* const object = at<CAdapterWriter>(writer);
  if (object == nullptr) return;
  object->document = document;
  object->view = map;
}
