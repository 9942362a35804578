// egfsvg convert: one drawing or many, to another format.
#include <algorithm>
#include <filesystem>
#include <map>
#include <new>

#include "cli/background.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/formats.h"
#include "cli/jobs.h"
#include "cli/progress_bar.h"
#include "cli/run.h"
#include "cli/settings.h"

namespace egfsvg {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void failUsage(const std::string& line) { throw Failure(ExitCode::kUsage, line); }

struct Conversion {
  std::string input;
  std::string output;
};

// One output by -o, or many in a folder by --out; the format by --to, else by -o's extension.
const OutputFormat& formatFor(const Options& options) {
  const std::string named =
      options.format.empty() ? fs::path(options.output).extension().string() : options.format;
  if (const OutputFormat* format = formatOf(named)) return *format;
  if (!options.format.empty()) {
    failUsage("--to " + options.format + ": no such format; give " + formatList());
  }
  failUsage(options.output + ": no format has that extension; give " + formatList() +
            ", or name one with --to");
}

void checkOptions(const Options& options) {
  backgroundColour(options.background);
  if (options.output.empty() == options.folder.empty()) {
    failUsage("convert: where to is not said; give -o OUT for one drawing, or --to EXT --out DIR");
  }
  if (!options.folder.empty() && options.format.empty()) {
    failUsage("convert: --out needs the format; add --to with " + formatList());
  }
}

ExitCode convertOne(const Conversion& conversion, const OutputFormat& format,
                    const Options& options) {
  Source source(conversion.input, options);
  const auto output = OutputFile::create(conversion.output);
  format.write(source, options, *output);
  output->commit();
  return source.outcome();
}

std::vector<Conversion> conversionsInto(const std::string& folder, const OutputFormat& format,
                                        const std::vector<InputName>& inputs) {
  std::vector<Conversion> conversions;
  std::map<std::string, std::string> taken;
  for (const InputName& input : inputs) {
    fs::path target = fs::path(folder) / input.relative;
    target.replace_extension(format.extension);
    const auto [entry, isNew] = taken.emplace(target.string(), input.path);
    if (!isNew) {
      failUsage(input.path + " and " + entry->second + " would both become " + target.string() +
                "; convert them into different folders");
    }
    conversions.push_back({input.path, target.string()});
  }
  return conversions;
}

// Refused inputs make 1; a fault that is not an input's own stands for itself.
ExitCode overallCode(const std::vector<int>& codes) {
  for (const ExitCode grave :
       {ExitCode::kInternal, ExitCode::kCannotCreate, ExitCode::kInputOutput}) {
    if (std::find(codes.begin(), codes.end(), number(grave)) != codes.end()) return grave;
  }
  const bool good = std::all_of(codes.begin(), codes.end(), [](int code) { return code == 0; });
  return good ? ExitCode::kGood : ExitCode::kSomeRefused;
}

ExitCode convertMany(const std::vector<Conversion>& conversions, const OutputFormat& format,
                     const Options& options) {
  for (const Conversion& conversion : conversions) {
    createDirectory(fs::path(conversion.output).parent_path().string());
  }
  // Only this process shows progress: over the drawings, not inside one.
  ProgressBar bar(options.quiet);
  Options own = options;
  own.progress = false;
  const auto work = [&](std::size_t index) {
    return guarded([&] { return convertOne(conversions[index], format, own); },
                   conversions[index].input);
  };
  const auto codes = runJobs(conversions.size(), options.jobs, work, [&](std::size_t done) {
    bar.show("converting", static_cast<double>(done), static_cast<double>(conversions.size()));
  });
  return overallCode(codes);
}

}  // namespace

ExitCode runConvert(const Options& options) {
  checkOptions(options);
  const OutputFormat& format = formatFor(options);
  applySettings(options);
  const std::vector<InputName> inputs = expandInputs(options.inputs);
  if (!options.output.empty()) {
    if (inputs.size() > 1) {
      failUsage("convert: -o takes one drawing; for several give --to EXT --out DIR");
    }
    return convertOne({inputs.front().path, options.output}, format, options);
  }
  const auto conversions = conversionsInto(options.folder, format, inputs);
  createDirectory(options.folder);
  if (conversions.size() == 1) {
    createDirectory(fs::path(conversions.front().output).parent_path().string());
    return convertOne(conversions.front(), format, options);
  }
  return convertMany(conversions, format, options);
}

}  // namespace egfsvg
