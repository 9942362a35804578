#include "bench/peer.h"

#include <array>
#include <cstdio>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace egfsvg::bench {
namespace {

struct PipeCloser {
  void operator()(std::FILE* pipe) const { pclose(pipe); }
};

std::string outputOf(const std::string& commandLine) {
  const std::unique_ptr<std::FILE, PipeCloser> pipe(popen(commandLine.c_str(), "r"));
  if (!pipe) throw std::runtime_error("can't run " + commandLine);
  std::string text;
  std::array<char, 4096> block;
  while (const std::size_t got = std::fread(block.data(), 1, block.size(), pipe.get())) {
    text.append(block.data(), got);
  }
  return text;
}

std::vector<std::string> cells(const std::string& line) {
  std::vector<std::string> result;
  std::istringstream in(line);
  for (std::string cell; std::getline(in, cell, '\t');) result.push_back(cell);
  return result;
}

}  // namespace

double peerSeconds(const std::string& command, const std::string& file) {
  std::istringstream table(outputOf(command + " --header --reps 1 '" + file + "'"));
  std::string nameLine;
  std::string valueLine;
  std::getline(table, nameLine);
  std::getline(table, valueLine);
  const auto names = cells(nameLine);
  const auto values = cells(valueLine);
  double seconds = 0;
  int found = 0;
  for (std::size_t i = 0; i < names.size() && i < values.size(); ++i) {
    if (names[i] == "load_s" || names[i] == "free_s") {
      seconds += std::stod(values[i]);
      ++found;
    }
  }
  if (found != 2) throw std::runtime_error("no load_s and free_s from " + command);
  return seconds;
}

}  // namespace egfsvg::bench
