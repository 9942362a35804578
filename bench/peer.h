// Another program that reads a drawing, measured beside ours in the same run.
#pragma once

#include <string>

namespace egfsvg::bench {

// Seconds that the program needed to load and free the drawing once, by its own clock. It is run as
// `COMMAND --header --reps 1 FILE` and prints a table separated by tabs: a line of names, then one
// of values; `load_s` and `free_s` are read. Throws std::runtime_error when it does not.
double peerSeconds(const std::string& command, const std::string& file);

}  // namespace egfsvg::bench
