// A page as the renderer is given it: a tree of objects and what its numbers refer to.
#pragma once

#include <optional>
#include <vector>

#include "host/egf_blocks.h"
#include "host/egf_codes.h"
#include "host/egf_styles.h"

namespace egfrender {

// Borrows everything; the document must outlive it.
struct Page {
  const egfsvg::EgfTreeBody* body = nullptr;
  HostHandle document = 0;   // owner of the style tables
  double resolution = 96.0;  // pixels per inch, for lengths in other units
};

// A record of a style table by its number; none for 0 and for a number that the table lacks.
std::optional<_egf_gdiplus_fillparms_tag> fillParms(const Page& page, std::uint32_t number);
std::optional<_egf_gdiplus_stroke_parms_tag> strokeParms(const Page& page, std::uint32_t number);
std::optional<_egf_gdiplus_arcparms_tag> arcParms(const Page& page, std::uint32_t number);
std::optional<_egf_gdiplus_gradientparms_tag> gradientParms(const Page& page, std::uint32_t number);
std::optional<_egf_gdi_fillparms_tag> penParms(const Page& page, std::uint32_t number);

// Lengths of dashes and gaps in turn, in pixels; empty for a solid line.
std::vector<double> dashLengths(const Page& page, std::uint32_t lineStyle);

// A length of a record in pixels.
double pixelLength(const Page& page, std::uint32_t unit, double length);

// True when the object is to be seen: meant for output, and not on a layer that is hidden.
bool isShown(const Page& page, const _egf_obj& object);

}  // namespace egfrender
