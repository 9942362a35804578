// Whether `display` keeps an element off the page.
#pragma once

#include "host/settings.h"
#include "model/groups.h"

namespace egfsvg {

/// Whether a container around the element has a display of "none". The record is the element's, so
/// its head stands first.
bool standsUnderNone(const void* record);

/// By the element's own display and, when the host's setting asks for it, by that of the containers
/// around it.
inline bool isNotDisplayed(const _svg_pa_graphics& graphics, const void* record) {
  return graphics.display == kDisplayNone ||
         (settingOn(Setting::kHideUnderNone) && standsUnderNone(record));
}

}  // namespace egfsvg
