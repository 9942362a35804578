// The entry points of the module. Each takes one record by address and returns a code: 0 for
// success, negative for failure (result_codes.h). The SVGA_ layer is what a host calls; the SVGH_
// layer is what the adapters call. Calls run on the host's thread, and reads must not overlap.
#pragma once

#include <cstdint>

#include "frame/entry_records.h"
#include "host/files.h"

// A function that the module exports under its plain name.
#define EGFSVG_API __attribute__((visibility("default")))

extern "C" {

/// Opens a reader on `source` and stores its handle; `reader` is cleared first in any case.
EGFSVG_API std::int32_t SVGA_OpenReader(_adapterOpenReader* record);

/// Takes the resolution over that the source names. Before each page.
EGFSVG_API std::int32_t SVGA_PreprocessSource(_adapterPreprocess* record);

/// Property 3 counts the pages of the source; any other is refused. `source` is not asked for here.
EGFSVG_API std::int32_t SVGA_QueryProperty(_adapterQuery* record);

/// Reads one page into `container`. `file` names the source, for what lies beside it.
EGFSVG_API std::int32_t SVGA_ReadData(_adapterReadData* record, QV_FILEID* file);

EGFSVG_API std::int32_t SVGA_UnloadData(_adapterUnloadData* record);

/// Ends a reader. When it returns non-zero the reader is still open, and may be closed again.
EGFSVG_API std::int32_t SVGA_CloseReader(_adapterCloseReader* record);

/// Receives each element of SVGA_ReadData: 1 goes on, 0 stops quietly, negative codes are returned
/// by the read.
EGFSVG_API std::int32_t SVGA_EnumerateDataCallback(_handlerObject* record);

/// Opens the SVG side of a reader on `source`; `reader` is cleared first in any case.
EGFSVG_API std::int32_t SVGH_OpenReader(_handlerOpenReader* record);

/// Fills `text` with the resolution that the source names, or leaves it empty.
EGFSVG_API std::int32_t SVGH_PreprocessSource(_handlerPreprocess* record);

EGFSVG_API std::int32_t SVGH_QueryProperty(_handlerQuery* record);

/// Hands each element of the page to `callback`. `pageName` must not be empty.
EGFSVG_API std::int32_t SVGH_EnumerateData(_handlerEnumData* record, QV_FILEID* file);

EGFSVG_API std::int32_t SVGH_CloseReader(_handlerCloseReader* record);

/// Opens a writer on `target`, an output stream, and stores its handle; `writer` is cleared first
/// in any case.
EGFSVG_API std::int32_t SVGA_OpenWriter(_adapterOpenWriter* record);

/// Writes the tree of `objectTree` as one SVG document. `target` is the file object of the file
/// that is being written, beside which pictures go.
EGFSVG_API std::int32_t SVGA_WriteData(_adapterWriteData* record, HostHandle target);

/// Ends a writer, whatever the result.
EGFSVG_API std::int32_t SVGA_CloseWriter(_adapterCloseWriter* record);

/// Opens the SVG side of a writer on `target`; `writer` is cleared first in any case.
EGFSVG_API std::int32_t SVGH_OpenWriter(_handlerOpenWriter* record);

/// Writes one record as its type says.
EGFSVG_API std::int32_t SVGH_WriteObject(_handlerWriteObject* record);

/// When it returns non-zero the writer is still open, and may be closed again.
EGFSVG_API std::int32_t SVGH_CloseWriter(_handlerCloseWriter* record);

}  // extern "C"
