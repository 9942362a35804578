// What is written as a path: path objects, arcs, open ellipses, polygons of several subpaths. An
// object that leaves no segments is not written, and that is no failure.

#include "adapter_writer/path_groups.h"
#include "adapter_writer/transfer.h"

namespace egfsvg {
namespace {

template <int (CAdapterWriter::*kConverter)(_egf_obj*, _svg_path*)>
int writePath(const Transfer& t) {
  return writeElement<_svg_path>(t, kTagPath, [&](_svg_path* record) {
    (t.writer.*kConverter)(t.object, record);
    return record->paths != nullptr;
  });
}

}  // namespace

int transferPath(const Transfer& t) { return writePath<&CAdapterWriter::SetSVGPathForPath>(t); }

int transferArc(const Transfer& t) { return writePath<&CAdapterWriter::SetSVGPathForArc>(t); }

int transferOpenEllipse(const Transfer& t) {
  return writePath<&CAdapterWriter::SetSVGPathForElips>(t);
}

/// Several paths stand in a group that has their style. Kept: the group's closing tag then counts.
int transferPolyPath(const Transfer& t) {
  const auto groups = static_cast<int>(pathGroups(*as<EgfPolygon>(t.object)));
  if (groups > 1) {
    const int opened = openGroup(t);
    if (opened != kOk) return opened;
  }
  WriteEnvelope<_svg_path> envelope(t.writer, *t.data, kTagPath);
  if (!envelope) return kOutOfMemory;
  const int result = t.writer._transferSVGPathArray(envelope.get(), t.object, groups);
  return groups > 1 ? t.close(kTagEndGroup) : result;
}

}  // namespace egfsvg
