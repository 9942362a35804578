// Drawing of the single shapes.
#pragma once

#include "host/egf_objects.h"
#include "render/canvas.h"
#include "render/outlines.h"
#include "render/page.h"

namespace egfrender {

// One function for each kind of object. The object's layout class says which record it is.
void drawPolygon(Canvas& canvas, const Page& page, const _egf_obj& object);
void drawEllipse(Canvas& canvas, const Page& page, const _egf_obj& object);
void drawLine(Canvas& canvas, const Page& page, const _egf_obj& object);
void drawPolyline(Canvas& canvas, const Page& page, const _egf_obj& object);
void drawArc(Canvas& canvas, const Page& page, const _egf_obj& object);
void drawPath(Canvas& canvas, const Page& page, const _egf_obj& object);

// Outlines that single objects and the children of a path share.
void addPolygon(Outline& outline, const egfsvg::EgfPolygon& polygon);
void addEllipse(Outline& outline, const egfsvg::EgfEllipse& ellipse);
void addLine(Outline& outline, const egfsvg::EgfLine& line);
void addPolyline(Outline& outline, const egfsvg::EgfPolyline& polyline);
void addArcObject(Outline& outline, const egfsvg::EgfArc& arc);

}  // namespace egfrender
