// The walk: which objects are written, and what each class does.

#include "adapter_writer/transfer.h"

#include "adapter_writer/nesting.h"
#include "adapter_writer/unsupported.h"
#include "host/egf.h"
#include "host/egf_bits.h"
#include "host/egf_codes.h"

namespace egfsvg {
namespace {

struct ClassRow {
  int objClass;
  int (*transfer)(const Transfer&);
};

int transferNothing(const Transfer&) { return kOk; }

constexpr ClassRow kClasses[] = {
    {kClassNone, transferNothing},
    {kClassGroup, transferGroup},
    {kClassArc, transferArc},
    {kClassLine, transferLine},
    {kClassEllipse, transferEllipse},
    {kClassArrowLine, transferArrowLine},
    {kClassPolyline, transferPolyline},
    {kClassPolygon, transferPolygon},
    {kClassStockObject, transferStockObject},
    {kClassPath, transferPath},
};

constexpr auto transferOf(int objClass) {
  for (const ClassRow& row : kClasses) {
    if (row.objClass == objClass) return row.transfer;
  }
  return transferUnsupported;
}

/// The layer that an object stands on, null for none.
const EgfLayerBody* layerOf(const EgfTreeBody* tree, std::uint16_t index) {
  if (tree == nullptr || index == kNoLayer || index >= tree->pageHeader.layerCount) return nullptr;
  const ref32<HostHandle> table = tree->pageHeader.layerTable;
  if (!table) return nullptr;
  const auto layer = readPacked<HostHandle>(table.get(), index * sizeof(HostHandle));
  return blockBody<EgfLayerBody>(at<EgfBlockHeader>(layer));
}

bool isOutput(const CAdapterWriter& writer, const _egf_obj& object) {
  const EgfLayerBody* layer = layerOf(writer.objectTree, object.layerIndex);
  if (layer != nullptr && (layer->shown != 1 || layer->suppressed != 0)) return false;
  return ViewportBits::get(object.objAttr2) == 0 && OutputBits::get(object.objAttr) != 0;
}

/// The next sibling is asked for soon; the objects of a large drawing are far from the processor.
void fetchAhead(const _egf_obj& object) {
  constexpr std::uint32_t kLine = 64;
  constexpr std::uint32_t kLines = 3;
  const char* next = reinterpret_cast<const char*>(ref32<_egf_obj>(object.next).get());
  for (std::uint32_t line = 0; line < kLines; ++line) __builtin_prefetch(next + line * kLine);
}

}  // namespace

int transferUnsupported(const Transfer& t) {
  reportUnsupported(EGF_GetObjectClass(t.object));
  return kOk;
}

}  // namespace egfsvg

int CAdapterWriter::AdapterTransferData(_egf_obj* object, _adapterWriteData* data,
                                        HostHandle target) {
  using namespace egfsvg;
  const int objClass = EGF_GetObjectClass(object);
  if (objClass == kClassNone) return kOk;
  fetchAhead(*object);
  if (!isOutput(*this, *object)) return kOk;
  OpenObject open(state);
  if (!open.fits()) return kOk;
  return transferOf(objClass)({*this, object, data, target});
}
