// What a later run of a text takes over from the run before it. More than other children take: the
// runs are one text.

#include "reader/group_copies.h"
#include "reader/svg_handlerreader.h"
#include "reader/text_fields.h"

int CHandlerReader::InheritStyleAndTransformFromText(_svg_text* child, _svg_text* parent) {
  using namespace egfsvg;
  if (child == nullptr || parent == nullptr) return -1;
  copyWholeGroup(child->fill, parent->fill);
  copyWholeGroup(child->stroke, parent->stroke);
  copyWholeGroup(child->graphics, parent->graphics);
  copyWholeGroup(child->fontspec, parent->fontspec);
  copyWholeGroup(child->textcontentelems, parent->textcontentelems);
  child->textelems = parent->textelems;
  copyText(child->lang.value, parent->lang.value);
  CopyTransformList(&child->head, &parent->head);
  return 0;
}
