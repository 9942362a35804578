// The rules of a style sheet.
#pragma once

#include "reader/css_source.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

/// What a sheet ends with.
enum class SheetEnd {
  kSource,        // the end of the text
  kCdataSection,  // "]]>"
};

/// Enters rules in the style table up to the sheet's end. 0, or -1 where the text cannot be
/// understood or memory ends; what was entered before stays.
int readCssRules(CHandlerReader& reader, CssSource& source, SheetEnd end);

}  // namespace egfsvg
