// Release of what elements own beyond their groups: path data, text, stops, children, chains.
#include "model/lifecycle.h"
#include "model/rmm_allocator.h"

using egfsvg::freeAll;

void DestroyPathElements(_svg_path* path) {
  if (path == nullptr) return;
  if (path->paths != nullptr) {
    for (std::int32_t i = 0; i < path->pathCount; ++i) freeAll(path->paths[i].data);
  }
  freeAll(path->paths);
  path->pathCount = 0;
}

void DestroyTextElements(_svg_text* text) {
  if (text == nullptr) return;
  freeAll(text->content, text->link.value, text->lang.value);
  text->contentLength = 0;
}

void DestroyGrElements(_svg_gradient* gradient) {
  if (gradient == nullptr) return;
  if (gradient->stops != nullptr) {
    for (std::int32_t i = gradient->stopCount - 1; i >= 0; --i) {
      DestroyCommonElements(&gradient->stops[i].head);
      DestroyGraphicsElements(&gradient->stops[i].graphics);
    }
  }
  freeAll(gradient->stops, gradient->link.value);
  gradient->stopCount = 0;
}

void DestroyAElements(_svg_a* link) {
  if (link == nullptr) return;
  if (link->objects != nullptr) {
    for (std::int32_t i = 0; i < link->objectCount; ++i) svg_DestroyObject(&link->objects[i]);
  }
  freeAll(link->objects, link->cdata);
  link->objectCount = 0;
  link->cdataLength = 0;
}

void DestroyAttElements(AttNode* chain) {
  while (chain != nullptr) {
    AttNode* next = chain->next;
    freeAll(chain->value, chain);
    chain = next;
  }
}

void DestroyDefNodes(DefNode* chain) {
  while (chain != nullptr) {
    DefNode* next = chain->next;
    DestroyAttElements(chain->attributes);
    freeAll(chain->text, chain->idRef, chain);
    chain = next;
  }
}

void DestroyStyleElements(_svg_style_props* style) {
  if (style == nullptr) return;
  freeAll(style->selector, style->title);
  DestroyCommonElements(style->common);
  DestroyPAElements(&style->pa);
}
