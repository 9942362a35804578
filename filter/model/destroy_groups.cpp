#include "model/lifecycle.h"
#include "model/rmm_allocator.h"
#include "model/transform_list.h"

using egfsvg::freeAll;

void checkStrokeConsistence(_svg_pa_stroke& stroke) {
  if (stroke.strokePresent != 0) return;
  stroke.strokeWidth.value = 0.0;
  stroke.strokeOpacity = 0.0;
  stroke.strokeLinecap = 0;
  stroke.strokeLinejoin = 0;
  freeAll(stroke.strokeUrl);
  stroke.strokeGradient = nullptr;
}

void DestroyCommonElements(_svg_common* head) {
  if (head == nullptr) return;
  freeAll(head->id, head->desc, head->classNames);
  head->classCount = 0;
  egfsvg::releaseTransforms(*head);
  freeAll(head->styleRef);
}

void DestroyPAElements(_svg_pa* pa) {
  if (pa == nullptr) return;
  DestroyStrokeElements(&pa->stroke);
  DestroyFillElements(&pa->fill);
  DestroyGraphicsElements(&pa->graphics);
  DestroyContainersElements(&pa->containers);
  DestroyFontSpecElements(&pa->fontspec);
  DestroyImagesElements(&pa->images);
  DestroyMarkersElements(&pa->markers);
  DestroyTextContentElements(&pa->textcontentelems);
}

void DestroyStrokeElements(_svg_pa_stroke* group) {
  if (group == nullptr) return;
  freeAll(group->strokeDashArray, group->strokeUrl);
  group->strokeDashCount = 0;
}

void DestroyFillElements(_svg_pa_fill* group) {
  if (group != nullptr) freeAll(group->fillUrl);
}

void DestroyGraphicsElements(_svg_pa_graphics* group) {
  if (group != nullptr) freeAll(group->clipPath, group->cursor, group->filter, group->mask);
}

void DestroyContainersElements(_svg_pa_containers* group) {
  if (group != nullptr) freeAll(group->enableBackground);
}

void DestroyFontSpecElements(_svg_pa_fontspec* group) {
  if (group != nullptr) freeAll(group->fontFamily);
}

void DestroyImagesElements(_svg_pa_images* group) {
  if (group != nullptr) freeAll(group->colorProfile);
}

void DestroyMarkersElements(_svg_pa_markers* group) {
  if (group != nullptr) freeAll(group->markerStart, group->markerMid, group->markerEnd);
}

void DestroyTextContentElements(_svg_pa_textcontentelems* group) {
  if (group != nullptr) freeAll(group->baselineShift);
}

void DestroyRequaredFeaturesElements(_svg_ta_requiredFeatures* group) {
  if (group != nullptr) freeAll(group->list);
}

void DestroyRequaredExtensionsElements(_svg_ta_requiredExtensions* group) {
  if (group == nullptr) return;
  freeAll(group->list);
  group->listCount = 0;
}

void DestroySystemLanguageElements(_svg_ta_systemLanguage* group) {
  if (group == nullptr) return;
  freeAll(group->list);
  group->listCount = 0;
}

void DestroyTAElements(_svg_ta* ta) {
  if (ta == nullptr) return;
  DestroyRequaredFeaturesElements(&ta->requiredFeatures);
  DestroyRequaredExtensionsElements(&ta->requiredExtensions);
  DestroySystemLanguageElements(&ta->systemLanguage);
}

void DestroyGraphicalEvents(_svg_event_graphical* group) {
  if (group == nullptr) return;
  freeAll(group->onfocusout, group->onfocusin, group->onactivate, group->onclick,
          group->onmousedown, group->onmouseup, group->onmouseover, group->onmousemove,
          group->onmouseout, group->onload);
}

void DestroyAnimationEvents(_svg_event_animation* group) {
  if (group == nullptr) return;
  for (char*& slot : group->slots) freeAll(slot);
}

void DestroyDocumentEvents(_svg_event_document* group) {
  if (group == nullptr) return;
  for (char*& slot : group->slots) freeAll(slot);
}

void DestroyEAElements(_svg_event* events) {
  if (events == nullptr) return;
  DestroyGraphicalEvents(&events->graphical);
  DestroyAnimationEvents(&events->animation);
  DestroyDocumentEvents(&events->document);
}
