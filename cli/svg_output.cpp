#include "cli/svg_output.h"

#include <array>
#include <filesystem>

#include "cli/demanded_page.h"
#include "cli/failure.h"
#include "cli/module.h"
#include "cli/output_taker.h"
#include "cli/page_reader.h"
#include "embedded_host/host_files.h"

namespace egfsvg {
namespace {

enum class Form : int { kPlain = 0, kCompressed = 1 };

struct ResultRow {
  std::int32_t result;
  ExitCode exit;
  const char* line;
};

constexpr ResultRow kUnknownResult{0, ExitCode::kInternal,
                                   "the filter could not write it; please report the drawing"};
constexpr std::array<ResultRow, 4> kResults{{
    {-6408, ExitCode::kInputOutput, "the host gave up while it was written; check the disk"},
    {-1, ExitCode::kInputOutput, "cannot be written; check TMPDIR and the disk"},
    {1, ExitCode::kInputOutput, "cannot be written; check the disk"},
    {2, ExitCode::kLimit, "there is not enough memory to write it; split the drawing"},
}};

void checkResult(std::int32_t result, const std::string& name) {
  if (result == 0) return;
  const ResultRow* found = &kUnknownResult;
  for (const ResultRow& row : kResults) {
    if (row.result == result) found = &row;
  }
  throw Failure(found->exit, name + ": " + found->line);
}

// The filter puts pictures beside the output.
void allowBeside(const std::string& path) {
  const auto folder = std::filesystem::absolute(path).parent_path();
  egfhost::allowFolder(folder.string(), egfhost::FileAccess::kWrite);
}

void save(HostHandle view, OutputFile& output, Form form) {
  OutputTaker taker(output);
  allowBeside(output.path());
  const HostHandle stream = egfhost::openTakenOutput(
      output.path(), [&](std::string_view bytes) { return taker.take(bytes); });
  if (stream == 0) {
    throw Failure(ExitCode::kCannotCreate,
                  output.path() + ": cannot be created: the name is too long; shorten it");
  }
  const std::int32_t result = filterModule().writeFile(view, stream, static_cast<int>(form));
  const bool kept = FLR_Close(stream) == 0;
  taker.rethrow();
  checkResult(result == 0 && !kept ? -1 : result, output.path());
}

// A page on demand takes the resolution that its file names, so that with a resolution of the
// command line the page is read by hand.
void writeSvg(Source& source, const Options& options, OutputFile& output, Form form) {
  if (!options.dpi) {
    const DemandedPage page(source, options);
    return save(page.view(), output, form);
  }
  PageReader reader(source, options);
  reader.read(pagesToTake(options, source.name(), reader.pageCount(), false).first);
  save(reader.view(), output, form);
}

}  // namespace

void writePlainSvg(Source& source, const Options& options, OutputFile& output) {
  writeSvg(source, options, output, Form::kPlain);
}

void writeCompressedSvg(Source& source, const Options& options, OutputFile& output) {
  writeSvg(source, options, output, Form::kCompressed);
}

}  // namespace egfsvg
