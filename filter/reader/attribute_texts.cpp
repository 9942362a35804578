// Attributes that are kept as texts. Each setter stores a copy; what the field held is freed.

#include "model/rmm_allocator.h"
#include "reader/svg_handlerreader.h"
#include "reader/text_fields.h"

int CHandlerReader::SetIDAtt(char** out, _svg_attrib_pair* pair) {
  return egfsvg::replaceText(out, pair);
}

int CHandlerReader::SetTitleAtt(char** out, _svg_attrib_pair* pair) {
  return egfsvg::replaceText(out, pair);
}

int CHandlerReader::SetHrefAtt(char** out, _svg_attrib_pair* pair) {
  return egfsvg::replaceText(out, pair);
}

int CHandlerReader::SetDescAtt(_svg_common* head, _svg_attrib_pair* pair) {
  return head == nullptr ? 0 : egfsvg::keepFirstText(&head->desc, pair);
}

int CHandlerReader::SetLinkAtt(_xml_obj* out, _svg_attrib_pair* pair) {
  return out == nullptr ? 0 : egfsvg::replaceText(&out->value, pair);
}

int CHandlerReader::SetLangAtt(_xml_obj* out, _svg_attrib_pair* pair) {
  return out == nullptr ? 0 : egfsvg::replaceText(&out->value, pair);
}

int CHandlerReader::SetOnClickEventAtt(_svg_event_graphical* out, _svg_attrib_pair* pair) {
  return out == nullptr ? 0 : egfsvg::keepFirstText(&out->onclick, pair);
}
