// Draws a page's objects on a canvas.
#pragma once

#include "render/canvas.h"
#include "render/page.h"

namespace egfrender {

// True when the renderer knows how to draw objects of that layout class.
bool isDrawable(std::int32_t layoutClass);

// Everything that is to be seen, in drawing order. Other kinds are left out.
void drawPage(Canvas& canvas, const Page& page);

}  // namespace egfrender
