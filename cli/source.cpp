#include "cli/source.h"

#include <array>
#include <filesystem>

#include "cli/failure.h"
#include "cli/settings.h"
#include "embedded_host/host_files.h"
#include "frame/result_codes.h"

namespace egfsvg {
namespace {

constexpr const char* kStandardInput = "-";

struct CodeRow {
  std::int32_t code;
  ExitCode exit;
  const char* line;
};

// What a read that failed is called.
constexpr std::array<CodeRow, 3> kCodes{{
    {kExceptionCaught, ExitCode::kInputOutput,
     "the host gave up while it was read; check the file and the disk"},
    {kOutOfMemory, ExitCode::kLimit, "there is not enough memory for it; split the drawing"},
    {kNothingToRead, ExitCode::kBadData,
     "nothing in it could be read as SVG; give an SVG file, plain or gzip"},
}};

HostHandle openStream(const ReadyInput& input) {
  std::string why;
  const HostHandle stream = egfhost::openFile(input.path(), &why);
  if (stream != 0) return stream;
  throw Failure(ExitCode::kNoInput,
                input.name() + ": cannot be opened: " + why + "; check the path");
}

}  // namespace

Source::Source(const std::string& path, const Options& options)
    : input_(path, maxSourceBytes(options)),
      stream_(openStream(input_)),
      reports_(input_.name(), input_.path(), options.quiet),
      gauge_(options.quiet || !options.progress) {
  const bool named = path != kStandardInput;
  egfhost::fileIdOf(named ? path : input_.path(), &file_);
  if (!named) return;
  const auto folder = std::filesystem::absolute(path).parent_path();
  egfhost::allowFolder(folder.string(), egfhost::FileAccess::kRead);
}

void Source::check(std::int32_t code, bool anything) {
  if (code == kOk && anything) return;
  reports_.finish();
  if (input_.bytes() == 0) {
    throw Failure(ExitCode::kBadData, name() + ": the file is empty; give an SVG file");
  }
  if (!anything && reports_.limitHit()) {
    throw Failure(ExitCode::kLimit, name() + ": nothing was read before a limit was hit; raise it");
  }
  const std::int32_t wanted = code == kOk ? kNothingToRead : code;
  for (const CodeRow& row : kCodes) {
    if (row.code == wanted) throw Failure(row.exit, name() + ": " + row.line);
  }
  throw Failure(ExitCode::kInternal, name() + ": the filter failed with code " +
                                         std::to_string(code) + "; please report the file");
}

ExitCode Source::outcome() {
  reports_.finish();
  return reports_.limitHit() ? ExitCode::kLimit : ExitCode::kGood;
}

void checkPage(const std::string& name, int page, int pageCount) {
  if (page >= 1 && page <= pageCount) return;
  const std::string there =
      pageCount == 1 ? "it has one page" : "it has " + std::to_string(pageCount) + " pages";
  throw Failure(ExitCode::kNoInput, name + ": there is no page " + std::to_string(page) + "; " +
                                        there + ", numbered from 1");
}

}  // namespace egfsvg
