// Bytes on their way from a library to an output.
#pragma once

#include <exception>
#include <string_view>

#include "cli/output_file.h"

namespace egfsvg {

// Hands bytes to an output. What it throws waits until the library has returned.
class OutputTaker {
 public:
  explicit OutputTaker(OutputFile& output) : output_(output) {}

  bool take(std::string_view bytes) {
    if (fault_) return false;
    try {
      output_.write(bytes);
      return true;
    } catch (...) {
      fault_ = std::current_exception();
      return false;
    }
  }

  // Throws what the output threw, if it did.
  void rethrow() const {
    if (fault_) std::rethrow_exception(fault_);
  }

 private:
  OutputFile& output_;
  std::exception_ptr fault_;
};

}  // namespace egfsvg
