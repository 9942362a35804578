#include "cli/jobs.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <map>

#include "cli/failure.h"
#include "cli/temporaries.h"
#include "embedded_host/host_files.h"

namespace egfsvg {
namespace {

using Running = std::map<pid_t, std::size_t>;

pid_t start(std::size_t index, const std::function<ExitCode(std::size_t)>& work) {
  const pid_t child = ::fork();
  if (child != 0) return child;
  forgetTemporaries();
  const ExitCode code = work(index);
  std::fflush(nullptr);
  egfhost::removeTemporaryFolder();
  ::_exit(number(code));
}

int endedWith(int status) {
  return WIFEXITED(status) ? WEXITSTATUS(status) : number(ExitCode::kInternal);
}

// Waits for one child of ours and takes its code.
void reap(Running& running, std::vector<int>& codes) {
  int status = 0;
  pid_t child = -1;
  do {
    child = ::waitpid(-1, &status, 0);
  } while (child < 0 && errno == EINTR);
  const auto entry = running.find(child);
  if (entry == running.end()) return;
  codes[entry->second] = endedWith(status);
  running.erase(entry);
}

}  // namespace

std::vector<int> runJobs(std::size_t count, int parallel,
                         const std::function<ExitCode(std::size_t)>& work,
                         const std::function<void(std::size_t)>& onEnd) {
  std::vector<int> codes(count, number(ExitCode::kInternal));
  Running running;
  std::size_t next = 0;
  while (next < count || !running.empty()) {
    if (next < count && running.size() < static_cast<std::size_t>(parallel)) {
      const pid_t child = start(next, work);
      if (child > 0) running.emplace(child, next++);
      if (child > 0) continue;
      if (running.empty()) {
        throw Failure(ExitCode::kInternal, std::string("no process can be started: ") +
                                               std::strerror(errno) + "; try again with -j 1");
      }
    }
    reap(running, codes);
    onEnd(next - running.size());
  }
  return codes;
}

}  // namespace egfsvg
