#include "reader/leaf_kinds.h"

#include <array>

#include "model/lifecycle.h"

namespace egfsvg {

namespace {

enum class StrokeCheck { kNone, kDone };

template <class Record, auto Init, auto Parse, StrokeCheck check = StrokeCheck::kNone>
constexpr LeafKind leaf(int tag) {
  LeafKind kind{};
  kind.tag = tag;
  kind.size = sizeof(Record);
  kind.init = [](void* record) { Init(static_cast<Record*>(record)); };
  kind.parse = [](CHandlerReader& reader, void* record, _svg_common* parent, QV_FILEID* file) {
    auto* typed = static_cast<Record*>(record);
    if constexpr (std::is_invocable_v<decltype(Parse), CHandlerReader&, Record*, _svg_common*>) {
      static_cast<void>(file);
      return (reader.*Parse)(typed, parent);
    } else {
      return (reader.*Parse)(typed, parent, file);
    }
  };
  kind.tests = [](const void* record) -> const _svg_ta& {
    return static_cast<const Record*>(record)->ta;
  };
  if constexpr (check == StrokeCheck::kDone) {
    kind.checkedStroke = [](void* record) { return &static_cast<Record*>(record)->stroke; };
  }
  return kind;
}

using Reader = CHandlerReader;
constexpr auto kChecked = StrokeCheck::kDone;

constexpr LeafKind kKinds[] = {
    leaf<_svg_path, initPath, &Reader::ParsePathTagData>(kTagPath),
    leaf<_svg_rect, initRect, &Reader::ParseRectTagData, kChecked>(kTagRect),
    leaf<_svg_circle, initCircle, &Reader::ParseCircleTagData, kChecked>(kTagCircle),
    leaf<_svg_ellipse, initEllipse, &Reader::ParseEllipseTagData, kChecked>(kTagEllipse),
    leaf<_svg_line, initLine, &Reader::ParseLineTagData>(kTagLine),
    leaf<_svg_polyline, initPolyline, &Reader::ParsePolylineTagData>(kTagPolyline),
    leaf<_svg_polygon, initPolygon, &Reader::ParsePolygonTagData, kChecked>(kTagPolygon),
    leaf<_svg_image, initImage, &Reader::ParseImageTagData>(kTagImage),
};

constexpr auto kByTag = [] {
  std::array<const LeafKind*, kTagStop + 1> kinds{};
  for (const LeafKind& kind : kKinds) kinds[static_cast<std::size_t>(kind.tag)] = &kind;
  return kinds;
}();

}  // namespace

const LeafKind* leafKind(int tag) {
  const auto at = static_cast<std::size_t>(tag);
  return at < kByTag.size() ? kByTag[at] : nullptr;
}

}  // namespace egfsvg
