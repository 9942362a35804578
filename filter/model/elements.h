// One record an element kind: the common head, the property groups that the element may carry, then
// its own geometry. Records are copied whole in places and then share their owned pointers, so they
// have no constructors: `init...` and `Destroy...` (lifecycle.h) are separate calls.
#pragma once

#include <cstdint>

#include "model/groups.h"

struct _svg_rect {
  _svg_common head;
  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;
  _svg_ta ta;
  _svg_event_graphical events;
  _svg_value x, y, width, height;
  _svg_value rx, ry;
};

struct _svg_circle {
  _svg_common head;
  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;
  _svg_ta ta;
  _svg_event_graphical events;
  _svg_value cx, cy, r;
};

struct _svg_ellipse {
  _svg_common head;
  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;
  _svg_ta ta;
  _svg_event_graphical events;
  _svg_value cx, cy, rx, ry;
};

/// `fill` is present but owns nothing: a line is never filled.
struct _svg_line {
  _svg_common head;
  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;
  _svg_pa_markers markers;
  _svg_ta ta;
  _svg_event_graphical events;
  _svg_value x1, y1, x2, y2;
};

struct _svg_polyline {
  _svg_common head;
  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;
  _svg_pa_markers markers;
  _svg_ta ta;
  _svg_event_graphical events;
  std::int32_t pointCount;
  std::int32_t isClosed;  // 0 polyline, 1 polygon
  _svg_point* points;     // pointCount entries
};

/// The same shape with the closing segment implied.
struct _svg_polygon {
  _svg_common head;
  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;
  _svg_pa_markers markers;
  _svg_ta ta;
  _svg_event_graphical events;
  std::int32_t pointCount;
  std::int32_t isClosed;
  _svg_point* points;
};

/// One path command. An arc keeps its large-arc flag in arg4.axis and its sweep flag in arg5.unit.
struct _svg_path_data {
  std::int32_t command;
  _svg_value arg0, arg1, arg2, arg3, arg4, arg5;
};

struct _svg_singlepath {
  _svg_path_data* data;
  std::int32_t dataCount;
  std::int32_t subFlag;  // 0 for the first sub-path; later ones copy pathFlag
  std::int32_t closed;   // 1 when it ends at its start or has a closing command
};

struct _svg_path {
  _svg_common head;
  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;
  _svg_pa_markers markers;
  _svg_ta ta;
  _svg_event_graphical events;
  std::int32_t pathCount;
  _svg_singlepath* paths;  // pathCount entries
  std::int32_t pathFlag;   // 1 once the path has inherited from a parent
};

struct _svg_image {
  _svg_common head;
  _svg_pa_images images;
  _svg_pa_graphics graphics;
  _svg_ta ta;
  _svg_pa_viewports viewports;
  _svg_event_graphical events;
  _xml_obj link;
  std::int32_t preserveAspectRatio;
  _svg_value x, y, width, height;
};

/// `g` and `use`, and markup groups before splitting.
struct _svg_group {
  _svg_common head;
  _svg_pa pa;
  _svg_ta ta;
  _svg_event_graphical events;
  _svg_value x, y;
  _svg_value width, height;
  _xml_obj link;
};

struct _svg_defs {
  _svg_common head;
  _svg_pa pa;
  _svg_event_graphical events;
  std::int32_t defMarker;
  struct DefNode* defNodes;
};

/// `svg` and `symbol`.
struct _svg_svg {
  _svg_common head;
  std::int32_t contentStyleType;
  std::int32_t xmlSpace;
  _svg_pa pa;
  _svg_ta ta;
  _svg_event events;
  _svg_viewbox* viewBox;
  std::int32_t preserveAspectRatio;
  std::int32_t zoomAndPan;
  _svg_value x, y;
  _svg_value width, height;
};

struct _svg_a {
  _svg_common head;
  _svg_pa pa;
  _svg_ta ta;
  _svg_event_graphical events;
  _xml_obj link;
  std::int32_t reserved;
  struct _svg_objects* objects;  // objectCount entries, the children in document order
  std::int32_t objectCount;
  char* cdata;
  std::int32_t cdataLength;  // with its terminator
};

struct _svg_switch {
  _svg_common head;
  _svg_pa pa;
  _svg_ta ta;
  _svg_event_graphical events;
};

struct _svg_stop {
  _svg_common head;
  _svg_pa_graphics graphics;
  _svg_pa_gradients gradients;
  _svg_value offset;  // always a percentage
};

namespace model {

/// Geometry of a gradient. The two sides overlay: x1 at cx, y1 at cy, x2 at fx, y2 at fy. Attribute
/// setters write the shared slots.
union _svg_gradient_parms {
  struct {
    _svg_value x1, y1, x2, y2;
  } linear;
  struct {
    _svg_value cx, cy, fx, fy, r;
  } radial;
  struct {
    _svg_value g0, g1, g2, g3, g4;
  } slots;
};

}  // namespace model

struct _svg_gradient {
  _svg_common head;
  _svg_pa_graphics graphics;
  _svg_pa_gradients gradients;
  std::int32_t spreadMethod;   // 1 pad, 2 reflect, 3 repeat
  std::int32_t gradientUnits;  // 1 userSpaceOnUse, 2 objectBoundingBox
  _xml_obj link;
  _svg_stop* stops;
  std::int32_t stopCount;
  model::_svg_gradient_parms parms;
};

/// `text`, and each later run of it. Later runs are heap records owned by the first.
struct _svg_text {
  _svg_common head;
  _svg_pa_fill fill;
  _svg_pa_stroke stroke;
  _svg_pa_graphics graphics;
  _svg_ta ta;
  _svg_pa_fontspec fontspec;
  _svg_pa_textcontentelems textcontentelems;
  _svg_pa_textelems textelems;
  _svg_event_graphical events;
  _svg_point position;
  std::uint8_t hasX, hasY;
  _svg_value dx, dy;
  _svg_angle rotate;
  _svg_value textLength;
  std::int32_t lengthAdjust;
  std::int32_t contentLength;
  _xml_obj link;
  _xml_obj lang;
  char* content;
  _svg_text* next;
};

struct _svg_markup_cloud {
  _svg_group group;
  _svg_polyline outline;
  _svg_path curve;
};

struct _svg_markup_crossout {
  _svg_group group;
  _svg_line line1, line2;
};

struct _svg_markup_diamond {
  _svg_group group;
  _svg_path outline;
};

struct _svg_markup_anno {
  _svg_group group;
  _svg_text note;
};

/// Anything that can stand in an `a`: the record behind its type (14 a plain group, 101 to 104 the
/// markup forms, else the tag code).
struct _svg_objects {
  std::int32_t type;
  union {
    _svg_common head;
    _svg_rect rect;
    _svg_circle circle;
    _svg_ellipse ellipse;
    _svg_line line;
    _svg_polyline polyline;
    _svg_polygon polygon;
    _svg_path path;
    _svg_image image;
    _svg_text text;
    _svg_group group;
    _svg_markup_cloud cloud;
    _svg_markup_crossout crossout;
    _svg_markup_diamond diamond;
    _svg_markup_anno anno;
  };
};

/// A `style` rule or entity.
struct _svg_style_props {
  char* selector;
  std::int32_t contentType;  // 1 text/css
  std::int32_t media;
  char* title;
  char* href;  // freed by its user
  std::int32_t alternate;
  _svg_common* common;
  _svg_pa pa;
};

struct _svg_cursor {
  _xml_obj link;
  _svg_ta ta;
  _svg_value x, y;
};

struct _svg_script {
  std::int32_t reserved;
  std::int32_t type;
  char* href;
  std::int32_t reserved2;
  std::int32_t reserved3;
};
