// Compression of whole files, gzip form. Both give 0 on success and -1 on failure, and leave no
// target behind when they fail.
#pragma once

#include "host/wire.h"

extern "C" {

EGFHOST_API int ZLIB_CompressFile(const char* source, const char* target);
EGFHOST_API int ZLIB_UnCompressFile(const char* source, const char* target, int reserved);

}  // extern "C"
