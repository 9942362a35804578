// The egfsvg tool: a table of commands.
#include <CLI/CLI.hpp>
#include <array>
#include <string>

#include "cli/commands.h"
#include "cli/reports.h"
#include "cli/run.h"
#include "cli/temporaries.h"

namespace {

using egfsvg::ExitCode;
using egfsvg::Options;

struct Command {
  const char* name;
  const char* summary;
  const char* example;
  void (*addOptions)(CLI::App& command, Options& options);
  ExitCode (*run)(const Options& options);
};

constexpr std::array<Command, 4> kCommands{{
    {"info", "pages, sizes, objects, and what was left out", "egfsvg info drawing.svg",
     [](CLI::App& command, Options& options) {
       addInputs(command, options, true);
       addJsonOption(command, options);
       addReadOptions(command, options);
     },
     egfsvg::runInfo},
    {"elements", "the element records as the reader hands them out, one JSON object a line",
     "egfsvg elements drawing.svg --page 2",
     [](CLI::App& command, Options& options) {
       addInputs(command, options, false);
       addPageOption(command, options);
       addReadOptions(command, options);
     },
     egfsvg::runElements},
    {"dump", "the pages as one JSON document", "egfsvg dump drawing.svgz > drawing.json",
     [](CLI::App& command, Options& options) {
       addInputs(command, options, false);
       addPageOption(command, options);
       addReadOptions(command, options);
     },
     egfsvg::runDump},
    {"convert", "to a picture or another format",
     "egfsvg convert drawing.svg -o drawing.png --zoom 2\n"
     "         egfsvg convert drawings --to pdf --out pages -j 4",
     [](CLI::App& command, Options& options) {
       addInputs(command, options, true);
       addOutputOptions(command, options);
       addPageOption(command, options);
       addPictureOptions(command, options);
       addReadOptions(command, options);
     },
     egfsvg::runConvert},
}};

// Prints what was asked for, or one line about what is wrong with the command line.
ExitCode report(const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() == 0) {
    app.exit(error);
    return ExitCode::kGood;
  }
  std::string line = error.what();
  line.erase(std::min(line.find('\n'), line.size()));
  egfsvg::sayLine(line + "; see egfsvg --help");
  return ExitCode::kUsage;
}

ExitCode runTool(int count, char** arguments) {
  CLI::App app("Reads SVG drawings, plain or gzip, shows what is in them and converts them.",
               "egfsvg");
  app.set_version_flag("--version", "egfsvg " EGFSVG_VERSION);
  app.require_subcommand(1);
  app.footer(
      "Example: egfsvg convert drawing.svg -o drawing.png\n"
      "Help on a command: egfsvg convert --help");
  std::array<Options, kCommands.size()> options;
  std::array<CLI::App*, kCommands.size()> parsers{};
  for (std::size_t i = 0; i < kCommands.size(); ++i) {
    parsers[i] = app.add_subcommand(kCommands[i].name, kCommands[i].summary);
    parsers[i]->footer(std::string("Example: ") + kCommands[i].example);
    kCommands[i].addOptions(*parsers[i], options[i]);
  }
  try {
    app.parse(count, arguments);
  } catch (const CLI::ParseError& error) {
    return report(app, error);
  }
  for (std::size_t i = 0; i < kCommands.size(); ++i) {
    if (parsers[i]->parsed()) return kCommands[i].run(options[i]);
  }
  return ExitCode::kUsage;
}

}  // namespace

int main(int count, char** arguments) {
  egfsvg::removeTemporariesOnSignals();
  return egfsvg::number(egfsvg::guarded([&] { return runTool(count, arguments); }, "egfsvg"));
}
