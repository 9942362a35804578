// The style attribute on every kind of element that takes one, and with it every presentation
// property.
#include <cstddef>
#include <iterator>

#include "fuzz/fuzz_support.h"
#include "model/codes.h"
#include "model/lifecycle.h"

namespace egfsvg::fuzz {
namespace {

template <class Record>
using Init = void (*)(Record*);

template <class Record>
void styleRecord(CHandlerReader& reader, Attribute& attribute, int type, Init<Record> init) {
  Record record;
  init(&record);
  reader.SetLocalStyleAtt(&record, attribute.get()->value, type);
  svg_DestroyObjectAtt(&record, type);
}

template <class Record, Init<Record> kInit, int kType>
void styleAs(CHandlerReader& reader, Attribute& attribute) {
  styleRecord<Record>(reader, attribute, kType, kInit);
}

using Style = void (*)(CHandlerReader&, Attribute&);
constexpr Style kStyles[] = {
    styleAs<_svg_rect, initRect, kTagRect>,
    styleAs<_svg_circle, initCircle, kTagCircle>,
    styleAs<_svg_ellipse, initEllipse, kTagEllipse>,
    styleAs<_svg_line, initLine, kTagLine>,
    styleAs<_svg_polyline, initPolyline, kTagPolyline>,
    styleAs<_svg_polygon, initPolygon, kTagPolygon>,
    styleAs<_svg_path, initPath, kTagPath>,
    styleAs<_svg_text, initText, kTagText>,
    styleAs<_svg_image, initImage, kTagImage>,
    styleAs<_svg_group, initGroupObj, kTagGroup>,
    styleAs<_svg_svg, initSVGObj, kTagSvg>,
    styleAs<_svg_a, initA, kTagLink>,
    styleAs<_svg_switch, initSwitch, kTagSwitch>,
    styleAs<_svg_stop, initStopObj, kTagStop>,
};

}  // namespace
}  // namespace egfsvg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace egfsvg::fuzz;
  const Input input(data, size);
  input.applySettings();
  const LeakCheck leaks;
  TextReader reader("");
  Attribute attribute(input.text);
  kStyles[input.kind() % std::size(kStyles)](*reader, attribute);
  return 0;
}
