// Field rows of the test attributes and the events.
#pragma once

#include "model/field_rows.h"
#include "model/groups.h"

namespace egfsvg::element_rows {

inline constexpr ElementField kRequiredFeaturesRows[] = {
    EGFSVG_FIELD(_svg_ta_requiredFeatures, listCount, kInteger),
    EGFSVG_FIELD(_svg_ta_requiredFeatures, passes, kInteger)};
inline constexpr ElementRecord kRequiredFeaturesFields(kRequiredFeaturesRows);

inline constexpr ElementField kRequiredExtensionsRows[] = {
    EGFSVG_FIELD(_svg_ta_requiredExtensions, listCount, kInteger),
    EGFSVG_FIELD(_svg_ta_requiredExtensions, passes, kInteger)};
inline constexpr ElementRecord kRequiredExtensionsFields(kRequiredExtensionsRows);

inline constexpr ElementField kSystemLanguageRows[] = {
    EGFSVG_FIELD(_svg_ta_systemLanguage, listCount, kInteger),
    EGFSVG_FIELD(_svg_ta_systemLanguage, passes, kInteger)};
inline constexpr ElementRecord kSystemLanguageFields(kSystemLanguageRows);

inline constexpr ElementField kTARows[] = {
    EGFSVG_RECORD(_svg_ta, requiredFeatures, kRequiredFeaturesFields),
    EGFSVG_RECORD(_svg_ta, requiredExtensions, kRequiredExtensionsFields),
    EGFSVG_RECORD(_svg_ta, systemLanguage, kSystemLanguageFields)};
inline constexpr ElementRecord kTAFields(kTARows);

inline constexpr ElementField kGraphicalEventRows[] = {
    EGFSVG_FIELD(_svg_event_graphical, onfocusout, kText),
    EGFSVG_FIELD(_svg_event_graphical, onfocusin, kText),
    EGFSVG_FIELD(_svg_event_graphical, onactivate, kText),
    EGFSVG_FIELD(_svg_event_graphical, onclick, kText),
    EGFSVG_FIELD(_svg_event_graphical, onmousedown, kText),
    EGFSVG_FIELD(_svg_event_graphical, onmouseup, kText),
    EGFSVG_FIELD(_svg_event_graphical, onmouseover, kText),
    EGFSVG_FIELD(_svg_event_graphical, onmousemove, kText),
    EGFSVG_FIELD(_svg_event_graphical, onmouseout, kText),
    EGFSVG_FIELD(_svg_event_graphical, onload, kText)};
inline constexpr ElementRecord kGraphicalEventFields(kGraphicalEventRows);

inline constexpr ElementField kAnimationEventRows[] = {
    {"slots", offsetof(_svg_event_animation, slots), ElementShape::kText, ElementRepeat::kInline, 4,
     sizeof(char*)}};
inline constexpr ElementRecord kAnimationEventFields(kAnimationEventRows);

inline constexpr ElementField kDocumentEventRows[] = {
    {"slots", offsetof(_svg_event_document, slots), ElementShape::kText, ElementRepeat::kInline, 6,
     sizeof(char*)}};
inline constexpr ElementRecord kDocumentEventFields(kDocumentEventRows);

inline constexpr ElementField kEventRows[] = {
    EGFSVG_RECORD(_svg_event, graphical, kGraphicalEventFields),
    EGFSVG_RECORD(_svg_event, animation, kAnimationEventFields),
    EGFSVG_RECORD(_svg_event, document, kDocumentEventFields)};
inline constexpr ElementRecord kEventFields(kEventRows);

}  // namespace egfsvg::element_rows
