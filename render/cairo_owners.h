// Owners of cairo handles.
#pragma once

#include <cairo.h>

#include <memory>

namespace egfrender {

struct CairoReleaser {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};

using Context = std::unique_ptr<cairo_t, CairoReleaser>;
using Surface = std::unique_ptr<cairo_surface_t, CairoReleaser>;
using Pattern = std::unique_ptr<cairo_pattern_t, CairoReleaser>;

}  // namespace egfrender
