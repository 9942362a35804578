// Shapes, a row an element: the record, its tag, and the converter that fills it.

#include "adapter_writer/transfer.h"
#include "host/egf_bits.h"

namespace egfsvg {
namespace {

/// Converters without a result always want their element.
template <class Record, void (CAdapterWriter::*kConverter)(_egf_obj*, Record*)>
int writeShape(const Transfer& t, std::int32_t tag) {
  return writeElement<Record>(t, tag, [&](Record* record) {
    (t.writer.*kConverter)(t.object, record);
    return true;
  });
}

struct ShapeRow {
  std::int32_t tag;
  int (*write)(const Transfer&, std::int32_t tag);
};

/// A form that chooses its own record.
template <int (*kTransfer)(const Transfer&)>
int writeOther(const Transfer& t, std::int32_t) {
  return kTransfer(t);
}

using W = CAdapterWriter;

constexpr ShapeRow kEllipseForms[] = {
    {kTagPath, writeOther<transferOpenEllipse>},
    {kTagCircle, writeShape<_svg_circle, &W::SetSVGCircle>},
    {kTagEllipse, writeShape<_svg_ellipse, &W::SetSVGEllipse>},
};

constexpr ShapeRow kPolygonForms[] = {
    {kTagPath, writeOther<transferPolyPath>},
    {kTagRect, writeShape<_svg_rect, &W::SetSVGRect>},
    {kTagPolyline, writeShape<_svg_polyline, &W::SetSVGPlineForPgon>},
    {kTagPolygon, writeShape<_svg_polygon, &W::SetSVGPolygon>},
};

/// Writes the object by the row of its type; nothing without one.
template <std::size_t N>
int writeForm(const Transfer& t, const ShapeRow (&rows)[N]) {
  const int type = t.writer._getSvgObjType(t.object);
  for (const ShapeRow& row : rows) {
    if (row.tag == type) return row.write(t, type);
  }
  return kOk;
}

}  // namespace

int transferLine(const Transfer& t) {
  return writeElement<_svg_line>(
      t, kTagLine, [&](_svg_line* record) { return t.writer.SetSVGLine(t.object, record) == 0; });
}

int transferPolyline(const Transfer& t) {
  const auto* polyline = as<EgfPolyline>(t.object);
  const PointArray points = polyline->points;
  if (!points || polyline->pointCount == 0) return kOk;
  return writeShape<_svg_polyline, &W::SetSVGPolyline>(t, kTagPolyline);
}

int transferEllipse(const Transfer& t) { return writeForm(t, kEllipseForms); }

int transferPolygon(const Transfer& t) { return writeForm(t, kPolygonForms); }

}  // namespace egfsvg
