// The mapping of a view: its resolution, and where the drawing stands.
#pragma once

#include "embedded_host/handles.h"
#include "host/resolution.h"

namespace egfhost {

class Map : public HostObject {
 public:
  static constexpr HostKind kKind = HostKind::kMap;

  Map() : HostObject(kKind) {}

  double xResolution = kDefaultResolution;  // device units per inch
  double yResolution = kDefaultResolution;
  // The composition location in work units, once it has been set.
  bool hasLocation = false;
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

}  // namespace egfhost
