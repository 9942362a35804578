// CHandlerReader: SVG text to element records, one at a time. A first pass keeps what later
// elements can point at; the second hands out the elements. No document tree is kept.
// Members stand in one required order; each group of operations names its source file.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frame/entry_records.h"
#include "host/files.h"
#include "model/elements.h"
#include "model/keyed.h"
#include "model/svg_map.h"
#include "reader/cbuffer.h"
#include "reader/reader_state.h"

class CHandlerReader {
 public:
  CHandlerReader();
  virtual ~CHandlerReader();
  CHandlerReader(const CHandlerReader&) = delete;
  CHandlerReader& operator=(const CHandlerReader&) = delete;
  static void operator delete(void* block);  // back to the host's allocator

  cBuffer buffer;
  std::int32_t hasAttributes = 0;  // of the last tag: 1 when its name ended in white space
  const char* emptyText = "";
  std::int32_t svgCount = 0;  // element counters, each the next head.index of its kind
  std::int32_t groupCount = 0;
  std::int32_t localRefCount = 0;
  std::int32_t defsCount = 0;
  std::int32_t switchCount = 0;
  Map<_svg_group> groups;        // key: decimal head.index
  Map<_svg_defs> defs;           // key: "#" and id
  Map<_svg_svg> svgs;            // key: decimal head.index
  Map<_svg_switch> switches;     // key: decimal head.index
  Map<AttNode> styles;           // key: selector text
  Map<_svg_localref> localRefs;  // key: "#" and id, or an entity's name
  Map<_svg_gradient> gradients;  // key: "#" and id
  std::int32_t firstPassTags = 0;
  std::int32_t secondPassTags = 0;
  std::int32_t pass = 1;
  std::int32_t xmlSpace = 0;
  std::int32_t gaugeTicks = 0;
  HostHandle gaugeBar = 0;
  HostHandle gaugeLevel = 0;
  double viewportWidth = 1.0;  // of the innermost svg, for percentages
  double viewportHeight = 1.0;
  _svg_container* container = nullptr;  // owned
  egfsvg::ReaderState state;            // ours: scratch blocks, limits, settings, caches

  // Tag and attribute stream (tag_scanner.cpp, attribute_scanner.cpp, skipped_text.cpp).
  int GetNextTag(int* index);
  int takeTag(const char* opener, int* index);
  [[gnu::noinline]] int takeUnguessedTag(const char* opener, int* index);
  [[gnu::noinline]] int takeOtherTag(int* index);
  [[gnu::noinline]] int takeOtherTagOrReference(int* index, char** name);
  int takeTagOrReference(int* index, char** name);  // a tag; or kTagEntityReference with the name
  int GetNextPoiterTag(char** name);
  int GetNextAttribPair(_svg_attrib_pair* pair);
  int GetNextAttribPair(char** text, _svg_attrib_pair* pair);
  int FindCommentEnd();
  char* ParseCDATA(unsigned long* length);
  int isSVGTagClosed(int start, int end);
  int SkipSeparators(const char* text, int index);

  // Queries and the first pass (first_pass.cpp), progress (gauge.cpp), tables (reader_tables.cpp).
  int PreprocessSource(_handlerPreprocess* record);
  int QueryProperty(_handlerQuery* record);
  int GetDPI(long* result);
  int ParseStyleSheetsAndReferences();
  int StartGasGauge(HostHandle file, const char* caption);
  int UpdateGasGauge();
  /// UpdateGasGauge, where it could have an effect.
  void stepGauge() {
    if (buffer.fileIndex >= state.gaugeThreshold) UpdateGasGauge();
  }
  int FinishGasGauge();
  void DestroySVGElemsTable();
  void DestroyGroupTable();
  void DestroySwitchTable();
  void DestroyDefsTable();
  void DestroySVGStyleTable();
  void DestroyLocalRefTable();
  void DestroyGradientTable();
  void destroyTables();  // all of them

  // The second pass (enumeration.cpp, markup.cpp, enumerate_defs.cpp).
  void beginRead();
  void endRead();
  int EnumerateData(_handlerEnumData* record, QV_FILEID* file);
  int EnumerateMarkupData(_handlerEnumData* record, _svg_group* group);
  void EnumerateDefTagData(_svg_common* parent, int index);

  // References and switch (local_refs.cpp, definitions.cpp, references.cpp, switch.cpp).
  int CreateLocalRefTable(int tag);
  int UpdateLocalRefTable(int tag, int index);
  void locateTargetsAnywhere();
  int EnumerateTemplateData(_svg_common* parent, int index, int tag);
  int EnumerateLocalRefData(_handlerEnumData* record, _svg_group* use, QV_FILEID* file);
  int EnumeratePtrData(_handlerEnumData* record, _svg_common* parent, _svg_localref* reference);
  int EnumerateSwitchTagData(_handlerEnumData* record, _svg_common* parent, QV_FILEID* file);
  int _evaluateTestAtt(_svg_ta ta);

  // Element parsers (svg_parse.cpp, parse_containers.cpp, parse_link.cpp, markup.cpp).
  int ParseRectTagData(_svg_rect* record, _svg_common* parent);
  int ParseCircleTagData(_svg_circle* record, _svg_common* parent);
  int ParseEllipseTagData(_svg_ellipse* record, _svg_common* parent);
  int ParseLineTagData(_svg_line* record, _svg_common* parent);
  int ParsePolylineTagData(_svg_polyline* record, _svg_common* parent);
  int ParsePolygonTagData(_svg_polygon* record, _svg_common* parent);
  int ParsePathTagData(_svg_path* record, _svg_common* parent);
  int ParseStopTagData(_svg_stop* record, _svg_common* parent);
  int ParseDefsTagData(_svg_defs* record, _svg_common* parent);
  int ParseImageTagData(_svg_image* record, _svg_common* parent, QV_FILEID* file);
  _svg_common* ParseSVGTagData(_svg_common* parent, _svg_svg** slot, int isSymbol);
  _svg_common* ParseGroupTagData(_svg_common* parent, _svg_group** slot, int isUse);
  _svg_common* ParseSwitchTagData(_svg_common* parent, _svg_switch** slot);
  _svg_common* ParseATagData(_svg_common* parent, _svg_a** slot, QV_FILEID* file);
  int ParseMarkupGroupsData(_svg_objects* object, _svg_group* group);
  int CreateAttribList(AttNode** list, char** idRef);
  int _setMarkupGroupType(_svg_group* group);
  int _setLinkObjectData(_svg_a** slot, QV_FILEID* file);

  // Open containers and parents (containers.cpp).
  _svg_container* _initContainer(_svg_container** slot);
  void _setContainerElem(_svg_container** slot, _svg_common* element, int type);
  _svg_common* _getContainerElem(_svg_common* element);
  _svg_common* _getParentObj(_svg_common* element);
  _svg_common* gradientOf(const _svg_common* element);  // of the same id, in the table
  _svg_common* leaveContainer(_svg_common* element);    // its parent, which is open again
  _svg_common* closeContainer(_svg_common* element);  // the same; a record nobody needs is released
  bool mayNest(int tag);                              // false, with a message, at the limit
  void CopyOwnerTransformList(_svg_common* element);
  void CopyTransformList(_svg_common* to, const _svg_common* from);

  // Attribute dispatch (svg_setatt.cpp and set_*_attributes.cpp).
  int SetSVGAttribute(_svg_svg* record, int attType, _svg_attrib_pair* pair);
  int SetGroupAttribute(_svg_group* record, int attType, _svg_attrib_pair* pair);
  int SetDefsAttribute(_svg_defs* record, int attType, _svg_attrib_pair* pair);
  int SetSwitchAttribute(_svg_switch* record, int attType, _svg_attrib_pair* pair);
  int SetLinkObjAttribute(_svg_a* record, int attType, _svg_attrib_pair* pair);
  int SetImageAttribute(_svg_image* record, int attType, _svg_attrib_pair* pair);
  int SetTextAttribute(_svg_text* record, int attType, _svg_attrib_pair* pair);
  int SetRectAttribute(_svg_rect* record, int attType, _svg_attrib_pair* pair);
  int SetCircleAttribute(_svg_circle* record, int attType, _svg_attrib_pair* pair);
  int SetEllipseAttribute(_svg_ellipse* record, int attType, _svg_attrib_pair* pair);
  int SetLineAttribute(_svg_line* record, int attType, _svg_attrib_pair* pair);
  int SetPolylineAttribute(_svg_polyline* record, int attType, _svg_attrib_pair* pair);
  int SetPolygonAttribute(_svg_polygon* record, int attType, _svg_attrib_pair* pair);
  int SetPathAttribute(_svg_path* record, int attType, _svg_attrib_pair* pair);
  int SetGradientObjAttribute(_svg_gradient* record, int attType, _svg_attrib_pair* pair);
  int SetStopObjAttribute(_svg_stop* record, int attType, _svg_attrib_pair* pair);
  int SetStyleTagAttribute(_svg_style_props* record, int attType, _svg_attrib_pair* pair);
  int SetStyleTagPresentationAtt(_svg_style_props* record, int attType, _svg_attrib_pair* pair);

  // Values (attribute_values.cpp, attribute_texts.cpp, attribute_keywords.cpp, viewports.cpp,
  // points.cpp, transforms.cpp).
  int ParseValue(_svg_value* out, const char* text);
  int ParseAngle(_svg_angle* out, const char* text);
  int SetValueAtt(_svg_value* out, _svg_attrib_pair* pair);
  int SetAngleAtt(_svg_angle* out, _svg_attrib_pair* pair);
  double SVGPixelValue(_svg_value* value);
  int SetViewboxAtt(_svg_viewbox** out, _svg_attrib_pair* pair);
  int SetPreserveAspectAtt(int* out, _svg_attrib_pair* pair);
  int SetViewBoxToVPort(_svg_svg* record);
  int SetUniformScaling(_svg_svg* record);
  int SetInitialViewport(_svg_svg* record);
  _svg_point* SetPointsAtt(int* count, _svg_attrib_pair* pair);
  int SetIDAtt(char** out, _svg_attrib_pair* pair);
  int SetTitleAtt(char** out, _svg_attrib_pair* pair);
  int SetHrefAtt(char** out, _svg_attrib_pair* pair);
  int SetDescAtt(_svg_common* head, _svg_attrib_pair* pair);
  int SetLinkAtt(_xml_obj* out, _svg_attrib_pair* pair);
  int SetLangAtt(_xml_obj* out, _svg_attrib_pair* pair);
  int SetOnClickEventAtt(_svg_event_graphical* out, _svg_attrib_pair* pair);
  int SetExternResReqAtt(_svg_common* head, _svg_attrib_pair* pair);
  int SetContentStyleTypeAtt(int* out, _svg_attrib_pair* pair);
  int SetXmlSpaceAtt(_svg_svg* record, _svg_attrib_pair* pair);
  int SetZoomAndPanAtt(int* out, _svg_attrib_pair* pair);
  int SetLengthAdjustAtt(int* out, _svg_attrib_pair* pair);
  int SetMediaDescAtt(int* out, _svg_attrib_pair* pair);
  int SetGradientUnitsAtt(int* out, _svg_attrib_pair* pair);
  int SetSpreadMethodAtt(int* out, _svg_attrib_pair* pair);
  int SetAlternateAtt(int* out, _svg_attrib_pair* pair);
  int SetRequiredFeaturesAtt(_svg_ta_requiredFeatures* out, _svg_attrib_pair* pair);
  int SetRequiredExtensionsAtt(_svg_ta_requiredExtensions* out, _svg_attrib_pair* pair);
  int SetSystemLanguageAtt(_svg_ta_systemLanguage* out, _svg_attrib_pair* pair);
  int SetTransformAtt(_svg_common* head, _svg_attrib_pair* pair);

  // Presentation properties (presentation_*.cpp), paints (paints.cpp).
#include "reader/presentation_setters.inc"

  // Path data (path_data.cpp).
  int SetPathAtt(_svg_path* path, const char* d);
  double GetNextPathCoord(const char* text, int& index);
  _svg_path_data* AddNewPathData(_svg_path_data* data, int count);

  // Gradients (gradients.cpp).
  _svg_gradient* ParseGradientTagData(_svg_common* parent, _svg_gradient** out, int type);
  int ParseGradients(_svg_common* parent, int type);
  int AddStopTagToParent(_svg_gradient* gradient, _svg_stop* stop);
  int SetLinkedStopTags(_svg_gradient* gradient);
  void SetBoundingBoxUnits(_svg_gradient* gradient);
  int readGradientAttributes(_svg_gradient* gradient);
  void readStops(_svg_gradient* gradient);

  // Classes, style attributes, sheets and entities (svg_style.cpp, style_element.cpp, entities.cpp,
  // css_*.cpp).
  int SetClassNameAtt(_svg_common* head, _svg_attrib_pair* pair);
  int SetLocalStyleAtt(void* element, char* value, int type);
  int SkipCSScomment(const char* text, int index);
  int SkipCSScomment(char* current, cBuffer* source);
  int ParseStyleTagData(_svg_style_props* style, _svg_common* owner);
  int ParseEntityTagData(_svg_style_props* style, _svg_common* owner);
  int ParseExternalStyleSheet(_svg_style_props* style, _svg_common* owner);
  int ParseCSSFile(cBuffer* source);
  int ParseCSSData();
  int GetEntityData();
  /// The caller gives an array of one name slot; it may move as it grows.
  int ParseCSSstyleID(char* selector, char*** names);

  // The cascade (cascade.cpp, selectors.cpp, inheritance.cpp, text_inheritance.cpp).
  int SetAttribute(void* element, int type, AttNode* node);
  int SetStyleBasedOnTypeSelector(void* element, int type);
  int SetStyleBasedOnIDSelector(void* element, int type, const char* id);
  int SetStyleBasedOnClassSelector(void* element, int type, const char* text);
  int SetStyleBasedOnChildSelector(void* element, int type, _svg_common* parent,
                                   const char* subject);
  int SetStyleBasedOnDescedantSelector(void* element, int type, _svg_common* parent,
                                       const char* subject);
  int SetStyleBasedOnAttribSelector(void* element, int type, _svg_attrib_pair* pair);
  int SetStyleBasedOnClass(void* element, int type);
  AttNode* pGetStyleFromTable(const char* name);
  int InheritStyleAndTransform(void* element, int type);
  int CopyLocalStyle(_svg_pa& source, void* group, int groupCode);
  int SetInheritedProperty(_svg_common* parent, void* group, int groupCode, int attCode);
  int _getParentPA(_svg_common* parent, _svg_pa** result);
  int InheritStyleAndTransformFromText(_svg_text* child, _svg_text* parent);
};
