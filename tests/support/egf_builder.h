// Builds trees of drawing objects so that a test reads as a table. Coordinates and lengths are
// pixels, angles degrees, colours words 0xRRGGBB as records hold them (black is 0xffffff).
//
// Functions give loose objects: hand each over to a tree, a group or a path, or keep it in an
// OwnedObject. Failing to build one is a test failure that throws.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/documents.h"
#include "host/egf.h"
#include "host/egf_bits.h"
#include "host/egf_codes.h"
#include "host/egf_styles.h"
#include "host/objects.h"
#include "host/style_tables.h"

namespace egfsvg::test {

struct DestroyObject {
  void operator()(_egf_obj* object) const { EEL_DestroyObject(object); }
};
using OwnedObject = std::unique_ptr<_egf_obj, DestroyObject>;

struct Px {
  double x;
  double y;
};
using Points = std::vector<Px>;

// The space units of pixels, as records hold them.
float spaceUnits(double pixels);
_mpl_spacept_tag spacePoint(Px point);
_mpl_spacerect_tag spaceRect(double left, double top, double right, double bottom);

// Pen and fill of areas.
struct AreaPen {
  double width = 0.0;
  std::uint32_t stroke = 0xffffff;
  std::uint32_t fill = 0xffffff;
  std::uint32_t lineStyle = kLineSolid;
  std::uint8_t fillStyle = kFillOpaque;
  std::uint8_t joinStyle = kJoinMiter;
  bool evenOdd = false;
  bool closed = true;
  std::uint32_t fillParmsNo = 0;
  std::uint32_t fillGradientNo = 0;
  std::uint32_t strokeGradientNo = 0;
  Points gradPts = {};
};

// Pen of lines.
struct LinePen {
  double width = 1.0;
  std::uint32_t stroke = 0xffffff;
  std::uint32_t lineStyle = kLineSolid;
  std::uint8_t rasterOp = kRasterOpaque;
  std::uint8_t capStyle = kCapButt;
  std::uint8_t joinStyle = kJoinMiter;
  std::uint32_t strokeParmsNo = 0;
  std::uint32_t strokeGradientNo = 0;
  Points gradPts = {};
};

struct TextStyle {
  double size = 20.0;
  double charWidth = 10.0;
  double rotation = 0.0;
  std::uint32_t color = 0xffffff;
  std::uint8_t justification = 0x18;  // left, on the baseline
  std::uint32_t fontFlags = 0;
  std::string_view typeface = "Arial";
};

struct ArrowHeads {
  bool closed = true;
  bool both = false;
  Points points = {};  // four: the bases of the head at the end, then of the head at the start
};

// A zeroed object of a class.
_egf_obj* allocObject(int objClass);

_egf_obj* box(double x, double y, double width, double height, const AreaPen& pen = {});
_egf_obj* polygon(const Points& points, const AreaPen& pen = {});
// Several subpaths, each with its own points.
_egf_obj* polyPath(const std::vector<Points>& subPaths, const AreaPen& pen = {});
_egf_obj* ellipse(double cx, double cy, double rx, double ry, const AreaPen& pen = {},
                  double rotation = 0.0, double start = 0.0, double end = 360.0);
_egf_obj* line(Px from, Px to, const LinePen& pen = {});
_egf_obj* arrowLine(Px from, Px to, const ArrowHeads& heads, const LinePen& pen = {});
_egf_obj* polyline(const Points& points, const LinePen& pen = {});
_egf_obj* arc(double cx, double cy, double rx, double ry, double start, double end,
              bool reversed = false);
// The curve child of a path: 3k + 1 control points.
_egf_obj* curve(const Points& points);

struct PathStyle {
  std::uint32_t pathKind = 0;
  std::uint32_t gdiFillStyleNo = 0;
  std::uint32_t fillParmsNo = 0;
  std::uint32_t fillGradientNo = 0;
  std::uint32_t strokeGradientNo = 0;
};
// Takes the children over and grows its rectangle by theirs.
_egf_obj* path(std::initializer_list<_egf_obj*> children, const PathStyle& style = {});
_egf_obj* group(std::initializer_list<_egf_obj*> children, std::string_view name = {},
                int flags = kGroupPlain);

_egf_obj* text(Px origin, std::string_view content, const TextStyle& style = {});
_egf_obj* annotation(Px origin, std::string_view lines, const TextStyle& style = {});
_egf_obj* image(double left, double top, double right, double bottom, HostHandle raster = 0);
_egf_obj* stockObject(std::uint32_t reference, Px place, double angle);
// Corners in order, and the outline's arcs of 51 points each.
_egf_obj* cloud(const Points& corners, const Points& outline = {}, const AreaPen& pen = {});
_egf_obj* diamond(const Points& corners, const AreaPen& pen = {});
_egf_obj* crossout(Px from, Px to, Px from2, Px to2, const LinePen& pen = {});
_egf_obj* hotspot(std::string_view data);
// An icon, bookmark, metafile, complex line, region or copy.
_egf_obj* opaqueObject(int objClass, double left, double top, double right, double bottom);

// Puts an object on a layer, or changes any field of its record:
//   edit<EgfPolygon>(box(0, 0, 1, 1), [](auto& record) { record.head.objAttr = 0; })
template <class Record, class Change>
_egf_obj* edit(_egf_obj* object, Change change) {
  change(*as<Record>(object));
  return object;
}
_egf_obj* onLayer(_egf_obj* object, int layer);

// A page's tree with its dashes and layers; freed at the end of its scope unless released.
class TreeBuilder {
 public:
  TreeBuilder();
  ~TreeBuilder();
  TreeBuilder(const TreeBuilder&) = delete;
  TreeBuilder& operator=(const TreeBuilder&) = delete;

  HostHandle handle() const { return tree_; }
  _egf_obj* root() const;
  EgfPageHeader* pageHeader() const;

  // Hands the object over to the root, whose rectangle grows by it.
  _egf_obj* add(_egf_obj* object);
  // The number of a new dash record; gaps are negative.
  std::uint32_t dash(const std::vector<double>& segments, std::uint32_t unit = kMeasureDevice);
  int layer(std::string_view name, bool shown = true, bool suppressed = false);
  void nameRoot(std::string_view name);
  // The tree is another owner's from now on.
  HostHandle release();

 private:
  HostHandle tree_;
};

// The number of a style record in a document's table of that class.
template <class Record>
std::uint32_t appendStyle(HostHandle document, StyleClass styleClass, const Record& record) {
  const HostHandle table = ISL_GetProperty(document, static_cast<std::uint32_t>(styleClass));
  return STYLE_AppendUnique(table, sizeof record, &record);
}

}  // namespace egfsvg::test
