#include "reader/leaf_kinds.h"

#include <array>
#include <cstddef>

#include "model/element_defaults.h"
#include "model/lifecycle.h"
#include "reader/attribute_rows.h"

namespace egfsvg {

namespace {

enum class StrokeCheck { kNone, kDone };

template <class Record>
constexpr LeafKind leaf(int tag, const Record& defaults, const ElementRow& row,
                        StrokeCheck check = StrokeCheck::kNone) {
  LeafKind kind{tag, sizeof(Record), &defaults, &row, offsetof(Record, ta)};
  if constexpr (requires { defaults.stroke; }) {
    if (check == StrokeCheck::kDone) kind.checkedStrokeAt = offsetof(Record, stroke);
  }
  return kind;
}

constexpr auto kChecked = StrokeCheck::kDone;

constexpr LeafKind kKinds[] = {
    leaf(kTagPath, kDefaultPath, kPathRow),
    leaf(kTagRect, kDefaultRect, kRectRow, kChecked),
    leaf(kTagCircle, kDefaultCircle, kCircleRow, kChecked),
    leaf(kTagEllipse, kDefaultEllipse, kEllipseRow, kChecked),
    leaf(kTagLine, kDefaultLine, kLineRow),
    leaf(kTagPolyline, kDefaultPolyline, kPolylineRow),
    leaf(kTagPolygon, kDefaultPolygon, kPolygonRow, kChecked),
    leaf(kTagImage, kDefaultImage, kImageRow),
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

void LeafKind::checkStroke(void* record) const {
  if (checkedStrokeAt == 0) return;
  char* const stroke = static_cast<char*>(record) + checkedStrokeAt;
  checkStrokeConsistence(*reinterpret_cast<_svg_pa_stroke*>(stroke));
}

}  // namespace egfsvg
