#pragma once

#include <cstdint>

#include "host/wire.h"

struct QV_FILEID;
struct _egf_obj;
struct _sel_colour_list;

// Raster files and rasters.

/// What a raster file's header says.
struct _hel_useful_info {
  std::uint32_t sourceRewind;  ///< not 0: seek to the file's start before the load
  std::uint32_t width;         ///< pixels
  std::uint32_t height;
  double xResolution;  ///< dots per inch, 0 when the file says nothing
  double yResolution;
  std::int32_t rotation;         ///< degrees: 0, 90, 180 or 270
  std::uint32_t mirror;          ///< not 0: mirrored
  std::uint32_t paletteUsed;     ///< colours in use
  std::uint32_t paletteEntries;  ///< colours that there is room for
  _sel_colour_list* palette;     ///< null for true colour
  std::uint32_t loadFlag;
};

/// Formats that the reader refuses although they may be rasters.
enum RasterFormat : std::uint32_t {
  kFormatUnknown = 0,
  kFormatRefused1 = 404160512,
  kFormatRefused2 = 404226048,
};

extern "C" {

/// The format code of a file by its full name; `kFormatUnknown` when it is none that is known.
EGFHOST_API std::uint32_t FMT_DetermineFormat(const char* name, int kind);
EGFHOST_API int FMT_IsRasterFormat(std::uint32_t format);

/// A raster-file header block, 0 on failure; freed with RMM_Free.
EGFHOST_API HostHandle HEL_AllocateHeader();
EGFHOST_API int HEL_ReadHeader(HostHandle header, HostHandle stream);
EGFHOST_API _hel_useful_info* HEL_QueryUsefulInfo(HostHandle header);

/// Converts a progressive JPEG file to a plain one.
EGFHOST_API int hel_ConvertPJPEGFile(const QV_FILEID* source, const QV_FILEID* target);

/// The raster of an image file, 0 on failure. Rasters are counted: each holder releases its own.
EGFHOST_API HostHandle PIL_LoadRaster(HostHandle stream, HostHandle header);

/// Writes the raster of an image object to an open stream as a TIFF file.
EGFHOST_API int PIL_PasteWrite(HostHandle stream, const _egf_obj* image);

}  // extern "C"
