// The white box behind a text.

#include "adapter_writer/convert_points.h"
#include "adapter_writer/transfer.h"
#include "host/egf_bits.h"
#include "host/egf_codes.h"

namespace egfsvg {
namespace {

constexpr std::int32_t kBoxCorners = 4;
constexpr std::int32_t kBoxColour = 0xffffff;
constexpr int kOutOfBlocks = -1;

void setBox(CAdapterWriter& writer, const EgfTextObject& text, _svg_polygon* record) {
  initPolygon(record);
  if (!makePoints(writer, record, kBoxCorners)) return;
  const UserScale scale = scaleOf(writer);
  const _mpl_spacerect_tag box = text.text.bounds;
  const _mpl_spacept_tag corners[] = {
      {box.left, box.top}, {box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}};
  for (std::int32_t i = 0; i < kBoxCorners; ++i) {
    setPoint(record->points[i], scale, corners[i].x, corners[i].y);
  }
  record->fill.packedColor = kBoxColour;
  record->stroke.packedColor = kBoxColour;
  const bool solid = TextFillBits::get(text.parms.textFlags) == kFillOpaque;
  record->graphics.opacity = solid ? 1.0 : 0.0;
  setPixels(record->stroke.strokeWidth, solid ? scale.mean() : 0.0);
}

}  // namespace
}  // namespace egfsvg

/// Opens a group, which the caller closes, and writes the box into it. Kept: the group's result
/// counts.
int CAdapterWriter::EraseRect(_egf_obj* object, _adapterWriteData* data) {
  using namespace egfsvg;
  const Transfer t{*this, object, data, 0};
  const int opened = openGroup(t);
  if (opened == kOutOfMemory) return kOutOfBlocks;
  if (opened != kOk) return opened;
  const int box = writeElement<_svg_polygon>(t, kTagPolygon, [&](_svg_polygon* record) {
    setBox(*this, *as<EgfTextObject>(object), record);
    return true;
  });
  return box == kOutOfMemory ? kOutOfBlocks : opened;
}
