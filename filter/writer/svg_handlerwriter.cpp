// The dispatch: a row a record type. A link is the only record with children inside it.

#include "writer/svg_handlerwriter.h"

#include <array>
#include <iterator>

#include "frame/result_codes.h"
#include "host/memory.h"

namespace egfsvg {
namespace {

using WriteCall = int (*)(CHandlerWriter&, void* record, HostHandle stream);

/// A row's call: the member with its record, or without one.
template <auto kMember, class Record>
int writeRecord(CHandlerWriter& writer, void* record, HostHandle stream) {
  return (writer.*kMember)(static_cast<Record*>(record), stream);
}
template <auto kMember>
int writeText(CHandlerWriter& writer, void*, HostHandle stream) {
  return (writer.*kMember)(stream);
}

int writeNothing(CHandlerWriter&, void*, HostHandle) { return 0; }

int writeLink(CHandlerWriter& writer, void* record, HostHandle stream);

struct WriteRow {
  std::int32_t type;
  WriteCall call;
  bool insideLink;  // written as a child of a link
};

using W = CHandlerWriter;

constexpr WriteRow kRows[] = {
    {kWriteHeader, writeRecord<&W::writeSVGHeader, _objectStream>, false},
    {kWriteEnd, writeNothing, false},
    {kTagSvg, writeRecord<&W::writeOpenSVGTag, _svg_svg>, false},
    {kTagStyle, writeText<&W::writeOpenStyleTag>, false},
    {kTagPath, writeRecord<&W::writeSVGPathTag, _svg_path>, false},
    {kTagRect, writeRecord<&W::writeSVGRectTag, _svg_rect>, false},
    {kTagCircle, writeRecord<&W::writeSVGCircleTag, _svg_circle>, true},
    {kTagEllipse, writeRecord<&W::writeSVGEllipseTag, _svg_ellipse>, true},
    {kTagLine, writeRecord<&W::writeSVGLineTag, _svg_line>, false},
    {kTagPolyline, writeRecord<&W::writeSVGPolylineTag, _svg_polyline>, false},
    {kTagPolygon, writeRecord<&W::writeSVGPolygonTag, _svg_polygon>, true},
    {kTagText, writeRecord<&W::writeSVGTextTag, _svg_text>, true},
    {kTagGroup, writeRecord<&W::writeSVGGroupTag, _svg_group>, false},
    {kTagDefs, writeText<&W::writeOpenDefsTag>, false},
    {kTagImage, writeRecord<&W::writeSVGImageTag, _svg_image>, false},
    {kTagEntity, writeRecord<&W::writeEntityData, _svg_style_props>, false},
    {kTagLink, writeLink, false},
    {kWriteGradient, writeRecord<&W::writeGradientTag, _svg_gradient>, false},
    {kWriteRule, writeRecord<&W::writeCSSStyleSheetData, _svg_style_props>, false},
    {kWriteScript, writeRecord<&W::writeOpenScriptTag, _svg_script>, false},
    {kTagCloud, writeRecord<&W::writeCloudGroup, _svg_markup_cloud>, true},
    {kTagCrossout, writeRecord<&W::writeCrossOutGroup, _svg_markup_crossout>, true},
    {kTagDiamond, writeRecord<&W::writeDiamondGroup, _svg_markup_diamond>, true},
    {kTagAnnotation, writeRecord<&W::writeAnnoGroup, _svg_markup_anno>, false},
    {kTagEndSvg, writeText<&W::writeCloseSVGTag>, false},
    {kTagEndGroup, writeText<&W::writeSVGGroupCloseTag>, false},
    {kTagEndDefs, writeText<&W::writeCloseDefsTag>, false},
    {kTagEndStyle, writeText<&W::writeCloseStyleTag>, false},
    {kWriteEndDoctype, writeText<&W::writeCloseDoctype>, false},
    {kWriteEndScript, writeText<&W::writeCloseScriptTag>, false},
};

constexpr std::size_t kTypes = kWriteEndScript + 1;
constexpr std::uint8_t kNoRow = 0xff;

/// The place of each type's row.
constexpr auto kPlaces = [] {
  std::array<std::uint8_t, kTypes> places{};
  places.fill(kNoRow);
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    places[static_cast<std::size_t>(kRows[i].type)] = static_cast<std::uint8_t>(i);
  }
  return places;
}();

const WriteRow* rowOf(std::int32_t type) {
  const auto index = static_cast<std::uint32_t>(type);
  const std::uint8_t place = index < kTypes ? kPlaces[index] : kNoRow;
  return place == kNoRow ? nullptr : &kRows[place];
}

/// Children of other kinds are passed over. A child that fails leaves the link open.
int writeLink(CHandlerWriter& writer, void* record, HostHandle stream) {
  auto* link = static_cast<_svg_a*>(record);
  writer.writeSVGLinkTag(link, stream);
  const std::int32_t count = link->objects == nullptr ? 0 : link->objectCount;
  for (std::int32_t i = 0; i < count; ++i) {
    const WriteRow* row = rowOf(link->objects[i].type);
    if (row == nullptr || !row->insideLink) continue;
    if (row->call(writer, &link->objects[i].head, stream) == -1) return -1;
  }
  return writer.writeSVGLinkCloseTag(stream);
}

}  // namespace
}  // namespace egfsvg

CHandlerWriter::~CHandlerWriter() = default;

void CHandlerWriter::operator delete(void* block) { RMM_Free(block); }

int CHandlerWriter::OpenWriter(_handlerOpenWriter*) { return egfsvg::kOk; }
int CHandlerWriter::CloseWriter() { return egfsvg::kOk; }

int CHandlerWriter::WriteObject(_handlerWriteObject* record) {
  using namespace egfsvg;
  const WriteRow* row = rowOf(record->type);
  if (row == nullptr) return kUnknownWriteType;
  return row->call(*this, record->payload<void>(), record->stream) == -1 ? kLineNotWritten : kOk;
}
