// The frame around every entry point: the module's state is current while it runs, and no exception
// of the host's framework leaves it.
#pragma once

#include <cstdint>

#include "frame/result_codes.h"
#include "host/framework.h"

namespace egfsvg {

/// Runs the body and returns its result; -5201 when a CException ends it. Other exceptions pass.
/// The module state that was current is put back on every way out.
template <class Body>
std::int32_t entryPoint(Body&& body) {
  const AFX_MAINTAIN_STATE2 guard(AfxGetStaticModuleState());
  try {
    return body();
  } catch (CException* exception) {
    exception->Delete();
    return kExceptionCaught;
  }
}

}  // namespace egfsvg
