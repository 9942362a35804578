// Setters of the groups that few elements carry: viewports, flood, lighting, gradient stops,
// markers and images.

#include "model/codes.h"
#include "reader/paints.h"
#include "reader/presentation_patterns.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

namespace {

constexpr Keyword kOverflowRows[] = {{"visible", 1}, {"hidden", 2}, {"scroll", 3}, {"auto", 4}};
constexpr KeywordSet kOverflow{kOverflowRows, 4};

}  // namespace

}  // namespace egfsvg

// No value is read: the property can only be inherited.
int CHandlerReader::SetClipPatt(_svg_common* parent, _svg_pa_viewports* group,
                                _svg_attrib_pair* pair) {
  using namespace egfsvg;
  return isInherit(pair) ? SetInheritedProperty(parent, group, kGroupViewports, kAttClip) : 0;
}

int CHandlerReader::SetOverflowPatt(_svg_common* parent, _svg_pa_viewports* group,
                                    _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) return SetInheritedProperty(parent, group, kGroupViewports, kAttOverflow);
  return setKeyword(&_svg_pa_viewports::overflow, group, pair, kOverflow);
}

int CHandlerReader::SetFloodColorPatt(_svg_common* parent, _svg_pa_feflood* group,
                                      _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) return SetInheritedProperty(parent, group, kGroupFlood, kAttFloodColor);
  return setColor(*this, &_svg_pa_feflood::floodColor, group, pair);
}

int CHandlerReader::SetFloodOpacityPatt(_svg_common* parent, _svg_pa_feflood* group,
                                        _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) return SetInheritedProperty(parent, group, kGroupFlood, kAttFloodOpacity);
  return setNumber(&_svg_pa_feflood::floodOpacity, group, pair);
}

int CHandlerReader::SetLightingColorPatt(_svg_common* parent, _svg_pa_lighting* group,
                                         _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) {
    return SetInheritedProperty(parent, group, kGroupLighting, kAttLightingColor);
  }
  return setColor(*this, &_svg_pa_lighting::lightingColor, group, pair);
}

int CHandlerReader::SetStopColorPatt(_svg_common* parent, _svg_pa_gradients* group,
                                     _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) return SetInheritedProperty(parent, group, kGroupGradients, kAttStopColor);
  return setColor(*this, &_svg_pa_gradients::stopColor, group, pair);
}

int CHandlerReader::SetStopOpacityPatt(_svg_common* parent, _svg_pa_gradients* group,
                                       _svg_attrib_pair* pair) {
  using namespace egfsvg;
  if (isInherit(pair)) {
    return SetInheritedProperty(parent, group, kGroupGradients, kAttStopOpacity);
  }
  return setNumber(&_svg_pa_gradients::stopOpacity, group, pair);
}

int CHandlerReader::SetColorProfilePatt(_svg_pa_images* group, _svg_attrib_pair* pair) {
  return egfsvg::setText(&_svg_pa_images::colorProfile, group, pair);
}

// The shorthand is passed over.
int CHandlerReader::SetMarkerPatt(_svg_pa_markers*, _svg_attrib_pair*) { return 0; }

int CHandlerReader::SetMarkerMidPatt(_svg_pa_markers* group, _svg_attrib_pair* pair) {
  return egfsvg::setText(&_svg_pa_markers::markerMid, group, pair);
}

int CHandlerReader::SetMarkerStartPatt(_svg_pa_markers* group, _svg_attrib_pair* pair) {
  return egfsvg::setText(&_svg_pa_markers::markerStart, group, pair);
}

int CHandlerReader::SetMarkerEndPatt(_svg_pa_markers* group, _svg_attrib_pair* pair) {
  return egfsvg::setText(&_svg_pa_markers::markerEnd, group, pair);
}
