// Groups, nested viewports, arrow lines, and the standard objects of the host.

#include "adapter_writer/transfer.h"
#include "host/diagnostics.h"
#include "host/documents.h"
#include "host/egf_bits.h"
#include "host/egf_codes.h"
#include "host/objects.h"
#include "model/owners.h"

namespace egfsvg {
namespace {

bool isRoot(const Transfer& t) {
  const EgfTreeBody* tree = t.writer.objectTree;
  return tree != nullptr && t.object == tree->root.get();
}

/// A group whose first object is a viewport rectangle, in the kinds of document that have them.
bool isNestedSvg(const Transfer& t) {
  const ref32<_egf_obj> first = as<EgfGroup>(t.object)->firstChild;
  if (!first || ViewportBits::get(first->objAttr2) != 1) return false;
  const std::uint32_t kind = ISL_GetProperty(t.writer.document, kDocumentKind);
  return kind == kDocumentKindDrawing || kind == kDocumentKindDrawingSheet;
}

/// Kept: a child that fails does not end the walk, and the last child's result counts.
int transferSvg(const Transfer& t) {
  int status = kOk;
  {
    WriteEnvelope<_svg_svg> envelope(t.writer, *t.data, kTagSvg);
    if (!envelope) return kOutOfMemory;
    t.writer.SetSVGSVG(t.object, envelope.record());
    status = envelope.write();
    _egf_obj* child = nullptr;
    while (EEL_GetNextObject(t.object, &child, kWalkMask) != nullptr) status = t.send(child);
    if (isRoot(t)) t.writer._transferReferencedData(t.data);
  }
  return status == kOk ? t.close(kTagEndSvg) : status;
}

/// The first failure ends it, without the closing tag.
int transferPlainGroup(const Transfer& t) {
  int status = openGroup(t);
  _egf_obj* child = nullptr;
  while (status == kOk && EEL_GetNextObject(t.object, &child, kWalkMask) != nullptr) {
    status = t.send(child);
  }
  return status == kOk ? t.close(kTagEndGroup) : status;
}

/// A standard object while its stand-in is written. Those that stand inside each other are bounded,
/// in depth and in all.
class OpenStock {
 public:
  explicit OpenStock(WriterState& state) : state_(state) { ++state_.stockDepth; }
  ~OpenStock() { --state_.stockDepth; }
  OpenStock(const OpenStock&) = delete;
  OpenStock& operator=(const OpenStock&) = delete;

  /// False, with a message the first time, beyond a limit.
  bool fits() {
    if (state_.stockDepth > maxReferenceDepth()) return report(Diagnostic::kReferenceDepthLimit);
    if (state_.stockObjects >= maxReferencedObjects()) {
      return report(Diagnostic::kReferencedObjectsLimit);
    }
    ++state_.stockObjects;
    return true;
  }

 private:
  bool report(Diagnostic limit) {
    if (!state_.limitReported) logDiagnostic(limit, kNoSourceOffset, "g", RMM_SITE);
    state_.limitReported = true;
    return false;
  }

  WriterState& state_;
};

}  // namespace

int openGroup(const Transfer& t) {
  return writeElement<_svg_group>(t, kTagGroup, [&](_svg_group* group) {
    t.writer.SetSVGGroup(t.object, group);
    return true;
  });
}

int transferGroup(const Transfer& t) {
  if (isRoot(t) || isNestedSvg(t)) return transferSvg(t);
  if (LinkBits::get(as<EgfGroup>(t.object)->linkFlags) != 0) return transferUnsupported(t);
  return transferPlainGroup(t);
}

/// A line that is too short leaves its heads. Kept: the closing tag's result counts.
int transferArrowLine(const Transfer& t) {
  if (openGroup(t) == kOutOfMemory) return kOutOfMemory;
  const int line = writeElement<_svg_line>(t, kTagLine, [&](_svg_line* record) {
    return t.writer.SetSVGLineArrow(t.object, record) == 0;
  });
  if (line == kOutOfMemory) return kOutOfMemory;
  if (t.writer.DrawArrowHeads(t.object, t.data) != 0) return kOutOfMemory;
  return t.close(kTagEndGroup);
}

/// Writes a copy of the standard object at the place and angle of its stand-in.
int transferStockObject(const Transfer& t) {
  OpenStock open(t.writer.state);
  if (!open.fits()) return kOk;
  const auto* stock = as<EgfStockObject>(t.object);
  const ObjectOwner standard(ETX_ObjQueryStdObj(stock->reference, 1, 0));
  if (standard == nullptr) return kOk;
  const HostHandle tree = DOC_Get(t.writer.document, 1, 0, 0);
  const _mpl_spacept_tag place = stock->place;
  EEL_MoveObject(tree, standard.get(), place.x, place.y);
  EEL_RotateObject(tree, standard.get(), &place, stock->angle, 0);
  return t.send(standard.get());
}

}  // namespace egfsvg
