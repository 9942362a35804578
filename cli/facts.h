// What info tells about a drawing.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "cli/page_reader.h"

namespace egfsvg {

struct PageFacts {
  std::string name;
  double width = 0;  // pixels of the page
  double height = 0;
  std::map<std::string, std::uint64_t> objects;  // by the name of their class
};

struct StyleFacts {
  std::string kind;
  std::uint32_t count;
};

struct DrawingFacts {
  std::string file;
  bool compressed = false;
  std::uint64_t bytes = 0;  // unpacked
  double resolution = 0;    // dots per inch
  std::string comment;      // the resolution that the file names, empty when it names none
  std::vector<PageFacts> pages;
  std::vector<StyleFacts> styles;
  std::uint64_t colours = 0;
  Reports::Told told;  // what was left out
};

// Reads every page.
DrawingFacts factsOf(Source& source, const Options& options);

}  // namespace egfsvg
