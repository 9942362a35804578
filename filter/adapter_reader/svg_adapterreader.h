// CAdapterReader: element records to EGF objects on one host page. Space units are 1/4096 pixel,
// host angles are millionths of a degree counter-clockwise. Members stand in one required order.
#pragma once

#include <cstdint>

#include "adapter_reader/adapter_state.h"
#include "adapter_reader/mapping.h"
#include "frame/entry_records.h"
#include "host/egf.h"
#include "host/egf_styles.h"
#include "host/files.h"
#include "host/objects.h"
#include "host/palettes.h"
#include "model/elements.h"

struct GroupStackNode;  // group_stack.h

class CAdapterReader {
 public:
  CAdapterReader();
  virtual ~CAdapterReader();
  CAdapterReader(const CAdapterReader&) = delete;
  CAdapterReader& operator=(const CAdapterReader&) = delete;
  static void operator delete(void* block);  // back to the host's allocator

  HostHandle document = 0;  // or a view: set by the whole-file layer, 0 after opening
  std::int32_t silent = 1;
  HostHandle handler = 0;
  _egf_obj* rootGroup = nullptr;  // only during ReadData, as the next three
  HostHandle map = 0;
  char* pageHeader = nullptr;
  char* pageRecord = nullptr;
  std::uint32_t dashCount = 0;
  std::uint32_t dashNameCounter = 0;
  _egf_dash_record** dashTable = nullptr;
  _sel_colour_list* palette = nullptr;
  float viewportWidth = 0.0F;  // space units
  float viewportHeight = 0.0F;
  GroupStackNode* groupStack = nullptr;  // bottom node
  egfsvg::AdapterState state;            // ours: what is the same for many elements

  // Driver (svg_adapterreader.cpp, page_elements.cpp, containers.cpp, page_palette.cpp).
  int OpenReader(_adapterOpenReader* record);
  int CloseReader();
  int PreprocessSource(_adapterPreprocess* record);
  int QueryProperty(_adapterQuery* record);
  int ReadData(_adapterReadData* record, QV_FILEID* file);
  int UnloadData(_adapterUnloadData* record);
  int EnumerateDataCallback(_handlerObject* record);
  _sel_colour_list* QueryColourPalette();
  _sel_colour_list* CreatePalette();
  void UpdatePalette(_sel_RGB_type colour);
  int _logError(int silent, int message);

  // Casts (svgcast.cpp, paint_codes.cpp, dashes.cpp).
  double SVGUnitToPixel(int unit, double res);
  double SVGValueToPixelValue(const _svg_value& value, double res);
  float castS32(const _svg_value& value);
  void castLineThickness(const _svg_value& value, __meas* out);
  int castRasterOperat(double opacity);
  int castRasterOperat(_svg_pa_stroke& stroke, _svg_pa_graphics graphics);
  int castFillStyle(double opacity);
  int castFillStyle(_svg_pa_fill& fill, _svg_pa_graphics graphics);
  int castFillStyle(_svg_pa_stroke& stroke, _svg_pa_graphics graphics);
  int castFillMode(int fillRule);
  _sel_RGB_type castColor(const _svg_color& colour);
  int castLineCap(int strokeLinecap);
  int castJoinStyle(_svg_pa_stroke& stroke);
  std::uint32_t castLineStyle(_svg_value offset, _svg_value* dashes, int count);
  int CreateDashTableEntry(_svg_value offset, _svg_value* dashes, int count, unsigned int* out);
  void SVGPointToPts(const _svg_point& point, const _svg_value& dx, const _svg_value& dy,
                     _mpl_spacept_tag* out);
  void SVGPointToPts(const _svg_point& point, _mpl_spacept_tag* out);
  void SVGPointToPts(_svg_point& point);
  int SVGAngleToAngle(const _svg_angle& angle);
  double SVGAngleToRAD(const _svg_angle& angle);

  // Coordinate mapping (mapping.cpp, viewport.cpp). A map is the adapter's own block, or memory of
  // the host while that is out; `_freeMapMatrix` takes both back.
  _viewPortMap* _findMapMatrix(_svg_common* element, _svg_viewbox* box, _svg_pa_viewports* ports);
  void _freeMapMatrix(_viewPortMap* map);
  void _transformPoint(_mpl_spacept_tag* point, _viewPortMap* map);
  void InitMatrix(_transformMatrix& matrix);
  void MultMatrix(_transformMatrix* a, _transformMatrix* b);
  void _svgViewPortMatrix(_viewPortMap* map);
  void _svgViewBoxMatrix(_viewBox* box);
  void _svgUserSpaceMatrix(_userSpace* space);
  int svg_DecomposeMatrix(double (*matrix)[3], double* shear, double* scaleX, double* scaleY,
                          double* rotation);
  _egf_obj* SVG_ViewPortCreate(_svg_svg* element, int isDefault);
  _egf_obj* SVG_formatEGFSvg(_svg_svg* element);

  // Plain paint (paint.cpp). A slot is the address of a pointer that starts null and gets a block
  // of the host on first need; its owner is the caller. All return 0, or -1 out of memory.
  int SetPathFillAndStrokeColor(_egf_gdi_fillparms_tag* pen, _egf_gdiplus_fillparms_tag** slot,
                                _svg_pa_fill& fill, _svg_pa_stroke& stroke,
                                _svg_pa_graphics& graphics);
  int SetPgonFillAndStrokeColor(_egf_obj* object, _egf_gdiplus_fillparms_tag** slot,
                                _svg_pa_fill& fill, _svg_pa_stroke& stroke,
                                _svg_pa_graphics& graphics);
  int SetElipsFillAndStrokeColor(_egf_obj* object, _egf_gdiplus_fillparms_tag** slot,
                                 _svg_pa_fill& fill, _svg_pa_stroke& stroke,
                                 _svg_pa_graphics& graphics);
  int SetLineFillColor(_egf_obj* object, _egf_gdiplus_stroke_parms_tag** slot,
                       _svg_pa_stroke& stroke, _svg_pa_graphics& graphics);
  int SetPlineFillColor(_egf_obj* object, _egf_gdiplus_stroke_parms_tag** slot,
                        _svg_pa_stroke& stroke, _svg_pa_graphics& graphics);
  int _setGdiPlusJoinStyle(_egf_gdiplus_fillparms_tag** slot, _svg_pa_stroke& stroke);
  int _setGdiPlusJoinStyle(_egf_gdiplus_stroke_parms_tag** slot, _svg_pa_stroke& stroke);
  int _setGdiPlusCapStyle(_egf_gdiplus_fillparms_tag** slot, _svg_pa_stroke& stroke);
  int _setGdiPlusCapStyle(_egf_gdiplus_stroke_parms_tag** slot, _svg_pa_stroke& stroke);

  // Shapes (shape_rect.cpp, shape_ellipse.cpp, shape_lines.cpp, shape_parms.cpp, point_arrays.cpp),
  // arcs (arcs.cpp).
  _egf_obj* SVG_formatEGFRect(_svg_rect* element);
  _egf_obj* SVG_formatEGFCircle(_svg_circle* element);
  _egf_obj* SVG_formatEGFEllipse(_svg_ellipse* element);
  _egf_obj* SVG_formatEGFLine(_svg_line* element);
  _egf_obj* SVG_formatEGFPolyline(_svg_polyline* element);
  _egf_obj* SVG_formatEGFPolygon(_svg_polygon* element);
  _mpl_spacept_tag* svg_discretizeRect(_mpl_spacept_tag* corners, std::int32_t rx, std::int32_t ry,
                                       unsigned int* count);
  _mpl_spacept_tag* svg_eel_discretizeArc(_mpl_spacept_tag* center, float rx, float ry,
                                          std::int32_t start, std::int32_t end,
                                          unsigned int* count);
  _mpl_spacept_tag* svg_discretizeArc(_mpl_spacept_tag* center, float rx, float ry, double rotation,
                                      std::int32_t start, std::int32_t end, unsigned int* count);
  void svg_UpdateObjBoundingBox(_mpl_spacerect_tag& box, _mpl_spacept_tag* points, int count);
  _mpl_spacept_tag* AddNewPointData(_mpl_spacept_tag* points, unsigned int* count,
                                    _mpl_spacept_tag* added, unsigned int n);
  _egf_obj* _getBoxRect(_mpl_spacept_tag* corners, _viewPortMap* map);
  _egf_obj* _getPathRect(_mpl_spacept_tag* corners, float rx, float ry, _viewPortMap* map);
  int _setPgonParms(_egf_obj* object, _mpl_spacerect_tag& bounds, _viewPortMap* map,
                    _svg_pa_fill& fill, _svg_pa_stroke& stroke, _svg_pa_graphics& graphics);
  int _setPathParms(_egf_obj* object, _mpl_spacerect_tag& bounds, _viewPortMap* map,
                    _svg_pa_fill& fill, _svg_pa_stroke& stroke, _svg_pa_graphics& graphics);

  // Paths (svg_path.cpp, path_parts.cpp, flat_path.cpp).
  int ArcToBezierCurve(double rotation, _mpl_spacept_tag center, double startDeg, double endDeg,
                       double rx, double ry, int reverse, int large, _mpl_spacept_tag*& points,
                       int* count);
  _egf_obj* SVG_formatGDIPlusPath(_svg_path* element);
  _egf_obj* SVG_formatEGFPath(_svg_path* element);
  int ArcEndpointToCenter(_svg_path_data* d, double x, double y, _mpl_spacept_tag* center,
                          double* rx, double* ry, double* startAngle, double* endAngle,
                          int relative);
  int _attachPlineToPath(_mpl_spacept_tag* points, unsigned int* count, _egf_obj* path);
  void _checkBezierCntrlPts(_mpl_spacept_tag* points);
  void _scaleEllipseArc(double* startDeg, double* endDeg, double* rx, double* ry, double scaleX,
                        double scaleY);

  // Gradients (gradient_*.cpp).
#include "adapter_reader/gradient_members.inc"
};
