#include <cstring>

#include "model/copy_default.h"
#include "model/group_defaults.h"
#include "model/lifecycle.h"

using egfsvg::copyDefault;

_svg_common* initSVGCommon(_svg_common* head) {
  copyDefault(head, egfsvg::kDefaultHead);
  return head;
}

void initSVGViewbox(_svg_viewbox& box) { copyDefault(&box, egfsvg::kDefaultViewbox); }
void initFill(_svg_pa_fill* group) { copyDefault(group, egfsvg::kDefaultFill); }
void initStroke(_svg_pa_stroke* group) { copyDefault(group, egfsvg::kDefaultStroke); }
void initGraphics(_svg_pa_graphics* group) { copyDefault(group, egfsvg::kDefaultGraphics); }
void initContainers(_svg_pa_containers* group) { copyDefault(group, egfsvg::kDefaultContainers); }
void initFeflood(_svg_pa_feflood* group) { copyDefault(group, egfsvg::kDefaultFeflood); }
void initGradients(_svg_pa_gradients* group) { copyDefault(group, egfsvg::kDefaultGradients); }
void initImages(_svg_pa_images* group) { copyDefault(group, egfsvg::kDefaultImages); }
void initLighting(_svg_pa_lighting* group) { copyDefault(group, egfsvg::kDefaultLighting); }
void initMarkers(_svg_pa_markers* group) { copyDefault(group, egfsvg::kDefaultMarkers); }
void initTextelems(_svg_pa_textelems* group) { copyDefault(group, egfsvg::kDefaultTextelems); }
void initViewports(_svg_pa_viewports* group) { copyDefault(group, egfsvg::kDefaultViewports); }
void initPA(_svg_pa* pa) { copyDefault(pa, egfsvg::kDefaultPA); }
void initTA(_svg_ta* ta) { copyDefault(ta, egfsvg::kDefaultTA); }

void initTextcontentelems(_svg_pa_textcontentelems* group) {
  copyDefault(group, egfsvg::kDefaultTextcontentelems);
}

/// Kept: the axis of the font size stays what it was.
void initFontspec(_svg_pa_fontspec* group) {
  if (group == nullptr) return;
  const std::int32_t axis = group->fontSize.axis;
  copyDefault(group, egfsvg::kDefaultFontspec);
  group->fontSize.axis = axis;
}
