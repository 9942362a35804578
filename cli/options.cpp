#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <array>

namespace egfsvg {
namespace {

constexpr double kLeastDpi = 1;
constexpr double kMostDpi = 100000;
constexpr double kLeastZoom = 0.0001;
constexpr double kMostZoom = 10000;
constexpr int kMostJobs = 256;
constexpr int kMostPages = 1000000;
constexpr const char* kLimitGroup = "Limits";

struct LimitRow {
  const char* option;
  std::uint32_t LimitOptions::*field;
  const char* help;
};

constexpr std::array<LimitRow, 4> kLimits{{
    {"--max-nesting", &LimitOptions::maxNesting, "containers open at a time (1024)"},
    {"--max-reference-depth", &LimitOptions::maxReferenceDepth,
     "references inside references (64)"},
    {"--max-referenced-objects", &LimitOptions::maxReferencedObjects,
     "objects that one page takes through references (1000000)"},
    {"--max-source-bytes", &LimitOptions::maxSourceBytes,
     "bytes of a drawing once it is unpacked (2147483647)"},
}};

}  // namespace

void addInputs(CLI::App& command, Options& options, bool several) {
  const char* help = several ? "drawings, SVG plain or gzip; - is standard input"
                             : "a drawing, SVG plain or gzip; - is standard input";
  CLI::Option* inputs = command.add_option("FILE", options.inputs, help);
  inputs->required();
  inputs->type_name("");
  inputs->expected(1, several ? CLI::detail::expected_max_vector_size : 1);
}

void addPageOption(CLI::App& command, Options& options) {
  command.add_option("--page", options.page, "the page to take, from 1")
      ->check(CLI::Range(1, kMostPages))
      ->type_name("N");
}

void addReadOptions(CLI::App& command, Options& options) {
  command.add_option("--dpi", options.dpi, "resolution of the view (the file's own, else 96)")
      ->check(CLI::Range(kLeastDpi, kMostDpi))
      ->type_name("X");
  command.add_flag("--bare", options.bare, "the bare filter: all host settings 0");
  command
      .add_option("--lang", options.language,
                  "language of text that names none: a tag, auto or none (auto)")
      ->type_name("TAG");
  command.add_flag("--quiet", options.quiet, "no warnings and no progress");
  addLimitOptions(command, options);
}

void addLimitOptions(CLI::App& command, Options& options) {
  for (const LimitRow& row : kLimits) {
    command.add_option(row.option, options.limits.*row.field, row.help)
        ->check(CLI::Range(1U, 0x7fffffffU))
        ->type_name("N")
        ->group(kLimitGroup);
  }
}

void addOutputOptions(CLI::App& command, Options& options) {
  command
      .add_option("-o,--output", options.output,
                  "the output, by its extension; - is standard output")
      ->type_name("OUT");
  command.add_option("--to", options.format, "format of the outputs: their extension")
      ->type_name("EXT");
  command.add_option("--out", options.folder, "folder of the outputs, made when missing")
      ->type_name("DIR");
  command.add_option("-j,--jobs", options.jobs, "drawings converted at a time (1)")
      ->check(CLI::Range(1, kMostJobs))
      ->type_name("N");
}

void addPictureOptions(CLI::App& command, Options& options) {
  command.add_option("--zoom", options.zoom, "picture pixels for a pixel of the page (1)")
      ->check(CLI::Range(kLeastZoom, kMostZoom))
      ->type_name("X");
  command
      .add_option("--background", options.background,
                  "colour behind the picture: #rgb, #rrggbb, #rrggbbaa or a name (transparent)")
      ->type_name("COLOUR");
}

void addJsonOption(CLI::App& command, Options& options) {
  command.add_flag("--json", options.json, "as one JSON document");
}

}  // namespace egfsvg
