// What each property group owns, and its end. Most groups own nothing: then a look at their
// pointers is all.
#pragma once

#include "model/elements.h"
#include "model/rmm_allocator.h"
#include "model/transform_list.h"

namespace egfsvg {

inline void releaseGroup(_svg_common& head) {
  freeAll(head.id, head.desc, head.classNames, head.styleRef);
  head.classCount = 0;
  if (head.transforms != nullptr) releaseTransforms(head);
}

inline void releaseGroup(_svg_pa_stroke& group) {
  freeAll(group.strokeDashArray, group.strokeUrl);
  group.strokeDashCount = 0;
}

inline void releaseGroup(_svg_pa_fill& group) { freeAll(group.fillUrl); }

inline void releaseGroup(_svg_pa_graphics& group) {
  freeAll(group.clipPath, group.cursor, group.filter, group.mask);
}

inline void releaseGroup(_svg_pa_containers& group) { freeAll(group.enableBackground); }

inline void releaseGroup(_svg_pa_fontspec& group) { freeAll(group.fontFamily); }

inline void releaseGroup(_svg_pa_images& group) { freeAll(group.colorProfile); }

inline void releaseGroup(_svg_pa_markers& group) {
  freeAll(group.markerStart, group.markerMid, group.markerEnd);
}

inline void releaseGroup(_svg_pa_textcontentelems& group) { freeAll(group.baselineShift); }

inline void releaseGroup(_svg_pa& pa) {
  releaseGroup(pa.stroke);
  releaseGroup(pa.fill);
  releaseGroup(pa.graphics);
  releaseGroup(pa.containers);
  releaseGroup(pa.fontspec);
  releaseGroup(pa.images);
  releaseGroup(pa.markers);
  releaseGroup(pa.textcontentelems);
}

inline void releaseGroup(_svg_ta_requiredFeatures& group) { freeAll(group.list); }

inline void releaseGroup(_svg_ta_requiredExtensions& group) {
  freeAll(group.list);
  group.listCount = 0;
}

inline void releaseGroup(_svg_ta_systemLanguage& group) {
  freeAll(group.list);
  group.listCount = 0;
}

inline void releaseGroup(_svg_ta& ta) {
  releaseGroup(ta.requiredFeatures);
  releaseGroup(ta.requiredExtensions);
  releaseGroup(ta.systemLanguage);
}

inline void releaseGroup(_svg_event_graphical& group) {
  freeAll(group.onfocusout, group.onfocusin, group.onactivate, group.onclick, group.onmousedown,
          group.onmouseup, group.onmouseover, group.onmousemove, group.onmouseout, group.onload);
}

/// Nothing for null.
template <class Group>
void releaseIfThere(Group* group) {
  if (group != nullptr) releaseGroup(*group);
}

}  // namespace egfsvg
