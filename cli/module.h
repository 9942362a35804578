// The filter module, loaded by its exported names alone.
#pragma once

#include "dyna/svgdyna.h"
#include "frame/svghinterface.h"

namespace egfsvg {

// The entry points that the tool calls.
struct FilterModule {
  decltype(&SVGA_OpenReader) openReader;
  decltype(&SVGA_PreprocessSource) preprocessSource;
  decltype(&SVGA_QueryProperty) queryProperty;
  decltype(&SVGA_ReadData) readData;
  decltype(&SVGA_UnloadData) unloadData;
  decltype(&SVGA_CloseReader) closeReader;

  decltype(&SVGH_OpenReader) openHandler;
  decltype(&SVGH_QueryProperty) queryHandler;
  decltype(&SVGH_EnumerateData) enumerateData;
  decltype(&SVGH_CloseReader) closeHandler;
  decltype(&SVGH_PreprocessSource) preprocessHandler;

  decltype(&iSVG_CreateDynaLoadResource) createResource;
  decltype(&iSVG_WriteFile) writeFile;
};

// Loaded at the first call: from $EGFSVG_MODULE, beside the tool, or in ../lib/egfsvg. Throws a
// Failure (70).
const FilterModule& filterModule();

}  // namespace egfsvg
