// CHandlerWriter: element records to SVG text, one FLR_PutLine call at a time. The order of a file
// is the caller's. Element writers return -1 when a line could not be written, else what the host
// returned for the last one.
#pragma once

#include <cstdint>

#include "frame/entry_records.h"
#include "model/elements.h"
#include "writer/line_builder.h"

class CHandlerWriter {
 public:
  CHandlerWriter() = default;
  virtual ~CHandlerWriter();
  CHandlerWriter(const CHandlerWriter&) = delete;
  CHandlerWriter& operator=(const CHandlerWriter&) = delete;
  static void operator delete(void* block);  // back to the host's allocator

  int OpenWriter(_handlerOpenWriter* record);
  int CloseWriter();
  int WriteObject(_handlerWriteObject* record);

  // Frame (frame_lines.cpp, gradient_lines.cpp, script_lines.cpp).
  int writeSVGHeader(_objectStream* record, HostHandle stream);
  int writeCloseDoctype(HostHandle stream);
  int writeOpenDefsTag(HostHandle stream);
  int writeCloseDefsTag(HostHandle stream);
  int writeOpenStyleTag(HostHandle stream);
  int writeCloseStyleTag(HostHandle stream);
  int writeOpenSVGTag(_svg_svg* record, HostHandle stream);
  int writeCloseSVGTag(HostHandle stream);
  int writeEntityData(_svg_style_props* record, HostHandle stream);
  int writeCSSStyleSheetData(_svg_style_props* record, HostHandle stream);
  int writeGradientTag(_svg_gradient* record, HostHandle stream);
  int writeOpenScriptTag(_svg_script* record, HostHandle stream);
  int writeCloseScriptTag(HostHandle stream);

  // Elements (shape_lines.cpp, point_lines.cpp, container_lines.cpp, text_lines.cpp).
  int writeSVGLineTag(_svg_line* record, HostHandle stream);
  int writeSVGRectTag(_svg_rect* record, HostHandle stream);
  int writeSVGCircleTag(_svg_circle* record, HostHandle stream);
  int writeSVGEllipseTag(_svg_ellipse* record, HostHandle stream);
  int writeSVGPolylineTag(_svg_polyline* record, HostHandle stream);
  int writeSVGPolygonTag(_svg_polygon* record, HostHandle stream);
  int writeSVGPathTag(_svg_path* record, HostHandle stream);
  int writeSVGGroupTag(_svg_group* record, HostHandle stream);
  int writeSVGGroupCloseTag(HostHandle stream);
  int writeSVGImageTag(_svg_image* record, HostHandle stream);
  int writeSVGLinkTag(_svg_a* record, HostHandle stream);
  int writeSVGLinkCloseTag(HostHandle stream);
  int writeSVGTextTag(_svg_text* record, HostHandle stream);

  // Markup groups (markup_lines.cpp).
  int writeCloudGroup(_svg_markup_cloud* record, HostHandle stream);
  int writeCrossOutGroup(_svg_markup_crossout* record, HostHandle stream);
  int writeDiamondGroup(_svg_markup_diamond* record, HostHandle stream);
  int writeAnnoGroup(_svg_markup_anno* record, HostHandle stream);

  // Attribute form (svghwritestyles.cpp): presentation attributes, each ending in a blank.
  void GetLocalAttribs(const _svg_pa_fill& fill, const _svg_pa_stroke& stroke,
                       const _svg_pa_graphics& graphics, egfsvg::LineBuilder& out);
  void AddLineCapAttrib(const _svg_pa_stroke& stroke, egfsvg::LineBuilder& out);
  void AddLineJoinAttrib(const _svg_pa_stroke& stroke, egfsvg::LineBuilder& out);

  // Style form (style_text.cpp): one style="..." text; a fragment takes the place of its last
  // quote and brings a new one. GetStyle frees the references of fill and stroke.
  void GetStyle(_svg_pa_fill& fill, _svg_pa_stroke& stroke, const _svg_pa_graphics& graphics,
                egfsvg::LineBuilder& out);
  void GetTextStyle(double fillOpacity, std::int32_t fillColor, std::int32_t strokeColor,
                    double strokeWidth, int reserved, egfsvg::LineBuilder& out);
  void AddLineCapStyle(const _svg_pa_stroke& stroke, egfsvg::LineBuilder& out);
  void AddLineJoinStyle(const _svg_pa_stroke& stroke, egfsvg::LineBuilder& out);
  void AddTextElemsTextContentElemsStyle(const _svg_pa_textelems& elements,
                                         const _svg_pa_textcontentelems& content,
                                         egfsvg::LineBuilder& out);
  void AddFontStyle(const _svg_pa_fontspec& font, egfsvg::LineBuilder& out);
  void AddGraphicalEventAttrib(const _svg_pa_graphics& graphics, _svg_event_graphical events,
                               egfsvg::LineBuilder& out);

 private:
  int putLiteral(const char* text, HostHandle stream);

  egfsvg::LineBuilder line_;  // reused between lines
  egfsvg::LineBuilder style_;
  egfsvg::LineBuilder reference_;
  std::int32_t openSvgs_ = 0;  // the outermost svg may carry namespaces
};
