// CAdapterWriter: EGF objects to SVG element records, handed to the serialiser one at a time.
// Coordinates of objects are space units (1/4096 pixel of the view), those of records are user
// units. The first members stand in one required order.
#pragma once

#include <cstdint>

#include "adapter_writer/gradient_parms.h"
#include "adapter_writer/writer_state.h"
#include "frame/entry_records.h"
#include "host/egf_blocks.h"
#include "host/egf_objects.h"
#include "host/egf_pens.h"
#include "host/egf_styles.h"
#include "host/resolution.h"
#include "model/elements.h"

inline constexpr int kWriterStyleSlots = 6;

/// The pools of one writer, style tables all. Slots 0 to 3 stay empty; slot 4 holds fills of 52
/// bytes, slot 5 strokes of 36.
struct WriterStyleSet {
  HostHandle slots[kWriterStyleSlots];
  HostHandle seventh;  // only when the host's settings ask for it; stays empty
  HostHandle eighth;   // never made; ended as a table should it be set
};

class CAdapterWriter {
 public:
  CAdapterWriter() = default;
  virtual ~CAdapterWriter();
  CAdapterWriter(const CAdapterWriter&) = delete;
  CAdapterWriter& operator=(const CAdapterWriter&) = delete;
  static void operator delete(void* block);  // back to the host's allocator

  HostHandle document = 0;  // or a view: set by the whole-file layer after opening
  HostHandle handlerWriter = 0;
  _mpl_spacerect_tag extent{};  // of the root object, in work units
  egfsvg::EgfPageHeader* styleTreeHead = nullptr;
  egfsvg::EgfTreeBody* objectTree = nullptr;
  WriterStyleSet* styleSet = nullptr;
  HostHandle gradientTable = 0;  // of awriter::_svg_gradient_parms
  std::int32_t svgWidth = 0;     // of the outermost viewport in pixels, 0 when not known
  std::int32_t svgHeight = 0;
  HostHandle view = 0;                  // the view's map: set by the whole-file layer after opening
  double xFactor = kDefaultResolution;  // device units per inch
  double yFactor = kDefaultResolution;
  egfsvg::WriterState state;      // ours: what one write keeps
  void* spareEnvelope = nullptr;  // ours: a block for the next record, or null

  // Driver (svg_adapterwriter.cpp, transfer.cpp, object_types.cpp, definitions.cpp). `target` is
  // the host's file object of the file that is being written.
  int OpenWriter(_adapterOpenWriter* record);
  int WriteData(_adapterWriteData* record, HostHandle target);
  int CloseWriter();
  int AdapterTransferData(_egf_obj* object, _adapterWriteData* data, HostHandle target);
  int _getSvgObjType(_egf_obj* object);
  int _transferReferencedData(_adapterWriteData* data);
  int _transferGradList(_adapterWriteData* data);
  int _transferDocStyleLists(_adapterWriteData* data);
  int _transferInteractivityData(_adapterWriteData* data);
  int _createCSSFile();

  // Shapes (convert_containers.cpp, convert_lines.cpp, convert_arrows.cpp, convert_areas.cpp,
  // convert_points.cpp, measures.cpp). Where there is a result, 0 is success, -1 a refusal.
  void SetSVGSVG(_egf_obj* object, _svg_svg* record);
  void SetSVGGroup(_egf_obj* object, _svg_group* record);
  int SetSVGLine(_egf_obj* object, _svg_line* record);
  int SetSVGLineArrow(_egf_obj* object, _svg_line* record);
  /// `which` 2 is the head at the start, any other the head at the end. The second form is for
  /// closed heads.
  void SetSVGPolyArrow(_egf_obj* object, _svg_polyline* record, int which);
  void SetSVGPolyArrow(_egf_obj* object, _svg_polygon* record, int which);
  int DrawArrowHeads(_egf_obj* object, _adapterWriteData* data);
  void SetSVGRect(_egf_obj* object, _svg_rect* record);
  void SetSVGEllipse(_egf_obj* object, _svg_ellipse* record);
  void SetSVGCircle(_egf_obj* object, _svg_circle* record);
  void SetSVGPolyline(_egf_obj* object, _svg_polyline* record);
  void SetSVGPlineForPgon(_egf_obj* object, _svg_polyline* record);
  void SetSVGPolygon(_egf_obj* object, _svg_polygon* record);
  int EraseRect(_egf_obj* object, _adapterWriteData* data);
  double QVUnitToSVG(std::uint32_t unit, double value, double resolution);
  void PolylineOutsideMer(_egf_obj* object, _mpl_spacerect_tag* bounds);

  // Paths (svgawritepath.cpp, subpath_walk.cpp, path_wrappers.cpp, path_groups.cpp). A record
  // without subpaths is not to be written, whatever the result.
  int _setPathCommandsData(_svg_singlepath** paths, int* count, _egf_obj* object);
  int _createSubPath(_svg_singlepath** paths, _svg_singlepath** subPath, int* count);
  int _moveTo(_svg_point* current, _svg_point* start, const _svg_point* target,
              _svg_singlepath* subPath);
  int SetSVGPathForPath(_egf_obj* object, _svg_path* record);
  int SetSVGPathForElips(_egf_obj* object, _svg_path* record);
  int SetSVGPathForArc(_egf_obj* object, _svg_path* record);
  /// Without a style object the path takes the style of the group around it.
  int SetSVGPathForPolygon(_egf_obj* styleObject, _svg_path* record, _egf_obj* polygon);
  int _transferSVGPathArray(_handlerWriteObject* envelope, _egf_obj* object, int groups);

  // Styles (svgawriteatt.cpp, paint_codes.cpp, style_props.cpp, strokes.cpp) and gradients
  // (gradients.cpp, gradient_elements.cpp). Style numbers of 0 are none; `parms` may be null.
  void SetStyleProps(std::uint32_t size, const void* pooled, _svg_style_props* props);
  void SetStyleProps(const _egf_gdi_fillparms_tag* pen, _svg_style_props* props);
  int STYLE_GradParmsAppendUnique(const _egf_gdiplus_fillparms_tag* parms, std::uint32_t gradientNo,
                                  const _mpl_spacept_tag* points, int pointCount);
  int STYLE_GradParmsAppendUnique(const _egf_gdiplus_stroke_parms_tag* parms,
                                  std::uint32_t gradientNo, const _mpl_spacept_tag* points,
                                  int pointCount);
  int SetGradProps(const awriter::_svg_gradient_parms* pooled, _svg_gradient* gradient);
  int _setSvgLineJoin(int joinStyle);
  void _setSvgLineJoin(_svg_pa_stroke& stroke, int joinStyle,
                       const _egf_gdiplus_fillparms_tag* parms);
  void _setSvgLineJoin(_svg_pa_stroke& stroke, int joinStyle,
                       const _egf_gdiplus_stroke_parms_tag* parms);
  int _setSvgLineCap(int capStyle);
  int _setFillMode(int fillMode);
  int _setSpreadMethod(_egf_wrapmode_tag wrapMode);
  void _setStrokeDashArray(_svg_pa_stroke& stroke, std::uint32_t lineStyle);
  void _setStyleFillAndStroke(_svg_pa_fill& fill, _svg_pa_stroke& stroke, int fillStyle,
                              _sel_RGB_type fillColor, _sel_RGB_type strokeColor);
  void _setObjFillAndStroke(_svg_pa_fill& fill, _svg_pa_stroke& stroke,
                            const _egf_gdiplus_fillparms_tag* parms, int fillStyle,
                            _sel_RGB_type fillColor, _sel_RGB_type strokeColor);
  void _setObjFillAndStroke(_svg_pa_fill& fill, _svg_pa_stroke& stroke,
                            const _egf_gdiplus_fillparms_tag* parms, int fillStyle,
                            _sel_RGB_type fillColor, _sel_RGB_type strokeColor, int fillGradient,
                            int strokeGradient);
  void _setStyleStroke(_svg_pa_stroke& stroke, int rasterOp, _sel_RGB_type color);
  void _setObjStroke(_svg_pa_stroke& stroke, const _egf_gdiplus_stroke_parms_tag* parms,
                     int rasterOp, _sel_RGB_type color, int gradient);
  void _setArcObjStroke(_svg_pa_stroke& stroke, const _egf_gdiplus_arcparms_tag* parms,
                        int rasterOp, _sel_RGB_type color, int gradient);
  void _setStrokeWidth(_svg_pa_stroke& stroke, __meas width);
  void _setDirectionalLineAngle(awriter::_svg_gradient_parms* parms, std::int32_t angle);
  int _setGradientTransform(_svg_gradient* gradient, _egf_matrix_tag matrix);
};

/// What the whole-file layer does to a writer that was opened through its entry point: tells it
/// its document (or a view of it) and the map that it measures with. Nothing happens for 0.
void attachWriter(HostHandle writer, HostHandle document, HostHandle map);

// Called for each record of a pool; `userData` is the _adapterWriteData.
int _transferEntityListProc(std::uint32_t size, const void* record, void* userData);
int _transferStyleListProc(std::uint32_t size, const void* record, void* userData);
int _gradListProc(std::uint32_t size, const void* record, void* userData);
