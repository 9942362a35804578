#include "model/copy_default.h"
#include "model/element_defaults.h"
#include "model/lifecycle.h"

using egfsvg::copyDefault;

void initStyleProps(_svg_style_props* record) { copyDefault(record, egfsvg::kDefaultStyleProps); }
void initSVGObj(_svg_svg* record) { copyDefault(record, egfsvg::kDefaultSvg); }
void initGroupObj(_svg_group* record) { copyDefault(record, egfsvg::kDefaultGroup); }
void initDefsObj(_svg_defs* record) { copyDefault(record, egfsvg::kDefaultDefs); }
void initRect(_svg_rect* record) { copyDefault(record, egfsvg::kDefaultRect); }
void initCircle(_svg_circle* record) { copyDefault(record, egfsvg::kDefaultCircle); }
void initEllipse(_svg_ellipse* record) { copyDefault(record, egfsvg::kDefaultEllipse); }
void initLine(_svg_line* record) { copyDefault(record, egfsvg::kDefaultLine); }
void initPolyline(_svg_polyline* record) { copyDefault(record, egfsvg::kDefaultPolyline); }
void initPolygon(_svg_polygon* record) { copyDefault(record, egfsvg::kDefaultPolygon); }
void initPath(_svg_path* record) { copyDefault(record, egfsvg::kDefaultPath); }
void initImage(_svg_image* record) { copyDefault(record, egfsvg::kDefaultImage); }
void initA(_svg_a* record) { copyDefault(record, egfsvg::kDefaultLink); }
void initSwitch(_svg_switch* record) { copyDefault(record, egfsvg::kDefaultSwitch); }
void initText(_svg_text* record) { copyDefault(record, egfsvg::kDefaultText); }
void initGradientObj(_svg_gradient* record) { copyDefault(record, egfsvg::kDefaultGradient); }
void initStopObj(_svg_stop* record) { copyDefault(record, egfsvg::kDefaultStop); }
void initCursor(_svg_cursor* record) { copyDefault(record, egfsvg::kDefaultCursor); }
void initScript(_svg_script* record) { copyDefault(record, egfsvg::kDefaultScript); }

void initLinearGrad(_svg_gradient* record) {
  if (record != nullptr) copyDefault(&record->parms, egfsvg::kDefaultLinear);
}

void initRadialGrad(_svg_gradient* record) {
  if (record != nullptr) copyDefault(&record->parms, egfsvg::kDefaultRadial);
}
