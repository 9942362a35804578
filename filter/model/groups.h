// The head of every element record and the property groups that elements embed by value. Strings
// and arrays are owned by the record unless marked otherwise.
#pragma once

#include <cstdint>

#include "model/values.h"

struct _svg_gradient;

inline constexpr std::int32_t kClassNameSize = 256;

/// One slot of a class list: at most 128 bytes are ever stored, the rest stays zero.
using ClassName = char[kClassNameSize];

/// Always first in an element record, so a pointer to an element is a pointer to its head.
struct _svg_common {
  std::int32_t type;  // TagCode
  char* id;
  std::int32_t index;  // slot in the reader's table of its kind, -1 for all others
  char* desc;          // the first desc value only
  std::int32_t externalResourcesRequired;
  ClassName* classNames;
  std::int32_t classCount;
  transformEntry* transforms;
  std::int32_t transformCount;
  _svg_common* parent;  // not owned
  char* styleRef;       // write path: number of the style entity
};

struct _svg_pa_fill {
  std::int32_t packedColor;  // write path: 0xRRGGBB, -1 no paint, -2 paint by fillUrl
  _svg_color fillColor;
  std::int32_t fillRule;  // 1 nonzero, 2 evenodd
  double fillOpacity;     // 0.0 also means fill is "none"
  char* fillUrl;
  _svg_gradient* fillGradient;  // not owned: the reader's gradient table owns it
};

struct _svg_pa_stroke {
  std::int32_t packedColor;
  _svg_color strokeColor;
  std::uint8_t strokePresent;
  _svg_value strokeWidth;
  std::int32_t strokeLinecap;   // 1 butt, 2 round, 3 square
  std::int32_t strokeLinejoin;  // 1 miter, 2 round, 3 bevel
  std::int32_t strokeMiterlimit;
  _svg_value* strokeDashArray;
  std::int32_t strokeDashCount;
  _svg_value strokeDashOffset;
  double strokeOpacity;
  char* strokeUrl;
  _svg_gradient* strokeGradient;  // not owned
};

struct _svg_pa_graphics {
  char* clipPath;
  std::int32_t clipRule;
  _svg_color color;
  std::int32_t colorInterpolation;
  std::int32_t colorRendering;
  std::int32_t display;
  std::int32_t imageRendering;
  double opacity;
  std::int32_t visibility;
  char* cursor;
  char* filter;  // released with the group; no setter fills it
  char* mask;
  std::int32_t pointerEvents;
  std::int32_t shapeRendering;
  std::int32_t textRendering;
};

struct _svg_pa_containers {
  char* enableBackground;  // no setter fills it
};

struct _svg_pa_feflood {
  _svg_color floodColor;
  double floodOpacity;
};

struct _svg_pa_fontspec {
  char* fontFamily;
  std::int32_t fontStyle;
  std::int32_t fontVariant;
  std::int32_t fontWeight;
  std::int32_t fontStretch;
  _svg_value fontSize;
  _svg_value fontSizeAdjust;
};

struct _svg_pa_gradients {
  _svg_color stopColor;
  double stopOpacity;
};

struct _svg_pa_images {
  char* colorProfile;
};

struct _svg_pa_lighting {
  _svg_color lightingColor;
};

struct _svg_pa_markers {
  char* markerStart;
  char* markerMid;
  char* markerEnd;
};

struct _svg_pa_textcontentelems {
  std::int32_t alignmentBaseline;
  char* baselineShift;
  std::int32_t direction;
  _svg_angle glyphOrientationHorizontal;
  _svg_angle glyphOrientationVertical;
  _svg_value kerning;
  _svg_value letterSpacing;
  std::int32_t textDecoration;
  std::int32_t unicodeBidi;
  _svg_value wordSpacing;
};

struct _svg_pa_textelems {
  std::int32_t dominantBaseline;
  std::int32_t textAnchor;
  std::int32_t writingMode;
};

struct _svg_pa_viewports {
  _svg_value clipRect[4];  // no setter fills them
  std::int32_t overflow;
};

/// The whole presentation block, as containers and style records hold it.
struct _svg_pa {
  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;
  _svg_pa_containers containers;
  _svg_pa_feflood feflood;
  _svg_pa_fontspec fontspec;
  _svg_pa_gradients gradients;
  _svg_pa_images images;
  _svg_pa_lighting lighting;
  _svg_pa_markers markers;
  _svg_pa_textcontentelems textcontentelems;
  _svg_pa_textelems textelems;
  _svg_pa_viewports viewports;
};

struct _svg_ta_requiredFeatures {
  void* list;
  std::int32_t listCount;
  std::int32_t passes;
};

struct _svg_ta_requiredExtensions {
  void* list;
  std::int32_t listCount;
  std::int32_t passes;
};

struct _svg_ta_systemLanguage {
  void* list;
  std::int32_t listCount;
  std::int32_t passes;
};

/// Test attributes of switch children. An element without them passes.
struct _svg_ta {
  _svg_ta_requiredFeatures requiredFeatures;
  _svg_ta_requiredExtensions requiredExtensions;
  _svg_ta_systemLanguage systemLanguage;
};

struct _svg_event_graphical {
  char* onfocusout;
  char* onfocusin;
  char* onactivate;
  char* onclick;
  char* onmousedown;
  char* onmouseup;
  char* onmouseover;
  char* onmousemove;
  char* onmouseout;
  char* onload;
};

/// Nothing fills the slots of the next two; they are released with the record.
struct _svg_event_animation {
  char* slots[4];
};

struct _svg_event_document {
  char* slots[6];
};

struct _svg_event {
  _svg_event_graphical graphical;
  _svg_event_animation animation;
  _svg_event_document document;
};
