// Where the records keep their property groups.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "model/codes.h"
#include "model/elements.h"

namespace egfsvg {

/// The code under which inheritance names a group's type.
template <class Group>
inline constexpr GroupCode kGroupCodeOf = GroupCode{};
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_fill> = kGroupFill;
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_stroke> = kGroupStroke;
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_graphics> = kGroupGraphics;
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_containers> = kGroupContainers;
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_feflood> = kGroupFlood;
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_fontspec> = kGroupFont;
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_gradients> = kGroupGradients;
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_images> = kGroupImages;
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_lighting> = kGroupLighting;
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_markers> = kGroupMarkers;
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_textcontentelems> = kGroupTextContent;
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_textelems> = kGroupTextElements;
template <>
inline constexpr GroupCode kGroupCodeOf<_svg_pa_viewports> = kGroupViewports;

/// Byte offsets of a record's groups by their code; kNone where it has no such group.
class GroupOffsets {
 public:
  static constexpr std::int16_t kNone = -1;

  constexpr GroupOffsets() { offsets_.fill(kNone); }

  template <class Record>
  static constexpr GroupOffsets of();

  constexpr bool has(GroupCode code) const { return offsets_[code] != kNone; }
  /// Of a group that the record has.
  constexpr std::size_t offsetOf(GroupCode code) const {
    return static_cast<std::size_t>(offsets_[code]);
  }
  void* find(void* record, GroupCode code) const {
    return has(code) ? static_cast<char*>(record) + offsets_[code] : nullptr;
  }
  template <class Group>
  Group* find(void* record) const {
    return static_cast<Group*>(find(record, kGroupCodeOf<Group>));
  }

 private:
  constexpr void put(GroupCode code, std::size_t offset) {
    offsets_[code] = static_cast<std::int16_t>(offset);
  }

  std::array<std::int16_t, kGroupViewports + 1> offsets_{};
};

template <class Record>
constexpr GroupOffsets GroupOffsets::of() {
  GroupOffsets result;
  if constexpr (requires(Record r) { r.pa; }) {
    result = of<_svg_pa>();
    for (std::int16_t& offset : result.offsets_) {
      if (offset != kNone) offset = static_cast<std::int16_t>(offset + offsetof(Record, pa));
    }
    return result;
  }
  if constexpr (requires(Record r) { r.fill; }) result.put(kGroupFill, offsetof(Record, fill));
  if constexpr (requires(Record r) { r.stroke; }) {
    result.put(kGroupStroke, offsetof(Record, stroke));
  }
  if constexpr (requires(Record r) { r.graphics; }) {
    result.put(kGroupGraphics, offsetof(Record, graphics));
  }
  if constexpr (requires(Record r) { r.containers; }) {
    result.put(kGroupContainers, offsetof(Record, containers));
  }
  if constexpr (requires(Record r) { r.feflood; }) {
    result.put(kGroupFlood, offsetof(Record, feflood));
  }
  if constexpr (requires(Record r) { r.fontspec; }) {
    result.put(kGroupFont, offsetof(Record, fontspec));
  }
  if constexpr (requires(Record r) { r.gradients; }) {
    result.put(kGroupGradients, offsetof(Record, gradients));
  }
  if constexpr (requires(Record r) { r.images; }) {
    result.put(kGroupImages, offsetof(Record, images));
  }
  if constexpr (requires(Record r) { r.lighting; }) {
    result.put(kGroupLighting, offsetof(Record, lighting));
  }
  if constexpr (requires(Record r) { r.markers; }) {
    result.put(kGroupMarkers, offsetof(Record, markers));
  }
  if constexpr (requires(Record r) { r.textcontentelems; }) {
    result.put(kGroupTextContent, offsetof(Record, textcontentelems));
  }
  if constexpr (requires(Record r) { r.textelems; }) {
    result.put(kGroupTextElements, offsetof(Record, textelems));
  }
  if constexpr (requires(Record r) { r.viewports; }) {
    result.put(kGroupViewports, offsetof(Record, viewports));
  }
  return result;
}

}  // namespace egfsvg
