#include "model/group_release.h"
#include "model/lifecycle.h"

using egfsvg::freeAll;
using egfsvg::releaseIfThere;

void checkStrokeConsistence(_svg_pa_stroke& stroke) {
  if (stroke.strokePresent != 0) return;
  stroke.strokeWidth.value = 0.0;
  stroke.strokeOpacity = 0.0;
  stroke.strokeLinecap = 0;
  stroke.strokeLinejoin = 0;
  freeAll(stroke.strokeUrl);
  stroke.strokeGradient = nullptr;
}

void DestroyCommonElements(_svg_common* head) { releaseIfThere(head); }
void DestroyPAElements(_svg_pa* pa) { releaseIfThere(pa); }
void DestroyStrokeElements(_svg_pa_stroke* group) { releaseIfThere(group); }
void DestroyFillElements(_svg_pa_fill* group) { releaseIfThere(group); }
void DestroyGraphicsElements(_svg_pa_graphics* group) { releaseIfThere(group); }
void DestroyContainersElements(_svg_pa_containers* group) { releaseIfThere(group); }
void DestroyFontSpecElements(_svg_pa_fontspec* group) { releaseIfThere(group); }
void DestroyImagesElements(_svg_pa_images* group) { releaseIfThere(group); }
void DestroyMarkersElements(_svg_pa_markers* group) { releaseIfThere(group); }
void DestroyTextContentElements(_svg_pa_textcontentelems* group) { releaseIfThere(group); }
void DestroyRequaredFeaturesElements(_svg_ta_requiredFeatures* group) { releaseIfThere(group); }
void DestroyRequaredExtensionsElements(_svg_ta_requiredExtensions* group) { releaseIfThere(group); }
void DestroySystemLanguageElements(_svg_ta_systemLanguage* group) { releaseIfThere(group); }
void DestroyTAElements(_svg_ta* ta) { releaseIfThere(ta); }
void DestroyGraphicalEvents(_svg_event_graphical* group) { releaseIfThere(group); }

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
