// A drawing file as a whole: telling plain from compressed, opening it as a resource that loads its
// pages on demand, and writing it. All compression is the host's.
#pragma once

#include <cstdint>

#include "frame/svghinterface.h"
#include "host/documents.h"
#include "host/files.h"
#include "host/lists.h"

/// Bits of a resource's flags.
enum DynaFlag : std::uint8_t {
  kDynaBusy = 1,        // a call is under way: another one is refused
  kDynaDeleteFile = 2,  // the file is deleted when the resource ends
};

/// A file whose pages are loaded on demand. Lives from iSVG_CreateDynaLoadResource to the
/// operation kDynaDestroy; its reader stays open, its file is opened anew for each page.
struct SvgDynaRes {
  std::uint8_t flags;
  HostHandle file;           // the file object, with one reference of ours
  std::uint32_t userData;    // the caller's; goes into each page and into the view's document
  std::int32_t currentPage;  // from 0, -1 at the start
  std::int32_t pageCount;    // -1 until it is known, 0 for a file without page groups
  _lst_items pages;          // the tree block of each loaded page, 0 in a free place
  HostHandle reader;
  QV_FILEID fileId;  // names the drawing, for what lies beside it
};

extern "C" {

/// Sets `*compressed` to 1 for a gzip file, which is unpacked to the new file that `temporary` then
/// names and the caller deletes; to 0 for any other file of three bytes or more. 0, or -1 with
/// nothing left behind.
EGFSVG_API std::int32_t iSVG_checkCompression(const QV_FILEID* source, QV_FILEID* temporary,
                                              int* compressed);

/// Opens a plain file as a resource of the host; 0 on failure. For an unpacked copy, `fileId` names
/// the original. `deleteFlag` 1 deletes the file when the resource ends, or cannot be made.
EGFSVG_API HostHandle iSVG_CreateDynaLoadResource(HostHandle file, std::uint32_t userData,
                                                  const QV_FILEID* fileId, int deleteFlag);

/// Does an operation of DynaOperation on a resource's SvgDynaRes: 0, or -1. It does not re-enter.
/// kDynaDestroy gives what closing the reader gave.
EGFSVG_API int SVG_DynaResCallback(int operation, void* resource, std::uintptr_t argument);

/// Writes the drawing of the view's document to `output`, an open stream that stays the caller's:
/// compressed when `compress` is 1. A result of the host, 0 for success; otherwise what `output`
/// took so far is no drawing, and the caller discards it. The document stays as it is.
EGFSVG_API std::int32_t iSVG_WriteFile(HostHandle view, HostHandle output, int compress);

}  // extern "C"
