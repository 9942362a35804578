// Release of a whole record by its type code.
#include <type_traits>

#include "model/group_release.h"
#include "model/lifecycle.h"

namespace egfsvg {

namespace {

// What every shape starts with, whatever stands between its groups.
template <class Shape>
void destroyShape(Shape* shape) {
  releaseGroup(shape->head);
  releaseGroup(shape->stroke);
  releaseGroup(shape->fill);
  releaseGroup(shape->graphics);
  releaseGroup(shape->ta);
  releaseGroup(shape->events);
}

template <class Shape>
void destroyMarkedShape(Shape* shape) {
  destroyShape(shape);
  releaseGroup(shape->markers);
}

/// Kept: points that stand with a count of 0 are not freed.
template <class Shape>
void destroyPointShape(Shape* shape) {
  destroyMarkedShape(shape);
  if (shape->pointCount < 1) return;
  freeAll(shape->points);
  shape->pointCount = 0;
}

void destroyPath(_svg_path* path) {
  destroyMarkedShape(path);
  DestroyPathElements(path);
}

void destroyRun(_svg_text* run) {
  destroyShape(run);
  releaseGroup(run->fontspec);
  releaseGroup(run->textcontentelems);
  DestroyTextElements(run);
}

void destroyText(_svg_text* first) {
  destroyRun(first);
  for (_svg_text* run = first->next; run != nullptr;) {
    _svg_text* next = run->next;
    destroyRun(run);
    freeAll(run);
    run = next;
  }
  first->next = nullptr;
}

void destroyImage(_svg_image* image) {
  releaseGroup(image->head);
  releaseGroup(image->graphics);
  releaseGroup(image->ta);
  releaseGroup(image->events);
  releaseGroup(image->images);
  freeAll(image->link.value);
}

template <class Container>
void destroyContainer(Container* container) {
  releaseGroup(container->head);
  releaseGroup(container->pa);
  releaseGroup(container->ta);
}

void destroySvg(_svg_svg* svg) {
  destroyContainer(svg);
  DestroyEAElements(&svg->events);
  freeAll(svg->viewBox);
}

void destroyGroup(_svg_group* group) {
  destroyContainer(group);
  releaseGroup(group->events);
  freeAll(group->link.value);
}

void destroyLink(_svg_a* link) {
  destroyContainer(link);
  releaseGroup(link->events);
  freeAll(link->link.value);
  DestroyAElements(link);
}

void destroyCloud(_svg_markup_cloud* cloud) {
  destroyPointShape(&cloud->outline);
  destroyPath(&cloud->curve);
  destroyGroup(&cloud->group);
}

void destroyCrossout(_svg_markup_crossout* crossout) {
  destroyMarkedShape(&crossout->line1);
  destroyMarkedShape(&crossout->line2);
  destroyGroup(&crossout->group);
}

void destroyDiamond(_svg_markup_diamond* diamond) {
  destroyPath(&diamond->outline);
  destroyGroup(&diamond->group);
}

void destroyAnnotation(_svg_markup_anno* annotation) {
  destroyText(&annotation->note);
  destroyGroup(&annotation->group);
}

template <class Record>
Record* as(void* record) {
  static_assert(std::is_trivially_copyable_v<Record>);
  return static_cast<Record*>(record);
}

}  // namespace

}  // namespace egfsvg

void svg_DestroyObjectAtt(void* record, std::int32_t type) {
  using namespace egfsvg;
  if (record == nullptr) return;
  switch (type) {
    case kTagSvg:
      return destroySvg(as<_svg_svg>(record));
    case kTagPath:
      return destroyPath(as<_svg_path>(record));
    case kTagRect:
      return destroyShape(as<_svg_rect>(record));
    case kTagCircle:
      return destroyShape(as<_svg_circle>(record));
    case kTagEllipse:
      return destroyShape(as<_svg_ellipse>(record));
    case kTagLine:
      return destroyMarkedShape(as<_svg_line>(record));
    case kTagPolyline:
      return destroyPointShape(as<_svg_polyline>(record));
    case kTagPolygon:
      return destroyPointShape(as<_svg_polygon>(record));
    case kTagText:
      return destroyText(as<_svg_text>(record));
    case kTagGroup:
      return destroyGroup(as<_svg_group>(record));
    case kTagImage:
      return destroyImage(as<_svg_image>(record));
    case kTagLink:
      return destroyLink(as<_svg_a>(record));
    case kTagCloud:
      return destroyCloud(as<_svg_markup_cloud>(record));
    case kTagCrossout:
      return destroyCrossout(as<_svg_markup_crossout>(record));
    case kTagDiamond:
      return destroyDiamond(as<_svg_markup_diamond>(record));
    case kTagAnnotation:
      return destroyAnnotation(as<_svg_markup_anno>(record));
    default:
      return;
  }
}

void svg_DestroyObject(_svg_objects* object) {
  if (object != nullptr) svg_DestroyObjectAtt(&object->head, object->type);
}
