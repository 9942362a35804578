#include "render/picture.h"

#include <cairo-pdf.h>

#include <algorithm>
#include <cmath>
#include <new>

#include "host/egf_bits.h"
#include "render/drawing.h"

namespace egfrender {
namespace {

// A box that is a hair wider than whole pixels, by the rounding of its floats, needs no pixel more.
constexpr double kPixelSlack = 1e-3;

// The rectangle that the root's first child stands for, when it is marked as not for output.
Box viewportBox(const Page& page) {
  const auto* root = egfsvg::as<egfsvg::EgfGroup>(page.body->root.get());
  const _egf_obj* first = root->firstChild.get();
  Box box;
  if (first == nullptr || first->layoutClass != egfsvg::kClassBox) return box;
  if (egfsvg::OutputBits::get(first->objAttr) != 0) return box;
  const auto* rectangle = egfsvg::as<egfsvg::EgfPolygon>(first);
  if (!rectangle->points) return box;
  for (std::int32_t i = 0; i < rectangle->pointCount; ++i) {
    const Point point = pixelsOf(rectangle->points[static_cast<std::size_t>(i)]);
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) return {};
    box.add(point);
  }
  return box;
}

Box drawnBox(const Page& page) {
  const Surface nowhere(cairo_recording_surface_create(CAIRO_CONTENT_COLOR_ALPHA, nullptr));
  const Context context(cairo_create(nowhere.get()));
  MeasuringCanvas canvas(context.get(), {});
  drawPage(canvas, page);
  return canvas.box();
}

std::int64_t wholePixels(double length) {
  constexpr double kBeyond = 1e9;
  return std::max<std::int64_t>(
      1, static_cast<std::int64_t>(std::ceil(std::min(length, kBeyond) - kPixelSlack)));
}

// A page side of a PDF; viewers refuse what is longer.
double pointLength(double length) {
  constexpr double kLongest = 14400;
  return std::isfinite(length) ? std::clamp(length, 1.0, kLongest) : 1.0;
}

void paintBackground(cairo_t* context, const PictureOptions& options) {
  if (!options.background) return;
  const Colour& colour = *options.background;
  cairo_set_source_rgba(context, colour.red, colour.green, colour.blue, colour.alpha);
  cairo_paint(context);
}

void paintPage(cairo_surface_t* surface, const Page& page, const Box& box, double scale,
               const PictureOptions& options) {
  const Context context(cairo_create(surface));
  paintBackground(context.get(), options);
  PaintingCanvas canvas(context.get(), {{box.left, box.top}, scale});
  drawPage(canvas, page);
}

cairo_status_t takeBytes(void* closure, const unsigned char* bytes, unsigned count) {
  const auto& take = *static_cast<const ByteTaker*>(closure);
  const bool taken = take({reinterpret_cast<const char*>(bytes), count});
  return taken ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

}  // namespace

Box pageBox(const Page& page) {
  if (page.body == nullptr || !page.body->root) return {};
  const Box viewport = viewportBox(page);
  return viewport.width() > 0 && viewport.height() > 0 ? viewport : drawnBox(page);
}

PictureSize pictureSize(const Box& box, double zoom) {
  const PictureSize size{wholePixels(box.width() * zoom), wholePixels(box.height() * zoom)};
  if (size.width > kMaxPictureSide || size.height > kMaxPictureSide ||
      size.width * size.height > kMaxPicturePixels) {
    throw PictureTooLarge(std::to_string(size.width) + " x " + std::to_string(size.height));
  }
  return size;
}

bool writePng(const Page& page, const PictureOptions& options, const ByteTaker& take) {
  const Box box = pageBox(page);
  const PictureSize size = pictureSize(box, options.zoom);
  const Surface surface(cairo_image_surface_create(
      CAIRO_FORMAT_ARGB32, static_cast<int>(size.width), static_cast<int>(size.height)));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
  paintPage(surface.get(), page, box, options.zoom, options);
  cairo_surface_flush(surface.get());
  ByteTaker taker = take;
  return cairo_surface_write_to_png_stream(surface.get(), takeBytes, &taker) ==
         CAIRO_STATUS_SUCCESS;
}

PdfDocument::PdfDocument(const PictureOptions& options, ByteTaker take)
    : options_(options),
      take_(std::move(take)),
      surface_(cairo_pdf_surface_create_for_stream(takeBytes, &take_, 1, 1)) {
  // Without a date of its own the same pages give the same bytes.
  cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATE_DATE, "");
}

void PdfDocument::addPage(const Page& page) {
  constexpr double kPointsPerInch = 72.0;
  const double scale = options_.zoom * kPointsPerInch / page.resolution;
  const Box box = pageBox(page);
  cairo_pdf_surface_set_size(surface_.get(), pointLength(box.width() * scale),
                             pointLength(box.height() * scale));
  paintPage(surface_.get(), page, box, scale, options_);
  cairo_surface_show_page(surface_.get());
}

bool PdfDocument::finish() {
  cairo_surface_finish(surface_.get());
  return cairo_surface_status(surface_.get()) == CAIRO_STATUS_SUCCESS;
}

}  // namespace egfrender
