// Colours as property groups store them.
#pragma once

#include "model/groups.h"
#include "model/svg_map.h"
#include "reader/presentation_patterns.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

/// A value that does not scan stores what was read of it.
_svg_color parseColor(CHandlerReader& reader, _svg_attrib_pair* pair);

template <class Group>
int setColor(CHandlerReader& reader, _svg_color Group::*field, Group* group,
             _svg_attrib_pair* pair) {
  if (group == nullptr || !hasValue(pair) || isInherit(pair)) return 0;
  group->*field = parseColor(reader, pair);
  return 0;
}

/// Whether a paint is a "url(...)".
bool isReference(const char* paint);

/// The gradient that such a paint names, or null.
_svg_gradient* referencedGradient(const Map<_svg_gradient>& gradients, const char* paint);

inline bool namesCurrentColor(const _svg_attrib_pair* pair) {
  return hasValue(pair) && isKeyword(pair->value, "currentcolor");
}

/// A pair in which "currentColor" stands for the colour of the group. The given pair is never
/// written to: it may belong to a rule that other elements use.
class CurrentColor {
 public:
  CurrentColor(CHandlerReader& reader, _svg_pa_graphics* group, _svg_attrib_pair* pair);
  CurrentColor(const CurrentColor&) = delete;
  CurrentColor& operator=(const CurrentColor&) = delete;

  _svg_attrib_pair* pair() { return pair_; }

 private:
  _svg_attrib_pair* pair_;
  _svg_attrib_pair local_;
  char text_[48];
};

}  // namespace egfsvg
