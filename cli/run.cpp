#include "cli/run.h"

#include <new>

#include "cli/failure.h"
#include "cli/reports.h"

namespace egfsvg {

ExitCode guarded(const std::function<ExitCode()>& work, const std::string& what) {
  try {
    return work();
  } catch (const Failure& failure) {
    sayLine(failure.what());
    return failure.code();
  } catch (const std::bad_alloc&) {
    sayLine(what + ": there is not enough memory; close other programs or take a smaller drawing");
    return ExitCode::kInternal;
  } catch (const std::exception& fault) {
    sayLine(what + ": internal fault: " + fault.what() + "; please report it");
    return ExitCode::kInternal;
  }
}

}  // namespace egfsvg
