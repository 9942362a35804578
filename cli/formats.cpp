#include "cli/formats.h"

#include <array>

#include "cli/background.h"
#include "cli/dump.h"
#include "cli/failure.h"
#include "cli/output_taker.h"
#include "cli/page_reader.h"
#include "cli/svg_output.h"
#include "render/picture.h"

namespace egfsvg {
namespace {

void writeJson(Source& source, const Options& options, OutputFile& output) {
  PageReader reader(source, options);
  writeDump(reader, pagesToTake(options, source.name(), reader.pageCount(), true), output);
}

egfrender::PictureOptions pictureOptions(const Options& options) {
  return {options.zoom, backgroundColour(options.background)};
}

// Throws when the picture was not made, or not taken.
void finishPicture(const OutputTaker& taker, bool written, const std::string& name) {
  taker.rethrow();
  if (written) return;
  throw Failure(ExitCode::kInternal,
                name + ": the picture could not be made; try a smaller --zoom");
}

[[noreturn]] void failSize(const std::string& name, const std::string& size) {
  throw Failure(ExitCode::kLimit, name + ": the picture would be " + size +
                                      " pixels, more than 64 million or too long a side; give a "
                                      "smaller --zoom");
}

void writePng(Source& source, const Options& options, OutputFile& output) {
  const egfrender::PictureOptions picture = pictureOptions(options);
  PageReader reader(source, options);
  reader.read(pagesToTake(options, source.name(), reader.pageCount(), false).first);
  OutputTaker taker(output);
  try {
    const bool written = egfrender::writePng(
        reader.page(), picture, [&](std::string_view bytes) { return taker.take(bytes); });
    finishPicture(taker, written, source.name());
  } catch (const egfrender::PictureTooLarge& size) {
    failSize(source.name(), size.what());
  }
}

void writePdf(Source& source, const Options& options, OutputFile& output) {
  const egfrender::PictureOptions picture = pictureOptions(options);
  PageReader reader(source, options);
  const PageRange pages = pagesToTake(options, source.name(), reader.pageCount(), true);
  OutputTaker taker(output);
  egfrender::PdfDocument pdf(picture, [&](std::string_view bytes) { return taker.take(bytes); });
  for (int page = pages.first; page <= pages.last; ++page) {
    reader.read(page);
    pdf.addPage(reader.page());
  }
  finishPicture(taker, pdf.finish(), source.name());
}

constexpr std::array<OutputFormat, 5> kFormats{{
    {".svg", writePlainSvg},
    {".svgz", writeCompressedSvg},
    {".json", writeJson},
    {".png", writePng},
    {".pdf", writePdf},
}};

bool sameExtension(std::string_view given, std::string_view extension) {
  if (given.empty() || given.front() != '.') extension.remove_prefix(1);
  if (given.size() != extension.size()) return false;
  for (std::size_t i = 0; i < given.size(); ++i) {
    const char letter =
        given[i] >= 'A' && given[i] <= 'Z' ? static_cast<char>(given[i] - 'A' + 'a') : given[i];
    if (letter != extension[i]) return false;
  }
  return true;
}

}  // namespace

const OutputFormat* formatOf(std::string_view extension) {
  for (const OutputFormat& format : kFormats) {
    if (sameExtension(extension, format.extension)) return &format;
  }
  return nullptr;
}

std::string formatList() {
  std::string list;
  for (std::size_t i = 0; i < kFormats.size(); ++i) {
    if (i > 0) list += i + 1 == kFormats.size() ? " or " : ", ";
    list += kFormats[i].extension;
  }
  return list;
}

}  // namespace egfsvg
