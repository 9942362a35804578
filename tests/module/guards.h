// The guards that the module opens, counted: this program's own AfxSetModuleState stands before the
// host's.
#pragma once

namespace egfsvg::test {

// Calls since the start. Each guard makes one when it opens and one when it closes.
unsigned moduleStateChanges();

}  // namespace egfsvg::test
