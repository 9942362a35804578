// The embedded host as the tool, the renderer and the tests use it: documents and pages, files and
// memory streams, settings, messages, progress, and for tests budgets, the ledger of live blocks
// and fault injection. One process, one thread.
#pragma once

#include "embedded_host/host_compression.h"
#include "embedded_host/host_documents.h"
#include "embedded_host/host_faults.h"
#include "embedded_host/host_files.h"
#include "embedded_host/host_framework.h"
#include "embedded_host/host_memory.h"
#include "embedded_host/host_messages.h"
#include "embedded_host/host_progress.h"
#include "embedded_host/host_settings.h"
#include "embedded_host/host_trees.h"
#include "embedded_host/host_window.h"

namespace egfhost {

// Puts back what tests change: no faults, no budgets, all settings 0, the file policy of the start,
// no hooks and listeners, no recorded messages, no standard objects, fresh counts. What is still
// live stays so.
EGFHOST_API void resetForTest();

}  // namespace egfhost
