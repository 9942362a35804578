#include "cli/formats.h"

#include <array>

#include "cli/background.h"
#include "cli/dump.h"
#include "cli/failure.h"
#include "cli/page_reader.h"
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

// Hands bytes to an output. What it throws waits until cairo has returned.
class OutputTaker {
 public:
  explicit OutputTaker(OutputFile& output) : output_(output) {}

  bool take(std::string_view bytes) {
    if (fault_) return false;
    try {
      output_.write(bytes);
      return true;
    } catch (...) {
      fault_ = std::current_exception();
      return false;
    }
  }

  // Throws what the output threw, or a Failure when the picture failed by itself.
  void finish(bool written, const std::string& name) {
    if (fault_) std::rethrow_exception(fault_);
    if (written) return;
    throw Failure(ExitCode::kInternal,
                  name + ": the picture could not be made; try a smaller --zoom");
  }

 private:
  OutputFile& output_;
  std::exception_ptr fault_;
};

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
    taker.finish(written, source.name());
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
  taker.finish(pdf.finish(), source.name());
}

constexpr std::array<OutputFormat, 3> kFormats{{
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
