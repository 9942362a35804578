// From a declaration and a tag code to the element's own setter.

#include "reader/cascade.h"

#include <cstring>

#include "reader/attribute_rows.h"
#include "reader/presentation_table.h"

namespace egfsvg {

namespace {

using Reader = CHandlerReader;

enum class Reach { kNothing, kStyleAttribute, kRulesToo };

struct SetterRow {
  Reach reach = Reach::kNothing;
  void (*set)(Reader& reader, void* element, int code, _svg_attrib_pair* pair) = nullptr;
};

template <class Record>
void call(Reader& reader, int (Reader::*setter)(Record*, int, _svg_attrib_pair*), void* element,
          int code, _svg_attrib_pair* pair) {
  (reader.*setter)(static_cast<Record*>(element), code, pair);
}

template <auto Setter>
constexpr SetterRow row(Reach reach) {
  return {reach, [](Reader& reader, void* element, int code, _svg_attrib_pair* pair) {
            call(reader, Setter, element, code, pair);
          }};
}

// The style attributes of `a` and `switch` go by the codes of `image` and `svg`: their records get
// what those elements accept, in their own fields.
void setImage(Reader& reader, void* element, int code, _svg_attrib_pair* pair) {
  if (static_cast<_svg_common*>(element)->type == kTagLink) {
    kLinkStyleRow.apply(reader, element, code, pair);
  } else {
    reader.SetImageAttribute(static_cast<_svg_image*>(element), code, pair);
  }
}

void setSvg(Reader& reader, void* element, int code, _svg_attrib_pair* pair) {
  if (static_cast<_svg_common*>(element)->type == kTagSwitch) {
    kSwitchStyleRow.apply(reader, element, code, pair);
  } else {
    reader.SetSVGAttribute(static_cast<_svg_svg*>(element), code, pair);
  }
}

constexpr auto kSetters = [] {
  std::array<SetterRow, kTagStop + 1> rows{};
  rows[kTagSvg] = rows[kTagSymbol] = {Reach::kRulesToo, setSvg};
  rows[kTagPath] = row<&Reader::SetPathAttribute>(Reach::kRulesToo);
  rows[kTagRect] = row<&Reader::SetRectAttribute>(Reach::kRulesToo);
  rows[kTagCircle] = row<&Reader::SetCircleAttribute>(Reach::kRulesToo);
  rows[kTagEllipse] = row<&Reader::SetEllipseAttribute>(Reach::kRulesToo);
  rows[kTagLine] = row<&Reader::SetLineAttribute>(Reach::kRulesToo);
  rows[kTagPolyline] = row<&Reader::SetPolylineAttribute>(Reach::kRulesToo);
  rows[kTagPolygon] = row<&Reader::SetPolygonAttribute>(Reach::kRulesToo);
  rows[kTagText] = row<&Reader::SetTextAttribute>(Reach::kRulesToo);
  rows[kTagGroup] = rows[kTagUse] = row<&Reader::SetGroupAttribute>(Reach::kRulesToo);
  rows[kTagDefs] = row<&Reader::SetDefsAttribute>(Reach::kStyleAttribute);
  rows[kTagImage] = {Reach::kStyleAttribute, setImage};
  rows[kTagLinearGradient] = rows[kTagRadialGradient] =
      row<&Reader::SetGradientObjAttribute>(Reach::kStyleAttribute);
  rows[kTagStop] = row<&Reader::SetStopObjAttribute>(Reach::kStyleAttribute);
  return rows;
}();

const SetterRow& setterOf(int type) {
  const bool known = type >= 0 && static_cast<std::size_t>(type) < kSetters.size();
  return kSetters[known ? static_cast<std::size_t>(type) : std::size_t{0}];
}

}  // namespace

void applyStyleAttribute(CHandlerReader& reader, void* element, int type, int code,
                         _svg_attrib_pair* pair) {
  const SetterRow& setter = setterOf(type);
  if (setter.reach != Reach::kNothing) setter.set(reader, element, code, pair);
}

bool takesRules(int type) { return setterOf(type).reach == Reach::kRulesToo; }

}  // namespace egfsvg

int CHandlerReader::SetAttribute(void* element, int type, AttNode* node) {
  using namespace egfsvg;
  if (element == nullptr || node == nullptr || !takesRules(type)) return 0;
  _svg_attrib_pair pair;
  // Setters of properties do not ask for the name.
  const bool isNamed = !isPresentation(node->code);
  std::memcpy(pair.name, node->name, isNamed ? std::strlen(node->name) + 1 : 0);
  pair.valueSize = node->valueLength;
  pair.value = node->value;
  setterOf(type).set(*this, element, node->code, &pair);
  return 0;
}
