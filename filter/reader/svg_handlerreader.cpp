#include "reader/svg_handlerreader.h"

#include "host/memory.h"
#include "host/progress.h"
#include "model/rmm_allocator.h"

CHandlerReader::CHandlerReader() = default;

// What a read that ended early has left is released too: the tables own more than their keys, and
// the progress bar may still be open.
CHandlerReader::~CHandlerReader() {
  egfsvg::freeAll(container);
  destroyTables();
  if (gaugeLevel != 0) SEL_UPDATE_End(gaugeLevel);
  if (gaugeBar != 0) SEL_UPDATE_End(gaugeBar);
}

void CHandlerReader::operator delete(void* block) { RMM_Free(block); }
