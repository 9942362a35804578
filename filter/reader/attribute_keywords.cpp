// Attributes with a few known words, and those that are read and passed over.

#include <cstring>

#include "model/characters.h"
#include "model/codes.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

namespace {

const char* textOf(const _svg_attrib_pair* pair) { return pair == nullptr ? nullptr : pair->value; }

bool isWord(const char* text, const char* word) {
  return text != nullptr && std::strcmp(text, word) == 0;
}

constexpr int kSpreadUnknown = 0;

}  // namespace

}  // namespace egfsvg

int CHandlerReader::SetExternResReqAtt(_svg_common* head, _svg_attrib_pair* pair) {
  if (head == nullptr || pair == nullptr) return 0;
  head->externalResourcesRequired = egfsvg::equalsNoCase(pair->value, "true") ? 1 : 0;
  return 0;
}

int CHandlerReader::SetContentStyleTypeAtt(int* out, _svg_attrib_pair* pair) {
  if (out != nullptr && egfsvg::isWord(egfsvg::textOf(pair), "text/css")) *out = 1;
  return 0;
}

int CHandlerReader::SetXmlSpaceAtt(_svg_svg* record, _svg_attrib_pair* pair) {
  if (record == nullptr || pair == nullptr) return -1;
  if (egfsvg::equalsNoCase(pair->value, "preserve")) record->xmlSpace = 1;
  return 0;
}

// The next three know no value that matters.
int CHandlerReader::SetZoomAndPanAtt(int*, _svg_attrib_pair*) { return 0; }

int CHandlerReader::SetLengthAdjustAtt(int*, _svg_attrib_pair*) { return 0; }

int CHandlerReader::SetMediaDescAtt(int*, _svg_attrib_pair*) { return 0; }

int CHandlerReader::SetGradientUnitsAtt(int* out, _svg_attrib_pair* pair) {
  const char* text = egfsvg::textOf(pair);
  if (out == nullptr) return 0;
  if (egfsvg::equalsNoCase(text, "userspaceonuse")) *out = egfsvg::kGradientUserSpace;
  if (egfsvg::equalsNoCase(text, "objectboundingbox")) *out = egfsvg::kGradientBoundingBox;
  return 0;
}

// Kept: unlike the other keywords, these are exact with their case.
int CHandlerReader::SetSpreadMethodAtt(int* out, _svg_attrib_pair* pair) {
  using namespace egfsvg;
  const char* text = textOf(pair);
  if (out == nullptr || text == nullptr) return 0;
  *out = isWord(text, "pad")       ? kSpreadPad
         : isWord(text, "reflect") ? kSpreadReflect
         : isWord(text, "repeat")  ? kSpreadRepeat
                                   : kSpreadUnknown;
  return 0;
}

int CHandlerReader::SetAlternateAtt(int* out, _svg_attrib_pair* pair) {
  if (out != nullptr && pair != nullptr) *out = 0;
  return 0;
}

int CHandlerReader::SetRequiredFeaturesAtt(_svg_ta_requiredFeatures* out, _svg_attrib_pair* pair) {
  const char* text = egfsvg::textOf(pair);
  if (out == nullptr || pair == nullptr) return 0;
  out->passes =
      egfsvg::equalsNoCase(text, "org.w3c.svg.static") || egfsvg::equalsNoCase(text, "org.w3c.svg")
          ? 1
          : 0;
  return 0;
}

int CHandlerReader::SetRequiredExtensionsAtt(_svg_ta_requiredExtensions* out,
                                             _svg_attrib_pair* pair) {
  if (out != nullptr && pair != nullptr) out->passes = 0;
  return 0;
}

int CHandlerReader::SetSystemLanguageAtt(_svg_ta_systemLanguage* out, _svg_attrib_pair* pair) {
  const char* text = egfsvg::textOf(pair);
  if (out == nullptr || pair == nullptr) return 0;
  out->passes = text != nullptr && std::strstr(text, "en") != nullptr ? 1 : 0;
  return 0;
}
