// Drawings written as SVG by the filter, plain or compressed.
#pragma once

#include "cli/options.h"
#include "cli/output_file.h"
#include "cli/source.h"

namespace egfsvg {

// Both write one page: the one that was asked for, else the first. They throw a Failure.
void writePlainSvg(Source& source, const Options& options, OutputFile& output);
void writeCompressedSvg(Source& source, const Options& options, OutputFile& output);

}  // namespace egfsvg
