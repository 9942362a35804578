// egfsvg dump: the pages of a drawing as one JSON document.
#include "cli/commands.h"
#include "cli/dump.h"
#include "cli/output_file.h"
#include "cli/settings.h"

namespace egfsvg {

ExitCode runDump(const Options& options) {
  applySettings(options);
  Source source(options.inputs.front(), options);
  PageReader reader(source, options);
  const PageRange pages = pagesToTake(options, source.name(), reader.pageCount(), true);
  const auto output = OutputFile::create("-");
  writeDump(reader, pages, *output);
  output->commit();
  return source.outcome();
}

}  // namespace egfsvg
