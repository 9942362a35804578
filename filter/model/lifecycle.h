// Creation and release of element records. `init...` sets the defaults and allocates nothing;
// `Destroy...` frees what a record or group owns and nulls it, so that a second call is harmless;
// neither frees the record itself. All do nothing for null. A record handed to a `Destroy...` was
// initialised or zeroed whole, all members of a markup form included.
#pragma once

#include <cstdint>

#include "model/elements.h"
#include "model/keyed.h"

_svg_common* initSVGCommon(_svg_common* head);
void initSVGViewbox(_svg_viewbox& box);
void initFill(_svg_pa_fill* group);
void initStroke(_svg_pa_stroke* group);
void initGraphics(_svg_pa_graphics* group);
void initContainers(_svg_pa_containers* group);
void initFeflood(_svg_pa_feflood* group);
void initFontspec(_svg_pa_fontspec* group);
void initGradients(_svg_pa_gradients* group);
void initImages(_svg_pa_images* group);
void initLighting(_svg_pa_lighting* group);
void initMarkers(_svg_pa_markers* group);
void initTextcontentelems(_svg_pa_textcontentelems* group);
void initTextelems(_svg_pa_textelems* group);
void initViewports(_svg_pa_viewports* group);
void initPA(_svg_pa* pa);
void initTA(_svg_ta* ta);

void initStyleProps(_svg_style_props* record);
void initSVGObj(_svg_svg* record);
void initGroupObj(_svg_group* record);
void initDefsObj(_svg_defs* record);
void initRect(_svg_rect* record);
void initCircle(_svg_circle* record);
void initEllipse(_svg_ellipse* record);
void initLine(_svg_line* record);
void initPolyline(_svg_polyline* record);
void initPolygon(_svg_polygon* record);
void initPath(_svg_path* record);
void initImage(_svg_image* record);
void initA(_svg_a* record);
void initSwitch(_svg_switch* record);
void initText(_svg_text* record);
void initLinearGrad(_svg_gradient* record);
void initRadialGrad(_svg_gradient* record);
void initGradientObj(_svg_gradient* record);
void initStopObj(_svg_stop* record);
void initCursor(_svg_cursor* record);
void initScript(_svg_script* record);

/// When nothing is stroked, clears what a stroke would use: width and opacity numbers, caps, joins,
/// the paint reference and the gradient.
void checkStrokeConsistence(_svg_pa_stroke& stroke);

void DestroyCommonElements(_svg_common* head);
void DestroyPAElements(_svg_pa* pa);
void DestroyStrokeElements(_svg_pa_stroke* group);
void DestroyFillElements(_svg_pa_fill* group);
void DestroyGraphicsElements(_svg_pa_graphics* group);
void DestroyContainersElements(_svg_pa_containers* group);
void DestroyFontSpecElements(_svg_pa_fontspec* group);
void DestroyImagesElements(_svg_pa_images* group);
void DestroyMarkersElements(_svg_pa_markers* group);
void DestroyTextContentElements(_svg_pa_textcontentelems* group);
void DestroyAttElements(AttNode* chain);
void DestroyRequaredFeaturesElements(_svg_ta_requiredFeatures* group);
void DestroyRequaredExtensionsElements(_svg_ta_requiredExtensions* group);
void DestroySystemLanguageElements(_svg_ta_systemLanguage* group);
void DestroyTAElements(_svg_ta* ta);
void DestroyGraphicalEvents(_svg_event_graphical* group);
void DestroyAnimationEvents(_svg_event_animation* group);
void DestroyDocumentEvents(_svg_event_document* group);
void DestroyEAElements(_svg_event* events);
void DestroyPathElements(_svg_path* path);
void DestroyTextElements(_svg_text* text);
void DestroyDefNodes(DefNode* chain);
void DestroyGrElements(_svg_gradient* gradient);
void DestroyAElements(_svg_a* link);
void DestroyStyleElements(_svg_style_props* style);

/// Frees what the record of that tag code owns; any other code, and null, do nothing.
void svg_DestroyObjectAtt(void* record, std::int32_t type);

/// The same for a child of an `a`, by the type in its head.
void svg_DestroyObject(_svg_objects* object);
