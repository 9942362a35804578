// The formats that convert writes: one row each.
#pragma once

#include <string>
#include <string_view>

#include "cli/options.h"
#include "cli/output_file.h"
#include "cli/source.h"

namespace egfsvg {

struct OutputFormat {
  std::string_view extension;  // with its dot
  // Reads the source and writes it to the output. Throws a Failure.
  void (*write)(Source& source, const Options& options, OutputFile& output);
};

// The format of an extension, with or without its dot, in any case; null for an unknown one.
const OutputFormat* formatOf(std::string_view extension);

// ".json, .png and .pdf", for messages.
std::string formatList();

}  // namespace egfsvg
