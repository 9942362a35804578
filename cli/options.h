// What the command line says.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace egfsvg {

// Bounds of a read; 0 is the built-in one.
struct LimitOptions {
  std::uint32_t maxNesting = 0;
  std::uint32_t maxReferenceDepth = 0;
  std::uint32_t maxReferencedObjects = 0;
  std::uint32_t maxSourceBytes = 0;
};

struct Options {
  std::vector<std::string> inputs;
  std::string output;         // empty when --to and --out say where
  std::string format;         // --to: an extension, with or without its dot
  std::string folder;         // --out
  std::optional<int> page;    // from 1
  std::optional<double> dpi;  // none: the file's own, else 96
  double zoom = 1;
  std::string background;  // empty: transparent
  bool bare = false;
  std::string language = "auto";  // or "none", or a language tag
  bool quiet = false;
  bool progress = true;  // not on the command line: off in one of several jobs
  bool json = false;
  int jobs = 1;
  LimitOptions limits;
};

// Groups of options that commands pick from.
void addInputs(CLI::App& command, Options& options, bool several);
void addPageOption(CLI::App& command, Options& options);
void addReadOptions(CLI::App& command, Options& options);
void addLimitOptions(CLI::App& command, Options& options);
void addOutputOptions(CLI::App& command, Options& options);
void addPictureOptions(CLI::App& command, Options& options);
void addJsonOption(CLI::App& command, Options& options);

}  // namespace egfsvg
