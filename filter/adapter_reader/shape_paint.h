// How a shape gets its pen, fill and extended records: the steps that all formatters share. What
// differs between classes is a form: where the record of the class keeps what.
#pragma once

#include <cstddef>

#include "adapter_reader/gradient_paint.h"
#include "adapter_reader/paint.h"

namespace egfsvg {

/// Whether a shape's bounds count: they place gradients and nothing else.
inline bool needsBounds(const _svg_pa_stroke& stroke) { return stroke.strokeGradient != nullptr; }
inline bool needsBounds(const _svg_pa_fill& fill, const _svg_pa_stroke& stroke) {
  return fill.fillGradient != nullptr || needsBounds(stroke);
}

/// Field offset of a style number that the class does not keep.
inline constexpr std::size_t kNotKept = 0;

/// Places of the style numbers in an object that is filled.
struct FilledForm {
  std::size_t fillParmsNo;
  std::size_t fillGradientNo;
  std::size_t strokeGradientNo;
  FillGradientSetter setGradient;
};
extern const FilledForm kPolygonForm;
extern const FilledForm kShearedForm;  // a polygon that stands for an ellipse
extern const FilledForm kEllipseForm;
extern const FilledForm kPathForm;

/// The paint of one filled shape, from its property groups to style numbers.
class FilledPaint {
 public:
  FilledPaint(CAdapterReader& adapter, _svg_pa_fill& fill, _svg_pa_stroke& stroke,
              _svg_pa_graphics& graphics)
      : adapter_(adapter), fill_(fill), stroke_(stroke), graphics_(graphics) {}

  /// Width, dashes and colours. Style codes are taken first, since they change the groups.
  void setShapePen(FilledPen& pen) { setPen<shapeNeedsRecord>(pen); }
  void setPathPen(FilledPen& pen) { setPen<pathNeedsRecord>(pen); }
  /// The fill's gradient, else the stroke's. False when it failed.
  bool setGradient(const FilledForm& form, _viewPortMap* map, const _mpl_spacerect_tag& bounds,
                   _egf_obj* object) {
    const bool needed = isGradientCode(fillCode_) || isGradientCode(strokeCode_);
    return !needed || runGradient(form, map, bounds, object);
  }
  /// The fill's code, and the stroke's in the extended record, if there is one.
  void setFillStyle(FilledPen& pen);
  /// The join, and in the extended record its limit.
  void setJoin(FilledPen& pen, bool withLimit = true);
  void setCaps();
  /// Offers the records in use and stores their numbers.
  void storeStyles(const FilledForm& form, _egf_obj* object) const;

  FillSlot& parms() { return parms_; }

 private:
  template <auto kNeedsRecord>
  void setPen(FilledPen& pen);
  bool runGradient(const FilledForm& form, _viewPortMap* map, const _mpl_spacerect_tag& bounds,
                   _egf_obj* object);

  CAdapterReader& adapter_;
  _svg_pa_fill& fill_;
  _svg_pa_stroke& stroke_;
  _svg_pa_graphics& graphics_;
  int strokeCode_ = kFillNone;
  int fillCode_ = kFillNone;
  FillSlot parms_;
  GradientSlot fillRamp_;
  GradientSlot strokeRamp_;
};

/// Places in an object that is only stroked, and how its opacity counts.
struct StrokedForm {
  std::size_t strokeParmsNo;
  std::size_t strokeGradientNo;
  double (*alpha)(const _svg_pa_stroke&, const _svg_pa_graphics&);
  StrokeGradientSetter setGradient;
};
extern const StrokedForm kLineForm;
extern const StrokedForm kPolylineForm;

class StrokedPaint {
 public:
  StrokedPaint(CAdapterReader& adapter, _svg_pa_stroke& stroke, _svg_pa_graphics& graphics)
      : adapter_(adapter), stroke_(stroke), graphics_(graphics) {}

  /// Width, dashes, raster code, caps, and the stroke's code.
  void setPen(StrokedPen& pen);
  /// Gradient or colour. False when the gradient failed.
  bool setColour(const StrokedForm& form, _viewPortMap* map, const _mpl_spacerect_tag& bounds,
                 _egf_obj* object, StrokedPen& pen);
  /// Kept: the code of the join, which the extended record of a round join does not need.
  std::uint8_t setJoin();
  void storeStyles(const StrokedForm& form, _egf_obj* object);

 private:
  CAdapterReader& adapter_;
  _svg_pa_stroke& stroke_;
  _svg_pa_graphics& graphics_;
  int strokeCode_ = kFillNone;
  StrokeSlot parms_;
  GradientSlot ramp_;
};

}  // namespace egfsvg
