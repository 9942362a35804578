// Whether `display` keeps an element off the page.
#pragma once

#include "model/groups.h"

namespace egfsvg {

/// By the element's own display and, when the host's setting asks for it, by that of the containers
/// around it. The record is the element's, so its head stands first.
bool isNotDisplayed(const _svg_pa_graphics& graphics, const void* record);

}  // namespace egfsvg
