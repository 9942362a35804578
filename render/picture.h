// Pictures of pages: a raster for PNG, and the pages of a PDF.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "render/cairo_owners.h"
#include "render/colours.h"
#include "render/geometry.h"
#include "render/page.h"

namespace egfrender {

inline constexpr std::int64_t kMaxPicturePixels = 64'000'000;
// What a raster surface of cairo can be wide or high.
inline constexpr std::int64_t kMaxPictureSide = 32767;

struct PictureOptions {
  double zoom = 1;                   // picture pixels for a pixel of the page
  std::optional<Colour> background;  // none: transparent
};

// What a picture needs more than there may be.
class PictureTooLarge : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The box of the page in page pixels: the root's viewport rectangle when it has one, else the box
// of what is drawn, pens included. Empty when there is neither.
Box pageBox(const Page& page);

struct PictureSize {
  std::int64_t width = 0;
  std::int64_t height = 0;
};

// Whole pixels that hold the box; at least one each way. Throws PictureTooLarge.
PictureSize pictureSize(const Box& box, double zoom);

// Takes the bytes of a file in order; false ends the writing.
using ByteTaker = std::function<bool(std::string_view bytes)>;

// One page as PNG. False when the taker refused; throws PictureTooLarge, and std::bad_alloc when
// there is no memory for the surface.
bool writePng(const Page& page, const PictureOptions& options, const ByteTaker& take);

// Pages of one PDF document, each as large as its own box. A page pixel is 72 points divided by the
// page's resolution, times the zoom.
class PdfDocument {
 public:
  PdfDocument(const PictureOptions& options, ByteTaker take);

  void addPage(const Page& page);

  // Ends the document; false when the taker refused or the surface failed.
  bool finish();

 private:
  PictureOptions options_;
  ByteTaker take_;
  Surface surface_;
};

}  // namespace egfrender
