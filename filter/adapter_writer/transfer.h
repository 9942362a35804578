// One object on its way out, and what each class does with it. Results are 0 or a code; a refused
// object is 0.
#pragma once

#include "adapter_writer/svg_adapterwriter.h"
#include "adapter_writer/write_envelope.h"

namespace egfsvg {

struct Transfer {
  CAdapterWriter& writer;
  _egf_obj* object;
  _adapterWriteData* data;
  HostHandle target;

  /// The same for another object.
  int send(_egf_obj* other) const { return writer.AdapterTransferData(other, data, target); }
  int close(std::int32_t type) const { return writeBare(writer, *data, type); }
};

/// Fills a record of the tag and writes it, unless `fill` returns false.
template <class Record, class Fill>
int writeElement(const Transfer& t, std::int32_t tag, Fill&& fill) {
  return writeElement<Record>(t.writer, *t.data, tag, fill);
}

/// Containers (transfer_groups.cpp).
int transferGroup(const Transfer& t);
int transferArrowLine(const Transfer& t);
int transferStockObject(const Transfer& t);
/// Writes the opening tag of a group that its caller closes.
int openGroup(const Transfer& t);

/// Shapes (transfer_shapes.cpp).
int transferLine(const Transfer& t);
int transferEllipse(const Transfer& t);
int transferPolyline(const Transfer& t);
int transferPolygon(const Transfer& t);

/// Paths, and what is written as one (transfer_paths.cpp).
int transferPath(const Transfer& t);
int transferArc(const Transfer& t);
int transferOpenEllipse(const Transfer& t);
int transferPolyPath(const Transfer& t);

int transferUnsupported(const Transfer& t);

}  // namespace egfsvg
