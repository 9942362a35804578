// A drawing that is open for reading: its plain file as a stream of the host, and what the host
// says while it is read.
#pragma once

#include <memory>
#include <string>

#include "cli/exit_codes.h"
#include "cli/host_owner.h"
#include "cli/inputs.h"
#include "cli/options.h"
#include "cli/progress_bar.h"
#include "cli/reports.h"
#include "host/files.h"

namespace egfsvg {

class Source {
 public:
  // Throws a Failure for what cannot be opened or unpacked.
  Source(const std::string& path, const Options& options);
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;
  ~Source() = default;

  const std::string& name() const { return input_.name(); }
  const ReadyInput& input() const { return input_; }
  HostHandle stream() const { return stream_.get(); }
  QV_FILEID* file() { return &file_; }  // names the drawing itself, not its unpacked copy
  Reports& reports() { return reports_; }

  // Throws the Failure that a result code of a read stands for; 0 and the early ends pass. Anything
  // says whether something was read.
  void check(std::int32_t code, bool anything);

  // What a command that did its work ends with.
  ExitCode outcome();

 private:
  ReadyInput input_;
  HandleOwner<FLR_Close> stream_;
  QV_FILEID file_{};
  Reports reports_;
  GaugeProgress gauge_;
};

// Throws the Failure (66) of a page that the drawing does not have. Pages count from 1.
void checkPage(const std::string& name, int page, int pageCount);

}  // namespace egfsvg
