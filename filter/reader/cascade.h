// Applying declarations to elements by their tag code.
#pragma once

#include <string_view>

#include "reader/svg_handlerreader.h"

namespace egfsvg {

/// A declaration of a style attribute. Types without a setter do nothing.
void applyStyleAttribute(CHandlerReader& reader, void* element, int type, int code,
                         _svg_attrib_pair* pair);

/// Whether rules reach elements of a type at all.
bool takesRules(int type);

/// The rules of an id, or of an entity's name.
void applyIdRules(CHandlerReader& reader, void* element, int type, std::string_view id);

}  // namespace egfsvg
