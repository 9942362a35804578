// Moving and turning objects with all that they hold.

#include <cmath>
#include <cstdint>

#include "embedded_host/angles.h"
#include "embedded_host/bounds.h"
#include "embedded_host/curves.h"
#include "embedded_host/object_tree.h"
#include "host/egf_bits.h"
#include "host/egf_rows.h"
#include "host/objects.h"

namespace egfhost {

namespace {

using namespace egfsvg;

constexpr int kFailed = -1;
constexpr std::int32_t kQuarter = kFullTurn / 4;
constexpr std::int32_t kTenth = kMillionths / 10;

// A move, or a turn about a point.
struct Motion {
  Turn turn;
  double pivotX;
  double pivotY;
  double dx;
  double dy;

  _mpl_spacept_tag operator()(_mpl_spacept_tag point) const {
    const double x = point.x - pivotX;
    const double y = point.y - pivotY;
    return {static_cast<float>(pivotX + turn.cosine * x + turn.sine * y + dx),
            static_cast<float>(pivotY - turn.sine * x + turn.cosine * y + dy)};
  }
};

// The box of a rectangle's corners; an empty rectangle stays empty.
_mpl_spacerect_tag movedRect(_mpl_spacerect_tag rect, const Motion& motion) {
  if (isEmpty(rect)) return rect;
  Box box;
  for (const float x : {rect.left, rect.right}) {
    for (const float y : {rect.top, rect.bottom}) box.include(motion({x, y}));
  }
  return box.rect();
}

void movePoints(void* points, std::size_t count, const Motion& motion) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t offset = i * sizeof(_mpl_spacept_tag);
    writePacked(points, offset, motion(readPacked<_mpl_spacept_tag>(points, offset)));
  }
}

void moveField(_egf_obj* object, const FieldRow& row, const Motion& motion) {
  char* field = reinterpret_cast<char*>(object) + row.offset;
  switch (row.kind) {
    case FieldKind::kPoint:
    case FieldKind::kPoints:
      movePoints(field, entriesOf(object, row.count), motion);
      break;
    case FieldKind::kPointArray:
      if (void* points = readPacked<ref32<void>>(field).get()) {
        movePoints(points, entriesOf(object, row.count), motion);
      }
      break;
    case FieldKind::kRect:
      writePacked(field, 0, movedRect(readPacked<_mpl_spacerect_tag>(field), motion));
      break;
    default:
      break;
  }
}

void moveFields(_egf_obj* object, const Motion& motion) {
  const RecordRow* record = recordOf(kObjectRecords, object->layoutClass);
  for (const FieldRow& row : record->fields) moveField(object, row, motion);
}

// What a turn changes beside the points. Gives the object that stands there afterwards, null when
// memory is short.
using TurnExtra = _egf_obj* (*)(_egf_obj*, const Motion&, std::int32_t angle);

_egf_obj* turnEllipse(_egf_obj* object, const Motion& motion, std::int32_t angle) {
  auto* ellipse = as<EgfEllipse>(object);
  const _mpl_spacept_tag center = ellipse->center;
  const _mpl_spacept_tag corner = ellipse->radiusPt;
  moveFields(object, motion);
  const _mpl_spacept_tag moved = ellipse->center;
  ellipse->radiusPt = {moved.x + (corner.x - center.x), moved.y + (corner.y - center.y)};
  ellipse->pen.ellipseRotation =
      static_cast<std::int32_t>((std::int64_t{ellipse->pen.ellipseRotation} + angle) % kFullTurn);
  return object;
}

// The radii of an arc lie along the axes. A turn that takes them off the axes makes it a curve.
_egf_obj* turnArc(_egf_obj* object, const Motion& motion, std::int32_t angle) {
  auto* arc = as<EgfArc>(object);
  const _mpl_spacept_tag radii = arc->radiusPt;
  const bool quarters = angle % kQuarter == 0;
  if (!quarters && std::fabs(radii.x) != std::fabs(radii.y)) {
    _egf_obj* curve = object->parent ? curveOf(arc) : nullptr;
    if (curve == nullptr) return nullptr;
    moveFields(curve, motion);
    replaceChild(object, curve);
    EEL_DestroyObject(object);
    return curve;
  }
  moveFields(object, motion);
  if (quarters && angle / kQuarter % 2 != 0) arc->radiusPt = {radii.y, radii.x};
  std::int64_t start = (std::int64_t{arc->startAngle} + angle) % kFullTurn;
  if (start < 0) start += kFullTurn;
  arc->endAngle = static_cast<std::int32_t>(start + arc->endAngle - arc->startAngle);
  arc->startAngle = static_cast<std::int32_t>(start);
  return object;
}

std::int32_t tenthsOf(std::int32_t angle) {
  return static_cast<std::int32_t>(std::lround(static_cast<double>(angle) / kTenth));
}

_egf_obj* turnText(_egf_obj* object, const Motion& motion, std::int32_t angle) {
  moveFields(object, motion);
  as<EgfTextObject>(object)->parms.textRotation += tenthsOf(angle);
  return object;
}

_egf_obj* turnAnnotation(_egf_obj* object, const Motion& motion, std::int32_t angle) {
  moveFields(object, motion);
  as<EgfAnnotation>(object)->parms.textRotation += tenthsOf(angle);
  return object;
}

// Pictures turn by quarters; any other turn moves the rectangle alone.
_egf_obj* turnImage(_egf_obj* object, const Motion& motion, std::int32_t angle) {
  moveFields(object, motion);
  auto* image = as<EgfImage>(object);
  if (angle % kQuarter == 0) {
    const auto quarters = static_cast<unsigned>(angle / kQuarter);
    image->rotation =
        QuarterTurnBits::with(image->rotation, QuarterTurnBits::get(image->rotation) + quarters);
  }
  return object;
}

_egf_obj* turnStockObject(_egf_obj* object, const Motion& motion, std::int32_t angle) {
  moveFields(object, motion);
  auto* stock = as<EgfStockObject>(object);
  stock->angle = static_cast<std::int32_t>((std::int64_t{stock->angle} + angle) % kFullTurn);
  return object;
}

struct TurnRow {
  std::int32_t objClass;
  TurnExtra turn;
};

constexpr TurnRow kTurnRows[] = {
    {kClassEllipse, turnEllipse}, {kClassArc, turnArc},
    {kClassText, turnText},       {kClassAnnotation, turnAnnotation},
    {kClassImage, turnImage},     {kClassStockObject, turnStockObject},
};

_egf_obj* turnObject(_egf_obj* object, const Motion& motion, std::int32_t angle) {
  for (const TurnRow& row : kTurnRows) {
    if (row.objClass == object->layoutClass) return row.turn(object, motion, angle);
  }
  moveFields(object, motion);
  return object;
}

_egf_obj* firstLeafOf(_egf_obj* object) {
  while (_egf_obj* child = firstChildOf(object)) object = child;
  return object;
}

// Children before their parents, so that a container's rectangle follows from moved children.
template <class Visit>
int walkUpwards(_egf_obj* root, Visit visit) {
  _egf_obj* at = firstLeafOf(root);
  for (;;) {
    const bool isRoot = at == root;
    at = visit(at);
    if (at == nullptr) return kFailed;
    if (isContainer(at)) {
      refreshContainer(at, 0);
    } else {
      refreshBounds(at, 0);
    }
    if (isRoot) return 0;
    at = at->next ? firstLeafOf(at->next.get()) : at->parent.get();
  }
}

}  // namespace

}  // namespace egfhost

extern "C" {

int EEL_MoveObject(HostHandle /*tree*/, _egf_obj* object, float dx, float dy) {
  if (object == nullptr) return egfhost::kFailed;
  const egfhost::Motion motion{{1.0, 0.0}, 0.0, 0.0, dx, dy};
  return egfhost::walkUpwards(object, [&](_egf_obj* at) {
    egfhost::moveFields(at, motion);
    return at;
  });
}

int EEL_RotateObject(HostHandle /*tree*/, _egf_obj* object, const _mpl_spacept_tag* pivot,
                     std::int32_t angle, int /*reserved*/) {
  if (object == nullptr || pivot == nullptr) return egfhost::kFailed;
  const egfhost::Motion motion{egfhost::turnOf(angle), pivot->x, pivot->y, 0.0, 0.0};
  return egfhost::walkUpwards(object,
                              [&](_egf_obj* at) { return egfhost::turnObject(at, motion, angle); });
}

}  // extern "C"
